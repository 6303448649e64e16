// SPDX-License-Identifier: MIT
#include "appearance/theme.h"

#include "appearance/images.h"
#include "document/systemtype.h"
#include "runtime/at.h"
#include "runtime/error.h"
#include "runtime/xml.h"

#include <QCoreApplication>
#include <QDir>
#include <QScopeGuard>

#include <algorithm>
#include <array>

namespace vnb {

QString ThemeFile;
QString ThemeName;

namespace {

/// Which button a theme's BUTTON entry gives pictures.
struct ButtonKey {
  std::string_view key;
  const char *tag; // of the button
};

constexpr std::array buttonKeys{
    ButtonKey{"new", "NEW"},           ButtonKey{"open", "LOAD"},
    ButtonKey{"save", "SAVE"},         ButtonKey{"add", "ADD"},
    ButtonKey{"info", "INFO"},         ButtonKey{"link", "LINK"},
    ButtonKey{"device", "DEVICE"},     ButtonKey{"subnet", "SUBNET"},
    ButtonKey{"settings", "SETTINGS"}, ButtonKey{"themes", "THEMES"},
    ButtonKey{"about", "ABOUT"},       ButtonKey{"addsubnet", "ADDSUB"},
    ButtonKey{"delsubnet", "DELSUB"},
};

/// Which device a theme's DEVICE entry gives a picture.
struct DeviceKey {
  std::string_view key;
};

/// In the order of the system types, from 1 on.
std::array<DeviceKey, SystemType::Last> deviceKeys() {
  std::array<DeviceKey, SystemType::Last> keys;
  for (std::int32_t lType = 1; lType <= SystemType::Last; ++lType)
    at(keys, lType - 1) = {typeRow(lType).themeKey};
  return keys;
}

QLatin1String latin1(std::string_view key) {
  return QLatin1String(key.data(), static_cast<qsizetype>(key.size()));
}

/// Position of the row whose key is `value` in any case, or the table's size.
template <class Table>
std::size_t find(const Table &table, const QString &value) {
  const QString key = value.toLower();
  std::size_t i = 0;
  while (i < table.size() && key != latin1(table[i].key))
    ++i;
  return i;
}

/// The last section of this name. Raises ownError if there is none.
const XmlElement &section(const XmlElement &root, QLatin1String tagName) {
  const XmlElement *found = nullptr;
  for (const XmlElement &child : root.children())
    if (child.tagName() == tagName)
      found = &child;
  if (found == nullptr)
    throw RuntimeError(ownError, QStringLiteral("The theme has no section %1").arg(tagName))
        .about(ThemeFile);
  return *found;
}

QString folderOf(const QString &path) {
  return path.first(path.lastIndexOf(u'/') + 1);
}

/// The folder's name, from the last two separators and the length of "/theme.xml".
QString nameOf(const QString &path) {
  const qsizetype last = path.lastIndexOf(u'/');
  const qsizetype before = last > 0 ? path.lastIndexOf(u'/', last - 1) : -1;
  QString name = path.mid(before + 1);
  name.chop(10);
  return name;
}

/// The name of a colour as it is spelt today.
QString modern(const QString &name) {
  const bool old = name.compare(QLatin1String("seperator"), Qt::CaseInsensitive) == 0;
  return old ? QStringLiteral("separator") : name;
}

void readColours(const XmlElement &entries, EditorView &view) {
  for (const XmlElement &entry : entries.children()) {
    const auto name = entry.getAttribute(u"for");
    const auto colour = entry.getAttribute(u"color");
    const std::size_t row = name ? find(colourRows, modern(*name)) : colourRows.size();
    if (row == colourRows.size() || !colour)
      continue;
    *colourRows[row].colour = ParseColor(*colour);
    // Lines hold a copy of it, which no sweep of the forms reaches.
    if (colourRows[row].colour == &LinkColor)
      view.linkColorChanged();
  }
}

/// The picture files of one theme, in the form that LoadButtonImages and LoadDeviceImages take.
class ImageFiles {
public:
  explicit ImageFiles(const QString &themeFile) : m_folder(listedPath(folderOf(themeFile))) {}

  /// For each row of `table` the files that its last entry names in `attributes`, with "|" between
  /// them; empty ones for a row that the theme doesn't name.
  template <class Table>
  QStringList of(const XmlElement &section, QStringView selector, const Table &table,
                 const QStringList &attributes) {
    std::array<const XmlElement *, std::tuple_size_v<Table>> entries{};
    for (const XmlElement &entry : section.children()) {
      const auto name = entry.getAttribute(selector);
      const std::size_t row = name ? find(table, *name) : entries.size();
      if (row < entries.size())
        entries[row] = &entry;
    }
    QStringList rows;
    for (std::size_t i = 0; i < entries.size(); ++i) {
      QStringList files;
      for (const QString &attribute : attributes)
        files += entries[i] == nullptr ? QString() : file(*entries[i], attribute, table[i].key);
      rows += files.join(u'|');
    }
    return rows;
  }

  /// What no picture was named for, a line each.
  QString missing() const { return m_missing.join(u'\n'); }

private:
  /// A missing name leaves the folder alone, which is no picture.
  QString file(const XmlElement &entry, const QString &attribute, std::string_view key) {
    const QString name = entry.getAttribute(attribute).value_or(QString());
    if (name.isEmpty())
      m_missing += QStringLiteral("The entry \"%1\" names no picture for \"%2\".")
                       .arg(latin1(key), attribute);
    return m_folder + name;
  }

  QString m_folder;
  QStringList m_missing;
};

/// Shows those up to a fault, too.
void loadButtons(const QStringList &files, EditorView &view) {
  const auto show = qScopeGuard([&view] { view.buttonImagesChanged(); });
  for (std::size_t i = 0; i < buttonKeys.size(); ++i)
    view.loadButtonImages(QString::fromLatin1(buttonKeys[i].tag), files[static_cast<qsizetype>(i)]);
}

void loadImages(const QStringList &buttonFiles, const QStringList &deviceFiles, EditorView &view) {
  loadButtons(buttonFiles, view);
  LoadDeviceImages(deviceFiles.join(u'|'));
  view.deviceImagesChanged();
}

int hexDigit(QChar c) {
  const char16_t lower = c.unicode() | 0x20;
  if (c >= u'0' && c <= u'9')
    return c.unicode() - u'0';
  if (lower >= u'a' && lower <= u'f')
    return lower - u'a' + 10;
  return -1;
}

int hexPair(QStringView text) {
  int value = 0;
  for (const QChar c : text) {
    const int digit = hexDigit(c);
    if (digit < 0)
      break;
    value = value * 16 + digit;
  }
  return value;
}

} // namespace

Colour ParseColor(QStringView text) {
  const auto pair = [text](qsizetype at) {
    return hexPair(text.sliced(std::min(at, text.size())).left(2));
  };
  return pair(1) | pair(3) << 8 | pair(5) << 16;
}

QString themesFolder() {
  return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("themes"));
}

QString themePath(const QString &name) {
  return themesFolder() + u'/' + name + QStringLiteral("/theme.xml");
}

void LoadTheme(const QString &sFileName, EditorView &view) {
  const bool fullPath = sFileName.contains(u':') || sFileName.startsWith(u'/');
  ThemeFile = fullPath ? sFileName : themePath(sFileName);
  ThemeName = nameOf(ThemeFile);
  const XmlDocument ThemeDoc = about(ThemeFile, [] { return XmlDocument(ThemeFile); });
  // All three are asked for before anything changes.
  const XmlElement &colours = section(ThemeDoc.root(), QLatin1String("COLORS"));
  const XmlElement &buttons = section(ThemeDoc.root(), QLatin1String("BUTTONS"));
  const XmlElement &devices = section(ThemeDoc.root(), QLatin1String("DEVICES"));
  readColours(colours, view);
  view.UpdateColors();
  ImageFiles files(ThemeFile);
  const QStringList buttonFiles =
      files.of(buttons, u"for", buttonKeys,
               {QStringLiteral("off"), QStringLiteral("over"), QStringLiteral("down")});
  const QStringList deviceFiles =
      files.of(devices, u"name", deviceKeys(), {QStringLiteral("image")});
  const auto forgetFiles = qScopeGuard([] { allPictures().files = {}; });
  about(files.missing(), [&] { loadImages(buttonFiles, deviceFiles, view); });
}

} // namespace vnb
