// SPDX-License-Identifier: MIT
#include "runtime/files.h"

#include "runtime/error.h"
#include "runtime/systemcalls.h"

#include <QDeadlineTimer>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <sys/file.h>
#include <sys/resource.h>
#include <thread>
#include <utility>

namespace vnb {
namespace {

RuntimeError tooLarge() {
  return RuntimeError(Fault::OutOfMemory).about(QStringLiteral("A file has at most 32 MiB."));
}

/// A quota and a limit on the size of files are no full disk, but leave the user to do the same.
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

bool isFull(int fault) {
  return fault == ENOSPC || fault == EDQUOT || fault == EFBIG;
}

/// The answer of `call`, which is asked again whenever a signal has interrupted it.
template <class Call>
auto uninterrupted(Call call) {
  for (;;)
    if (const auto answer = call(); answer >= 0 || errno != EINTR)
      return answer;
}

/// Raises what went wrong.
template <class Call>
auto checked(Call call) {
  const auto answer = uninterrupted(call);
  if (answer < 0)
    throw systemError(errno);
  return answer;
}

/// Raises 61 if the disk has no room for a file that is to grow to `size`. A disk that doesn't tell
/// has room.
void askForRoom(int handle, const struct stat &before, off_t size) {
  struct statvfs disk {};
  if (systemCalls.fstatvfs(handle, &disk) != 0 || disk.f_blocks == 0)
    return;
  const auto unit = static_cast<off_t>(std::max(disk.f_frsize, 1UL));
  const auto blocks = [unit](off_t bytes) { return (bytes + unit - 1) / unit; };
  constexpr off_t statusUnit = 512;
  // What the file has is used again, but its holes have no blocks.
  const off_t more = blocks(size) - blocks(std::min(before.st_size, before.st_blocks * statusUnit));
  // A little beside them, where the file system writes down which blocks they are.
  if (more > 0 && static_cast<fsblkcnt_t>(more + more / 128 + 3) > disk.f_bavail)
    throw RuntimeError(Fault::DiskFull);
}

} // namespace

File::~File() {
  closeHandle();
}

/// Returns the system's number of what went wrong, or 0.
int File::open(const QString &path, int flags) {
  if (m_handle >= 0)
    throw RuntimeError(Fault::FileAlreadyOpen);
  if (path.isEmpty() || path.contains(QChar(0)))
    throw RuntimeError(Fault::BadFileName);
  // Not for programs that are started from here, and without waiting for a pipe's other end.
  m_handle = uninterrupted([&] {
    return ::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC | O_NONBLOCK, 0666);
  });
  return m_handle < 0 ? errno : 0;
}

int File::handle() const {
  if (m_handle < 0)
    throw RuntimeError(Fault::BadFileName);
  return m_handle;
}

struct stat File::status() const {
  struct stat status {};
  checked([&] { return ::fstat(handle(), &status); });
  return status;
}

void File::openForInput(const QString &path) {
  if (const int fault = open(path, O_RDONLY); fault != 0)
    throw systemError(fault);
  // Only a regular file is sure to end: reading /dev/zero, or a pipe, could go on for ever.
  if (struct stat status{}; ::fstat(m_handle, &status) == 0 && S_ISREG(status.st_mode))
    return;
  close();
  throw RuntimeError(Fault::PathFileAccess);
}

void File::openOrMake(const QString &path) {
  constexpr int flags = O_WRONLY | O_CREAT;
  // As a new one first: only a file that wasn't there is this program's to remove again.
  int fault = open(path, flags | O_EXCL);
  if (fault == 0)
    m_made = QFile::encodeName(path);
  else if (fault == EEXIST)
    fault = open(path, flags);
  // A file to be made is never missing itself: its folder is.
  if (fault == ENOENT)
    throw RuntimeError(Fault::PathNotFound);
  if (fault != 0)
    throw systemError(fault);
}

/// Whether what is open is this program's alone until it is closed, and still what `path` names.
/// A disk that knows no locks lets everybody in.
bool File::isMine(const QString &path) const {
  struct stat open {};
  if (::fstat(m_handle, &open) != 0 || !S_ISREG(open.st_mode))
    return true;
  if (::flock(m_handle, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
    return false;
  struct stat named {};
  return ::stat(QFile::encodeName(path).constData(), &named) == 0 && named.st_ino == open.st_ino &&
         named.st_dev == open.st_dev;
}

void File::openForOutput(const QString &path) {
  openOrMake(path);
  constexpr std::chrono::milliseconds pause(5);
  // Another program's save, after which there may be no such file any more.
  for (const QDeadlineTimer patience(100 * pause); !isMine(path); openOrMake(path)) {
    m_made.clear();
    closeHandle();
    if (patience.hasExpired())
      throw RuntimeError(Fault::PermissionDenied);
    std::this_thread::sleep_for(pause);
  }
}

QByteArray File::readAll() {
  const off_t size = status().st_size;
  if (size > off_t{largest})
    throw tooLarge();
  // One byte more than the size, so that the first read also finds the end of the file.
  QByteArray bytes(static_cast<qsizetype>(size) + 1, Qt::Uninitialized);
  qsizetype filled = 0;
  for (;;) {
    const ssize_t got = checked([&] {
      return ::read(handle(), bytes.data() + filled, static_cast<size_t>(bytes.size() - filled));
    });
    filled += got;
    if (got == 0)
      break;
    if (filled > qsizetype{largest})
      throw tooLarge();
    // It has grown meanwhile, or has no size that is told, like those in /proc.
    if (filled == bytes.size())
      bytes.resize(filled * 2);
  }
  bytes.truncate(filled);
  return bytes;
}

/// Room for the new content first: a full disk must leave the old one whole. Its length must stay,
/// too, or the file would be neither for a moment.
void File::reserve(off_t size) const {
  // A fallocate that keeps the length doesn't ask for this limit.
  if (rlimit limit{};
      ::getrlimit(RLIMIT_FSIZE, &limit) == 0 && static_cast<rlim_t>(size) > limit.rlim_cur)
    throw RuntimeError(Fault::DiskFull);
  const struct stat before = status();
  if (uninterrupted(
          [&] { return systemCalls.fallocate(handle(), FALLOC_FL_KEEP_SIZE, 0, size); }) == 0)
    return;
  const int fault = errno;
  // Many file systems can't reserve; there the free space must do.
  if (!isFull(fault))
    return askForRoom(handle(), before, size);
  systemCalls.ftruncate(handle(), before.st_size); // gives back what was reserved up to there
  throw systemError(fault);
}

/// Writes `bytes` at this place, but to pipes, which have none, behind what they have got.
void File::writeAt(off_t at, std::string_view bytes) const {
  if (::lseek(handle(), at, SEEK_SET) < 0 && errno != ESPIPE)
    throw systemError(errno);
  while (!bytes.empty()) {
    const ssize_t done =
        checked([&] { return systemCalls.write(handle(), bytes.data(), bytes.size()); });
    // Asking on would never end.
    if (done == 0)
      throw RuntimeError(Fault::DeviceIo);
    bytes.remove_prefix(static_cast<std::size_t>(done));
  }
}

void File::write(std::string_view bytes, std::string_view spoilt) {
  m_whole = false;
  if (bytes.size() > largest)
    throw tooLarge();
  if (S_ISREG(status().st_mode))
    replace(bytes, spoilt.substr(0, bytes.size()));
  else
    writeAt(0, bytes);
  m_whole = true;
}

void File::replace(std::string_view bytes, std::string_view spoilt) {
  const auto size = static_cast<off_t>(bytes.size());
  const auto spoiltSize = static_cast<off_t>(spoilt.size());
  reserve(size);
  writeAt(0, spoilt);
  flush();
  try {
    writeAt(spoiltSize, bytes.substr(spoilt.size()));
  } catch (const RuntimeError &) {
    // No old content behind a part of the new one.
    if (const off_t end = ::lseek(handle(), 0, SEEK_CUR); end > spoiltSize)
      systemCalls.ftruncate(handle(), end);
    throw;
  }
  // The beginning vouches for the rest, which must be on the disk before it.
  checked([&] { return systemCalls.ftruncate(handle(), size); });
  flush();
  for (std::size_t i = spoilt.size(); i-- > 0;)
    writeAt(static_cast<off_t>(i), bytes.substr(i, 1));
}

void File::flush() {
  // Pipes and devices have no disk to reach.
  if (uninterrupted([&] { return systemCalls.fsync(handle()); }) == 0 || errno == EINVAL ||
      errno == ENOTSUP || errno == EROFS)
    return;
  m_whole = false;
  throw systemError(errno);
}

void File::close() {
  if (const int fault = closeHandle(); fault != 0)
    throw systemError(fault);
}

/// Returns the system's number of what went wrong, or 0.
int File::closeHandle() {
  if (m_handle < 0)
    return 0;
  // Half a file where there was none is worse than none.
  const auto removeMade = [this] {
    if (!m_made.isEmpty())
      ::unlink(std::exchange(m_made, {}).constData());
  };
  // While no other program can have put its own into it.
  if (!m_whole)
    removeMade();
  int fault = systemCalls.close(m_handle) == 0 ? 0 : errno;
  // Linux has closed it even so, and a second close could hit a file opened since.
  if (fault == EINTR)
    fault = 0;
  if (fault != 0)
    removeMade();
  m_handle = -1;
  m_made.clear();
  return fault;
}

} // namespace vnb
