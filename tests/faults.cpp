// SPDX-License-Identifier: MIT
#include "faults.h"

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

using vnb::test::Faults;

constinit Faults faults;

/// Calls the system's own function `name`, or fails.
template <class Call, class... Values>
auto call(const char *name, Values... values) {
  if (faults.calls && faults.next())
    return errno = EIO, decltype(std::declval<Call>()(values...)){-1};
  return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name))(values...);
}

using Open = int (*)(const char *, int, ...);

mode_t modeOf(int flags, va_list values) {
  return (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : 0;
}

void *allocate(std::size_t size) {
  return faults.allocations && faults.next() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

} // namespace

// In place of the system's, for this program and all its libraries.
extern "C" {
int open(const char *path, int flags, ...) {
  va_list values;
  va_start(values, flags);
  const mode_t mode = modeOf(flags, values);
  va_end(values);
  return call<Open>("open", path, flags, mode);
}
int open64(const char *path, int flags, ...) {
  va_list values;
  va_start(values, flags);
  const mode_t mode = modeOf(flags, values);
  va_end(values);
  return call<Open>("open64", path, flags, mode);
}
ssize_t read(int handle, void *bytes, size_t size) {
  return call<ssize_t (*)(int, void *, size_t)>("read", handle, bytes, size);
}
ssize_t write(int handle, const void *bytes, size_t size) {
  return call<ssize_t (*)(int, const void *, size_t)>("write", handle, bytes, size);
}
off_t lseek(int handle, off_t at, int from) noexcept {
  return call<off_t (*)(int, off_t, int)>("lseek", handle, at, from);
}
off64_t lseek64(int handle, off64_t at, int from) noexcept {
  return call<off64_t (*)(int, off64_t, int)>("lseek64", handle, at, from);
}
int fstat(int handle, struct stat *status) noexcept {
  return call<int (*)(int, struct stat *)>("fstat", handle, status);
}
int statx(int folder, const char *path, int flags, unsigned mask, struct statx *status) noexcept {
  return call<int (*)(int, const char *, int, unsigned, struct statx *)>("statx", folder, path,
                                                                         flags, mask, status);
}
int fchmod(int handle, mode_t mode) noexcept {
  return call<int (*)(int, mode_t)>("fchmod", handle, mode);
}
int fsync(int handle) {
  return call<int (*)(int)>("fsync", handle);
}
int fdatasync(int handle) {
  return call<int (*)(int)>("fdatasync", handle);
}
int mkdir(const char *path, mode_t mode) noexcept {
  return call<int (*)(const char *, mode_t)>("mkdir", path, mode);
}
int rename(const char *from, const char *to) noexcept {
  return call<int (*)(const char *, const char *)>("rename", from, to);
}
int unlink(const char *path) noexcept {
  return call<int (*)(const char *)>("unlink", path);
}
}

void *operator new(std::size_t size) {
  if (void *const room = allocate(size))
    return room;
  throw std::bad_alloc();
}
void *operator new(std::size_t size, const std::nothrow_t & /*tag*/) noexcept {
  return allocate(size);
}
void operator delete(void *room) noexcept {
  std::free(room);
}
void operator delete(void *room, std::size_t /*size*/) noexcept {
  std::free(room);
}

namespace vnb::test {

int withEach(bool Faults::*kind, const std::function<void()> &before,
             const std::function<void()> &act,
             const std::function<void(const Words &boxes, bool failed)> &check) {
  int count = 0;
  for (int fault = -1; fault < count && !testing::Test::HasFailure(); ++fault)
    for (const int goingOn : {0, 5}) {
      SCOPED_TRACE("fault " + std::to_string(fault) + " of " + std::to_string(count));
      before();
      const Boxes boxes(yes(goingOn));
      faults = {.until = fault};
      faults.*kind = true;
      act();
      const Faults after = std::exchange(faults, {});
      count = fault < 0 ? after.count : count;
      check(boxes.texts, fault >= 0);
    }
  return count;
}

} // namespace vnb::test
