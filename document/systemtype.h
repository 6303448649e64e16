// SPDX-License-Identifier: MIT
/// The table of system types: all that the program knows of each.
#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <string_view>

namespace vnb {

/// Codes that the program treats in a way of their own; the others are only numbers of the table.
namespace SystemType {
inline constexpr std::int32_t Unknown = 0;
inline constexpr std::int32_t Router = 1;
inline constexpr std::int32_t FirstToPick = 2; // there is one router, which can't be picked
inline constexpr std::int32_t Switch = 3;
inline constexpr std::int32_t MainServer = 5;
inline constexpr std::int32_t Authentication = 8;
inline constexpr std::int32_t Lock = 9;
inline constexpr std::int32_t IsolationBridge = 10;
inline constexpr std::int32_t Modem = 11;
inline constexpr std::int32_t RadioReceiver = 14;
inline constexpr std::int32_t Last = 16;
} // namespace SystemType

/// The fields that some types have beside those of all devices. A server names up to three locks, a
/// bridge two.
enum class Fields : std::uint8_t { None, Lock, Server, Modem, Bridge, Receiver };

/// One type. Whoever adds one adds this and its picture. All texts are ASCII.
struct TypeRow {
  std::string_view resID;         // built-in bitmap
  std::string_view plain;         // name
  std::string_view fileWord;      // the plain name in capitals
  std::string_view friendly;      // name for people
  std::string_view themeKey = {}; // of its picture, in lower case
  std::string_view toolbox = {};  // entry in the toolbox
  Fields fields = Fields::None;
  std::array<std::string_view, 2> otherNames{}; // in files, beside the plain and friendly name
};

/// The row of a type, that of no device for a code outside 1 to `Last`.
const TypeRow &typeRow(std::int32_t lType);

/// Name of the built-in bitmap, "UNKNOWN" for a code outside 1 to `Last`.
QString ResIDFromType(std::int32_t lType);

/// The code of a name in any case, 0 if none matches; nothing is trimmed.
std::int32_t TypeFromName(const QString &sName);
/// The same for the bytes of a file.
std::int32_t TypeFromWord(std::string_view word);

/// The name for people ("Main server") or the plain one ("Mainserver"); "Unknown device" or "NONE"
/// for a code outside 1 to `Last`.
QString NameFromType(std::int32_t lType, bool bFriendly);

/// The plain name in capitals, as files have it.
std::string_view FileWord(std::int32_t lType);

} // namespace vnb
