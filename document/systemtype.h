// SPDX-License-Identifier: MIT
/// The table of system types: codes, names, file words and built-in bitmaps.
#pragma once

#include <QString>

#include <cstdint>
#include <string_view>

namespace vnb {

/// Codes that the program treats in a way of their own; the others are only numbers of the table.
namespace SystemType {
inline constexpr std::int32_t Unknown = 0;
inline constexpr std::int32_t Router = 1;
inline constexpr std::int32_t Switch = 3;
inline constexpr std::int32_t MainServer = 5;
inline constexpr std::int32_t Authentication = 8;
inline constexpr std::int32_t Lock = 9;
inline constexpr std::int32_t IsolationBridge = 10;
inline constexpr std::int32_t Modem = 11;
inline constexpr std::int32_t RadioReceiver = 14;
inline constexpr std::int32_t Last = 16;
} // namespace SystemType

/// Name of the built-in bitmap, "UNKNOWN" for a code outside 1 to 16.
QString ResIDFromType(std::int32_t lType);

/// The code of a name in any case, 0 if none matches; nothing is trimmed.
std::int32_t TypeFromName(const QString &sName);
/// The same for the bytes of a file.
std::int32_t TypeFromWord(std::string_view word);

/// The name for people ("Main server") or the plain one ("Mainserver"); "Unknown device" or "NONE"
/// for a code outside 1 to 16.
QString NameFromType(std::int32_t lType, bool bFriendly);

/// The plain name in capitals, as files have it.
std::string_view FileWord(std::int32_t lType);

} // namespace vnb
