// SPDX-License-Identifier: MIT
#include "runtime/xml.h"

#include "shellsupport.h"
#include "support.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace vnb::test {
namespace {

/// Tags as "a(b c(d))".
std::string outline(const XmlElement &element) {
  std::string text = element.tagName().toStdString();
  for (const XmlElement &child : element.children())
    text += (&child == &element.children().front() ? '(' : ' ') + outline(child);
  return element.children().empty() ? text : text + ')';
}

QByteArray utf16(const char16_t *text) {
  return {reinterpret_cast<const char *>(text),
          static_cast<qsizetype>(std::char_traits<char16_t>::length(text) * 2)};
}

TEST(Xml, GivesTagsAndTexts) {
  struct Case {
    QByteArray bytes;
    std::string tags, text;
  };
  for (const auto &[bytes, tags, text] : std::vector<Case>{
           {"<a/>", "a", ""},
           {"<a><b/><C><d/></C><b></b></a>", "a(b C(d) b)", ""},
           {"<a>1<b>2<c>3</c></b>4</a>", "a(b(c))", "1234"},
           {"<?xml version='1.0'?>\r\n<!DOCTYPE a>\r\n<!-- <b/> --><a>x<!-- y -->z<?p q?></a>\r\n",
            "a", "xz"},
           {"<a>1\r\n 2</a>", "a", "1\n 2"},
           {"<a>&amp;&#65;&#x42;<![CDATA[<b>&amp;]]></a>", "a", "&AB<b>&amp;"},
           {"<!DOCTYPE a [<!ENTITY e 'in<b/>side'>]><a>&e;</a>", "a(b)", "inside"},
           {"<n:a xmlns:n='u'/>", "n:a", ""},
           {"\xEF\xBB\xBF<a>\xC3\xA9</a>", "a", "\xC3\xA9"},
           {"<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9</a>", "a", "\xC3\xA9"},
           {utf16(u"\uFEFF<a>\u00E9</a>"), "a", "\xC3\xA9"},
       }) {
    const Folder folder;
    const XmlDocument document(folder.file(bytes));
    EXPECT_EQ(outline(document.root()), tags) << bytes.toStdString();
    EXPECT_EQ(document.root().text().toStdString(), text) << bytes.toStdString();
  }
}

TEST(Xml, ElementsKeepTheirPartOfTheTextWhenTheDocumentMoves) {
  const Folder folder;
  XmlDocument first(folder.file("<a>1<b>2</b>3<b>4<c>5</c></b></a>"));
  const XmlDocument document = std::move(first);
  const std::vector<XmlElement> &children = document.root().children();
  ASSERT_EQ(children.size(), 2U);
  EXPECT_EQ(children[0].text(), u"2");
  EXPECT_EQ(children[1].text(), u"45");
  EXPECT_EQ(children[1].children()[0].text(), u"5");
}

TEST(Xml, TellsAbsentAttributesFromEmptyOnes) {
  const Folder folder;
  const XmlDocument document(folder.file("<a b='' c=\"&lt;1&quot;\" D='d'/>"));
  const XmlElement &root = document.root();
  EXPECT_EQ(root.getAttribute(u"b"), QString());
  EXPECT_EQ(root.getAttribute(u"c"), QStringLiteral("<1\""));
  EXPECT_EQ(root.getAttribute(u"D"), QStringLiteral("d"));
  EXPECT_EQ(root.getAttribute(u"d"), std::nullopt);
  EXPECT_EQ(root.getAttribute(u""), std::nullopt);
}

TEST(Xml, FaultsTellTheirLine) {
  struct Case {
    QByteArray bytes;
    int line;
  };
  for (const auto &[bytes, line] : std::vector<Case>{
           {"", 1},
           {"text", 1},
           {"<!-- only -->", 1},
           {"<a>\n<b>", 2},
           {"<a>\n<b>\n</a></b>", 3},
           {"<a/>\n<b/>", 2},
           {"<a/>\n\nx", 3},
           {"<a\nb=1/>", 2},
           {"<a b='1'\n b='2'/>", 2},
           {"<a b='<'/>", 1},
           {"<a>\n&unknown;</a>", 2},
           {"<a>\n\x01</a>", 2},
           {"<a>\xFF</a>", 1},
           {"<n:a/>", 1},
           {"<?xml version='1.0' encoding='no-such'?><a/>", 1},
       }) {
    const Folder folder;
    const QString path = folder.file(bytes);
    EXPECT_THAT(raised([&] { const XmlDocument document(path); }),
                StartsWith("Line " + std::to_string(line) + ", column "))
        << bytes.toStdString();
  }
}

TEST(Xml, HoldsToItsLimitsAtOnce) {
  const auto nested = [](int depth) {
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
  };
  const auto large = [](qsizetype size) { return "<a>" + QByteArray(size - 7, ' ') + "</a>"; };
  QByteArray bomb = "<!DOCTYPE a [<!ENTITY e0 'eeeeeeeeee'>";
  for (int i = 1; i < 10; ++i)
    bomb += QStringLiteral("<!ENTITY e%1 '%2'>")
                .arg(i)
                .arg(QStringLiteral("&e%1;").arg(i - 1).repeated(10))
                .toUtf8();
  bomb += "]><a>&e9;</a>";
  const auto entity = [](qsizetype length) {
    return "<!DOCTYPE a [<!ENTITY e '" + QByteArray(length, 'x') + "'>]>";
  };
  const auto attributes = [](int count) {
    QByteArray text;
    for (int i = 0; i < count; ++i)
      text += " a" + QByteArray::number(i) + " = ''";
    return text;
  };
  const auto utf16 = [](const QByteArray &text) {
    QByteArray bytes = "\xFF\xFE";
    for (const char c : text)
      bytes += QByteArray(1, c) + QByteArray(1, '\0');
    return bytes;
  };
  constexpr qsizetype mebibyte = 1 << 20;
  struct Case {
    QByteArray bytes;
    std::string reason;
  };
  for (const auto &[bytes, reason] : std::vector<Case>{
           {nested(64), ""},
           {nested(65), "nested too deeply"},
           {nested(100'000), "nested too deeply"},
           {large(16 * mebibyte), ""},
           {large(16 * mebibyte + 1), "larger than 16 MiB"},
           {large(17 * mebibyte), "larger than 16 MiB"},
           {bomb, "ntity"},
           {entity(4000) + "<a>" + QByteArray("&e;").repeated(1'000'000) + "</a>", "ntity"},
           {entity(4000) + "<a b='" + QByteArray("&e;").repeated(1'000'000) + "'/>", "ntity"},
           {entity(3) + "<a>" + QByteArray("&e;").repeated(1'000'000) + "</a>", ""},
           {"<a" + attributes(256) + ">" + QByteArray("====\n").repeated(300) + "</a>", ""},
           {"<a" + attributes(257) + "/>", "too many attributes"},
           {"<a x='>'" + attributes(1'000'000) + "/>", "too many attributes"},
           {utf16("<a" + attributes(1000) + "/>"), "too many attributes"},
           {"<!DOCTYPE a [" + QByteArray("<!ATTLIST a b CDATA ''>").repeated(500'000) + "]><a/>",
            "document type is too long"},
           {"<!DOCTYPE a [<!ATTLIST a" + QByteArray(" b CDATA ''").repeated(500'000) + ">]><a/>",
            "document type is too long"},
           {"<!DOCTYPE a>" + QByteArray(5000, '\n') + "<a/>", ""},
           {"<!DOCTYPE a [<!ATTLIST b c CDATA '" + QByteArray(4000, 'x') + "'>]><a>" +
                QByteArray("<b/>").repeated(100'000) + "</a>",
            "longer than 16 Mi characters"},
           {"<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]><a>&e;</a>", "ntity"},
       }) {
    const Folder folder;
    const QString path = folder.file(bytes);
    QElapsedTimer clock;
    clock.start();
    const std::string error = raised([&] { const XmlDocument document(path); });
    EXPECT_LT(clock.elapsed(), 5000) << reason;
    if (reason.empty())
      EXPECT_EQ(error, "");
    else
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

TEST(Xml, FilesThatCannotBeReadHaveTheirNumbers) {
  const Folder folder;
  const QString file = folder.file("<a/>");
  for (const auto &[path, error] : std::vector<std::pair<QString, std::string>>{
           {folder.path("none.xml"), "53"},
           {folder.path("none/none.xml"), "53"},
           {file + QStringLiteral("/theme.xml"), "76"},
           {folder.path("."), "75"},
           {{}, "52"},
       })
    EXPECT_EQ(raised([&, &at = path] { const XmlDocument document(at); }), error)
        << path.toStdString();
}

} // namespace
} // namespace vnb::test
