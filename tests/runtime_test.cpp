// SPDX-License-Identifier: MIT
#include "runtime/codepage.h"
#include "runtime/controlarray.h"
#include "runtime/files.h"
#include "runtime/numbers.h"
#include "runtime/report.h"
#include "runtime/systemcalls.h"
#include "runtime/xml.h"
#include "support.h"

#include <cmath>
#include <limits>
#include <new>
#include <random>
#include <sys/resource.h>

namespace vnb::test {
namespace {

/// Each "text -> due": a number, or the number of an error behind "E".
template <class Convert>
void check(Convert convert, const Words &rows) {
  for (const auto &[text, due] : sides(rows)) {
    std::string value;
    const std::string error =
        raised([&, &text = text] { value = doubleText(convert(text)).toStdString(); });
    EXPECT_EQ(error.empty() ? value : "E" + error, due) << text;
  }
}

TEST(Val, ReadsTheNumberAtTheStart) {
  check([](const std::string &text) { return Val(QString::fromStdString(text)); },
        {"12 -> 12",    "  -3.5kg -> -3.5", "+7 -> 7",  ".5 -> 0.5",   "5. -> 5",
         "1e2x -> 100", "1e -> 1",          "1e+ -> 1", " -> 0",       "abc -> 0",
         "- -> 0",      ". -> 0",           "- 5 -> 0", "12abc -> 12", "1.2.3 -> 1.2",
         "0x10 -> 0",   "&H10 -> 0",        "inf -> 0", "nan -> 0",    "1e-400 -> 0",
         "2:3 -> 2",    "٣ -> 0",           "e5 -> 0",  "1E3 -> 1000", "-0 -> 0"});
  EXPECT_TRUE(std::isinf(Val(u"1e999")));
}

const std::string nines(400, '9');
const std::string zeros(400, '0');

TEST(CLng, RoundsHalvesToTheEvenNeighbourAndRaises) {
  check(CLng,
        {"0 -> 0",     "-17 -> -17",  "+17 -> 17",   "0.5 -> 0",    "1.5 -> 2",   "2.5 -> 2",
         "-2.5 -> -2", "1e3 -> 1000", " 20  -> 20",  "1e-400 -> 0", " -> E13",    "x -> E13",
         "1x -> E13",  "0x1F -> E13", "&H1F -> E13", "inf -> E13",  "nan -> E13", "1,5 -> E13",
         "1 2 -> E13", "--1 -> E13",  "1e400 -> E6"});
  check(CLng,
        {"2147483647 -> 2147483647", "-2147483648 -> -2147483648", "2147483647.4 -> 2147483647",
         "2147483647.5 -> E6", "2147483648 -> E6", "-2147483649 -> E6", nines + " -> E6",
         zeros + "7 -> 7", std::string("1\0 -> E13", 9)});
}

TEST(CDbl, TakesDecimalNumbersOnly) {
  check(CDbl,
        {"0.25 -> 0.25", "-1e-05 -> -1e-05", "1e+15 -> 1e+15", "1d5 -> E13", "1e -> E13",
         ". -> E13", "0e999 -> 0", nines + " -> E6", "1" + zeros + "e-2 -> E6",
         "0." + zeros + "1 -> 0", "0." + zeros + "1e+2 -> 0", "5e-324 -> 4.94065645841247e-324",
         "1e99999999999999999999 -> E6", "1e-99999999999999999999 -> 0"});
}

TEST(DoubleText, IsGeneralAndComesBack) {
  Words texts;
  for (const double value : {-0.0, 1., .25, .29, -.75, .1 + .2, 1. / 3, 1e14, 1e15, 1e-5,
                             123456.789, std::numeric_limits<double>::max()})
    texts.push_back(doubleText(value).toStdString());
  EXPECT_THAT(texts, ElementsAre("0", "1", "0.25", "0.29", "-0.75", "0.3", "0.333333333333333",
                                 "100000000000000", "1e+15", "1e-05", "123456.789",
                                 "1.79769313486231e+308"));
  std::mt19937_64 random(7);
  for (int i = 0; i < 20000; ++i) {
    const auto value = std::bit_cast<double>(random());
    if (!std::isfinite(value))
      continue;
    const std::string text = doubleText(value).toStdString();
    EXPECT_EQ(doubleText(CDbl(text)).toStdString(), text);
  }
}

TEST(CodePage, MapsAllBytesOneToOneAndMarksTheRest) {
  QByteArray all;
  for (int byte = 0; byte < 256; ++byte)
    all += static_cast<char>(byte);
  for (const int number : {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}) {
    const CodePage page(number);
    EXPECT_EQ(page.encode(page.decode({all.constData(), 256})), all) << number;
    EXPECT_EQ(page.number(), number);
  }
  EXPECT_EQ(CodePage(1252).holdable(QStringLiteral("a€b→c\U0001F600d")), QStringLiteral("a€b?c?d"));
  EXPECT_EQ(CodePage(1250).holdable(QStringLiteral("șțȘȚáễ")), QStringLiteral("şţŞŢá?"));
  EXPECT_EQ(CodePage(1258).holdable(QStringLiteral("Việt ắÌđ→")),
            QStringLiteral("Viê\u0323t ă\u0301I\u0300đ?"));
  EXPECT_EQ(CodePage(1251).encode(QStringLiteral("Жé")), QByteArray("\xC6?"));
  EXPECT_EQ(CodePage(1252).encode(QString(QChar(0xD83D))), QByteArray("?"));
}

TEST(CodePage, FollowsTheLocaleOfCharacters) {
  for (const auto &[locale, number] :
       sides({"pl_PL.UTF-8 -> 1250", "tk_TM -> 1250", "tg_TJ.UTF-8 -> 1251", "ckb_IQ -> 1256",
              "sr_RS@latin -> 1250", "ru_RU.UTF-8 -> 1251", "ru -> 1251", "sr_RS -> 1251",
              "de_DE@euro -> 1252", "el_GR.ISO-8859-7 -> 1253", "C.UTF-8 -> 1252", "POSIX -> 1252",
              " -> 1252"}))
    EXPECT_EQ(std::to_string(codePageNumber(QString::fromStdString(locale))), number) << locale;
}

/// Each row in a process of its own: the page is chosen once.
TEST(CodePage, TakesTheFirstVariableThatSaysSomething) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (const auto &[all, type, lang, due] :
       std::vector<std::tuple<const char *, const char *, const char *, int>>{
           {"", "", "pl_PL.UTF-8", 1250},
           {"", "ru_RU.UTF-8", "pl_PL.UTF-8", 1251},
           {"el_GR.UTF-8", "ru_RU.UTF-8", "pl_PL.UTF-8", 1253},
           {"", "", "", 1252}}) {
    qputenv("LC_ALL", all);
    qputenv("LC_CTYPE", type);
    qputenv("LANG", lang);
    EXPECT_EXIT(std::exit(codePage().number() - 1250), testing::ExitedWithCode(due - 1250), "");
  }
}

TEST(ControlArray, GrowsAndShrinksAtTheTop) {
  ControlArray<int> array(5);
  EXPECT_EQ(array.Load(1), 5);
  Words errors;
  for (const std::int32_t index : {2, -1, 32768})
    errors.push_back(raised([&] { array(index); }));
  for (const std::int32_t index : {1, 3, 32768})
    errors.push_back(raised([&] { array.Load(index); }));
  for (const std::int32_t index : {2, 0})
    errors.push_back(raised([&] { array.Unload(index); }));
  EXPECT_THAT(errors, ElementsAre("340", "340", "6", "360", "340", "6", "340", "362"));
  array.Unload(1);
  EXPECT_EQ(array.UBound(), 0);
}

TEST(Report, YesGoesOnAndNoLeaves) {
  std::string ran;
  const auto run = [&ran] {
    return reported(
        "frmX", "DoIt", [&] { ran = "a"; },
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
  Words errors;
  for (const QString &path : {QString(), here, folder.path("none"), QStringLiteral("/dev/zero"),
                              folder.file("x", "x") + QStringLiteral("/y"), QString(300, u'x')})
    errors.push_back(raised([&] { File().openForInput(path); }));
  for (const QString &path : {QString(), here, folder.path("no/x")})
    errors.push_back(raised([&] { File().openForOutput(path); }));
  File taken; // by another program, as it were
  taken.openForOutput(folder.path("x"));
  errors.push_back(raised([&] { File().openForOutput(folder.path("x")); }));
  taken.close();
  errors.push_back(raised([&] { File().openForOutput(folder.path("x")); }));
  rlimit handles{};
  ::getrlimit(RLIMIT_NOFILE, &handles);
  const rlimit none{0, handles.rlim_max};
  ::setrlimit(RLIMIT_NOFILE, &none);
  errors.push_back(raised([&] { File().openForInput(folder.path("x")); }));
  ::setrlimit(RLIMIT_NOFILE, &handles);
  EXPECT_THAT(errors,
              ElementsAre("52", "75", "53", "75", "76", "52", "52", "75", "76", "70", "", "67"));
  EXPECT_EQ(Folder::bytes(folder.path("x")), "x");
}

/// Where room can't be reserved, in blocks of 1,024 bytes: those that the old content has are free.
TEST(File, WritesAllOrNothing) {
  const Folder folder;
  const QByteArray old(5000, 'o');
  const rlimit none{RLIM_INFINITY, RLIM_INFINITY}, full{1 << 13, RLIM_INFINITY};
  ::setrlimit(RLIMIT_FSIZE, &full);
  systemCalls.fallocate = [](auto...) { return errno = EOPNOTSUPP, -1; };
  using Case = std::tuple<std::size_t, fsblkcnt_t, std::string>;
  for (const auto &[size, free, due] :
       {Case{4000, 0, ""}, Case{5120, 0, ""}, Case{5121, 3, "61"}, Case{5121, 4, ""},
        Case{8193, 90, "61"}, Case{File::largest + 1, 90, "7"}}) {
    systemCalls.fstatvfs = [free = free](int, struct statvfs *disk) {
      disk->f_blocks = disk->f_frsize = 1024;
      return disk->f_bavail = free, 0;
    };
    const QByteArray content(static_cast<qsizetype>(size), 'n');
    File file;
    file.openForOutput(folder.file(old));
    for (int twice = 0; twice < 2; ++twice)
      EXPECT_EQ(raised([&] { file.write(content.toStdString(), "spoilt"); }), due);
    EXPECT_EQ(Folder::bytes(folder.path("lan.txt")), due.empty() ? content : old);
  }
  systemCalls = {};
  ::setrlimit(RLIMIT_FSIZE, &none);
}

/// Tags as "a(b c(d))".
std::string outline(const XmlElement &element) {
  std::string text = element.tagName().toStdString();
  for (const XmlElement &child : element.children())
    text += (&child == &element.children().front() ? '(' : ' ') + outline(child);
  return element.children().empty() ? text : text + ')';
}

QByteArray utf16(const QByteArray &latin1) {
  QByteArray bytes = "\xFF\xFE";
  for (const char c : latin1)
    bytes += QByteArray(1, c) + QByteArray(1, '\0');
  return bytes;
}

TEST(Xml, GivesTagsAndTexts) {
  const Folder folder;
  for (const auto &[bytes, due] : std::vector<std::pair<QByteArray, std::string>>{
           {"<a/>", "a: "},
           {"<a><b/><C><d/></C><b></b></a>", "a(b C(d) b): "},
           {"<a>1<b>2<c>3</c></b>4</a>", "a(b(c)): 1234"},
           {"<?xml version='1.0'?>\r\n<!DOCTYPE a>\r\n<!-- <b/> --><a>x<!-- y -->z<?p q?></a>\r\n",
            "a: xz"},
           {"<a>&amp;&#65;&#x42;<![CDATA[<b>&amp;]]></a>", "a: &AB<b>&amp;"},
           {"<!DOCTYPE a [<!ENTITY e 'in<b/>side'>]><a>&e;</a>", "a(b): inside"},
           {"<n:a xmlns:n='u'/>", "n:a: "},
           {"<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>", "a: \xC3\xA9"},
           {utf16("<a>\xE9</a>"), "a: \xC3\xA9"}}) {
    const XmlDocument document(folder.file(bytes));
    EXPECT_EQ(outline(document.root()) + ": " + document.root().text().toStdString(), due);
  }
}

TEST(Xml, ElementsKeepTheirTextsAndAttributesWhenTheDocumentMoves) {
  const Folder folder;
  XmlDocument first(folder.file("<a b='' c=\"&lt;1&quot;\" D='d'>1<b>2</b>3<b>4<c>5</c></b></a>"));
  const XmlDocument document = std::move(first);
  const XmlElement &root = document.root();
  ASSERT_EQ(root.children().size(), 2U);
  EXPECT_EQ(root.children()[0].text(), u"2");
  EXPECT_EQ(root.children()[1].text(), u"45");
  EXPECT_EQ(root.children()[1].children()[0].text(), u"5");
  EXPECT_EQ(root.getAttribute(u"b"), QString());
  EXPECT_EQ(root.getAttribute(u"c"), QStringLiteral("<1\""));
  EXPECT_EQ(root.getAttribute(u"D"), QStringLiteral("d"));
  EXPECT_EQ(root.getAttribute(u"d"), std::nullopt);
  EXPECT_EQ(root.getAttribute(u""), std::nullopt);
}

TEST(Xml, FaultsTellTheirLine) {
  const Folder folder;
  for (const auto &[bytes, line] : sides(
           {" -> 1", "text -> 1", "<!-- only --> -> 1", "<a>\n<b> -> 2", "<a>\n<b>\n</a></b> -> 3",
            "<a/>\n<b/> -> 2", "<a/>\n\nx -> 3", "<a\nb=1/> -> 2", "<a b='1'\n b='2'/> -> 2",
            "<a b='<'/> -> 1", "<a>\n&unknown;</a> -> 2", "<a>\n\x01</a> -> 2", "<a>\xFF</a> -> 1",
            "<n:a/> -> 1", "<?xml version='1.0' encoding='no-such'?><a/> -> 1"})) {
    const QString path = folder.file(QByteArray::fromStdString(bytes));
    EXPECT_THAT(raised([&] { const XmlDocument document(path); }),
                StartsWith("Line " + line + ", column "))
        << bytes;
  }
}

TEST(Xml, HoldsToItsLimits) {
  const auto nested = [](int depth) {
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
  };
  const auto large = [](qsizetype size) { return "<a>" + QByteArray(size - 7, ' ') + "</a>"; };
  const auto entity = [](qsizetype length) {
    return "<!DOCTYPE a [<!ENTITY e '" + QByteArray(length, 'x') + "'>]>";
  };
  const Folder folder;
  for (const auto &[bytes, reason] : std::vector<std::pair<QByteArray, std::string>>{
           {nested(64), ""},
           {nested(65), "nested too deeply"},
           {large(65'536), ""},
           {large(65'537), "larger than 64 KiB"},
           {entity(250) + "<a>" + QByteArray("&e;").repeated(4'000) + "</a>", ""},
           {entity(250) + "<a>" + QByteArray("&e;").repeated(5'000) + "</a>", "1 Mi characters"},
           {entity(250) + "<a b='" + QByteArray("&e;").repeated(5'000) + "'/>", "1 Mi characters"},
           {entity(300) + "<a>&e;</a>", "ntity"},
           {"<!DOCTYPE a [<!ATTLIST b c CDATA '" + QByteArray(4000, 'x') + "'>]><a>" +
                QByteArray("<b/>").repeated(1'000) + "</a>",
            "1 Mi characters"},
           {"<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]><a>&e;</a>", "ntity"}}) {
    const QString path = folder.file(bytes);
    const std::string error = raised([&] { const XmlDocument document(path); });
    EXPECT_EQ(error.empty(), reason.empty()) << reason;
    EXPECT_THAT(error, HasSubstr(reason));
  }
}

TEST(Xml, OpensNothingOutsideTheFile) {
  const Folder folder;
  const QByteArray other = folder.file("<!ENTITY e 'secret'>secret", "other").toUtf8();
  for (const QByteArray &type : {
           QByteArray("<!DOCTYPE a SYSTEM '" + other + "'>"),
           QByteArray("<!DOCTYPE a [<!ENTITY e SYSTEM '" + other + "'>]>"),
           QByteArray("<!DOCTYPE a [<!ENTITY e SYSTEM 'file://" + other + "'>]>"),
           QByteArray("<!DOCTYPE a [<!ENTITY % p SYSTEM '" + other + "'>%p;]>"),
       }) {
    const XmlDocument document(folder.file(type + "<a>1&e;2</a>"));
    EXPECT_EQ(document.root().text(), u"12") << type.toStdString();
  }
}

} // namespace
} // namespace vnb::test
