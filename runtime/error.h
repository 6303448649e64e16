// SPDX-License-Identifier: MIT
/// Runtime errors: the one kind of failure that may cross a procedure.
#pragma once

#include <QString>

#include <cstdint>
#include <exception>

namespace vnb {

/// The numbered faults that this program can meet, with the numbers that users know them by.
enum class Fault : std::int32_t {
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  TypeMismatch = 13,
  Internal = 51,
  BadFileName = 52,
  FileNotFound = 53,
  FileAlreadyOpen = 55,
  DeviceIo = 57,
  DiskFull = 61,
  InputPastEnd = 62,
  TooManyFiles = 67,
  PermissionDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
  ResourceNotFound = 326,
  ControlArrayElement = 340,
  ObjectAlreadyLoaded = 360,
  CannotUnload = 362,
  InvalidPicture = 481,
};

/// Number of the errors that this program raises with descriptions of its own. Users see it as
/// -2147221163.
inline constexpr auto ownError = static_cast<std::int32_t>(0x80040155);

/// A failure with its number and a description for the user.
class RuntimeError : public std::exception {
public:
  /// A fault of the table, with the table's description.
  explicit RuntimeError(Fault fault);
  /// A fault of the program's own.
  RuntimeError(std::int32_t number, QString description);

  /// The same error, telling what it is about as well: a file, or what is wrong in it. `what`
  /// becomes a line below the description; an empty text adds nothing.
  RuntimeError about(const QString &what) const;

  /// That of a Fault, or ownError, where only the description tells what is wrong.
  std::int32_t number() const { return m_number; }
  /// Text for the user, of one line and those that `about` has added.
  const QString &description() const { return m_description; }
  /// For a debugger alone: the report shows number and description.
  const char *what() const noexcept override { return "runtime error"; }

private:
  std::int32_t m_number;
  QString m_description;
};

/// Runs `act` and returns what it gives. What it raises tells `what` as well. Exceptions of other
/// kinds pass as they are.
template <class Act>
decltype(auto) about(const QString &what, const Act &act) {
  try {
    return act();
  } catch (const RuntimeError &error) {
    throw error.about(what);
  }
}

/// The exception being handled, as a RuntimeError: exhausted memory becomes 7, anything unknown 51.
/// REQUIRES: called inside a catch block.
RuntimeError currentError();

} // namespace vnb
