// SPDX-License-Identifier: MIT
#include "forms/numberlist.h"
#include "forms/textbox.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "session.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>

namespace vnb::test {
namespace {

std::string dumpOf(NaiveDocument &document) {
  document.swapWithProgram();
  std::string text = dump();
  document.swapWithProgram();
  return text;
}

std::string describe(const SpriteLayer &layer, SpriteTag tag) {
  return text(int{layer.frameWidth}, layer.dotted ? " dotted " : " solid ", layer.colour, " #",
              layer.number, " tag ", static_cast<int>(tag));
}

std::string describe(const Line &line) {
  return text(line.X1, ',', line.Y1, '-', line.X2, ',', line.Y2, line.Visible ? "" : " hidden", ' ',
              line.BorderColor);
}

template <class T = QWidget>
T &control(const QWidget &panel, const QString &name) {
  return *panel.findChild<T *>(name);
}
std::string textOf(const QWidget &panel, const QString &name) {
  return control<TextBox>(panel, name).text().toStdString();
}
bool shows(const QWidget &panel, const QString &name) {
  return !control(panel, name).isHidden();
}
/// Which of the buttons `name` 0 to `count` - 1 is down, -1 for none.
int pressed(const QWidget &panel, const char *name, int count) {
  for (int i = 0; i < count; ++i)
    if (control<QAbstractButton>(panel, QString::fromLatin1(name) + QString::number(i)).isChecked())
      return i;
  return -1;
}
NaiveList listOf(const QWidget &panel, const char *name) {
  const auto &list = control<NumberList>(panel, QString::fromLatin1(name));
  NaiveList result{.rows = {}, .row = list.ListIndex()};
  for (const NumberRow &row : list.rows())
    result.rows.emplace_back(row.text.toStdString(), row.number);
  return result;
}

NaiveDevicePanel contentOf(const frmDevice &panel) {
  NaiveDevicePanel result{
      .shown = panel.isVisible(),
      .device = !shows(panel, QStringLiteral("lblNoDevice")),
      .data = textOf(panel, QStringLiteral("txtData")),
      .phone = textOf(panel, QStringLiteral("txtPhone")),
      .level = pressed(panel, "optSecur", 3),
      .locked = control<QAbstractButton>(panel, QStringLiteral("chkLocked")).isChecked(),
      .frequency = {textOf(panel, QStringLiteral("txtFreq0")),
                    textOf(panel, QStringLiteral("txtFreq1"))},
  };
  for (int i = 0; i < 5; ++i) {
    if (shows(panel, QStringLiteral("picSpecific%1").arg(i)))
      result.group = i;
    const auto &box = control<QComboBox>(panel, QStringLiteral("cboLock%1").arg(i));
    NaiveLockBox &lockBox = result.boxes[position(i)];
    lockBox.row = box.currentIndex();
    for (int row = 0; row < box.count(); ++row)
      lockBox.rows.push_back(box.itemText(row).toStdString());
  }
  return result;
}

NaiveLinkPanel contentOf(const frmLinks &panel) {
  return {.shown = panel.isVisible(),
          .device = shows(panel, QStringLiteral("picLinks")),
          .heading = control<QLabel>(panel, QStringLiteral("lblLinks")).text().toStdString(),
          .links = listOf(panel, "lstLinks"),
          .spot = position(pressed(panel, "optPosition", 18)),
          .x = textOf(panel, QStringLiteral("txtX")),
          .y = textOf(panel, QStringLiteral("txtY")),
          .level = pressed(panel, "optSecur", 3)};
}

NaiveSubnetPanel contentOf(const frmSubnet &panel) {
  return {.shown = panel.isVisible(),
          .device = shows(panel, QStringLiteral("picSubnets")),
          .heading = control<QLabel>(panel, QStringLiteral("lblSubnets")).text().toStdString(),
          .subnets = listOf(panel, "lstSubnets"),
          .systems = listOf(panel, "lstSystems")};
}

NaiveInfoPanel contentOf(const frmLanInfo &panel) {
  NaiveInfoPanel result{.shown = panel.isVisible(), .texts = {}};
  std::size_t box = 0;
  for (const char *name : {"txtName", "txtCompany", "txtIP", "txtX", "txtY"})
    result.texts[box++] = textOf(panel, QString::fromLatin1(name));
  return result;
}

} // namespace

void Session::compare(const std::string &what, const std::string &is, const std::string &due) {
  if (found.empty() && is != due)
    found = what + ":\n  program " + is + "\n  model   " + due;
}

template <class F, class Naive>
void Session::comparePanel(const char *name, const std::optional<Naive> &due) {
  const std::string is = Form<F>::isLoaded() ? describe(contentOf(Form<F>::instance())) : "none";
  compare(name, is, due ? describe(*due) : "none");
}

std::string Session::difference() {
  found.clear();
  compare("message boxes", testing::PrintToString(shown), testing::PrintToString(model.boxes));
  compareDocuments();
  for (std::int32_t i = 0; found.empty() && i <= UBound(Systems); ++i)
    compareSprite(i);
  for (std::int32_t i = 1; found.empty() && i <= UBound(Links); ++i)
    compare(text("line ", i), describe(surface.lneLink(i)), describe(model.lines[position(i)]));
  model.band.BorderColor = surface.lneXOR.BorderColor;
  compare("band", surface.lneXOR.Visible ? describe(surface.lneXOR) : "hidden",
          model.band.Visible ? describe(model.band) : "hidden");
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
  const SystemRec &record = model.document.systems[position(device)];
  const QSize size = model.sizeOf(device);
  compare(text("sprite ", device),
          text(sprite.Left, ',', sprite.Top, ' ', sprite.Width, 'x', sprite.Height, ' ',
               sprite.Visible, ' ', sprite.ToolTipText().toStdString(), ' ',
               sprite.Picture.cacheKey()),
          text(record.lX, ',', record.lY, ' ', size.width(), 'x', size.height(), " 1 ",
               nameOf(record.lType), ' ', DeviceImages(record.lType).cacheKey()));
  compare(text("frame of ", device), describe(sprite.layer, sprite.Tag),
          describe(model.layers[position(device)], model.tags[position(device)]));
}

} // namespace vnb::test
