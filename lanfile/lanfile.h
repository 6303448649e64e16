// SPDX-License-Identifier: MIT
/// LAN definition files: the document as the game's text, written and read. The format stands in
/// docs/file-format.md.
#pragma once

#include "document/operations.h"

#include <QString>

namespace vnb {

/// Writes the document to `sFileName`. Wherever that is cut off, there stands the earlier file, the
/// new one, or one that OpenLANFile reports. Failures (a path that can't be made or written, a full
/// disk) go to the standard error report; a file that didn't exist before is then removed. Returns
/// whether the file has been written.
bool SaveLAN(const QString &sFileName);

/// The fields of LanHeader, in file order.
enum class HeaderField : std::uint8_t { Name, Company, Ip, X, Y };

/// What the reader tells the view, beside the operations that it calls. All members are empty here.
class ReaderView {
public:
  ReaderView() = default;
  ReaderView(const ReaderView &) = delete;
  ReaderView &operator=(const ReaderView &) = delete;
  virtual ~ReaderView() = default;

  /// A field of LanHeader has been read, or was left alone after a fault.
  virtual void headerRead(HeaderField) {}
  /// The SYSTEMS table has been left, in whichever way.
  virtual void populateLockBoxes() {}
  /// Waiting events may run. Only called when the reader takes its time.
  virtual void yield() {}
};

/// Replaces the document by what `sFileName` holds, through `operations`, so that a view which
/// derives from them grows along. A file that can't be opened or read leaves a new LAN. Every fault
/// goes to the standard error report: Yes goes on with the next step (where the lines have run out,
/// into the next fault), No ends, and what was read stands. `bTakeYourTime` lets events run between
/// the lines.
void OpenLANFile(const QString &sFileName, DocumentOperations &operations, ReaderView &view,
                 bool bTakeYourTime = false);

/// `sText` with each tab as a blank, and no blanks at its ends.
QString SuperTrim(const QString &sText);

/// SuperTrim of `sText` with single blanks only.
QString ConcatSpaces(const QString &sText);

} // namespace vnb
