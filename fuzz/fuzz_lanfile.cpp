// SPDX-License-Identifier: MIT
/// Any bytes read as a LAN file must end in a sound document, which comes back from its own file.
#include "fuzz/require.h"
#include "lanfile/lanfile.h"
#include "runtime/codepage.h"
#include "runtime/messagebox.h"

#include <QFile>

#include <algorithm>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace {

using namespace vnb;

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

  void fill(const std::uint8_t *bytes, std::size_t size) const {
    require(::ftruncate(m_handle, 0) == 0 &&
                ::pwrite(m_handle, bytes, size, 0) == static_cast<ssize_t>(size),
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

void checkDocument() {
  require(!Systems.empty() && !Links.empty() && !Subnets.empty() && !DataItems.empty(),
          "every array has element 0");
  require(!LoadingFile, "the reading has ended");
  require(lSelectedItem == -1, "nothing is selected");
  require(Systems[0].lType == SystemType::Router && Systems[0].sDataX.isEmpty(),
          "system 0 is the router");
  for (const SystemRec &system : Systems) {
    require(system.lSecur >= 1 && system.lSecur <= 3, "levels go from 1 to 3");
    require(system.lType >= 0 && system.lType <= SystemType::Last, "types are of the table");
  }
  require(Links[0].lTo == 0 && Subnets[0].lFor == 0 && DataItems[0].sText.isEmpty(),
          "the dummies are untouched");
}

/// What the next reading takes off: a header line without its usual key can leave one blank in
/// front of the value.
void trimHeader() {
  for (QString *text : {&LanHeader.NAME, &LanHeader.COMPANY, &LanHeader.IP})
    *text = SuperTrim(*text);
}

std::string saved(const MemoryFile &file) {
  SaveLAN(file.path());
  return file.bytes();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
  static const MemoryFile input("input");
  static const MemoryFile output("output");
  int yesLeft = 16; // once the lines have run out, each Yes only brings the same box again
  showMessageBox = [&yesLeft](const MessageBox &) {
    return yesLeft-- > 0 ? Answer::Yes : Answer::No;
  };
  DocumentOperations operations;
  ReaderView view;
  input.fill(bytes, size);
  OpenLANFile(input.path(), operations, view);
  checkDocument();

  showMessageBox = [](const MessageBox &box) {
    require(false, qUtf8Printable(box.text));
    return Answer::No;
  };
  trimHeader();
  const std::string first = saved(output);
  OpenLANFile(output.path(), operations, view);
  checkDocument();
  require(saved(output) == first, "a saved document comes back to the byte");
  return 0;
}

/// One page whatever the locale, so that an input means the same everywhere.
extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/) {
  useCodePage(1252);
  return 0;
}
