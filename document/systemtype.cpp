// SPDX-License-Identifier: MIT
#include "document/systemtype.h"

#include <algorithm>
#include <array>

namespace vnb {
namespace {

struct TypeEntry {
  std::string_view resID, plain, fileWord, friendly;
  std::array<std::string_view, 2> otherNames{}; // lower case, beside the plain and friendly name
};

constexpr TypeEntry none{"UNKNOWN", "NONE", "NONE", "Unknown device"};

constexpr std::array<TypeEntry, SystemType::Last> entries{{
    {"ROUTER", "Router", "ROUTER", "Router"},
    {"HUB", "Hub", "HUB", "Hub"},
    {"UNKNOWN", "Switch", "SWITCH", "Switch"},
    {"TERMINAL", "Terminal", "TERMINAL", "Terminal"},
    {"MAIN", "Mainserver", "MAINSERVER", "Main server"},
    {"MAIL", "Mailserver", "MAILSERVER", "Mail server"},
    {"MAIN", "Fileserver", "FILESERVER", "File server"},
    {"AUTH", "Authentication", "AUTHENTICATION", "Authentication server", {"auth"}},
    {"LOCK", "Lock", "LOCK", "Lock"},
    {"IB", "IsolationBridge", "ISOLATIONBRIDGE", "Isolation Bridge", {"ib"}},
    {"MODEM", "Modem", "MODEM", "Modem"},
    {"UNKNOWN",
     "SessionKeyServer",
     "SESSIONKEYSERVER",
     "Session key server",
     {"sessionkey server", "session keyserver"}},
    {"TRANS", "RadioTransmitter", "RADIOTRANSMITTER", "Radio transmitter", {"radiotransmiter"}},
    {"RECEIVE", "RadioReceiver", "RADIORECEIVER", "Radio receiver"},
    {"UNKNOWN", "Faxprinter", "FAXPRINTER", "Fax printer", {"fax"}},
    {"MAIN", "Logserver", "LOGSERVER", "Log server"},
}};

const TypeEntry &entry(std::int32_t lType) {
  return lType >= 1 && lType <= SystemType::Last ? entries[static_cast<std::size_t>(lType - 1)]
                                                 : none;
}

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

QString ResIDFromType(std::int32_t lType) {
  return text(entry(lType).resID);
}

std::int32_t TypeFromWord(std::string_view word) {
  if (word.empty())
    return SystemType::Unknown;
  const auto matches = [word](const TypeEntry &type) {
    return same(word, type.plain) || same(word, type.friendly) ||
           std::ranges::any_of(type.otherNames,
                               [word](std::string_view name) { return same(word, name); });
  };
  // Saved files have nothing but file words: a large one is read in half the time by asking first.
  auto found = std::ranges::find(entries, word, &TypeEntry::fileWord);
  if (found == entries.end())
    found = std::ranges::find_if(entries, matches);
  return found == entries.end() ? SystemType::Unknown
                                : static_cast<std::int32_t>(found - entries.begin()) + 1;
}

std::int32_t TypeFromName(const QString &sName) {
  // No letter outside ASCII belongs to a name, and none turns into one by this conversion.
  const QByteArray bytes = sName.toUtf8();
  return TypeFromWord({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

QString NameFromType(std::int32_t lType, bool bFriendly) {
  return text(bFriendly ? entry(lType).friendly : entry(lType).plain);
}

std::string_view FileWord(std::int32_t lType) {
  return entry(lType).fileWord;
}

} // namespace vnb
