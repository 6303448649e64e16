// SPDX-License-Identifier: MIT
#include "panels/frmLanInfo.h"

#include "appearance/colours.h"
#include "document/modDeclares.h"
#include "forms/controls.h"
#include "forms/textbox.h"
#include "runtime/numbers.h"
#include "runtime/report.h"

namespace vnb {
namespace {

struct FieldRow {
  const char *label, *caption;
  Place labelAt;
  const char *box, *change, *design;
  Place boxAt;
  int limit;
  QString LanHeaderRec::*text; // one of these two
  std::int32_t LanHeaderRec::*number;
};

constexpr int numberLimit = 3;

/// By HeaderField.
constexpr std::array<FieldRow, 5> rows{{
    {"lblName",
     "LAN Name: ",
     {60, 105, 900, 195},
     "txtName",
     "txtName_Change",
     "Sample Local Area Network",
     {1260, 60, 2925, 285},
     TextBox::noLimit,
     &LanHeaderRec::NAME,
     nullptr},
    {"lblCompany",
     "Company:",
     {60, 465, 900, 195},
     "txtCompany",
     "txtCompany_Change",
     "Sample Company",
     {1260, 420, 2925, 285},
     TextBox::noLimit,
     &LanHeaderRec::COMPANY,
     nullptr},
    {"lblIP",
     "IP Address:",
     {60, 825, 900, 195},
     "txtIP",
     "txtIP_Change",
     "127.432.543.123",
     {1260, 780, 2925, 285},
     TextBox::noLimit,
     &LanHeaderRec::IP,
     nullptr},
    {"lblX",
     "X:",
     {1980, 1185, 195, 195},
     "txtX",
     "txtX_Change",
     "20",
     {2265, 1140, 660, 285},
     numberLimit,
     nullptr,
     &LanHeaderRec::XPOS},
    {"lblY",
     "Y:",
     {3240, 1185, 195, 195},
     "txtY",
     "txtY_Change",
     "20",
     {3525, 1140, 660, 285},
     numberLimit,
     nullptr,
     &LanHeaderRec::YPOS},
}};

} // namespace

frmLanInfo::frmLanInfo() : FormWindow("frmLanInfo", "LAN Info", {4245, 1500}) {
  addLabel(*this, QStringLiteral("lblWorldmap"), QStringLiteral("Worldmap location:"),
           {60, 1185, 1800, 195});
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const FieldRow &row = rows[i];
    QLabel *label = addLabel(*this, QString::fromLatin1(row.label),
                             QString::fromLatin1(row.caption), row.labelAt);
    m_boxes[i] = add<TextBox>(*this, QString::fromLatin1(row.box), row.limit);
    place(*m_boxes[i], row.boxAt.left, row.boxAt.top, row.boxAt.width, row.boxAt.height);
    describe(*m_boxes[i], *label);
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
  const FieldRow &row = rows[static_cast<std::size_t>(field)];
  m_boxes[static_cast<std::size_t>(field)]->setContent(
      row.text != nullptr ? LanHeader.*row.text : QString::number(LanHeader.*row.number));
}

void frmLanInfo::Change(HeaderField field) {
  const FieldRow &row = rows[static_cast<std::size_t>(field)];
  reported("frmLanInfo", row.change, [&] {
    if (LoadingFile)
      return;
    const QString text = m_boxes[static_cast<std::size_t>(field)]->text();
    if (row.text != nullptr)
      LanHeader.*row.text = text;
    else
      LanHeader.*row.number = roundToLong(Val(text));
  });
}

} // namespace vnb
