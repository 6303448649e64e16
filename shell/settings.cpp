// SPDX-License-Identifier: MIT
#include "shell/settings.h"

#include "appearance/theme.h"
#include "runtime/files.h"
#include "runtime/messagebox.h"
#include "runtime/numbers.h"
#include "runtime/report.h"
#include "shell/cdlgex.h"
#include "shell/textini.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>
#include <array>

namespace vnb {
namespace {

/// The store: sections of keys with text values, VNB.ini in the user's configuration folder. What
/// it raises tells the file, and the key that it is about.
class Store {
public:
  const QString &path() const { return m_path; }

  /// Takes what the file holds; nothing where there is none.
  void read() {
    constexpr qint64 largest = qint64{1} << 20; // a hundred times more than this program writes
    about(m_path, [this] {
      if (QFileInfo(m_path).size() > largest)
        throw RuntimeError(ownError, QStringLiteral("The file is larger than 1 MiB."));
      try {
        File file;
        file.openForInput(m_path);
        m_values = readIni(file.readAll());
      } catch (const RuntimeError &error) {
        // At the first start there is none.
        if (error.number() != static_cast<std::int32_t>(Fault::FileNotFound))
          throw;
      }
    });
  }

  QString text(const char *key, const QString &standard) const {
    return m_values.value(QLatin1String(key), standard);
  }
  /// Runs what makes use of a value. What it raises tells the key as well.
  template <class Act>
  auto telling(const char *key, const Act &act) const {
    return about(with(QLatin1String(key)), act);
  }
  std::int32_t number(const char *key, std::int32_t standard) const {
    return telling(key, [&] { return CLng(text(key, QString::number(standard)).toStdString()); });
  }
  bool truth(const char *key, bool standard) const {
    // A word in any case, or else a number, of which 0 is false.
    const QString value = text(key, truthText(standard));
    for (const bool truth : {true, false})
      if (value.compare(truthText(truth), Qt::CaseInsensitive) == 0)
        return truth;
    return telling(key, [&] { return CDbl(value.toStdString()) != 0; });
  }

  void set(const char *key, const QString &value) { m_values[QLatin1String(key)] = value; }
  void set(const char *key, std::int32_t value) { set(key, QString::number(value)); }
  void setTruth(const char *key, bool value) { set(key, truthText(value)); }

  /// Puts all values into the file at once, whatever may happen meanwhile. A new one is for its
  /// user alone.
  void write() const {
    // A new user may have no such folder yet.
    QDir().mkpath(QFileInfo(m_path).path());
    const bool isNew = !QFileInfo::exists(m_path);
    const QByteArray bytes = iniText(m_values);
    // It is written beside the old one, which stays if anything cuts this off.
    QSaveFile file(m_path);
    bool done = file.open(QIODevice::WriteOnly);
    if (done && isNew)
      file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    // The commit alone would pass over a disk that has no room for what is flushed only then.
    done = done && file.write(bytes) == bytes.size() && file.flush() && file.commit();
    if (!done)
      throw RuntimeError(Fault::PathFileAccess).about(with(file.errorString()));
  }

private:
  static QString truthText(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
  }
  QString with(const QString &detail) const { return m_path + QStringLiteral(": ") + detail; }

  const QString m_path =
      QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
          .filePath(QStringLiteral("VNB.ini"));
  IniValues m_values;
};

bool mayReplace(const QString &path) {
  return showMessageBox(
             {.title = QStringLiteral("Settings"),
              .text = QStringLiteral("Not all settings could be read at the start.\n"
                                     "Do you want to replace those in %1 by the present ones?")
                          .arg(path),
              .icon = MessageBox::Icon::Exclamation,
              .buttons = MessageBox::Buttons::YesNo,
              .preset = Answer::No}) == Answer::Yes;
}

QString positionText(double twips) {
  return doubleText(static_cast<float>(twips));
}

} // namespace

void LoadSettings(SettingsView &view) {
  const Report report("frmMain", "LoadSettings");
  Store store;
  view.settingsLeftOut = false;
  // What a fault leaves out counts, whatever the answer: saving would replace it.
  const auto reads = [&](const auto &statement) {
    bool done = false;
    const bool goOn = report([&] {
      statement();
      done = true;
    });
    view.settingsLeftOut |= !done;
    return goOn;
  };
  const auto position = [&](const char *key, void (SettingsView::*move)(std::int32_t)) {
    return reads([&] {
      const std::int32_t value = store.number(key, noPosition);
      if (value != noPosition)
        (view.*move)(value);
    });
  };
  const auto colour = [&](const ColourRow &row) {
    return reads([&] { *row.colour = store.number(row.storeKey, row.standard); });
  };
  const bool complete =
      reads([&] { store.read(); }) && position("Main/PosX", &SettingsView::setLeft) &&
      position("Main/PosY", &SettingsView::setTop) &&
      // A theme that can't be loaded is read all the same: its path stays in the store.
      report([&] {
        store.telling("Main/Theme",
                      [&] { view.LoadTheme(store.text("Main/Theme", QStringLiteral("default"))); });
      }) &&
      reads([&] { ShowGrid = store.truth("Settings/ShowGrid", true); }) &&
      reads([&] { GridRes = store.number("Settings/GridRes", 20); }) &&
      reads([&] { Cdlg.FileName = store.text("Settings/LastFile", {}); }) &&
      reads([&] { LoadLastFile = store.truth("Settings/LoadLastFile", false); }) &&
      std::all_of(userColours.begin(), userColours.end(), colour);
  view.settingsLeftOut |= !complete;
}

void SaveSettings(const SettingsView &view) {
  reported("frmMain", "SaveSettings", [&] {
    Store store;
    store.read(); // what others keep in it stays
    if (view.settingsLeftOut && !mayReplace(store.path()))
      return;
    store.set("Main/PosX", positionText(view.Left()));
    store.set("Main/PosY", positionText(view.Top()));
    store.set("Main/Theme", ThemeFile);
    store.set("Settings/LastFile", Cdlg.FileName);
    store.setTruth("Settings/LoadLastFile", LoadLastFile);
    store.setTruth("Settings/ShowGrid", ShowGrid);
    store.set("Settings/GridRes", GridRes);
    for (const ColourRow &row : userColours)
      store.set(row.storeKey, *row.colour);
    store.write();
  });
}

} // namespace vnb
