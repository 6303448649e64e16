// SPDX-License-Identifier: MIT
#include "panels/frmLanInfo.h"

#include "appearance/colours.h"
#include "document/modDeclares.h"
#include "runtime/numbers.h"
#include "runtime/report.h"
#include "widgets/controls.h"
#include "widgets/textbox.h"

namespace vnb {
namespace {

/// Label and box are named after the field.
struct FieldRow {
  const char *name, *caption;
  int labelLeft, labelWidth, boxLeft, boxWidth, top; // twips
  const char *design;                                // the text in the design state
  int limit;                                         // characters
  QString LanHeaderRec::*text;                       // one of these two
  std::int32_t LanHeaderRec::*number;

  QString label() const { return QStringLiteral("lbl") + QLatin1String(name); }
  QString box() const { return QStringLiteral("txt") + QLatin1String(name); }
};

constexpr int noLimit = TextBox::noLimit;

/// By HeaderField.
constexpr std::array<FieldRow, 5> fieldRows{{
    {"Name", "LAN Name: ", 60, 900, 1260, 2925, 60, "Sample Local Area Network", noLimit,
     &LanHeaderRec::NAME, nullptr},
    {"Company", "Company:", 60, 900, 1260, 2925, 420, "Sample Company", noLimit,
     &LanHeaderRec::COMPANY, nullptr},
    {"IP", "IP Address:", 60, 900, 1260, 2925, 780, "127.432.543.123", noLimit, &LanHeaderRec::IP,
     nullptr},
    {"X", "X:", 1980, 195, 2265, 660, 1140, "20", 3, nullptr, &LanHeaderRec::XPOS},
    {"Y", "Y:", 3240, 195, 3525, 660, 1140, "20", 3, nullptr, &LanHeaderRec::YPOS},
}};

std::int32_t number(HeaderField field) {
  return static_cast<std::int32_t>(field);
}

} // namespace

frmLanInfo::frmLanInfo() : FormWindow("frmLanInfo", "LAN Info", {4245, 1500}) {
  addLabel(*this, "lblWorldmap", "Worldmap location:", {60, 1185, 1800, 195});
  for (std::size_t i = 0; i < fieldRows.size(); ++i) {
    const FieldRow &row = fieldRows[i];
    QLabel *label = addLabel(*this, row.label(), row.caption,
                             {row.labelLeft, row.top + 45, row.labelWidth, 195});
    m_boxes[i] =
        add<TextBox>(*this, row.box(), Place{row.boxLeft, row.top, row.boxWidth, 285}, row.limit);
    nameAfter(*m_boxes[i], *label);
    if (row.number != nullptr) // the link panel has an X and a Y as well
      m_boxes[i]->setAccessibleName(QLatin1String(row.name) + QStringLiteral(" on the world map"));
    m_boxes[i]->setContent(QString::fromLatin1(row.design));
    connect(m_boxes[i], &TextBox::textChanged, this,
            [this, i] { Change(static_cast<HeaderField>(i)); });
  }
}

void frmLanInfo::Form_Load() {
  reported("frmLanInfo", "Form_Load", [this] {
    UpdateColors();
    showHeader();
  });
}

void frmLanInfo::UpdateColors() {
  applyColours(*this);
}

void frmLanInfo::showHeader() {
  for (const HeaderField field :
       {HeaderField::Company, HeaderField::Ip, HeaderField::Name, HeaderField::X, HeaderField::Y})
    showField(field);
}

void frmLanInfo::showField(HeaderField field) {
  const FieldRow &row = at(fieldRows, number(field));
  at(m_boxes, number(field))
      ->setContent(row.text != nullptr ? LanHeader.*row.text
                                       : QString::number(LanHeader.*row.number));
}

void frmLanInfo::Change(HeaderField field) {
  const FieldRow &row = at(fieldRows, number(field));
  // The procedure's name is a temporary, which lives as long as this call.
  reported("frmLanInfo", qUtf8Printable(row.box() + QStringLiteral("_Change")), [&] {
    // The reader has stored the value itself, and only shows it.
    if (LoadingFile)
      return;
    const QString text = at(m_boxes, number(field))->text();
    if (row.text != nullptr)
      LanHeader.*row.text = text;
    else
      LanHeader.*row.number = roundToLong(Val(text));
  });
}

} // namespace vnb
