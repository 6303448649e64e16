// SPDX-License-Identifier: MIT
#include "model.h"

#include "appearance/images.h"
#include "editor/contextmenu.h"
#include "editor/frmMain.h"
#include "editor/frmToolbox.h"
#include "forms/dialogs.h"
#include "forms/picturebox.h"
#include "naivemodel.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "shell/cdlgex.h"
#include "support.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QWindow>

#include <sstream>

namespace vnb::test {
namespace {

constexpr std::size_t mostDevices = 24;
constexpr std::size_t mostOthers = 40;
constexpr std::size_t fileCount = 4;
constexpr QPoint bareForm(530, 460); // of the form, between the scroll bars
constexpr QPoint toolBar(400, 10);

std::size_t position(std::int32_t number) {
  return static_cast<std::size_t>(number);
}

class Dice {
public:
  explicit Dice(const Step &step) : m_step(step) {}

  /// 0 to `bound` - 1, by the next die.
  std::int32_t below(std::size_t bound) {
    return static_cast<std::int32_t>(m_step.dice[m_next++ % m_step.dice.size()] % bound);
  }
  std::int32_t below(int bound) { return below(position(bound)); }
  QPoint in(QSize size) {
    const int x = below(size.width());
    return {x, below(size.height())};
  }

private:
  const Step &m_step;
  std::size_t m_next = 0;
};

std::string dumpOf(NaiveDocument &document) {
  document.swapWithProgram();
  std::string text = dump();
  document.swapWithProgram();
  return text;
}

template <class... Values>
std::string text(const Values &...values) {
  std::ostringstream out;
  (out << ... << values);
  return out.str();
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

/// Pictures and colours, without a theme.
struct Look {
  Look() {
    LoadDeviceImages(QString(SystemType::Last - 1, u'|'));
    SelectedColor = 0xFFFFFF;
    LinkColor = 0xE48257;
    LinkSelColor = 0x0000FF;
    LockColor = 0x00FFFF;
    SubnetColor = 0x008000;
  }
};

/// The program and its model, and what each step does to both. A step returns what it was, in
/// words; "" for one that means nothing in this document.
class Session {
public:
  Session();
  ~Session();
  Session(const Session &) = delete;
  Session &operator=(const Session &) = delete;

  std::string perform(const Step &step);
  /// The first difference between the program and the model, empty if there is none.
  std::string difference();

  std::string select(Dice dice);
  std::string move(Dice dice);
  std::string doubleClick(Dice dice);
  std::string hoverDevice(Dice dice);
  std::string hoverSurface(Dice dice);
  std::string clickSurface(Dice dice);
  std::string addByButton(Dice dice);
  std::string addByDrag(Dice dice);
  std::string linkAnywhere(Dice dice);
  std::string listSubnet(Dice dice);
  std::string addData(Dice dice);
  std::string guardByLock(Dice dice);
  std::string retype(Dice dice);
  std::string removeLink(Dice dice);
  std::string removeByMenu(Dice dice);
  std::string removeByKey(Dice dice);
  std::string startAnew(Dice dice);
  std::string open(Dice dice);
  std::string save(Dice dice);
  std::string scroll(Dice dice);
  std::string toggleLinkPanel(Dice dice);

private:
  std::string differenceInDocument();
  std::string differenceInSprite(std::int32_t device);
  std::string differenceInLine(std::int32_t link);
  std::string differenceInBand();

  std::int32_t anyDevice(Dice &dice) { return dice.below(model.document.systems.size()); }
  void press(std::int32_t device, Qt::MouseButton button, QPoint grab = {});
  void release(QPoint global);
  /// Drops what is dragged on one of the places that there are. Where it counts, returns the place
  /// that the handler is told.
  std::optional<QPoint> dropSomewhere(Dice &dice);
  std::unique_ptr<QMenu> rightClick(std::int32_t device);
  /// The answer to the next message box.
  void willAnswer(bool yes);
  void collectBoxes();
  std::string afterRemoval(std::int32_t device, bool yes);

  const Folder folder;
  const Look look;
  std::optional<Boxes> boxes;
  std::vector<std::string> shown; // texts of the step's boxes
  QString answer;                 // that file dialogs give; null to cancel
  frmMain main;
  Surface &surface = main.picLayout();
  ContextMenu contextMenu{main.selection(), main.operations()};
  QLabel &lblStatus = *main.findChild<QLabel *>(QStringLiteral("lblStatus"));
  frmToolbox &toolbox = Form<frmToolbox>::instance();
  QComboBox &cboItem = *toolbox.findChild<QComboBox *>();
  NaiveModel model;
  std::vector<NaiveDocument> files;
};

struct StepKind {
  int weight;
  std::string (Session::*perform)(Dice dice);
};

constexpr std::array kinds{
    StepKind{10, &Session::select},
    StepKind{10, &Session::move},
    StepKind{8, &Session::doubleClick},
    StepKind{4, &Session::hoverDevice},
    StepKind{4, &Session::hoverSurface},
    StepKind{3, &Session::clickSurface},
    StepKind{5, &Session::addByButton},
    StepKind{8, &Session::addByDrag},
    StepKind{6, &Session::linkAnywhere},
    StepKind{4, &Session::listSubnet},
    StepKind{2, &Session::addData},
    StepKind{6, &Session::guardByLock},
    StepKind{5, &Session::retype},
    StepKind{4, &Session::removeLink},
    StepKind{6, &Session::removeByMenu},
    StepKind{2, &Session::removeByKey},
    StepKind{1, &Session::startAnew},
    StepKind{2, &Session::open},
    StepKind{2, &Session::save},
    StepKind{2, &Session::scroll},
    StepKind{1, &Session::toggleLinkPanel},
};

Session::Session() {
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path("."));
  Cdlg = {};
  showFileDialog = [this](const FileDialog &) -> std::optional<QString> {
    return answer.isNull() ? std::nullopt : std::optional(answer);
  };
  lSelectedItem = -1;
  surface.picSystem(0).setPicture(DeviceImages(SystemType::Router));
  main.operations().ClearLAN();
  main.move(0, 0);
  main.show();
  Form<frmDevice>::instance().PopulateLockBoxes();
  std::mt19937 random(7);
  for (std::size_t i = 0; i < fileCount; ++i) {
    NaiveDocument document = NaiveDocument::any(random);
    document.swapWithProgram();
    SaveLAN(folder.path(std::to_string(i).c_str()));
    document.swapWithProgram();
    files.push_back(std::move(document));
  }
}

Session::~Session() {
  Form<frmToolbox>::unload();
  Form<frmDevice>::unload();
  Form<frmLanInfo>::unload();
  Form<frmLinks>::unload();
  Form<frmSubnet>::unload();
}

std::string Session::perform(const Step &step) {
  boxes.emplace();
  shown.clear();
  model.boxes.clear();
  std::string done = (this->*kinds[step.kind].perform)(Dice(step));
  collectBoxes();
  return done;
}

void Session::willAnswer(bool yes) {
  collectBoxes();
  boxes.emplace(std::vector{yes ? Answer::Yes : Answer::No});
}

void Session::collectBoxes() {
  shown.insert(shown.end(), boxes->texts.begin(), boxes->texts.end());
  boxes->texts.clear();
}

// Gestures.

void Session::press(std::int32_t device, Qt::MouseButton button, QPoint grab) {
  const Sprite &sprite = surface.picSystem(device);
  surface.events->picSystem_MouseDown(device, button, grab,
                                      surface.mapToGlobal(QPoint(sprite.Left, sprite.Top) + grab));
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
  press(device, Qt::MiddleButton);
  return text("select ", device);
}

std::string Session::move(Dice dice) {
  const std::int32_t device = anyDevice(dice);
  const QPoint grab = dice.in(model.sizeOf(device));
  press(device, Qt::LeftButton, grab);
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
  press(device, Qt::LeftButton);
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
  model.clickSurface();
  return "click on the surface";
}

// The toolbox.

std::string Session::addByButton(Dice dice) {
  if (model.document.systems.size() >= mostDevices)
    return {};
  cboItem.setCurrentIndex(dice.below(cboItem.count()));
  const std::int32_t lType = cboItem.currentIndex() + 2;
  toolbox.findChild<QPushButton *>()->click();
  if (lType == SystemType::Switch)
    model.boxes.emplace_back("This item cannot be added!");
  else
    model.addDevice(lType, {});
  return text("add type ", lType);
}

std::string Session::addByDrag(Dice dice) {
  if (model.document.systems.size() >= mostDevices)
    return {};
  cboItem.setCurrentIndex(dice.below(cboItem.count()));
  const std::int32_t lType = cboItem.currentIndex() + 2;
  auto &preview =
      static_cast<PictureBox &>(*toolbox.findChild<QWidget *>(QStringLiteral("picPreview")));
  const QPoint grab = dice.in(preview.size());
  preview.MouseDown(Qt::LeftButton, grab, {});
  const std::optional<QPoint> at = dropSomewhere(dice);
  if (at && lType == SystemType::Switch)
    model.boxes.emplace_back("This item cannot be added!");
  else if (at)
    model.addDevice(lType, *at - grab);
  return text("drag type ", lType, " from the toolbox");
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
  const int field = dice.below(3);
  for (SystemRec *record : {&Systems[position(device)], &model.document.systems[position(device)]})
    (field == 0 ? record->lData1 : field == 1 ? record->lData2 : record->lData3) = lock;
  return text("field ", field, " of ", device, " becomes ", lock);
}

// The context menu.

std::unique_ptr<QMenu> Session::rightClick(std::int32_t device) {
  press(device, Qt::RightButton);
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
  QMenu &mnuLinks = *menu->findChild<QMenu *>(QStringLiteral("mnuLinks"));
  mnuLinks.aboutToShow();
  const std::int32_t row = dice.below(links.size());
  const LinkRec link = model.document.links[position(links[position(row)])];
  const std::int32_t other = link.lFrom == device ? link.lTo : link.lFrom;
  model.boxes.push_back(
      text("Are you sure you want to remove the link ", link.lFrom == device ? "to " : "from ",
           NameFromType(model.document.systems[position(other)].lType, true).toStdString(), ' ',
           other, '?'));
  const bool yes = dice.below(4) != 0;
  willAnswer(yes);
  mnuLinks.actions().at(row)->trigger();
  if (yes)
    model.removeLink(links[position(row)]);
  model.selectAgain();
  return text("remove link ", links[position(row)], " of ", device, yes ? "" : ", no");
}

std::string Session::afterRemoval(std::int32_t device, bool yes) {
  model.boxes.push_back(text(
      "Really remove this ",
      NameFromType(model.document.systems[position(device)].lType, true).toLower().toStdString(),
      '?'));
  if (yes)
    model.removeDevice();
  model.selectAgain();
  return text("remove ", device, yes ? "" : ", no");
}

std::string Session::removeByMenu(Dice dice) {
  const std::int32_t device = anyDevice(dice);
  const auto menu = rightClick(device);
  const bool yes = dice.below(4) != 0;
  willAnswer(yes);
  menu->actions().constLast()->trigger();
  return device == 0 ? "right click the router" : afterRemoval(device, yes);
}

std::string Session::removeByKey(Dice dice) {
  if (model.linkPanelShown)
    return {}; // the panel has the keys
  const std::int32_t device = anyDevice(dice);
  press(device, Qt::MiddleButton);
  const bool yes = dice.below(2) == 0;
  willAnswer(yes);
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
  return text("save file ", file);
}

std::string Session::scroll(Dice dice) {
  main.findChild<QScrollBar *>(QStringLiteral("hsbScroll"))->setValue(dice.below(300));
  main.findChild<QScrollBar *>(QStringLiteral("vsbScroll"))->setValue(dice.below(300));
  return text("scroll to ", -surface.x(), ',', -surface.y());
}

/// The panel picks a link at each selection, but only while it is seen.
std::string Session::toggleLinkPanel(Dice /*dice*/) {
  model.linkPanelShown = !model.linkPanelShown;
  if (!model.linkPanelShown) {
    Form<frmLinks>::instance().close();
    return "close the link panel";
  }
  main.picLink_Click();
  Form<frmLinks>::instance().move(main.width() + 10, 0);
  return "show the link panel";
}

// Comparison.

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

} // namespace

std::discrete_distribution<std::size_t> stepWeights() {
  std::vector<int> weights;
  weights.reserve(kinds.size());
  for (const StepKind &kind : kinds)
    weights.push_back(kind.weight);
  return {weights.begin(), weights.end()};
}

Outcome run(const std::vector<Step> &steps) {
  Session session;
  Outcome outcome;
  for (const Step &step : steps) {
    outcome.log.push_back(session.perform(step));
    outcome.difference = session.difference();
    if (outcome.failed())
      break;
  }
  return outcome;
}

} // namespace vnb::test
