// SPDX-License-Identifier: MIT
// Each system call by which a LAN file is read or written fails once, and so does each allocation:
// nothing goes wrong untold, and no file opens as something else.
#include "faults.h"

namespace vnb::test {
namespace {

class LanFileFault : public testing::Test {
protected:
  /// Opens a LAN with each fault.
  void open(bool Faults::*kind, int least);
  /// Saves it over another file with each.
  void save(bool Faults::*kind, int least);

  Folder folder;
  DocumentOperations operations;
  ReaderView view;
};

void LanFileFault::open(bool Faults::*kind, int least) {
  const QString path = sample("company.txt");
  std::string whole;
  const int count = withEach(
      kind, [&] { operations.ClearLAN(); }, [&] { OpenLANFile(path, operations, view); },
      [&](const Words &boxes, bool failed) {
        if (!failed)
          whole = dump();
        EXPECT_TRUE(failed || boxes.empty());
        EXPECT_TRUE(dump() == whole || !boxes.empty());
        EXPECT_FALSE(LoadingFile);
      });
  EXPECT_GE(count, least);
}

void LanFileFault::save(bool Faults::*kind, int least) {
  OpenLANFile(sample("company.txt"), operations, view);
  const QByteArray old = Folder::bytes(sample("five-devices.txt"));
  const QString path = folder.path("saved.txt");
  QByteArray whole;
  bool saved = false;
  const int count = withEach(
      kind, [&] { folder.file(old, "saved.txt"); }, [&] { saved = SaveLAN(path); },
      [&](const Words &boxes, bool failed) {
        const QByteArray now = Folder::bytes(path);
        if (!failed)
          whole = now;
        EXPECT_EQ(saved, boxes.empty());
        EXPECT_TRUE(!saved || now == whole);
        if (now == whole || now == old)
          return;
        const Boxes reports;
        OpenLANFile(path, operations, view);
        EXPECT_FALSE(reports.texts.empty());
        OpenLANFile(sample("company.txt"), operations, view);
      });
  EXPECT_GE(count, least);
}

TEST_F(LanFileFault, OfACallWhileAFileIsOpened) {
  open(&Faults::calls, 3);
}

TEST_F(LanFileFault, OfAnAllocationWhileAFileIsOpened) {
  open(&Faults::allocations, 20);
}

TEST_F(LanFileFault, OfACallWhileAFileIsSaved) {
  save(&Faults::calls, 8);
}

TEST_F(LanFileFault, OfAnAllocationWhileAFileIsSaved) {
  save(&Faults::allocations, 1);
}

} // namespace
} // namespace vnb::test
