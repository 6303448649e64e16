// SPDX-License-Identifier: MIT
#include "formtest.h"
#include "shell/frmAbout.h"
#include "shell/pagebutton.h"
#include "shell/versionlist.h"
#include "support.h"

#include <QPlainTextEdit>

namespace vnb::test {
namespace {

class About : public FormTest<frmAbout> {
protected:
  About() { form().show(); }

  /// What shows: "0 1 2" for the buttons, those with an open page in brackets, then logo or text.
  std::string shown() {
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
  static std::string macrons(qsizetype count) { return QString(count, QChar(0xAF)).toStdString(); }
  std::string page() { return control<QPlainTextEdit>("txtAbout").toPlainText().toStdString(); }
};

TEST_F(About, ButtonsOpenTheirPageAndCloseItAgain) {
  EXPECT_EQ(shown(), "0 1 logo");
  click("picButton0");
  EXPECT_EQ(shown(), "[0] 1 text");
  click("picButton0");
  EXPECT_EQ(shown(), "0 1 logo");
  click("picButton1");
  EXPECT_EQ(shown(), "0 [1] text");
  EXPECT_THAT(page(), StartsWith("The Knot Society\n" + macrons(14) + "\nThe"));
  EXPECT_THAT(page(), HasSubstr("cake left.\n\nOttilie Brandvoll\nMarek"));
  control("picButton0").setFocus();
  QTest::keyClick(&control("picButton0"), Qt::Key_Space);
  EXPECT_EQ(shown(), "[0] 1 text") << "straight from one to the other";
  EXPECT_THAT(page(), StartsWith("About Vantry Network Builder \n" + macrons(21) + "\nVantry"));
  QTest::keyClick(&form(), Qt::Key_Escape);
  EXPECT_FALSE(isLoaded());
}

TEST_F(About, ADoubleClickOnTheFreeAreaShowsTheThirdButton) {
  QTest::mouseDClick(&control("picAbout"), Qt::LeftButton);
  QTest::mouseDClick(&control("picButton0"), Qt::LeftButton);
  EXPECT_EQ(shown(), "0 1 logo") << "on a child it's none; a button was opened and closed";
  click("picButton0");
  for (int i = 0; i < 2; ++i) {
    QTest::mouseDClick(&form(), Qt::LeftButton, {}, QPoint(390, 10));
    EXPECT_EQ(shown(), "[0] 1 2 text");
  }
  click("picButton2");
  EXPECT_EQ(shown(), "0 1 [2] text");
  EXPECT_THAT(page(), StartsWith("Most people"));
  EXPECT_THAT(page(), HasSubstr("midnight, discussing the weather.\n\nChoose a quiet hour"));
  form().close();
  form().show();
  EXPECT_EQ(shown(), "0 1 logo") << "a new box knows nothing of the old one";
  EXPECT_EQ(page(), "");
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
