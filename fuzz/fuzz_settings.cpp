// SPDX-License-Identifier: MIT
/// Any bytes taken for the settings store must be read with nothing worse than questions, and the
/// store written from what was read must come back without any.
#include "appearance/theme.h"
#include "fuzz/require.h"
#include "runtime/messagebox.h"
#include "shell/cdlgex.h"
#include "shell/settings.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <set>

namespace {

using namespace vnb;

/// A window that can be anywhere on a screen of a million pixels.
class View : public SettingsView {
public:
  void setLeft(std::int32_t lLeft) override { m_left = onScreen(lLeft); }
  void setTop(std::int32_t lTop) override { m_top = onScreen(lTop); }
  double Left() const override { return m_left; }
  double Top() const override { return m_top; }
  void LoadTheme(const QString &sFileName) override { ThemeFile = sFileName; }

private:
  static std::int32_t onScreen(std::int32_t place) {
    constexpr std::int32_t edge = 15'000'000;
    return std::clamp(place, -edge, edge);
  }

  std::int32_t m_left = 0;
  std::int32_t m_top = 0;
};

/// The store, in memory.
class StoreFile {
public:
  StoreFile() : m_folder(QStringLiteral("/dev/shm/settings-XXXXXX")) {
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder.path()));
  }

  void fill(const QByteArray &bytes) const {
    QFile file(m_folder.filePath(QStringLiteral("VNB.ini")));
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush(),
            "the input can't be stored");
  }

private:
  QTemporaryDir m_folder;
};

/// One state to start from, so that an input means the same whatever came before it.
void forget() {
  for (const ColourRow &row : colourRows)
    *row.colour = 0;
  ShowGrid = LoadLastFile = false;
  GridRes = 0;
  Cdlg.FileName = ThemeFile = QString();
}

/// Everything that is stored, beside the place.
QByteArray values() {
  QByteArray text;
  for (const std::int32_t value : {GridColor, LinkColor, LinkSelColor, LockColor, SelectedColor,
                                   SubnetColor, SubnetSelColor, GridRes})
    text += QByteArray::number(value) + ' ';
  text += ShowGrid ? "grid " : "no grid ";
  text += LoadLastFile ? "last " : "no last ";
  return text + Cdlg.FileName.toUtf8() + '\0' + ThemeFile.toUtf8();
}

/// The store written from what was read comes back without a question.
void checkWriting(View &view, const QByteArray &due) {
  showMessageBox = [](const MessageBox &box) {
    require(false, qUtf8Printable(box.text));
    return Answer::No;
  };
  view.settingsLeftOut = false; // as if the user had been asked already
  SaveSettings(view);
  View other;
  LoadSettings(other);
  require(values() == due, "what was saved comes back");
  require(other.Left() == view.Left() && other.Top() == view.Top(), "so does the place");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
  static const StoreFile store;
  static std::set<QByteArray> written; // the same values need not be written again
  forget();
  View view;
  int boxes = 0;
  showMessageBox = [&boxes](const MessageBox &) {
    return ++boxes % 2 == 1 ? Answer::Yes : Answer::No;
  };
  store.fill(QByteArray(reinterpret_cast<const char *>(bytes), static_cast<qsizetype>(size)));
  LoadSettings(view);
  // No path has half a surrogate pair, and a store can't hold one.
  if (!Cdlg.FileName.isValidUtf16() || !ThemeFile.isValidUtf16())
    return 0;
  const QByteArray read = values();
  const QByteArray place = QByteArray::number(view.Left()) + ' ' + QByteArray::number(view.Top());
  if (written.insert(read + place).second)
    checkWriting(view, read);
  return 0;
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
  new QCoreApplication(*argc, *argv); // to the end of the process
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
  return 0;
}
