// SPDX-License-Identifier: MIT
/// Numbers and their text: the same in every locale, always with a point.
#pragma once

#include <QString>

#include <cstdint>
#include <string_view>

namespace vnb {

/// The number at the start of `text`: leading blanks are skipped, then an optional sign, digits, a
/// point and an exponent are read as far as they make a number. What follows is passed over. 0 if
/// there is none; a number too large for a Double gives plus or minus infinity.
double Val(QStringView text);

/// `value` rounded to the nearest integer, ties to the even one. Raises 6 beyond 32 bits, and for
/// NaN.
std::int32_t roundToLong(double value);

/// All of `text`, blanks around it left aside, as a decimal number; ".5", "1." and "+1e3" are some.
/// Raises 13 if it is none (also for hexadecimal, infinity and NaN) and 6 if it is too large. One
/// too close to zero for a Double is 0.
double CDbl(std::string_view text);

/// As CDbl, rounded as by roundToLong. Raises 13 and 6.
std::int32_t CLng(std::string_view text);

/// Room that the text of any Double or Long takes, in bytes.
constexpr std::size_t numberRoom = 32;

/// Writes `value` in general form: at most 15 significant digits, no trailing zeros, no point when
/// it is whole, a digit in front of the point. CDbl takes every such text back: perhaps as a value
/// that differs from the sixteenth digit on, but gives the same text again. REQUIRES: `value` is
/// finite and `out` has numberRoom bytes. Returns the end of the text.
char *writeDouble(char *out, double value);

/// The text that writeDouble makes.
QString doubleText(double value);

} // namespace vnb
