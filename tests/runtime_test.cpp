// SPDX-License-Identifier: MIT
#include "runtime/codepage.h"
#include "runtime/controlarray.h"
#include "runtime/files.h"
#include "runtime/numbers.h"
#include "runtime/report.h"
#include "support.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <new>
#include <random>

using testing::ElementsAre;

namespace vnb::test {
namespace {

/// The number of the error that `statement` raises, 0 for none.
template <class Statement>
int errorOf(Statement statement) {
  try {
    statement();
  } catch (const RuntimeError &error) {
    return error.number();
  }
  return 0;
}

TEST(Val, ReadsTheNumberAtTheStart) {
  for (const auto &[text, due] : std::vector<std::pair<const char *, double>>{
           {"12", 12},    {"  -3.5kg", -3.5}, {"+7", 7},  {".5", .5},    {"5.", 5},
           {"1e2x", 100}, {"1e", 1},          {"1e+", 1}, {"", 0},       {"abc", 0},
           {"-", 0},      {".", 0},           {"- 5", 0}, {"12abc", 12}, {"1.2.3", 1.2},
           {"0x10", 0},   {"&H10", 0},        {"inf", 0}, {"nan", 0},    {"1e-400", 0},
           {"2 3", 2},    {"٣", 0},           {"e5", 0},  {"1E3", 1000}, {"-0", 0},
       })
    EXPECT_EQ(Val(QString::fromUtf8(text)), due) << text;
  EXPECT_TRUE(std::isinf(Val(u"1e999")));
}

TEST(CLng, RoundsHalvesToTheEvenNeighbourAndRaises) {
  for (const auto &[text, due] : std::vector<std::pair<const char *, int>>{
           {"0", 0},
           {"-17", -17},
           {"+17", 17},
           {"0.5", 0},
           {"1.5", 2},
           {"2.5", 2},
           {"-2.5", -2},
           {"1e3", 1000},
           {"2147483647", 2147483647},
           {"-2147483648", -2147483647 - 1},
           {"2147483647.4", 2147483647},
           {" 20 ", 20},
           {"000000000000000000000000000000000000007", 7},
           {"1e-400", 0},
       })
    EXPECT_EQ(CLng(text), due) << text;
  for (const auto &[text, error] : std::vector<std::pair<std::string, int>>{
           {"", 13},
           {"x", 13},
           {"1x", 13},
           {"0x1F", 13},
           {"&H1F", 13},
           {"inf", 13},
           {"nan", 13},
           {"1,5", 13},
           {"1 2", 13},
           {"--1", 13},
           {"2147483648", 6},
           {"-2147483649", 6},
           {"2147483647.5", 6},
           {"1e400", 6},
           {std::string(400, '9'), 6},
           {std::string("1\0", 2), 13},
       })
    EXPECT_EQ(errorOf([&text = text] { CLng(text); }), error) << text;
}

TEST(CDbl, TakesDecimalNumbersOnly) {
  for (const auto &[text, due] :
       std::vector<std::pair<std::string, double>>{{"0.25", .25},
                                                   {"-1e-05", -1e-05},
                                                   {"1e+15", 1e15},
                                                   {"0." + std::string(400, '0') + "1", 0},
                                                   {"0e999", 0},
                                                   {"0." + std::string(400, '0') + "1e+2", 0},
                                                   {"1e-99999999999999999999", 0},
                                                   {"5e-324", 5e-324}})
    EXPECT_EQ(CDbl(text), due) << text;
  for (const std::string &text : {std::string(400, '9'), "1" + std::string(400, '0') + "e-2",
                                  std::string("1e99999999999999999999")})
    EXPECT_EQ(errorOf([&] { CDbl(text); }), 6) << text;
  EXPECT_EQ(errorOf([] { CDbl("1d5"); }), 13);
}

TEST(DoubleText, IsGeneralAndComesBack) {
  for (const auto &[value, due] : std::vector<std::pair<double, const char *>>{
           {0, "0"},
           {-0.0, "0"},
           {1, "1"},
           {.5, "0.5"},
           {.25, "0.25"},
           {.29, "0.29"},
           {-.75, "-0.75"},
           {1.0 / 3, "0.333333333333333"},
           {.333333333333333333, "0.333333333333333"},
           {.1 + .2, "0.3"},
           {240, "240"},
           {1e14, "100000000000000"},
           {1e15, "1e+15"},
           {1e-5, "1e-05"},
           {123456.789, "123456.789"},
           {std::numeric_limits<double>::max(), "1.79769313486231e+308"}})
    EXPECT_EQ(doubleText(value).toStdString(), due);
  std::mt19937_64 random(7);
  for (int i = 0; i < 20000; ++i) {
    const auto bits = random();
    const double value = std::bit_cast<double>(bits);
    if (!std::isfinite(value))
      continue;
    const std::string text = doubleText(value).toStdString();
    EXPECT_EQ(doubleText(CDbl(text)).toStdString(), text) << bits;
  }
}

TEST(CodePage, MapsAllBytesOneToOneAndMarksTheRest) {
  for (const int number : {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}) {
    const CodePage page(number);
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
      all += static_cast<char>(byte);
    const QString text = page.decode({all.constData(), 256});
    EXPECT_EQ(page.encode(text), all) << number;
    EXPECT_EQ(page.number(), number);
  }
  EXPECT_EQ(CodePage(1252).holdable(QStringLiteral("a€b→c\U0001F600d")), QStringLiteral("a€b?c?d"));
  EXPECT_EQ(CodePage(1251).encode(QStringLiteral("Жé")), QByteArray("\xC6?"));
  EXPECT_EQ(CodePage(1252).encode(QString(QChar(0xD83D))), QByteArray("?"));
}

TEST(CodePage, FollowsTheLocaleOfCharacters) {
  for (const auto &[locale, number] : std::vector<std::pair<const char *, int>>{
           {"pl_PL.UTF-8", 1250},
           {"ru_RU.UTF-8", 1251},
           {"ru", 1251},
           {"sr_RS", 1251},
           {"sr_RS@latin", 1250},
           {"de_DE@euro", 1252},
           {"el_GR.ISO-8859-7", 1253},
           {"C.UTF-8", 1252},
           {"POSIX", 1252},
           {"", 1252},
       })
    EXPECT_EQ(codePageNumber(QString::fromLatin1(locale)), number) << locale;
}

struct Element {
  int value = 0;
  bool Visible = true;
};

TEST(ControlArray, GrowsAndShrinksAtTheTop) {
  ControlArray<Element> array(Element{5, true});
  EXPECT_EQ(array.Load(1).value, 5);
  EXPECT_FALSE(array(1).Visible);
  for (const auto &[error, statement] :
       std::vector<std::pair<int, std::function<void()>>>{{340, [&] { array(2); }},
                                                          {340, [&] { array(-1); }},
                                                          {6, [&] { array(32768); }},
                                                          {360, [&] { array.Load(1); }},
                                                          {340, [&] { array.Load(3); }},
                                                          {6, [&] { array.Load(32768); }},
                                                          {340, [&] { array.Unload(2); }},
                                                          {362, [&] { array.Unload(0); }}})
    EXPECT_EQ(errorOf(statement), error);
  array.Unload(1);
  EXPECT_EQ(array.UBound(), 0);
}

TEST(Report, YesGoesOnAndNoLeaves) {
  std::string ran;
  const auto run = [&ran] {
    ran.clear();
    return reported(
        "frmX", "DoIt", [&] { ran += "a"; },
        [&] {
          ran += "b";
          throw RuntimeError(Fault::TypeMismatch);
        },
        [&] { throw std::bad_alloc(); }, [&] { throw 5; }, [&] { ran += "c"; });
  };
  Boxes boxes(yes(3));
  EXPECT_TRUE(run());
  EXPECT_EQ(ran, "abc");
  EXPECT_THAT(boxes.texts, ElementsAre("13 frmX.DoIt", "7 frmX.DoIt", "51 frmX.DoIt"));
  EXPECT_EQ(boxes.boxes[0].text.toStdString(),
            "Error 13 occurred in frmX.DoIt!\nType mismatch\n\nResume next statement?");
  EXPECT_FALSE(run());
  EXPECT_EQ(ran, "ab");
}

TEST(File, RaisesTheClassicNumbers) {
  const Folder folder;
  const QString here = folder.path("");
  for (const auto &[path, error] :
       std::vector<std::pair<QString, int>>{{folder.path("none"), 53},
                                            {here, 75},
                                            {QStringLiteral("/dev/zero"), 75},
                                            {QString(), 52},
                                            {folder.file("x", "x") + QStringLiteral("/y"), 76}})
    EXPECT_EQ(errorOf([&path = path] { File().openForInput(path); }), error) << path.toStdString();
  for (const auto &[path, error] :
       std::vector<std::pair<QString, int>>{{folder.path("no/x"), 76}, {here, 75}, {QString(), 52}})
    EXPECT_EQ(errorOf([&path = path] { File().openForOutput(path); }), error) << path.toStdString();
  File full;
  full.openForOutput(QStringLiteral("/dev/full"));
  EXPECT_EQ(errorOf([&] { full.write("x"); }), 61);
  EXPECT_EQ(errorOf([] { File().write("x"); }), 52);
}

} // namespace
} // namespace vnb::test
