// SPDX-License-Identifier: MIT
#include "shell/frmSplash.h"
#include "shell/versionlist.h"
#include "support.h"
#include "widgets/dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QTimer>

namespace vnb::test {
namespace {

TEST(Dialogs, AskBeforeTheyOverwriteAndGoOnAfterNo) {
  const Folder folder;
  const QString path = folder.file("old", "<i>a.txt");
  Boxes boxes;
  QTimer::singleShot(0, [&] {
    auto *dialog = dynamic_cast<QDialog *>(QApplication::activeModalWidget());
    EXPECT_EQ(dialog->property("acceptMode").toInt(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog->property("fileMode").toInt(), QFileDialog::AnyFile);
    dialog->accept();
    EXPECT_TRUE(dialog->isVisible());
    boxes.otherwise = Answer::Yes;
    dialog->accept();
  });
  EXPECT_EQ(showFileDialog(
                {.kind = FileDialog::Kind::Save, .fileName = path, .askBeforeOverwriting = true}),
            path);
  EXPECT_EQ(boxes.texts, Words(2, "<i>a.txt already exists.\nDo you want to replace it?"));
  EXPECT_EQ(boxes.boxes[0].preset, Answer::No);
}

TEST(Dialogs, LeaveInputToAMenuOfTheirOwnThatIsStillOpen) {
  bool stuck = false;
  QTimer::singleShot(0, [&] {
    QMenu menu;
    menu.addAction(QStringLiteral("entry"));
    QTimer::singleShot(0, &menu, [&, dialog = QApplication::activeModalWidget()] {
      QTimer::singleShot(1000, &menu, [&] { stuck = true, menu.close(); });
      dialog->close(); // by the window manager
      QTest::keyClick(menu.windowHandle(), Qt::Key_Escape);
    });
    menu.exec(QPoint());
  });
  EXPECT_EQ(showFileDialog({}), std::nullopt);
  EXPECT_FALSE(stuck);
}

TEST(Dialogs, AreCancelledWhenTheirOwnerEnds) {
  const MessageBox question{.title = {}, .text = {}, .buttons = MessageBox::Buttons::YesNo};
  for (int kind = 0; kind < 3; ++kind) {
    auto *owner = new QWidget;
    owner->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(owner));
    QTimer::singleShot(0, [=] {
      if (const QWidget *dialog = QApplication::activeModalWidget(); kind == 1) {
        EXPECT_EQ(dialog->property("acceptMode").toInt(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog->property("fileMode").toInt(), QFileDialog::ExistingFile);
      }
      delete owner;
    });
    EXPECT_TRUE(kind == 0   ? showMessageWindow(question) == Answer::No
                : kind == 1 ? !showFileDialog({.owner = owner})
                            : !showColourDialog({.owner = owner}));
  }
}

TEST(Splash, TheDotsGoRoundWhileItShows) {
  frmSplash splash;
  const auto *label = splash.findChild<QLabel *>(QStringLiteral("lblLoading"));
  auto *tmrDots = splash.findChild<QTimer *>();
  ASSERT_TRUE(tmrDots->isActive());
  Words texts{label->text().toStdString()};
  while (texts.size() < 6) {
    QTimerEvent tick(tmrDots->timerId());
    QCoreApplication::sendEvent(tmrDots, &tick);
    texts.push_back(label->text().toStdString());
  }
  EXPECT_THAT(texts, ElementsAre("Loading...", "Loading", "Loading.", "Loading..", "Loading...",
                                 "Loading"));
  splash.show();
  splash.hide();
  EXPECT_FALSE(tmrDots->isActive());
  splash.show();
  EXPECT_TRUE(tmrDots->isActive());
}

TEST(VersionList, NamesTheNumberOfEachChild) {
  EXPECT_EQ(ownVersion(), u"6.2.5");
  for (const auto &[xml, due] :
       sides({"<versions/> -> ",
              "<a><b number='6.2.5'>text<c number='no'/></b><d x='1' number=''/></a> -> 6.2.5;",
              "<a><b number='1'/><b Number='2'/></a> -> A version in the list has no number."})) {
    QFile file(versionListPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(xml.c_str());
    file.close();
    QString read;
    const std::string error = raised([&] { read = readVersionList().join(u';'); });
    EXPECT_EQ(read.toStdString() + error, due);
  }
  EXPECT_TRUE(QFile::remove(versionListPath()));
  EXPECT_EQ(raised(readVersionList), "53");
}

} // namespace
} // namespace vnb::test
