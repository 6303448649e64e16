// SPDX-License-Identifier: MIT
#include "lanfile/lanfile.h"

#include "lanfile/lines.h"
#include "runtime/codepage.h"
#include "runtime/files.h"
#include "runtime/numbers.h"
#include "runtime/report.h"

#include <algorithm>

namespace vnb {
namespace {

/// Marks the document as being filled, in whichever way the reading ends.
class LoadingMark {
public:
  LoadingMark() { LoadingFile = true; }
  ~LoadingMark() { LoadingFile = false; }
  LoadingMark(const LoadingMark &) = delete;
  LoadingMark &operator=(const LoadingMark &) = delete;
};

/// One reading of one file. It walks the significant lines by their position; keywords, captions
/// and row numbers are not looked at. A member that returns bool returns false when the user has
/// ended the reading, or when the file has.
class Reader {
public:
  Reader(DocumentOperations &operations, ReaderView &view, bool bTakeYourTime)
      : m_operations(operations), m_view(view), m_bTakeYourTime(bTakeYourTime) {}

  void read(const QString &sFileName) {
    if (!readBytes(sFileName))
      return;
    const LoadingMark mark;
    readHeader() && readRouter() && readSystems() && readOptionalTables();
  }

private:
  void yield() {
    if (m_bTakeYourTime)
      m_view.yield();
  }

  /// Raises 9 where the lines have run out.
  void nextLine() {
    const bool found = m_lines.next();
    yield();
    if (!found)
      throw RuntimeError(Fault::SubscriptOutOfRange);
  }

  /// The same behind a table, where a file may end: that is no fault, and false.
  bool nextLineBounded() {
    bool found = false;
    return m_report([&] {
             found = m_lines.next();
             yield();
           }) &&
           found;
  }

  bool readBytes(const QString &sFileName) {
    File file;
    QByteArray bytes;
    // After a Yes each of these still has its turn: opening may fail with 53, then reading with 52.
    return m_report([&] {
             yield();
             m_operations.ClearLAN();
             yield();
           }) &&
           m_report([&] { about(sFileName, [&] { file.openForInput(sFileName); }); }) &&
           m_report([&] { about(sFileName, [&] { bytes = file.readAll(); }); }) && m_report([&] {
             file.close();
             if (bytes.isEmpty())
               throw RuntimeError(Fault::SubscriptOutOfRange);
             m_lines = Lines(std::move(bytes));
             yield();
           });
  }

  /// A header line: `take` gets the text behind a key of `keyLength` letters and one blank.
  template <class Take>
  bool headerLine(HeaderField field, std::size_t keyLength, Take take) {
    // After a fault as well: a box must not show what the file before had.
    return m_report([&] {
             nextLine();
             const std::string line = normalised(m_lines.current());
             // Counted, not looked for: any word may stand in the key's place.
             take(std::string_view(line).substr(std::min(keyLength + 1, line.size())));
           }) &&
           m_report([&] { m_view.headerRead(field); });
  }

  bool readHeader() {
    const auto to = [](QString &text) {
      return [&text](std::string_view value) { text = codePage().decode(value); };
    };
    const auto toLong = [](std::int32_t &number) {
      return [&number](std::string_view value) { number = CLng(value); };
    };
    return headerLine(HeaderField::Name, 4, to(LanHeader.NAME)) &&
           headerLine(HeaderField::Company, 7, to(LanHeader.COMPANY)) &&
           headerLine(HeaderField::Ip, 2, to(LanHeader.IP)) &&
           headerLine(HeaderField::X, 4, toLong(LanHeader.XPOS)) &&
           headerLine(HeaderField::Y, 4, toLong(LanHeader.YPOS));
  }

  /// The first system row places the router that ClearLAN has made; its other columns don't count.
  bool readRouter() {
    return m_report([&] {
             m_row = Row();
             nextLine();
             m_row = Row(m_lines.current());
           }) &&
           m_report([&] {
             m_row.takeWord();
             m_row.takeWord();
             const std::int32_t lX = m_row.takeLong();
             const std::int32_t lY = m_row.takeLong();
             m_operations.MoveSystem(0, lX, lY);
           }) &&
           m_report([&] { nextLine(); });
  }

  /// The rows from the current line to the ".": each goes to `takeRow`, which raises what is wrong
  /// with it; the row is then left out.
  template <class TakeRow>
  bool table(TakeRow takeRow) {
    for (;;) {
      bool atEnd = false;
      // Raises 9 where the lines have run out, and again in the round after a Yes: only No ends it.
      if (!m_report([&] { atEnd = m_lines.current() == "."; }))
        return false;
      if (atEnd)
        return true;
      // Emptied first, so that after a fault no columns of the row before are taken.
      const bool goOn = m_report([&] {
                          m_row = Row();
                          m_row = Row(m_lines.current());
                        }) &&
                        m_report(takeRow) && m_report([&] { nextLine(); });
      if (!goOn || m_operations.gaveUp())
        return false;
    }
  }

  bool readSystems() {
    const bool complete = table([&] { takeSystem(); });
    // Once, and not after each lock: refilling the boxes for every lock of a large file is
    // quadratic.
    return m_report([&] {
             m_view.populateLockBoxes();
             yield();
           }) &&
           complete;
  }

  /// The columns are taken one by one: a call's arguments come in no certain order.
  void takeSystem() {
    m_row.takeWord();
    const std::int32_t lType = TypeFromWord(m_row.takeWord());
    const std::int32_t lX = m_row.takeLong();
    const std::int32_t lY = m_row.takeLong();
    const std::int32_t lSecur = m_row.takeLong();
    const std::int32_t lData1 = m_row.takeLong();
    const std::int32_t lData2 = m_row.takeLong();
    const std::int32_t lData3 = m_row.takeLong();
    m_operations.AddSystem(lType, lX, lY, lSecur, lData1, lData2, lData3, textOf(m_row.rest()));
  }

  void takeLink() {
    m_row.takeWord();
    const std::int32_t lFrom = m_row.takeLong();
    const double dFromX = m_row.takeDouble();
    const double dFromY = m_row.takeDouble();
    const std::int32_t lTo = m_row.takeLong();
    const double dToX = m_row.takeDouble();
    const double dToY = m_row.takeDouble();
    const std::int32_t lSecur = m_row.takeLong();
    m_operations.AddLink(lFrom, dFromX, dFromY, lTo, dToX, dToY, lSecur);
  }

  void takeSubnet() {
    m_row.takeWord();
    const std::int32_t lFor = m_row.takeLong();
    const std::int32_t lFrom = m_row.takeLong();
    m_operations.AddSubnet(lFor, lFrom);
  }

  void takeData() {
    m_row.takeWord();
    const std::int32_t lNum = m_row.takeLong();
    m_operations.AddData(lNum, textOf(m_row.rest()));
  }

  static QString textOf(std::string_view raw) {
    return raw.empty() ? QString() : codePage().decode(normalised(raw));
  }

  bool readOptionalTables() {
    return nextLineBounded() && table([&] { takeLink(); }) && nextLineBounded() &&
           table([&] { takeSubnet(); }) && nextLineBounded() && table([&] { takeData(); });
  }

  DocumentOperations &m_operations;
  ReaderView &m_view;
  const bool m_bTakeYourTime;
  const Report m_report{"frmMain", "OpenLANFile"};
  Lines m_lines;
  Row m_row;
};

} // namespace

void OpenLANFile(const QString &sFileName, DocumentOperations &operations, ReaderView &view,
                 bool bTakeYourTime) {
  Reader(operations, view, bTakeYourTime).read(sFileName);
}

} // namespace vnb
