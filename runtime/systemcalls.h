// SPDX-License-Identifier: MIT
/// The system calls by which a file gets its content, as replaceable functions: a test can let each
/// of them fail, and see what a disk would hold between any two.
#pragma once

#include <fcntl.h>
#include <functional>
#include <sys/statvfs.h>
#include <unistd.h>

namespace vnb {

/// As the system documents them: -1 for a failure, with its number in errno. Those by which no
/// content can get lost (open, lseek, read) are called directly.
struct SystemCalls {
  std::function<int(int, int, off_t, off_t)> fallocate = ::fallocate;
  std::function<int(int, struct statvfs *)> fstatvfs = ::fstatvfs;
  std::function<ssize_t(int, const void *, size_t)> write = ::write;
  std::function<int(int, off_t)> ftruncate = ::ftruncate;
  std::function<int(int)> fsync = ::fsync;
  std::function<int(int)> close = ::close;
};

/// What every `File` calls.
inline SystemCalls systemCalls;

} // namespace vnb
