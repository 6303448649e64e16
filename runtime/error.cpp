// SPDX-License-Identifier: MIT
#include "runtime/error.h"

#include <array>
#include <new>
#include <utility>

namespace vnb {
namespace {

struct Description {
  Fault fault;
  const char *text;
};

constexpr std::array descriptions{
    Description{Fault::Overflow, "Overflow"},
    Description{Fault::OutOfMemory, "Out of memory"},
    Description{Fault::SubscriptOutOfRange, "Subscript out of range"},
    Description{Fault::TypeMismatch, "Type mismatch"},
    Description{Fault::Internal, "Internal error"},
    Description{Fault::BadFileName, "Bad file name or number"},
    Description{Fault::FileNotFound, "File not found"},
    Description{Fault::FileAlreadyOpen, "File already open"},
    Description{Fault::DeviceIo, "Device I/O error"},
    Description{Fault::DiskFull, "Disk full"},
    Description{Fault::InputPastEnd, "Input past end of file"},
    Description{Fault::TooManyFiles, "Too many files"},
    Description{Fault::PermissionDenied, "Permission denied"},
    Description{Fault::PathFileAccess, "Path/File access error"},
    Description{Fault::PathNotFound, "Path not found"},
    Description{Fault::ResourceNotFound, "Resource with this name not found"},
    Description{Fault::ControlArrayElement, "Control array element doesn't exist"},
    Description{Fault::ObjectAlreadyLoaded, "Object already loaded"},
    Description{Fault::CannotUnload, "Controls created at design time can't be unloaded"},
    Description{Fault::InvalidPicture, "Invalid picture"},
};

QString descriptionOf(Fault fault) {
  for (const Description &entry : descriptions)
    if (entry.fault == fault)
      return QString::fromLatin1(entry.text);
  return {};
}

} // namespace

RuntimeError::RuntimeError(Fault fault)
    : RuntimeError(static_cast<std::int32_t>(fault), descriptionOf(fault)) {}

RuntimeError::RuntimeError(std::int32_t number, QString description)
    : m_number(number), m_description(std::move(description)) {}

RuntimeError RuntimeError::about(const QString &what) const {
  return what.isEmpty() ? *this : RuntimeError(m_number, m_description + u'\n' + what);
}

RuntimeError currentError() {
  try {
    throw;
  } catch (const RuntimeError &error) {
    return error;
  } catch (const std::bad_alloc &) {
    return RuntimeError(Fault::OutOfMemory);
  } catch (...) {
    // A slip of the program's own, in words that help no user.
    return RuntimeError(Fault::Internal);
  }
}

} // namespace vnb
