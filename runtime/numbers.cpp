// SPDX-License-Identifier: MIT
#include "runtime/numbers.h"

#include "runtime/error.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace vnb {
namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

std::size_t skipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && isDigit(text[at]))
    ++at;
  return at;
}

bool isSign(char c) {
  return c == '+' || c == '-';
}

/// Length of the longest number that `text` begins with, 0 if it begins with none.
std::size_t numberLength(std::string_view text) {
  const std::size_t digits = !text.empty() && isSign(text[0]) ? 1 : 0;
  std::size_t end = skipDigits(text, digits);
  std::size_t count = end - digits;
  if (end < text.size() && text[end] == '.') {
    const std::size_t fraction = skipDigits(text, end + 1);
    count += fraction - end - 1;
    end = fraction;
  }
  if (count == 0)
    return 0;
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    const std::size_t sign = end + 1;
    const std::size_t exponent = sign + (sign < text.size() && isSign(text[sign]) ? 1 : 0);
    const std::size_t last = skipDigits(text, exponent);
    // Else the number ends in front of the "e": "3em" begins with 3.
    if (last > exponent)
      end = last;
  }
  return end;
}

/// The exponent that `text` tells; one far beyond any use is cut.
std::int64_t exponentOf(std::string_view text) {
  constexpr std::int64_t beyondUse = std::numeric_limits<std::int32_t>::max();
  const bool minus = !text.empty() && text.front() == '-';
  std::int64_t value = 0;
  for (const char c : text)
    if (isDigit(c) && value < beyondUse)
      value = value * 10 + (c - '0');
  return minus ? -value : value;
}

/// Whether a number that doesn't fit a Double is too large, rather than too close to zero: the
/// place of its first significant digit tells.
bool isHuge(std::string_view number) {
  const std::size_t e = std::min(number.find_first_of("eE"), number.size());
  const std::string_view mantissa = number.substr(0, e);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t first = mantissa.find_first_of("123456789");
  const auto wholeDigits = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  return wholeDigits + exponentOf(number.substr(std::min(e + 1, number.size()))) > 0;
}

/// The value of a text that numberLength took whole.
double valueOf(std::string_view number) {
  // from_chars takes no plus, and gives no value for what is out of range.
  const bool plus = number.front() == '+';
  const bool minus = number.front() == '-';
  const std::string_view digits = number.substr(plus || minus ? 1 : 0);
  double value = 0;
  if (std::from_chars(digits.data(), digits.data() + digits.size(), value).ec ==
      std::errc::result_out_of_range)
    value = isHuge(digits) ? std::numeric_limits<double>::infinity() : 0;
  return minus ? -value : value;
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Hundredths from 0 to 1 as ready text: nearly every link end is one of them.
class Hundredths {
public:
  Hundredths() {
    for (std::size_t i = 0; i < m_texts.size(); ++i) {
      Text &text = m_texts[i];
      text.value = static_cast<double>(i) / 100;
      // The shortest form: at so few digits the same as the general one.
      text.length = static_cast<std::size_t>(
          std::to_chars(text.bytes.data(), text.bytes.data() + text.bytes.size(), text.value).ptr -
          text.bytes.data());
    }
  }

  /// Writes `value` and returns the end, or returns nullptr if it isn't one of them.
  char *write(char *out, double value) const {
    if (!(value >= 0 && value <= 1))
      return nullptr;
    const Text &text = m_texts[static_cast<std::size_t>(std::lround(value * 100))];
    if (text.value != value)
      return nullptr;
    // All eight bytes, as a number known beforehand is copied at once; there is room for more.
    std::memcpy(out, text.bytes.data(), text.bytes.size());
    return out + text.length;
  }

private:
  struct Text {
    double value = 0;
    std::size_t length = 0;
    std::array<char, 8> bytes{};
  };
  std::array<Text, 101> m_texts{};
};

const Hundredths hundredths;

} // namespace

double Val(QStringView text) {
  // What isn't Latin-1 turns into a "?", and no number goes on behind one.
  const QByteArray bytes = text.toLatin1();
  std::string_view rest(bytes.data(), static_cast<std::size_t>(bytes.size()));
  rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
  const std::size_t length = numberLength(rest);
  return length == 0 ? 0 : valueOf(rest.substr(0, length));
}

std::int32_t roundToLong(double value) {
  const double rounded = std::nearbyint(value);
  // Put this way round so that NaN fails, too.
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max()))
    throw RuntimeError(Fault::Overflow);
  return static_cast<std::int32_t>(rounded);
}

double CDbl(std::string_view text) {
  const std::string_view number = trimmed(text);
  if (number.empty() || numberLength(number) != number.size())
    throw RuntimeError(Fault::TypeMismatch);
  const double value = valueOf(number);
  if (std::isinf(value))
    throw RuntimeError(Fault::Overflow);
  return value;
}

std::int32_t CLng(std::string_view text) {
  std::int32_t value = 0;
  const char *end = text.data() + text.size();
  const auto [stop, fault] = std::from_chars(text.data(), end, value);
  if (fault == std::errc() && stop == end)
    return value;
  return roundToLong(CDbl(text));
}

char *writeDouble(char *out, double value) {
  if (value == 0)
    value = 0; // not "-0"
  if (char *end = hundredths.write(out, value))
    return end;
  // The few values next to the largest Double would round up to a text that is out of range.
  constexpr double largest = 1.79769313486231e308;
  const double writable = std::clamp(value, -largest, largest);
  return std::to_chars(out, out + numberRoom, writable, std::chars_format::general, 15).ptr;
}

QString doubleText(double value) {
  std::array<char, numberRoom> text{};
  return QString::fromLatin1(text.data(), writeDouble(text.data(), value) - text.data());
}

} // namespace vnb
