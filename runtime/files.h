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
  /// Bytes of the largest content that is read or written: the largest LAN has 4 MiB, and laying
  /// out lines of more than this takes a text box many seconds.
  static constexpr std::size_t largest = std::size_t{1} << 25;

  File() = default;
  ~File();
  File(const File &) = delete;
  File &operator=(const File &) = delete;

  /// Opens a regular file; anything else (folders, pipes, devices) raises 75.
  void openForInput(const QString &path);
  /// Opens or makes a file. Never waits for the other end of a pipe.
  void openForOutput(const QString &path);
  /// The whole content. Raises 7 beyond `largest`.
  QByteArray readAll();
  /// Makes `bytes` the whole content. The old one stays if `bytes` are more than `largest` (7), or
  /// the disk has no room for them (61).
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
