// SPDX-License-Identifier: MIT
/// Files with classic error numbers: opened, read and written in the procedure that needs them.
#pragma once

#include <QByteArray>
#include <QString>

#include <string_view>
#include <sys/types.h>

namespace vnb {

/// An open file, closed at the latest by the destructor.
/// All operations raise the error of the system's answer: 7, 53, 57, 61, 67, 70, 75 or 76, and 52
/// when the file isn't open.
class File {
public:
  File() = default;
  ~File();
  File(const File &) = delete;
  File &operator=(const File &) = delete;

  /// Opens a regular file; anything else (folders, pipes, devices) raises 75.
  void openForInput(const QString &path);
  /// Opens or makes a file. Never waits for the other end of a pipe.
  void openForOutput(const QString &path);
  /// The whole content. Raises 7 beyond 32 MiB: the largest LAN has 4, and laying out lines of more
  /// takes a text box many seconds.
  QByteArray readAll();
  /// Makes `bytes` the whole content. The old one stays if there is no room.
  void write(std::string_view bytes);
  /// Returns only when the content has reached the disk.
  void flush();
  void close();

private:
  void open(const QString &path, int flags);
  int handle() const;
  void reserve(off_t size);

  int m_handle = -1;
};

} // namespace vnb
