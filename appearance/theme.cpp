// SPDX-License-Identifier: MIT
#include "appearance/theme.h"

#include "appearance/images.h"
#include "runtime/error.h"
#include "runtime/xml.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <array>

namespace vnb {

QString ThemeFile;
QString ThemeName;

namespace {

struct ColourKey {
  const char *key;
  Colour *target;
};

const std::array colourKeys{
    ColourKey{"grid", &GridColor},
    ColourKey{"selected", &SelectedColor},
    ColourKey{"link", &LinkColor},
    ColourKey{"sellink", &LinkSelColor},
    ColourKey{"lock", &LockColor},
    ColourKey{"seperator", &SeparatorColor}, // as old themes spell it
    ColourKey{"separator", &SeparatorColor},
    ColourKey{"subnet", &SubnetColor},
    ColourKey{"selsubnet", &SubnetSelColor},
    ColourKey{"background", &BackgroundColor},
    ColourKey{"text", &TextColor},
    ColourKey{"redtext", &RedTextColor},
    ColourKey{"secure1", &SecureColor[0]},
    ColourKey{"secure2", &SecureColor[1]},
    ColourKey{"secure3", &SecureColor[2]},
};

struct ButtonKey {
  const char *key;
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

struct DeviceKey {
  const char *key;
};

/// In the order of the system types, from 1 on.
constexpr std::array<DeviceKey, SystemType::Last> deviceKeys{{
    {"router"},
    {"hub"},
    {"switch"},
    {"terminal"},
    {"mainserver"},
    {"mailserver"},
    {"fileserver"},
    {"auth"},
    {"lock"},
    {"ibridge"},
    {"modem"},
    {"sessionkeyserver"},
    {"radiotrans"},
    {"radioreceive"},
    {"faxprinter"},
    {"logserver"},
}};

/// Position of the row whose key is `value` in any case, or the table's size.
template <class Table>
std::size_t find(const Table &table, const QString &value) {
  const QString key = value.toLower();
  std::size_t i = 0;
  while (i < table.size() && key != QLatin1String(table[i].key))
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

XmlDocument read(const QString &path) {
  try {
    return XmlDocument(path);
  } catch (const RuntimeError &error) {
    throw error.about(path);
  }
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

void readColours(const XmlElement &entries, EditorView &view) {
  for (const XmlElement &entry : entries.children()) {
    const auto name = entry.getAttribute(u"for");
    const auto colour = entry.getAttribute(u"color");
    const std::size_t row = name ? find(colourKeys, *name) : colourKeys.size();
    if (row == colourKeys.size() || !colour)
      continue;
    *colourKeys[row].target = ParseColor(*colour);
    if (colourKeys[row].target == &LinkColor)
      view.linkColorChanged();
  }
}

std::array<QString, buttonKeys.size()> readButtons(const XmlElement &entries,
                                                   const QString &folder) {
  std::array<QString, buttonKeys.size()> files;
  files.fill(QStringLiteral("||"));
  for (const XmlElement &entry : entries.children()) {
    const auto name = entry.getAttribute(u"for");
    const std::size_t row = name ? find(buttonKeys, *name) : files.size();
    if (row == files.size())
      continue;
    // A missing name leaves the folder alone, which is no picture.
    const auto file = [&](QStringView state) {
      return folder + entry.getAttribute(state).value_or(QString());
    };
    files[row] = file(u"off") + u'|' + file(u"over") + u'|' + file(u"down");
  }
  return files;
}

QStringList readDevices(const XmlElement &entries, const QString &folder) {
  QStringList files(SystemType::Last);
  for (const XmlElement &entry : entries.children()) {
    const auto name = entry.getAttribute(u"name");
    const std::size_t row = name ? find(deviceKeys, *name) : deviceKeys.size();
    if (row < deviceKeys.size())
      files[static_cast<qsizetype>(row)] =
          folder + entry.getAttribute(u"image").value_or(QString());
  }
  return files;
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
  const XmlDocument ThemeDoc = read(ThemeFile);
  const XmlElement &colours = section(ThemeDoc.root(), QLatin1String("COLORS"));
  const XmlElement &buttons = section(ThemeDoc.root(), QLatin1String("BUTTONS"));
  const XmlElement &devices = section(ThemeDoc.root(), QLatin1String("DEVICES"));
  readColours(colours, view);
  view.UpdateColors();
  const auto buttonFiles = readButtons(buttons, folderOf(ThemeFile));
  const QStringList deviceFiles = readDevices(devices, folderOf(ThemeFile));
  for (std::size_t i = 0; i < buttonFiles.size(); ++i)
    view.loadButtonImages(QString::fromLatin1(buttonKeys[i].tag), buttonFiles[i]);
  LoadDeviceImages(deviceFiles.join(u'|'));
  view.deviceImagesChanged();
}

} // namespace vnb
