// SPDX-License-Identifier: MIT
#include "lanfile/lanfile.h"

#include "runtime/codepage.h"
#include "runtime/files.h"
#include "runtime/numbers.h"
#include "runtime/report.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>

namespace vnb {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view systemsBanner = "\r\n"
                                           "; =======\r\n"
                                           "; SYSTEMS\r\n"
                                           "; =======\r\n"
                                           "\r\n"
                                           "; NUM   SYSTEMTYPE      XPOS    YPOS    SECUR   "
                                           "DATA1   DATA2   DATA3   DATAX\r\n"
                                           "; -----------------------------------------------"
                                           "----------------------------\r\n"
                                           "\r\n";
constexpr std::string_view linksBanner = ".\r\n"
                                         "\r\n"
                                         "; =====\r\n"
                                         "; LINKS\r\n"
                                         "; =====\r\n"
                                         "\r\n"
                                         "; LINK  FROM    FROMX   FROMY   TO  TOX     TOY     "
                                         "SECUR\r\n"
                                         "; --------------------------------------------------"
                                         "-----\r\n"
                                         "\r\n";
constexpr std::string_view subnetsBanner = ".\r\n"
                                           "\r\n"
                                           "; =============\r\n"
                                           "; VALID SUBNETS\r\n"
                                           "; =============\r\n"
                                           "\r\n"
                                           "; VALIDSUBNET   FOR     FROM\r\n"
                                           "; --------------------------\r\n"
                                           "\r\n";
constexpr std::string_view dataBanner = ".\r\n"
                                        "\r\n"
                                        "; ====\r\n"
                                        "; DATA\r\n"
                                        "; ====\r\n"
                                        "\r\n"
                                        "; DATA  NUM     TEXT\r\n"
                                        "; ------------------\r\n"
                                        "\r\n";
constexpr std::string_view lastLine = ".\r\n";

/// What a file begins with until all the rest is on the disk: whatever stands behind it, the fourth
/// line holds no number, and OpenLANFile reports that. Half-way there or back, too, it is reported:
/// the N is the file's own, and with the next byte there is a line too many in the header.
constexpr std::string_view spoiltHead = "N\r!\r!\r!\r";

/// Bytes that a row or a header line can take beside its text: every column at its longest.
constexpr std::size_t rowRoom = 8 * numberRoom;

/// Longest column width; padding is copied in one piece of this size.
constexpr std::size_t widestColumn = 16;
constexpr std::string_view blanks = "                ";
static_assert(blanks.size() == widestColumn);

std::size_t sizeOf(const QString &text) {
  return static_cast<std::size_t>(text.size());
}

/// Room that certainly holds the file of the document.
std::size_t fileRoom() {
  std::size_t room = systemsBanner.size() + linksBanner.size() + subnetsBanner.size() +
                     dataBanner.size() + lastLine.size() + 5 * rowRoom + widestColumn;
  // One byte a character is all that a page needs.
  room += sizeOf(LanHeader.NAME) + sizeOf(LanHeader.COMPANY) + sizeOf(LanHeader.IP);
  for (const SystemRec &system : Systems)
    room += rowRoom + sizeOf(system.sDataX);
  room += rowRoom * (Links.size() + Subnets.size() + DataItems.size());
  for (const DataRec &data : DataItems)
    room += sizeOf(data.sText);
  return room;
}

/// Writes the lines of one file into a buffer that is large enough. Rows are built column by
/// column; `endRow` ends each.
class FileText {
public:
  /// Only the pages that are written to count: the room is a bound, not the size.
  FileText() : m_bytes(new char[fileRoom()]), m_end(m_bytes.get()) {}

  std::string_view bytes() const {
    return {m_bytes.get(), static_cast<std::size_t>(m_end - m_bytes.get())};
  }

  void add(std::string_view ascii) {
    std::memcpy(m_end, ascii.data(), ascii.size());
    m_end += ascii.size();
  }

  void add(const QString &text) { m_end = codePage().encode(m_end, text); }

  void add(std::int32_t number) { m_end = std::to_chars(m_end, m_end + numberRoom, number).ptr; }

  void add(double number) { m_end = writeDouble(m_end, number); }

  /// A value and the blanks behind it: up to `width`, and at least one.
  template <class Value>
  void column(Value value, std::size_t width) {
    const char *start = m_end;
    add(value);
    const auto length = static_cast<std::size_t>(m_end - start);
    std::memcpy(m_end, blanks.data(), widestColumn);
    m_end += length < width ? width - length : 1;
  }

  void endRow() { add("\r\n"sv); }

private:
  std::unique_ptr<char[]> m_bytes; // NOLINT(*-avoid-c-arrays): left uninitialised on purpose
  char *m_end;
};

template <class Value>
void addHeader(FileText &file, std::string_view key, const Value &value) {
  file.add(key);
  file.add(value);
  file.endRow();
}

/// The reader takes blanks for no text. Without them a file comes back to the byte.
bool isAllBlanks(const QString &text) {
  return std::all_of(text.begin(), text.end(), [](QChar c) { return c == u' '; });
}

/// The widths here and below put each column under its caption in the banner.
void addSystem(FileText &file, std::int32_t number, const SystemRec &system) {
  file.column(number, 8);
  file.column(FileWord(system.lType), 16);
  for (const std::int32_t value :
       {system.lX, system.lY, system.lSecur, system.lData1, system.lData2})
    file.column(value, 8);
  if (isAllBlanks(system.sDataX)) {
    file.add(system.lData3);
  } else {
    file.column(system.lData3, 8);
    file.add(system.sDataX);
  }
  file.endRow();
}

void addLink(FileText &file, const LinkRec &link) {
  file.add("LINK    "sv);
  file.column(link.lFrom, 8);
  file.column(link.dFromX, 8);
  file.column(link.dFromY, 8);
  file.column(link.lTo, 4);
  file.column(link.dToX, 8);
  file.column(link.dToY, 8);
  file.add(link.lSecur);
  file.endRow();
}

void addSubnet(FileText &file, const SubnetRec &subnet) {
  file.add("VALIDSUBNET     "sv);
  file.column(subnet.lFor, 8);
  file.add(subnet.lFrom);
  file.endRow();
}

void addData(FileText &file, const DataRec &data) {
  file.add("DATA    "sv);
  file.column(data.lNum, 8);
  file.add(data.sText);
  file.endRow();
}

/// Adds the rows of all entries from 1 on.
template <class T, class Row>
void addTable(FileText &file, const std::vector<T> &array, Row addRow) {
  for (std::size_t i = 1; i < array.size(); ++i)
    addRow(file, array[i]);
}

void addFile(FileText &file) {
  addHeader(file, "NAME        ", LanHeader.NAME);
  addHeader(file, "COMPANY     ", LanHeader.COMPANY);
  addHeader(file, "IP          ", LanHeader.IP);
  addHeader(file, "XPOS        ", LanHeader.XPOS);
  addHeader(file, "YPOS        ", LanHeader.YPOS);
  file.add(systemsBanner);
  for (std::int32_t i = 0; i <= UBound(Systems); ++i)
    addSystem(file, i, at(Systems, i));
  file.add(linksBanner);
  addTable(file, Links, addLink);
  file.add(subnetsBanner);
  addTable(file, Subnets, addSubnet);
  file.add(dataBanner);
  addTable(file, DataItems, addData);
  file.add(lastLine);
}

} // namespace

bool SaveLAN(const QString &sFileName) {
  std::unique_ptr<FileText> text;
  File file;
  const bool made = reported("frmMain", "SaveLAN", [&] {
    text = std::make_unique<FileText>();
    addFile(*text);
  });
  // Without a text the old file is better left as it is.
  if (!made || !text)
    return false;
  // Counted, as `reported` is true also where the user has gone on after a fault.
  int done = 0; // without an error
  const auto step = [&](auto act) { return [&, act] { about(sFileName, act), ++done; }; };
  reported("frmMain", "SaveLAN", step([&] { file.openForOutput(sFileName); }),
           step([&] { file.write(text->bytes(), spoiltHead); }), step([&] { file.flush(); }),
           step([&] { file.close(); }));
  return done == 4;
}

} // namespace vnb
