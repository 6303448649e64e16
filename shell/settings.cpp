// SPDX-License-Identifier: MIT
#include "shell/settings.h"

#include "appearance/theme.h"
#include "runtime/numbers.h"
#include "runtime/report.h"
#include "shell/cdlgex.h"
#include "shell/textini.h"

#include <QFile>
#include <QFileInfo>

#include <array>

namespace vnb {
namespace {

/// The store: sections of keys with text values, VNB.ini in the user's configuration folder.
class Store {
public:
  Store() : m_settings(textIniFormat(), QSettings::UserScope, QStringLiteral("VNB")) {
    // What a crash may leave: it would hold up the next writer for half a minute.
    const QFileInfo lock(m_settings.fileName() + QStringLiteral(".lock"));
    if (lock.isFile() && lock.size() == 0)
      QFile::remove(lock.filePath());
  }

  QString text(const char *key, const QString &standard) const {
    return m_settings.value(QLatin1String(key), standard).toString();
  }
  std::int32_t number(const char *key, std::int32_t standard) const {
    return CLng(text(key, QString::number(standard)).toStdString());
  }
  bool truth(const char *key, bool standard) const {
    const QString value = text(key, truthText(standard));
    for (const bool truth : {true, false})
      if (value.compare(truthText(truth), Qt::CaseInsensitive) == 0)
        return truth;
    return CDbl(value.toStdString()) != 0;
  }

  void write(const char *key, const QString &value) {
    m_settings.setValue(QLatin1String(key), value);
  }
  void write(const char *key, std::int32_t value) { write(key, QString::number(value)); }
  void writeTruth(const char *key, bool value) { write(key, truthText(value)); }

  void check() const {
    if (m_settings.status() == QSettings::AccessError)
      throw RuntimeError(Fault::PathFileAccess);
  }
  void sync() {
    m_settings.sync();
    check();
  }

private:
  static QString truthText(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
  }

  QSettings m_settings;
};

struct StoredColour {
  const char *key;
  Colour *colour;
  Colour standard;
};

/// The drawing colours in the order of their reading.
const std::array storedColours{
    StoredColour{"Colors/Grid", &GridColor, 0x404040},
    StoredColour{"Colors/Link", &LinkColor, 0xE48257},
    StoredColour{"Colors/LinkSel", &LinkSelColor, 0x0000FF},
    StoredColour{"Colors/Lock", &LockColor, 0x00FFFF},
    StoredColour{"Colors/Selected", &SelectedColor, 0xFFFFFF},
    StoredColour{"Colors/Subnet", &SubnetColor, 0x008000},
    StoredColour{"Colors/SubnetSel", &SubnetSelColor, 0x00FF00},
};

QString positionText(double twips) {
  return doubleText(static_cast<float>(twips));
}

bool loadColours(const Report &report, const Store &store, SettingsView &view) {
  for (const StoredColour &row : storedColours) {
    const bool goOn = report([&] {
      *row.colour = store.number(row.key, row.standard);
      if (row.colour == &LinkColor)
        view.templateColorChanged();
    });
    if (!goOn)
      return false;
  }
  return true;
}

} // namespace

void LoadSettings(SettingsView &view) {
  const Report report("frmMain", "LoadSettings");
  const Store store;
  const auto position = [&](const char *key, void (SettingsView::*move)(std::int32_t)) {
    return report([&] {
      const std::int32_t value = store.number(key, noPosition);
      if (value != noPosition)
        (view.*move)(value);
    });
  };
  report([&] { store.check(); }) && position("Main/PosX", &SettingsView::setLeft) &&
      position("Main/PosY", &SettingsView::setTop) &&
      report([&] { view.LoadTheme(store.text("Main/Theme", QStringLiteral("default"))); }) &&
      report([&] { ShowGrid = store.truth("Settings/ShowGrid", true); }) &&
      report([&] { GridRes = store.number("Settings/GridRes", 20); }) &&
      report([&] { Cdlg.FileName = store.text("Settings/LastFile", {}); }) &&
      report([&] { LoadLastFile = store.truth("Settings/LoadLastFile", false); }) &&
      loadColours(report, store, view);
}

void SaveSettings(const SettingsView &view) {
  reported("frmMain", "SaveSettings", [&] {
    Store store;
    store.write("Main/PosX", positionText(view.Left()));
    store.write("Main/PosY", positionText(view.Top()));
    store.write("Main/Theme", ThemeFile);
    store.write("Settings/LastFile", Cdlg.FileName);
    store.writeTruth("Settings/LoadLastFile", LoadLastFile);
    store.writeTruth("Settings/ShowGrid", ShowGrid);
    store.write("Settings/GridRes", GridRes);
    for (const StoredColour &row : storedColours)
      store.write(row.key, *row.colour);
    store.sync();
  });
}

} // namespace vnb
