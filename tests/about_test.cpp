// SPDX-License-Identifier: MIT
#include "formtest.h"
#include "shell/abouttexts.h"
#include "shell/frmAbout.h"
#include "shell/pagebutton.h"
#include "shell/versionlist.h"
#include "shellsupport.h"
#include "support.h"

#include <QPlainTextEdit>

#include <gmock/gmock.h>

using testing::SizeIs;
using testing::StartsWith;

namespace vnb::test {
namespace {

class About : public FormTest<frmAbout> {
protected:
  About() { form().show(); }

  /// What shows: "0 1 2" for the buttons, those with an open page in brackets, then logo or text.
  static std::string shown() {
    std::string out;
    for (int i = 0; i < 3; ++i) {
      const auto &button =
          control<PageButton>(qUtf8Printable(QStringLiteral("picButton%1").arg(i)));
      const std::string name = std::to_string(i);
      if (button.isVisible())
        out += button.isSelected() ? "[" + name + "] " : name + " ";
    }
    if (control("picAbout").isVisible())
      out += "logo";
    return control("txtAbout").isVisible() ? out + "text" : out;
  }
  static std::string page() {
    return control<QPlainTextEdit>("txtAbout").toPlainText().toStdString();
  }
};

TEST_F(About, ButtonsOpenTheirPageAndCloseItAgain) {
  EXPECT_EQ(shown(), "0 1 logo");
  click("picButton0");
  EXPECT_EQ(shown(), "[0] 1 text");
  EXPECT_THAT(page(), StartsWith("About Vantry Network Builder \n"));
  click("picButton0");
  EXPECT_EQ(shown(), "0 1 logo");
  click("picButton1");
  EXPECT_EQ(shown(), "0 [1] text");
  click("picButton0");
  EXPECT_EQ(shown(), "[0] 1 text") << "straight from one to the other";
  EXPECT_THAT(page(), StartsWith("About"));
}

TEST_F(About, ADoubleClickOnTheFreeAreaShowsTheThirdButton) {
  QTest::mouseDClick(&control("picAbout"), Qt::LeftButton);
  QTest::mouseDClick(&control("picButton0"), Qt::LeftButton);
  EXPECT_EQ(shown(), "0 1 logo") << "on a child it's none; a button was opened and closed";
  click("picButton0");
  QTest::mouseDClick(&form(), Qt::LeftButton, {}, QPoint(390, 10));
  EXPECT_EQ(shown(), "[0] 1 2 text");
  QTest::mouseDClick(&form(), Qt::LeftButton, {}, QPoint(390, 10));
  EXPECT_EQ(shown(), "[0] 1 2 text");
  click("picButton2");
  EXPECT_EQ(shown(), "0 1 [2] text");
  form().close();
  form().show();
  EXPECT_EQ(shown(), "0 1 logo") << "a new box knows nothing of the old one";
  EXPECT_EQ(page(), "");
}

TEST_F(About, KeysReachEveryPage) {
  control("picButton0").setFocus();
  QTest::keyClick(&control("picButton0"), Qt::Key_Space);
  EXPECT_EQ(shown(), "[0] 1 text");
  QTest::keyClick(&form(), Qt::Key_Escape);
  EXPECT_FALSE(Form<frmAbout>::isLoaded());
}

TEST(AboutTexts, EachPageHasItsForm) {
  const QString macron(QChar(0xAF));
  for (const auto &[page, start, emptyLines] : std::vector<std::tuple<int, QString, qsizetype>>{
           {0, QStringLiteral("About Vantry Network Builder \r\n") + macron.repeated(21), 2},
           {1, QStringLiteral("The Knot Society\r\n") + macron.repeated(14), 1},
           {2, QStringLiteral("Most people"), 19},
       }) {
    const QString text = aboutText(page);
    EXPECT_TRUE(text.startsWith(start)) << page;
    EXPECT_EQ(text.count(QStringLiteral("\r\n\r\n")), emptyLines) << page;
    EXPECT_EQ(QString(text).remove(QStringLiteral("\r\n")).count(QRegularExpression(u"[\r\n]"_qs)),
              0);
  }
  EXPECT_THAT(aboutText(1).split(QStringLiteral("\r\n\r\n")).last().split(u'\n'), SizeIs(6));
}

TEST(VersionList, NamesTheNumberOfEachChild) {
  struct Case {
    QByteArray xml;
    Words versions;
    std::string error;
  };
  EXPECT_EQ(ownVersion(), u"6.2.5");
  for (const auto &[xml, versions, error] : std::vector<Case>{
           {"<versions/>", {}, ""},
           {"<a><b number='6.2.5'>text<c number='no'/></b><d x='1' number=''/></a>",
            {"6.2.5", ""},
            ""},
           {"<a><b number='1'/><b Number='2'/></a>", {}, "A version in the list has no number."},
       }) {
    QFile file(versionListPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(xml);
    file.close();
    Words read;
    EXPECT_EQ(raised([&] {
                for (const QString &version : readVersionList())
                  read.push_back(version.toStdString());
              }),
              error);
    EXPECT_EQ(read, versions);
  }
  EXPECT_TRUE(QFile::remove(versionListPath()));
  EXPECT_EQ(raised(readVersionList), "53");
}

} // namespace
} // namespace vnb::test
