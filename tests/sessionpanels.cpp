// SPDX-License-Identifier: MIT
// What a user does with the panels.
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "session.h"
#include "widgets/numberlist.h"
#include "widgets/picturebutton.h"
#include "widgets/textbox.h"

#include <QCheckBox>
#include <QTest>

namespace vnb::test {
namespace {

/// A text typed, what a box that holds three characters shows of it, and its value there.
struct TypedNumber {
  const char *text, *shown;
  std::int32_t value;
};
constexpr TypedNumber typedNumbers[] = {
    {"5", "5", 5},    {"05", "05", 5},     {"", "", 0},           {"abc", "abc", 0},
    {" 7", " 7", 7},  {"1.5", "1.5", 2},   {"2.5", "2.5", 2},     {"12x", "12x", 12},
    {"-3", "-3", -3}, {"1e2", "1e2", 100}, {"12345", "123", 123}, {"0.4", "0.4", 0}};

/// The same for a fraction in a box of four; nothing for what is no number.
struct TypedFraction {
  const char *text, *shown;
  std::optional<double> value;
};
constexpr TypedFraction fractions[] = {{"0.5", "0.5", .5},
                                       {".25", ".25", .25},
                                       {"-1", "-1", -1},
                                       {"2", "2", 2},
                                       {"0.125", "0.12", .12},
                                       {"1e1", "1e1", 10},
                                       {"x", "x", std::nullopt},
                                       {"", "", std::nullopt},
                                       {"1,5", "1,5", std::nullopt}};

constexpr std::array words{"", "x", "Main 5", "a;b", "\xC3\xA9t\xC3\xA9", "12"};

template <class T>
T &control(const QWidget &panel, const QString &name) {
  return *panel.findChild<T *>(name);
}

void type(const QWidget &panel, const QString &name, const char *text) {
  auto &box = control<TextBox>(panel, name);
  box.selectAll();
  if (*text == '\0')
    QTest::keyClick(&box, Qt::Key_Delete);
  else
    box.insert(QString::fromUtf8(text)); // as a key or the clipboard does
}

/// Keys come to nothing in a panel without a device, whatever had the focus there.
std::string typeBlindly(QWidget &panel) {
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_7, Qt::Key_Return, Qt::Key_Down})
    QTest::keyClick(panel.focusWidget() != nullptr ? panel.focusWidget() : &panel, key);
  return "keys for no device";
}

void press(const QWidget &panel, const QString &name) {
  control<QAbstractButton>(panel, name).click();
}

/// The boxes are read as they stand; what the program itself put there is a number.
std::optional<double> valueOf(const std::string &shown) {
  for (const TypedFraction &fraction : fractions)
    if (fraction.shown == shown)
      return fraction.value;
  return std::stod(shown);
}

} // namespace

template <class F, class Naive>
std::string Session::toggle(const char *name, std::optional<Naive> &panel,
                            void (frmMain::*openPanel)(), void (NaiveModel::*create)()) {
  if (panel && panel->shown) {
    form<F>().close();
    panel.reset();
    return text("close ", name);
  }
  (main.*openPanel)();
  (model.*create)();
  panel->shown = true;
  form<F>().move(main.width() + 10, 0);
  return text("show ", name);
}

std::string Session::togglePanel(Dice dice) {
  switch (dice.below(4)) {
  case 0:
    return toggle<frmDevice>("the device panel", model.devicePanel, &frmMain::picDevice_Click,
                             &NaiveModel::createDevicePanel);
  case 1:
    return toggle<frmLinks>("the link panel", model.linkPanel, &frmMain::picLink_Click,
                            &NaiveModel::createLinkPanel);
  case 2:
    return toggle<frmSubnet>("the subnet panel", model.subnetPanel, &frmMain::picSubnet_Click,
                             &NaiveModel::createSubnetPanel);
  default:
    return toggle<frmLanInfo>("the LAN information panel", model.infoPanel, &frmMain::picInfo_Click,
                              &NaiveModel::createInfoPanel);
  }
}

std::string Session::editDevice(Dice dice) {
  if (!model.devicePanel || !model.devicePanel->shown)
    return {};
  if (!model.devicePanel->device)
    return typeBlindly(form<frmDevice>());
  const int what = dice.below(4);
  if (what == 0) {
    const char *const word = words[position(dice.below(words.size()))];
    if (model.document.data.size() >= mostOthers)
      return {};
    type(form<frmDevice>(), QStringLiteral("txtData"), word);
    model.typeData(word);
    return text("type '", word, "' as extra information");
  }
  if (what == 1) {
    const int level = dice.below(3);
    press(form<frmDevice>(), QStringLiteral("optSecur%1").arg(level));
    model.pickDeviceLevel(level);
    return text("pick level ", level + 1);
  }
  return editGroup(dice);
}

std::string Session::editGroup(Dice &dice) {
  const frmDevice &panel = form<frmDevice>();
  switch (model.devicePanel->group) {
  case 0: {
    auto &chkLocked = control<QCheckBox>(panel, QStringLiteral("chkLocked"));
    chkLocked.click();
    model.tickLocked(chkLocked.isChecked());
    return "click Locked";
  }
  case 1:
    return chooseLock(dice, dice.below(3));
  case 2: {
    const char *const number = words[position(dice.below(words.size()))];
    type(panel, QStringLiteral("txtPhone"), number);
    model.typePhone(number);
    return text("type phone number '", number, "'");
  }
  case 3:
    return chooseLock(dice, 3 + dice.below(2));
  case 4: {
    const int box = dice.below(2);
    const TypedNumber &number = typedNumbers[position(dice.below(std::size(typedNumbers)))];
    type(panel, QStringLiteral("txtFreq%1").arg(box), number.text);
    model.typeFrequency(position(box), number.shown, number.value);
    return text("type '", number.text, "' as frequency ", box);
  }
  default:
    return {};
  }
}

std::string Session::chooseLock(Dice &dice, int box) {
  auto &cboLock = control<QComboBox>(form<frmDevice>(), QStringLiteral("cboLock%1").arg(box));
  if (cboLock.count() == 0)
    return {};
  const int row = dice.below(cboLock.count());
  pick(cboLock, row);
  model.pickLock(position(box), row);
  return text("choose row ", row, " in lock box ", box);
}

std::string Session::editLink(Dice dice) {
  if (!model.linkPanel || !model.linkPanel->shown)
    return {};
  if (!model.linkPanel->device)
    return typeBlindly(form<frmLinks>());
  const frmLinks &panel = form<frmLinks>();
  NaiveLinkPanel &due = *model.linkPanel;
  switch (dice.below(6)) {
  case 0: {
    if (due.links.rows.empty())
      return {};
    const int row = dice.below(due.links.rows.size());
    pick(control<NumberList>(panel, QStringLiteral("lstLinks")), row);
    model.pickLink(row);
    return text("pick link row ", row);
  }
  case 1: {
    const TypedFraction &fraction = fractions[position(dice.below(std::size(fractions)))];
    const bool across = dice.below(2) == 0;
    type(panel, across ? QStringLiteral("txtX") : QStringLiteral("txtY"), fraction.text);
    (across ? due.x : due.y) = fraction.shown;
    return text("type '", fraction.text, across ? "' as X" : "' as Y");
  }
  case 2: {
    const int level = dice.below(3);
    press(panel, QStringLiteral("optSecur%1").arg(level));
    model.pickLinkLevel(level);
    return text("pick link level ", level + 1);
  }
  case 3: {
    const bool yes = answerBoxes(dice);
    const int row = due.links.row;
    if (row != -1)
      model.boxes.push_back("Are you sure you want to remove the link " +
                            due.links.rows[position(row)].first.substr(5) + "?");
    press(panel, QStringLiteral("cmdRemove"));
    if (row != -1 && yes)
      model.removePickedLink();
    return text("remove the picked link", yes ? "" : ", no");
  }
  default: {
    const int spot = dice.below(2) == 0 ? 17 : dice.below(17);
    const std::optional<double> x = valueOf(due.x);
    const std::optional<double> y = valueOf(due.y);
    press(panel, QStringLiteral("optPosition%1").arg(spot));
    model.pickPosition(position(spot), x && y ? std::optional(std::pair(*x, *y)) : std::nullopt);
    return text("pick position ", spot);
  }
  }
}

std::string Session::editSubnets(Dice dice) {
  if (!model.subnetPanel || !model.subnetPanel->shown)
    return {};
  if (!model.subnetPanel->device)
    return typeBlindly(form<frmSubnet>());
  const frmSubnet &panel = form<frmSubnet>();
  NaiveSubnetPanel &due = *model.subnetPanel;
  const auto pickIn = [&](const char *name, NaiveList &list, auto act) -> std::string {
    if (list.rows.empty())
      return {};
    const int row = dice.below(list.rows.size());
    pick(control<NumberList>(panel, QString::fromLatin1(name)), row);
    act(row);
    return text("pick row ", row, " of ", name);
  };
  switch (dice.below(4)) {
  case 0:
    return pickIn("lstSubnets", due.subnets, [&](int row) { model.pickSubnet(row); });
  case 1:
    return pickIn("lstSystems", due.systems, [&](int row) { due.systems.row = row; });
  case 2:
    if (model.document.subnets.size() >= mostOthers)
      return {};
    QTest::mouseClick(&control<PictureButton>(panel, QStringLiteral("picAdd")), Qt::LeftButton);
    model.moveSystem(due.systems, due.subnets);
    return "add the picked system";
  default:
    QTest::mouseClick(&control<PictureButton>(panel, QStringLiteral("picRemove")), Qt::LeftButton);
    model.moveSystem(due.subnets, due.systems);
    return "remove the picked subnet";
  }
}

std::string Session::editHeader(Dice dice) {
  if (!model.infoPanel || !model.infoPanel->shown)
    return {};
  constexpr std::array names{"txtName", "txtCompany", "txtIP", "txtX", "txtY"};
  const std::size_t box = position(dice.below(names.size()));
  const TypedNumber &number = typedNumbers[position(dice.below(std::size(typedNumbers)))];
  const char *const typed = box < 3 ? words[position(dice.below(words.size()))] : number.text;
  type(form<frmLanInfo>(), QString::fromLatin1(names[box]), typed);
  model.typeHeader(box, box < 3 ? typed : number.shown, number.value);
  return text("type '", typed, "' in ", names[box]);
}

} // namespace vnb::test
