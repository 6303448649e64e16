// SPDX-License-Identifier: MIT
#include "runtime/files.h"

#include "runtime/error.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vnb {
namespace {

RuntimeError systemError(int number) {
  switch (number) {
  case ENOENT:
    return RuntimeError(Fault::FileNotFound);
  case ENOTDIR:
    return RuntimeError(Fault::PathNotFound);
  case EACCES:
  case EPERM:
  case EROFS:
    return RuntimeError(Fault::PermissionDenied);
  case ENOSPC:
  case EDQUOT:
  case EFBIG:
    return RuntimeError(Fault::DiskFull);
  case EMFILE:
  case ENFILE:
    return RuntimeError(Fault::TooManyFiles);
  case ENOMEM:
    return RuntimeError(Fault::OutOfMemory);
  case ENAMETOOLONG:
    return RuntimeError(Fault::BadFileName);
  case EISDIR:
  case ELOOP:
  case ETXTBSY:
    return RuntimeError(Fault::PathFileAccess);
  default:
    return RuntimeError(Fault::DeviceIo);
  }
}

} // namespace

File::~File() {
  if (m_handle >= 0)
    ::close(m_handle);
}

void File::open(const QString &path, int flags) {
  if (m_handle >= 0)
    throw RuntimeError(Fault::FileAlreadyOpen);
  if (path.isEmpty() || path.contains(QChar(0)))
    throw RuntimeError(Fault::BadFileName);
  m_handle = ::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC | O_NONBLOCK, 0666);
  if (m_handle < 0)
    throw systemError(errno);
}

int File::handle() const {
  if (m_handle < 0)
    throw RuntimeError(Fault::BadFileName);
  return m_handle;
}

void File::openForInput(const QString &path) {
  open(path, O_RDONLY);
  struct stat status {};
  if (::fstat(m_handle, &status) == 0 && S_ISREG(status.st_mode))
    return;
  close();
  throw RuntimeError(Fault::PathFileAccess);
}

void File::openForOutput(const QString &path) {
  try {
    open(path, O_WRONLY | O_CREAT);
  } catch (const RuntimeError &error) {
    // A file to be made is never missing itself: its folder is.
    if (error.number() == static_cast<std::int32_t>(Fault::FileNotFound))
      throw RuntimeError(Fault::PathNotFound);
    throw;
  }
}

QByteArray File::readAll() {
  struct stat status {};
  if (::fstat(handle(), &status) != 0)
    throw systemError(errno);
  if (status.st_size > off_t{largest})
    throw RuntimeError(Fault::OutOfMemory);
  // One byte more than the size, so that the first read also finds the end of the file.
  QByteArray bytes(static_cast<qsizetype>(status.st_size) + 1, Qt::Uninitialized);
  qsizetype filled = 0;
  for (;;) {
    const ssize_t got =
        ::read(handle(), bytes.data() + filled, static_cast<size_t>(bytes.size() - filled));
    if (got < 0 && errno == EINTR)
      continue;
    if (got < 0)
      throw systemError(errno);
    filled += got;
    if (got == 0)
      break;
    if (filled > qsizetype{largest})
      throw RuntimeError(Fault::OutOfMemory);
    if (filled == bytes.size())
      bytes.resize(filled * 2);
  }
  bytes.truncate(filled);
  return bytes;
}

/// Room for the new content first: a full disk must leave the old one whole.
void File::reserve(off_t size) {
  struct stat before {};
  if (::fstat(handle(), &before) != 0 || ::fallocate(handle(), 0, 0, size) == 0)
    return;
  const int fault = errno;
  if (fault != ENOSPC && fault != EDQUOT && fault != EFBIG)
    return; // whatever has no room to reserve
  [[maybe_unused]] const int undone = ::ftruncate(handle(), before.st_size);
  throw systemError(fault);
}

void File::write(std::string_view bytes) {
  if (bytes.size() > largest)
    throw RuntimeError(Fault::OutOfMemory);
  const auto size = static_cast<off_t>(bytes.size());
  reserve(size);
  ::lseek(handle(), 0, SEEK_SET); // pipes have no places
  while (!bytes.empty()) {
    const ssize_t done = ::write(handle(), bytes.data(), bytes.size());
    if (done < 0 && errno == EINTR)
      continue;
    if (done < 0)
      throw systemError(errno);
    bytes.remove_prefix(static_cast<std::size_t>(done));
  }
  // The rest of a longer old content. Pipes and devices have none.
  if (::ftruncate(handle(), size) != 0 && errno != EINVAL)
    throw systemError(errno);
}

void File::flush() {
  // Pipes and devices have no disk to reach.
  if (::fsync(handle()) != 0 && errno != EINVAL && errno != ENOTSUP && errno != EROFS)
    throw systemError(errno);
}

void File::close() {
  if (m_handle < 0)
    return;
  const int closed = ::close(m_handle);
  m_handle = -1;
  if (closed != 0 && errno != EINTR)
    throw systemError(errno);
}

} // namespace vnb
