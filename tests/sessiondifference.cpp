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

/// "what: program, due", or nothing if they are equal.
std::string differing(const std::string &what, const std::string &is, const std::string &due) {
  return is == due ? "" : what + ":\n  program " + is + "\n  model   " + due;
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
    result.rows.push_back({row.text.toStdString(), row.number});
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
  const NaiveList links = listOf(panel, "lstLinks");
  return {.shown = panel.isVisible(),
          .device = shows(panel, QStringLiteral("picLinks")),
          .heading = control<QLabel>(panel, QStringLiteral("lblLinks")).text().toStdString(),
          .rows = links.rows,
          .row = links.row,
          .spot = pressed(panel, "optPosition", 18),
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

template <class F, class Naive>
std::string differenceIn(const char *name, const std::optional<Naive> &due) {
  const std::string is = Form<F>::isLoaded() ? describe(contentOf(Form<F>::instance())) : "none";
  return differing(name, is, due ? describe(*due) : "none");
}

} // namespace

std::string Session::difference() {
  std::string found = differing("message boxes", testing::PrintToString(shown),
                                testing::PrintToString(model.boxes));
  if (found.empty())
    found = differenceInDocument();
  for (std::int32_t i = 0; found.empty() && i <= UBound(Systems); ++i)
    found = differenceInSprite(i);
  for (std::int32_t i = 1; found.empty() && i <= UBound(Links); ++i)
    found = differenceInLine(i);
  if (found.empty())
    found = differenceInBand();
  if (found.empty())
    found = differenceInPanels();
  if (found.empty())
    found = differing("status line", lblStatus.text().toStdString(), model.status);
  return found;
}

std::string Session::differenceInDocument() {
  const auto exists = [](std::int32_t device) { return device >= 0 && device <= UBound(Systems); };
  for (std::size_t i = 1; i < Links.size(); ++i)
    if (!exists(Links[i].lFrom) || !exists(Links[i].lTo))
      return text("link ", i, " has no device at an end");
  for (std::size_t i = 1; i < Subnets.size(); ++i)
    if (!exists(Subnets[i].lFor) || !exists(Subnets[i].lFrom))
      return text("subnet ", i, " names no device");
  std::string found = differing("document", dump(), dumpOf(model.document));
  if (found.empty())
    found = differing("selection", text(lSelectedItem), text(model.selected));
  if (found.empty())
    found =
        differing("sprites and lines",
                  text(surface.picSystem.UBound(), ' ', surface.lneLink.UBound(), ' ',
                       surface.lneLink(0).Visible),
                  text(UBound(model.document.systems), ' ', UBound(model.document.links), " 0"));
  return found;
}

std::string Session::differenceInSprite(std::int32_t device) {
  const Sprite &sprite = surface.picSystem(device);
  const SystemRec &record = model.document.systems[position(device)];
  const QSize size = model.sizeOf(device);
  std::string found = differing(
      text("sprite ", device),
      text(sprite.Left, ',', sprite.Top, ' ', sprite.Width, 'x', sprite.Height, ' ', sprite.Visible,
           ' ', sprite.ToolTipText().toStdString(), ' ', sprite.Picture.cacheKey()),
      text(record.lX, ',', record.lY, ' ', size.width(), 'x', size.height(), " 1 ",
           NameFromType(record.lType, true).toStdString(), ' ',
           DeviceImages(record.lType).cacheKey()));
  return found.empty()
             ? differing(text("frame of ", device), describe(sprite.layer, sprite.Tag),
                         describe(model.layers[position(device)], model.tags[position(device)]))
             : found;
}

std::string Session::differenceInLine(std::int32_t link) {
  const NaiveLine &due = model.lines[position(link)];
  return differing(text("line ", link), describe(surface.lneLink(link)),
                   describe(Line{.X1 = due.x1,
                                 .Y1 = due.y1,
                                 .X2 = due.x2,
                                 .Y2 = due.y2,
                                 .BorderColor = due.colour,
                                 .Visible = true}));
}

std::string Session::differenceInBand() {
  const Line &band = surface.lneXOR;
  if (!model.band || !model.band->end)
    return band.Visible ? "the band shows" : "";
  return differing("band", describe(band),
                   describe(Line{.X1 = static_cast<float>(model.band->x),
                                 .Y1 = static_cast<float>(model.band->y),
                                 .X2 = static_cast<float>(model.band->end->x()),
                                 .Y2 = static_cast<float>(model.band->end->y()),
                                 .BorderColor = band.BorderColor,
                                 .Visible = true}));
}

std::string Session::differenceInPanels() {
  std::string found = differenceIn<frmDevice>("device panel", model.devicePanel);
  if (found.empty())
    found = differenceIn<frmLinks>("link panel", model.linkPanel);
  if (found.empty())
    found = differenceIn<frmSubnet>("subnet panel", model.subnetPanel);
  if (found.empty())
    found = differenceIn<frmLanInfo>("LAN information panel", model.infoPanel);
  return found;
}

} // namespace vnb::test
