// SPDX-License-Identifier: MIT
/// One run of the program beside its naive model: every step is done to both.
#pragma once

#include "editor/contextmenu.h"
#include "editor/frmMain.h"
#include "editor/frmToolbox.h"
#include "formtest.h"
#include "look.h"
#include "naivemodel.h"
#include "support.h"

#include <QComboBox>

#include <array>

namespace vnb::test {

/// How far a document grows, so that steps meet often.
inline constexpr std::size_t mostDevices = 24;
inline constexpr std::size_t mostOthers = 40;

/// One thing that a user does. The dice say with what; they are read against the document as it is
/// then, so that a step means something in any sequence.
struct Step {
  std::size_t kind;
  std::array<std::uint32_t, 6> dice;
};

/// How often each kind of step is taken.
std::discrete_distribution<std::size_t> stepWeights();

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

/// The program and its model, and what each step does to both. A step returns what it was, in
/// words; "" for one that means nothing in this document.
class Session {
public:
  Session();
  Session(const Session &) = delete;
  Session &operator=(const Session &) = delete;

  std::string perform(const Step &step);
  /// The first difference between the program and the model, empty if there is none.
  std::string difference();

  // What a step may be.

  std::string select(Dice dice);
  std::string move(Dice dice);
  std::string doubleClick(Dice dice);
  std::string hoverDevice(Dice dice);
  std::string hoverSurface(Dice dice);
  std::string clickSurface(Dice dice);
  std::string addDevice(Dice dice);
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
  std::string togglePanel(Dice dice);
  std::string editDevice(Dice dice);
  std::string editLink(Dice dice);
  std::string editSubnets(Dice dice);
  std::string editHeader(Dice dice);

private:
  /// Keeps the first difference.
  void compare(const std::string &what, const std::string &is, const std::string &due);
  void compareDocuments();
  void compareSprite(std::int32_t device);
  template <class F, class Naive>
  void comparePanel(const char *name, const std::optional<Naive> &due);

  template <class F, class Naive>
  std::string toggle(const char *name, std::optional<Naive> &panel, void (frmMain::*openPanel)(),
                     void (NaiveModel::*create)());
  std::string editGroup(Dice &dice);
  std::string chooseLock(Dice &dice, int box);

  std::int32_t anyDevice(Dice &dice) { return dice.below(model.document.systems.size()); }
  void pressDevice(std::int32_t device, Qt::MouseButton button, QPoint grab = {});
  void release(QPoint global);
  /// Drops what is dragged on one of the places that there are. Where it counts, returns the place
  /// that the handler is told.
  std::optional<QPoint> dropSomewhere(Dice &dice);
  std::unique_ptr<QMenu> rightClick(std::int32_t device);
  /// Whether the step's message boxes are answered Yes.
  bool answerBoxes(Dice &dice);
  std::string afterRemoval(std::int32_t device, bool yes);

  template <class F>
  F &form() {
    return main.forms().get<F>();
  }

  const Folder folder;
  const Look look;
  Boxes boxes;       // of the step
  std::string found; // the first difference
  QString answer;    // that file dialogs give; null to cancel
  frmMain main;
  Surface &surface = main.picLayout();
  ContextMenu contextMenu{main.diagram()};
  QLabel &lblStatus = *main.findChild<QLabel *>(QStringLiteral("lblStatus"));
  frmToolbox &toolbox = main.forms().get<frmToolbox>();
  QComboBox &cboItem = *toolbox.findChild<QComboBox *>();
  NaiveModel model;
  std::vector<NaiveDocument> files;
};

} // namespace vnb::test
