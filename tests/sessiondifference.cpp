// SPDX-License-Identifier: MIT
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "session.h"
#include "widgets/numberlist.h"
#include "widgets/textbox.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>

#include <algorithm>

namespace vnb::test {
namespace {

std::string dumpOf(NaiveDocument &document) {
  document.swapWithProgram();
  std::string text = dump();
  document.swapWithProgram();
  return text;
}

std::string shown(const SpriteLayer &layer, SpriteTag tag) {
  return text(int{layer.frameWidth}, layer.dotted ? " dotted " : " solid ", layer.colour, " #",
              layer.number, " tag ", static_cast<int>(tag));
}

std::string shown(const Line &line) {
  return text(line.X1, ',', line.Y1, '-', line.X2, ',', line.Y2, line.Visible ? "" : " hidden", ' ',
              line.BorderColor);
}

/// What a control of a panel says, or with "?" behind its name whether it shows.
std::string readingOf(const QWidget &panel, const QString &name) {
  const bool visibility = name.endsWith(u'?');
  const QWidget *control = panel.findChild<QWidget *>(visibility ? name.chopped(1) : name);
  if (visibility)
    return text(!control->isHidden());
  if (const auto *button = dynamic_cast<const QAbstractButton *>(control))
    return text(button->isChecked());
  if (const auto *label = dynamic_cast<const QLabel *>(control))
    return label->text().toStdString();
  if (const auto *list = dynamic_cast<const NumberList *>(control)) {
    NaiveList shown;
    for (const NumberRow &row : list->rows())
      shown.rows.emplace_back(row.text().toStdString(), row.number);
    return reading(shown.rows, list->ListIndex());
  }
  if (const auto *box = dynamic_cast<const QComboBox *>(control)) {
    std::vector<std::string> rows;
    rows.reserve(position(box->count()));
    for (int row = 0; row < box->count(); ++row)
      rows.push_back(box->itemText(row).toStdString());
    return reading(rows, box->currentIndex());
  }
  return dynamic_cast<const TextBox &>(*control).text().toStdString();
}

} // namespace

void Session::compare(const std::string &what, const std::string &is, const std::string &due) {
  if (found.empty() && is != due)
    found = what + ":\n  program " + is + "\n  model   " + due;
}

template <class F, class Naive>
void Session::comparePanel(const char *name, const std::optional<Naive> &due) {
  compare(text(name, ", whether there is one"), text(main.forms().loaded<F>() != nullptr),
          text(due.has_value()));
  if (!found.empty() || !due)
    return;
  const QWidget &panel = form<F>();
  compare(text(name, ", whether it is on screen"), text(panel.isVisible()), text(due->shown));
  for (const auto &[control, says] : readings(*due))
    compare(text(name, ", ", control), readingOf(panel, QString::fromStdString(control)), says);
}

std::string Session::difference() {
  found.clear();
  compare("message boxes", testing::PrintToString(boxes.texts),
          testing::PrintToString(model.boxes));
  compareDocuments();
  for (std::int32_t i = 0; found.empty() && i <= UBound(Systems); ++i)
    compareSprite(i);
  for (std::int32_t i = 1; found.empty() && i <= UBound(Links); ++i)
    compare(text("line ", i), shown(surface.lneLink(i)), shown(model.lines[position(i)]));
  model.band.BorderColor = surface.lneXOR.BorderColor;
  compare("band", surface.lneXOR.Visible ? shown(surface.lneXOR) : "hidden",
          model.band.Visible ? shown(model.band) : "hidden");
  comparePanel<frmDevice>("device panel", model.devicePanel);
  comparePanel<frmLinks>("link panel", model.linkPanel);
  comparePanel<frmSubnet>("subnet panel", model.subnetPanel);
  comparePanel<frmLanInfo>("LAN information panel", model.infoPanel);
  compare("status line", lblStatus.text().toStdString(), model.status);
  return found;
}

void Session::compareDocuments() {
  const auto exist = [](std::int32_t one, std::int32_t other) {
    return std::min(one, other) >= 0 && std::max(one, other) <= UBound(Systems);
  };
  bool all = true;
  for (const LinkRec &link : Links)
    all = all && exist(link.lFrom, link.lTo);
  for (const SubnetRec &subnet : Subnets)
    all = all && exist(subnet.lFor, subnet.lFrom);
  compare("ends of links and subnets exist", text(all), "1");
  compare("document", dump(), dumpOf(model.document));
  compare("selection", text(lSelectedItem), text(model.selected));
  compare("sprites and lines",
          text(surface.picSystem.UBound(), ' ', surface.lneLink.UBound(), ' ',
               surface.lneLink(0).Visible),
          text(UBound(model.document.systems), ' ', UBound(model.document.links), " 0"));
}

void Session::compareSprite(std::int32_t device) {
  const Sprite &sprite = surface.picSystem(device);
  compare(text("frame of ", device), shown(sprite.layer, sprite.Tag),
          shown(model.layers[position(device)], model.tags[position(device)]));
}

} // namespace vnb::test
