// SPDX-License-Identifier: MIT
#include "appearance/frmThemes.h"
#include "editor/frmMain.h"
#include "forms/dialogs.h"
#include "shell/cdlgex.h"
#include "support.h"

#include <gmock/gmock.h>

#include <QTest>

using testing::IsEmpty;

namespace vnb::test {
namespace {

/// Answers file dialogs with one path, or cancels while it is null.
class FileDialogs {
public:
  FileDialogs() {
    showFileDialog = [this](const FileDialog &dialog) -> std::optional<QString> {
      requests.push_back(dialog);
      return answer.isNull() ? std::nullopt : std::optional(answer);
    };
  }

  QString answer;
  std::vector<FileDialog> requests;
};

class Editor : public testing::Test {
protected:
  Editor() {
    Cdlg = {};
    for (const ToolbarButton &button : toolbarButtons())
      frmThemes::View->loadButtonImages(QString::fromLatin1(button.tag), QStringLiteral("||"));
    main.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&main));
  }

  QWidget *child(const char *name) { return main.findChild<QWidget *>(QString::fromLatin1(name)); }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(&main, key, modifiers); }

  Boxes boxes;
  FileDialogs dialogs;
  frmMain main;
};

TEST_F(Editor, OpensAndSavesByteForByte) {
  const Folder folder;
  dialogs.answer = sample("company.txt");
  key(Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(UBound(Systems), 41);
  dialogs.answer = folder.path("copy.txt");
  key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Folder::bytes(folder.path("copy.txt")), Folder::bytes(sample("company.txt")));
  ASSERT_EQ(dialogs.requests.size(), 2U);
  const FileDialog &open = dialogs.requests[0];
  const FileDialog &save = dialogs.requests[1];
  EXPECT_EQ(open.title, u"Open LAN");
  EXPECT_EQ(open.filter, u"LAN Definition files|*.txt|All files (*.*)|*.*");
  EXPECT_EQ(open.fileName, u"");
  EXPECT_EQ(open.owner, &main);
  EXPECT_FALSE(open.askBeforeOverwriting);
  EXPECT_EQ(save.title, u"Save LAN");
  EXPECT_EQ(save.kind, FileDialog::Kind::Save);
  EXPECT_EQ(save.fileName, sample("company.txt"));
  EXPECT_TRUE(save.askBeforeOverwriting);
  EXPECT_EQ(Cdlg.FileTitle, u"copy.txt");
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Editor, CancelChangesNothingAndNewKeepsTheName) {
  dialogs.answer = sample("five-devices.txt");
  main.picLoad_Click();
  dialogs.answer = QString();
  main.picLoad_Click();
  main.picSave_Click();
  EXPECT_EQ(UBound(Systems), 4);
  EXPECT_EQ(Cdlg.FileName, sample("five-devices.txt"));
  key(Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(UBound(Systems), 0);
  EXPECT_EQ(Cdlg.FileName, sample("five-devices.txt"));
  dialogs.answer = QStringLiteral("");
  main.picLoad_Click();
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Editor, KeysActAloneAndOnRelease) {
  const auto count = [this] { return dialogs.requests.size(); };
  for (const Qt::KeyboardModifiers modifiers :
       {Qt::KeyboardModifiers(), Qt::ControlModifier | Qt::ShiftModifier,
        Qt::ControlModifier | Qt::AltModifier})
    key(Qt::Key_O, modifiers);
  QTest::keyRelease(&main, Qt::Key_O, Qt::ControlModifier); // pressed in another window
  QTest::keyPress(&main, Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(count(), 0U);
  QTest::keyRelease(&main, Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(count(), 1U);
  QTest::keyPress(&main, Qt::Key_O, Qt::ControlModifier);
  QTest::keyRelease(&main, Qt::Key_O); // Ctrl was let go first
  EXPECT_EQ(count(), 1U);
  QWidget *bar = child("vsbScroll");
  bar->setFocus();
  QTest::keyClick(bar, Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(count(), 2U);
}

TEST_F(Editor, ButtonsShowTheirStateAndRunOnlyInside) {
  QWidget *button = child("picLoad");
  const QImage off = button->grab().toImage();
  QTest::mousePress(button, Qt::RightButton);
  const QImage down = button->grab().toImage();
  EXPECT_NE(off, down);
  QTest::mouseRelease(button, Qt::RightButton, {}, QPoint(50, 50));
  EXPECT_EQ(button->grab().toImage(), off);
  EXPECT_EQ(dialogs.requests.size(), 0U);
  QTest::mouseClick(button, Qt::MiddleButton);
  EXPECT_EQ(dialogs.requests.size(), 1U);
}

TEST(Dialogs, FiltersAreConverted) {
  EXPECT_EQ(toQtFilter(QStringLiteral("LAN Definition files|*.txt|All files (*.*)|*.*")),
            u"LAN Definition files (*.txt);;All files (*.*) (*)");
  EXPECT_EQ(toQtFilter({}), u"");
}

} // namespace
} // namespace vnb::test
