// SPDX-License-Identifier: MIT
/// What assistive technology reads: the surface's devices and links.
#include "gesture.h"

#include <QAccessible>

namespace vnb::test {
namespace {

std::string name(QAccessibleInterface *interface) {
  return interface == nullptr ? "none" : interface->text(QAccessible::Name).toStdString();
}

class AccessibleSurface : public Gesture {
protected:
  AccessibleSurface() {
    main.operations().ClearLAN();
    add(11, 100, 50);
    add(4, 2000, 2000);
    link(0, 1);
  }

  QAccessibleInterface &list() { return *QAccessible::queryAccessibleInterface(&surface()); }
  Words names() {
    Words names;
    for (int i = 0; i < list().childCount(); ++i) {
      EXPECT_EQ(list().indexOfChild(list().child(i)), i);
      EXPECT_EQ(list().child(i)->parent(), &list());
      names.push_back(name(list().child(i)));
    }
    return names;
  }
  void act(int child, const QString &action) {
    list().child(child)->actionInterface()->doAction(action);
    QCoreApplication::processEvents();
  }
};

TEST_F(AccessibleSurface, ListsDevicesAndLinksAsTheyAreNow) {
  EXPECT_EQ(name(&list()), "Layout");
  EXPECT_THAT(names(),
              ElementsAre("Router 0", "Modem 1", "Terminal 2", "Link 1: Router 0 to Modem 1"));
  QAccessibleInterface *terminal = list().child(2);
  main.operations().RemoveSystem(1);
  EXPECT_THAT(names(), ElementsAre("Router 0", "Terminal 1"));
  EXPECT_FALSE(terminal->isValid()) << "nothing has number 2 any more";
  EXPECT_EQ(name(terminal), "");
  EXPECT_TRUE(terminal->state().invalid);
  EXPECT_EQ(list().child(2), nullptr);
}

TEST_F(AccessibleSurface, TellsPlacesAndSelection) {
  QAccessibleInterface *modem = list().child(1);
  const QPoint corner = surface().mapToGlobal(QPoint(100, 50));
  EXPECT_EQ(modem->rect(), QRect(corner, surface().spriteRect(1).size()));
  EXPECT_EQ(list().childAt(corner.x() + 5, corner.y() + 5), modem);
  EXPECT_EQ(list().childAt(corner.x() - 5, corner.y() - 5), nullptr);
  EXPECT_FALSE(modem->state().offscreen);
  EXPECT_TRUE(list().child(2)->state().offscreen) << "far out";
  EXPECT_FALSE(modem->state().selected);
  EXPECT_TRUE(modem->state().selectable);
  select(1);
  EXPECT_TRUE(modem->state().selected);
  EXPECT_FALSE(list().child(0)->state().selected);
}

TEST_F(AccessibleSurface, ActionsDoWhatThePointerDoes) {
  const QStringList actions = list().child(1)->actionInterface()->actionNames();
  act(1, QAccessibleActionInterface::pressAction());
  EXPECT_EQ(lSelectedItem, 1);
  act(1, QStringLiteral("link"));
  act(2, QStringLiteral("link"));
  EXPECT_EQ(names().back(), "Link 2: Modem 1 to Terminal 2");
  EXPECT_EQ(lSelectedItem, 1) << "a link selects nothing";
  Links[2].lTo = 9; // as a file may have it
  EXPECT_EQ(names().back(), "Link 2: Modem 1 to no device");
  EXPECT_THAT(actions, ElementsAre(u"Press", u"ShowMenu", u"link"));
}

TEST_F(AccessibleSurface, APressOfAButtonComesLater) {
  QAccessibleInterface *picNew = QAccessible::queryAccessibleInterface(&child("picNew"));
  picNew->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(UBound(Systems), 2) << "not while the caller waits";
  QCoreApplication::processEvents();
  EXPECT_EQ(UBound(Systems), 0);
}

} // namespace
} // namespace vnb::test
