// SPDX-License-Identifier: MIT
/// Any bytes read as a LAN file must end in a sound document, which comes back from its own file.
#include "fuzz/memoryfile.h"
#include "fuzz/sound.h"
#include "lanfile/lanfile.h"
#include "runtime/codepage.h"
#include "runtime/messagebox.h"
#include "runtime/systemcalls.h"

#include <array>

namespace {

using namespace vnb;

std::string saved(const MemoryFile &file) {
  SaveLAN(file.path());
  return file.bytes();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
  static const MemoryFile input("input");
  static const MemoryFile output("output");
  // The page goes by the length, not by the locale: an input means the same everywhere.
  constexpr std::array pages{1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 874};
  useCodePage(pages[size % pages.size()]);
  int yesLeft = 16; // once the lines have run out, each Yes only brings the same box again
  showMessageBox = [&yesLeft](const MessageBox &) {
    return yesLeft-- > 0 ? Answer::Yes : Answer::No;
  };
  DocumentOperations operations;
  ReaderView view;
  input.fill({reinterpret_cast<const char *>(bytes), size});
  OpenLANFile(input.path(), operations, view);
  requireSoundDocument();

  showMessageBox = [](const MessageBox &box) {
    require(false, qUtf8Printable(box.text));
    return Answer::No;
  };
  trimHeader();
  const std::string first = saved(output);
  OpenLANFile(output.path(), operations, view);
  requireSoundDocument();
  require(saved(output) == first, "a saved document comes back to the byte");
  return 0;
}

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/) {
  systemCalls.fsync = [](int) { return 0; }; // memory has no disk to wait for
  return 0;
}
