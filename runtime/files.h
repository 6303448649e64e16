// SPDX-License-Identifier: MIT
/// Files with classic error numbers: opened, read and written in the procedure that needs them.
#pragma once

#include <QByteArray>
#include <QString>

#include <string_view>
#include <sys/stat.h>

namespace vnb {

/// An open file, closed at the latest by the destructor, which can't tell of a fault: whoever
/// writes calls `close`. All operations raise the error of the system's answer: 7, 52, 53, 57, 61,
/// 67, 70, 75 or 76. 52 is also raised when the file isn't open, or for a path that is empty or has
/// a NUL, and 55 for opening an object that is open already.
class File {
public:
  /// Bytes of the largest content that is read or written: the largest LAN has 4 MiB, and laying
  /// out lines of more than this takes a text box many seconds.
  static constexpr std::size_t largest = std::size_t{1} << 25;

  File() = default;
  ~File();
  File(const File &) = delete;
  File &operator=(const File &) = delete;

  /// Opens a regular file; anything else (folders, pipes, devices) raises 75. The content can be
  /// read once.
  void openForInput(const QString &path);
  /// Opens or makes a file; what stands in it stays until `write`. Raises 76 if its folder is
  /// missing and 75 for a folder. Never waits for the other end of a pipe: one that nobody reads
  /// raises 57. Where another File holds the same file for output, in whatever program, it waits
  /// for its `close`, for half a second at most, and then raises 70. A file that it has made is
  /// removed by `close` unless its content has been written and flushed without a fault.
  void openForOutput(const QString &path);
  /// The whole content. Raises 7 beyond `largest`.
  QByteArray readAll();
  /// Makes `bytes` the whole content, also after an earlier `write`; pipes and devices just get
  /// them. The old content stays if `bytes` are more than `largest` (7), or the disk has no room
  /// for them (61).
  ///
  /// From the first byte written until all others have reached the disk, the file begins with
  /// `spoilt` in place of as many bytes. These are laid from the first to the last and replaced
  /// from the last to the first. Where the writing fails half-way, the file ends there.
  void write(std::string_view bytes, std::string_view spoilt = {});
  /// Returns only when the content has reached the disk; at once for pipes and devices.
  void flush();
  /// Raises what the system finds out only now, and is closed all the same. Nothing happens if it
  /// isn't open.
  void close();

private:
  int open(const QString &path, int flags);
  void openOrMake(const QString &path);
  bool isMine(const QString &path) const;
  /// Raises 52 when the file isn't open.
  int handle() const;
  struct stat status() const;
  void reserve(off_t size) const;
  void replace(std::string_view bytes, std::string_view spoilt);
  void writeAt(off_t at, std::string_view bytes) const;
  int closeHandle();

  int m_handle = -1;
  QByteArray m_made;    // the path, if openForOutput has made the file
  bool m_whole = false; // whether a write has succeeded, and no flush has failed
};

} // namespace vnb
