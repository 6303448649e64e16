// SPDX-License-Identifier: MIT
/// Any text taken for a number must have the value that the C library gives it, and come back from
/// its own text.
#include "fuzz/require.h"
#include "runtime/error.h"
#include "runtime/numbers.h"

#include <cmath>
#include <optional>
#include <string>

namespace {

using namespace vnb;

constexpr int overflow = static_cast<int>(Fault::Overflow);
constexpr int typeMismatch = static_cast<int>(Fault::TypeMismatch);

struct Outcome {
  std::optional<double> value;
  int error = 0;
};

template <class Convert>
Outcome outcome(Convert convert, const std::string &text) {
  try {
    return {.value = convert(text)};
  } catch (const RuntimeError &error) {
    return {.error = error.number()};
  }
}

void checkDouble(const std::string &text, const Outcome &outcome) {
  if (outcome.error == typeMismatch)
    return;
  const double due = std::strtod(text.c_str(), nullptr);
  if (outcome.error == overflow)
    return require(std::isinf(due), "only what is too large overflows");
  require(outcome.value == due, "a number has its value");
  require(Val(QString::fromLatin1(text.c_str())) == due, "Val and CDbl agree");
  const std::string written = doubleText(due).toStdString();
  require(doubleText(CDbl(written)).toStdString() == written, "a written number comes back");
}

void checkLong(const Outcome &whole, const Outcome &outcome) {
  if (whole.error != 0)
    return require(outcome.error == whole.error, "CLng refuses what CDbl refuses");
  const double rounded = std::nearbyint(*whole.value);
  const bool fits = rounded >= -2147483648.0 && rounded <= 2147483647.0;
  require(fits ? outcome.value == rounded : outcome.error == overflow, "CLng rounds CDbl");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
  const std::string text(reinterpret_cast<const char *>(bytes), size);
  const Outcome asDouble = outcome([](const std::string &t) { return CDbl(t); }, text);
  const Outcome asLong = outcome([](const std::string &t) { return CLng(t); }, text);
  checkDouble(text, asDouble);
  checkLong(asDouble, asLong);
  return 0;
}
