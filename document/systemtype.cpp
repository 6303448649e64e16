// SPDX-License-Identifier: MIT
#include "document/systemtype.h"

#include "runtime/at.h"

#include <algorithm>

namespace vnb {
namespace {

constexpr TypeRow none{
    .resID = "UNKNOWN", .plain = "NONE", .fileWord = "NONE", .friendly = "Unknown device"};

/// By code, from 1 on. The program has no picture of its own for those with UNKNOWN. The asterisks
/// are for the eye.
constexpr std::array<TypeRow, SystemType::Last> rows{{
    {"ROUTER", "Router", "ROUTER", "Router", "router", "Router", Fields::None},
    {"HUB", "Hub", "HUB", "Hub", "hub", "Hub", Fields::None},
    {"UNKNOWN", "Switch", "SWITCH", "Switch", "switch", "Switch*", Fields::None},
    {"TERMINAL", "Terminal", "TERMINAL", "Terminal", "terminal", "Terminal", Fields::None},
    {"MAIN", "Mainserver", "MAINSERVER", "Main server", "mainserver", "Main Server",
     Fields::Server},
    {"MAIL", "Mailserver", "MAILSERVER", "Mail server", "mailserver", "Mail Server*", Fields::None},
    {"MAIN", "Fileserver", "FILESERVER", "File server", "fileserver", "File Server", Fields::None},
    {"AUTH",
     "Authentication",
     "AUTHENTICATION",
     "Authentication server",
     "auth",
     "Authentication",
     Fields::Server,
     {"auth"}},
    {"LOCK", "Lock", "LOCK", "Lock", "lock", "Lock", Fields::Lock},
    {"IB",
     "IsolationBridge",
     "ISOLATIONBRIDGE",
     "Isolation Bridge",
     "ibridge",
     "Isolation Bridge",
     Fields::Bridge,
     {"ib"}},
    {"MODEM", "Modem", "MODEM", "Modem", "modem", "Modem", Fields::Modem},
    {"UNKNOWN",
     "SessionKeyServer",
     "SESSIONKEYSERVER",
     "Session key server",
     "sessionkeyserver",
     "Session Key Server*",
     Fields::None,
     {"sessionkey server", "session keyserver"}},
    {"TRANS",
     "RadioTransmitter",
     "RADIOTRANSMITTER",
     "Radio transmitter",
     "radiotrans",
     "Radio Transmitter",
     Fields::None,
     {"radiotransmiter"}},
    {"RECEIVE", "RadioReceiver", "RADIORECEIVER", "Radio receiver", "radioreceive",
     "Radio Receiver", Fields::Receiver},
    {"UNKNOWN",
     "Faxprinter",
     "FAXPRINTER",
     "Fax printer",
     "faxprinter",
     "Fax Printer*",
     Fields::None,
     {"fax"}},
    {"MAIN", "Logserver", "LOGSERVER", "Log server", "logserver", "Log Server", Fields::None},
}};

/// The words alone, side by side, as reading a large file is searching them.
constexpr auto fileWords = [] {
  std::array<std::string_view, rows.size()> words;
  std::ranges::transform(rows, words.begin(), &TypeRow::fileWord);
  return words;
}();

/// Of ASCII, as the names are: a file must read the same in every locale.
char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool same(std::string_view word, std::string_view name) {
  return word.size() == name.size() &&
         std::equal(word.begin(), word.end(), name.begin(),
                    [](char a, char b) { return lower(a) == lower(b); });
}

QString text(std::string_view ascii) {
  return QString::fromLatin1(ascii.data(), static_cast<qsizetype>(ascii.size()));
}

} // namespace

const TypeRow &typeRow(std::int32_t lType) {
  return lType >= 1 && lType <= SystemType::Last ? at(rows, lType - 1) : none;
}

QString ResIDFromType(std::int32_t lType) {
  return text(typeRow(lType).resID);
}

std::int32_t TypeFromWord(std::string_view word) {
  if (word.empty())
    return SystemType::Unknown;
  const auto matches = [word](const TypeRow &type) {
    return same(word, type.plain) || same(word, type.friendly) ||
           std::ranges::any_of(type.otherNames,
                               [word](std::string_view name) { return same(word, name); });
  };
  // Saved files have nothing but file words: a large one is read in half the time by asking first.
  auto row = std::ranges::find(fileWords, word) - fileWords.begin();
  if (row == rows.size())
    row = std::ranges::find_if(rows, matches) - rows.begin();
  return row == rows.size() ? SystemType::Unknown : static_cast<std::int32_t>(row) + 1;
}

std::int32_t TypeFromName(const QString &sName) {
  // No letter outside ASCII belongs to a name, and none turns into one by this conversion.
  const QByteArray bytes = sName.toUtf8();
  return TypeFromWord({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

QString NameFromType(std::int32_t lType, bool bFriendly) {
  return text(bFriendly ? typeRow(lType).friendly : typeRow(lType).plain);
}

std::string_view FileWord(std::int32_t lType) {
  return typeRow(lType).fileWord;
}

} // namespace vnb
