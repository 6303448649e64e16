// SPDX-License-Identifier: MIT
#include "session.h"

#include "appearance/images.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "shell/cdlgex.h"
#include "widgets/dialogs.h"
#include "widgets/longmenu.h"
#include "widgets/picturebox.h"

#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QWindow>

namespace vnb::test {
namespace {

constexpr std::size_t fileCount = 4;
constexpr QPoint bareForm(530, 460); // of the form, between the scroll bars
constexpr QPoint toolBar(400, 10);

struct StepKind {
  int weight;
  std::string (Session::*perform)(Dice dice);
};

constexpr std::array kinds{
    StepKind{10, &Session::select},      StepKind{10, &Session::move},
    StepKind{8, &Session::doubleClick},  StepKind{4, &Session::hoverDevice},
    StepKind{4, &Session::hoverSurface}, StepKind{3, &Session::clickSurface},
    StepKind{13, &Session::addDevice},   StepKind{6, &Session::linkAnywhere},
    StepKind{4, &Session::listSubnet},   StepKind{2, &Session::addData},
    StepKind{6, &Session::guardByLock},  StepKind{5, &Session::retype},
    StepKind{4, &Session::removeLink},   StepKind{6, &Session::removeByMenu},
    StepKind{2, &Session::removeByKey},  StepKind{1, &Session::startAnew},
    StepKind{2, &Session::open},         StepKind{2, &Session::save},
    StepKind{2, &Session::scroll},       StepKind{4, &Session::togglePanel},
    StepKind{10, &Session::editDevice},  StepKind{10, &Session::editLink},
    StepKind{8, &Session::editSubnets},  StepKind{3, &Session::editHeader},
};

} // namespace

std::discrete_distribution<std::size_t> stepWeights() {
  std::vector<int> weights;
  weights.reserve(kinds.size());
  for (const StepKind &kind : kinds)
    weights.push_back(kind.weight);
  return {weights.begin(), weights.end()};
}

Session::Session() {
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path(".")));
  Cdlg = {};
  showFileDialog = [this](const FileDialog &) -> std::optional<QString> {
    return answer.isNull() ? std::nullopt : std::optional(answer);
  };
  lSelectedItem = -1;
  main.operations().ClearLAN();
  main.move(0, 0);
  main.show();
  main.forms().get<frmDevice>().PopulateLockBoxes();
  std::mt19937 random(7);
  for (std::size_t i = 0; i < fileCount; ++i) {
    NaiveDocument document = NaiveDocument::any(random);
    document.swapWithProgram();
    SaveLAN(folder.path(std::to_string(i).c_str()));
    document.swapWithProgram();
    files.push_back(std::move(document));
  }
}

std::string Session::perform(const Step &step) {
  boxes.texts.clear();
  boxes.boxes.clear();
  model.boxes.clear();
  boxes.otherwise = Answer::No;
  return (this->*kinds[step.kind].perform)(Dice(step));
}

bool Session::answerBoxes(Dice &dice) {
  const bool yes = dice.below(4) != 0;
  boxes.otherwise = yes ? Answer::Yes : Answer::No;
  return yes;
}

// Gestures.

void Session::pressDevice(std::int32_t device, Qt::MouseButton button, QPoint grab) {
  const QPoint at = surface.spriteRect(device).topLeft() + grab;
  surface.events->picSystem_MouseDown(device, button, grab, surface.mapToGlobal(at));
  model.press(device);
}

void Session::release(QPoint global) {
  QMouseEvent event(QEvent::MouseButtonRelease, surface.mapFromGlobal(global), global,
                    Qt::LeftButton, Qt::NoButton, {});
  QApplication::sendEvent(&surface, &event);
}

std::optional<QPoint> Session::dropSomewhere(Dice &dice) {
  constexpr QPoint outside(-300, -300);
  switch (dice.below(8)) {
  case 0:
    release(main.mapToGlobal(outside));
    return std::nullopt;
  case 1:
    release(main.mapToGlobal(toolBar));
    return std::nullopt;
  case 2:
    release(main.mapToGlobal(bareForm));
    return bareForm;
  default:
    const QPoint at = dice.in(surface.parentWidget()->size()) - surface.pos();
    release(surface.mapToGlobal(at));
    return at;
  }
}

std::string Session::select(Dice dice) {
  const std::int32_t device = anyDevice(dice);
  pressDevice(device, Qt::MiddleButton);
  return text("select ", device);
}

std::string Session::move(Dice dice) {
  const std::int32_t device = anyDevice(dice);
  const QPoint grab = dice.in(model.sizeOf(device));
  pressDevice(device, Qt::LeftButton, grab);
  const std::optional<QPoint> at = dropSomewhere(dice);
  if (at)
    model.drop(device, *at - grab);
  const SystemRec &record = model.document.systems[position(device)];
  return text("move ", device, " to ", record.lX, ',', record.lY);
}

std::string Session::doubleClick(Dice dice) {
  const std::int32_t device = anyDevice(dice);
  if (model.document.links.size() >= mostOthers)
    return {};
  pressDevice(device, Qt::LeftButton);
  release(main.mapToGlobal(toolBar));
  surface.events->picSystem_DblClick(device);
  model.doubleClick(device);
  return text("double click ", device);
}

std::string Session::hoverDevice(Dice dice) {
  const std::int32_t device = anyDevice(dice);
  const QPoint at = dice.in(model.sizeOf(device));
  surface.events->picSystem_MouseMove(device, at);
  model.hover(device, at);
  return text("point at ", device);
}

std::string Session::hoverSurface(Dice dice) {
  const QPoint at = dice.in({Surface::size, Surface::size});
  surface.events->picLayout_MouseMove(at);
  model.hoverSurface(at);
  return text("point at ", at.x(), ',', at.y());
}

std::string Session::clickSurface(Dice /*dice*/) {
  surface.events->picLayout_Click();
  model.deselect();
  return "click on the surface";
}

// The toolbox.

std::string Session::addDevice(Dice dice) {
  if (model.document.systems.size() >= mostDevices)
    return {};
  pick(cboItem, dice.below(cboItem.count()));
  const std::int32_t lType = cboItem.currentIndex() + 2;
  const bool drag = dice.below(13) < 8;
  std::optional<QPoint> corner = QPoint();
  if (drag) {
    auto &preview = *toolbox.findChild<PictureBox *>(QStringLiteral("picPreview"));
    const QPoint grab = dice.in(preview.size());
    preview.MouseDown(Qt::LeftButton, grab, {});
    corner = dropSomewhere(dice);
    if (corner)
      *corner -= grab;
  } else {
    toolbox.findChild<QPushButton *>()->click();
  }
  if (corner && lType == SystemType::Switch)
    model.boxes.emplace_back("This item cannot be added!");
  else if (corner)
    model.addDevice(lType, *corner);
  return text(drag ? "drag type " : "add type ", lType);
}

// What the panels do to the records.

std::string Session::linkAnywhere(Dice dice) {
  if (model.document.links.size() >= mostOthers)
    return {};
  const LinkRec link{.lFrom = anyDevice(dice),
                     .dFromX = dice.below(5) / 4.,
                     .dFromY = .25,
                     .lTo = anyDevice(dice),
                     .dToX = 1,
                     .dToY = dice.below(5) / 4.,
                     .lSecur = 2};
  main.operations().AddLink(link.lFrom, link.dFromX, link.dFromY, link.lTo, link.dToX, link.dToY,
                            link.lSecur);
  model.addLink(link);
  return text("link ", link.lFrom, " to ", link.lTo);
}

std::string Session::listSubnet(Dice dice) {
  if (model.document.subnets.size() >= mostOthers)
    return {};
  const SubnetRec subnet{.lFor = anyDevice(dice), .lFrom = anyDevice(dice)};
  main.operations().AddSubnet(subnet.lFor, subnet.lFrom);
  model.document.subnets.push_back(subnet);
  return text("list ", subnet.lFrom, " for ", subnet.lFor);
}

std::string Session::addData(Dice dice) {
  const DataRec data{.lNum = anyDevice(dice), .sText = QString::number(dice.below(100))};
  if (model.document.data.size() >= mostOthers)
    return {};
  main.operations().AddData(data.lNum, data.sText);
  model.document.data.push_back(data);
  return text("data of ", data.lNum);
}

/// Any number may stand in a record, but most name a lock.
std::string Session::guardByLock(Dice dice) {
  const std::int32_t device = anyDevice(dice);
  if (device == 0)
    return {}; // no file keeps the router's
  const std::vector<std::int32_t> locks = RetrieveLocks();
  const std::int32_t lock = locks.size() == 1 || dice.below(4) == 0
                                ? dice.below(model.document.systems.size() + 2) - 1
                                : locks[position(1 + dice.below(locks.size() - 1))];
  const std::int32_t index = dice.below(3);
  for (SystemRec *record : {&Systems[position(device)], &model.document.systems[position(device)]})
    field(*record, position(index)) = lock;
  return text("field ", index, " of ", device, " becomes ", lock);
}

// The context menu.

std::unique_ptr<QMenu> Session::rightClick(std::int32_t device) {
  pressDevice(device, Qt::RightButton);
  return contextMenu.build(device, main);
}

std::string Session::retype(Dice dice) {
  const std::int32_t device = anyDevice(dice);
  const auto menu = rightClick(device);
  const QMenu &mnuChange = *menu->findChild<QMenu *>(QStringLiteral("mnuChange"));
  if (device == 0)
    return mnuChange.isEnabled() ? "THE ROUTER CAN BE RETYPED" : "right click the router";
  QAction *mnuType = mnuChange.actions().at(dice.below(15));
  mnuType->trigger();
  model.retype(TypeFromName(mnuType->text()));
  return text("retype ", device, " to ", mnuType->text().toStdString());
}

std::string Session::removeLink(Dice dice) {
  const std::int32_t device = anyDevice(dice);
  const auto menu = rightClick(device);
  const std::vector<std::int32_t> links = model.linksOf(device);
  if (links.empty())
    return text("right click ", device);
  auto &mnuLinks = dynamic_cast<LongMenu &>(*menu->findChild<QMenu *>(QStringLiteral("mnuLinks")));
  mnuLinks.aboutToShow();
  const std::int32_t row = dice.below(links.size());
  const LinkRec link = model.document.links[position(links[position(row)])];
  const std::int32_t other = link.lFrom == device ? link.lTo : link.lFrom;
  model.boxes.push_back(text("Are you sure you want to remove the link ",
                             link.lFrom == device ? "to " : "from ", model.nameAt(other), '?'));
  const bool yes = answerBoxes(dice);
  mnuLinks.choose(row);
  if (yes)
    model.removeLink(links[position(row)]);
  model.selectAgain();
  return text("remove link ", links[position(row)], " of ", device, yes ? "" : ", no");
}

std::string Session::afterRemoval(std::int32_t device, bool yes) {
  const QString name = NameFromType(model.document.systems[position(device)].lType, true);
  model.boxes.push_back("Really remove this " + name.toLower().toStdString() + '?');
  if (yes)
    model.removeDevice();
  model.selectAgain();
  return text("remove ", device, yes ? "" : ", no");
}

std::string Session::removeByMenu(Dice dice) {
  const std::int32_t device = anyDevice(dice);
  const auto menu = rightClick(device);
  const bool yes = answerBoxes(dice);
  menu->actions().constLast()->trigger();
  return device == 0 ? "right click the router" : afterRemoval(device, yes);
}

std::string Session::removeByKey(Dice dice) {
  const std::int32_t device = anyDevice(dice);
  pressDevice(device, Qt::MiddleButton);
  const bool yes = answerBoxes(dice);
  main.activateWindow();
  QCoreApplication::processEvents();
  QTest::keyClick(main.windowHandle(), Qt::Key_Delete);
  return device == 0 ? "Delete on the router" : afterRemoval(device, yes);
}

// The tool bar.

std::string Session::startAnew(Dice /*dice*/) {
  main.picNew_Click();
  model.clear();
  return "new";
}

std::string Session::open(Dice dice) {
  const std::int32_t file = dice.below(fileCount);
  const bool cancel = dice.below(5) == 0;
  answer = cancel ? QString() : folder.path(std::to_string(file).c_str());
  main.picLoad_Click();
  if (!cancel)
    model.open(files[position(file)]);
  return text("open file ", file, cancel ? ", cancelled" : "");
}

std::string Session::save(Dice dice) {
  const std::int32_t file = dice.below(fileCount);
  answer = folder.path(std::to_string(file).c_str());
  main.picSave_Click();
  files[position(file)] = model.document;
  files[position(file)].systems[0].lSecur = 1; // of the router, its place alone is read again
  return text("save file ", file);
}

std::string Session::scroll(Dice dice) {
  main.findChild<QScrollBar *>(QStringLiteral("hsbScroll"))->setValue(dice.below(300));
  main.findChild<QScrollBar *>(QStringLiteral("vsbScroll"))->setValue(dice.below(300));
  return text("scroll to ", -surface.x(), ',', -surface.y());
}

} // namespace vnb::test
