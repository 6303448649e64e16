// SPDX-License-Identifier: MIT
/// Files for fuzz targets that no disk has to hold.
#pragma once

#include "fuzz/require.h"

#include <QFile>

#include <algorithm>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace vnb {

/// A file that lives in memory, under a path that the reader and the writer can open.
class MemoryFile {
public:
  explicit MemoryFile(const char *name)
      : m_handle(::memfd_create(name, 0)),
        m_path(QFile::decodeName(("/proc/self/fd/" + std::to_string(m_handle)).c_str())) {}
  ~MemoryFile() { ::close(m_handle); }
  MemoryFile(const MemoryFile &) = delete;
  MemoryFile &operator=(const MemoryFile &) = delete;

  const QString &path() const { return m_path; }

  void fill(std::string_view bytes) const {
    require(::ftruncate(m_handle, 0) == 0 && ::pwrite(m_handle, bytes.data(), bytes.size(), 0) ==
                                                 static_cast<ssize_t>(bytes.size()),
            "the input can't be stored");
  }

  std::string bytes() const {
    std::string bytes(static_cast<std::size_t>(std::max<off_t>(::lseek(m_handle, 0, SEEK_END), 0)),
                      '\0');
    require(::pread(m_handle, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()),
            "the output can't be fetched");
    return bytes;
  }

private:
  int m_handle;
  QString m_path;
};

} // namespace vnb
