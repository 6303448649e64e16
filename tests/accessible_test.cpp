// SPDX-License-Identifier: MIT
/// What assistive technology reads: the surface's devices and links, and a name for every control.
#include "appearance/frmThemes.h"
#include "editor/frmMain.h"
#include "editor/frmToolbox.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "shell/frmAbout.h"
#include "shell/frmSettings.h"
#include "support.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QTest>

using testing::ElementsAre;
using testing::IsEmpty;

namespace vnb::test {
namespace {

std::string name(QAccessibleInterface *interface) {
  return interface == nullptr ? "none" : interface->text(QAccessible::Name).toStdString();
}

class AccessibleSurface : public testing::Test {
protected:
  AccessibleSurface() {
    main.operations().ClearLAN();
    main.operations().AddSystem(11, 100, 50, 1, -1, -1, -1, {});
    main.operations().AddSystem(4, 2000, 2000, 1, -1, -1, -1, {});
    main.operations().AddLink(0, 0.5, 0.5, 1, 0.5, 0.5, 1);
    main.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&main));
  }

  QAccessibleInterface &list() { return *QAccessible::queryAccessibleInterface(&main.picLayout()); }
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

  Boxes boxes;
  frmMain main;
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
  const QPoint corner = main.picLayout().mapToGlobal(QPoint(100, 50));
  EXPECT_EQ(modem->rect(), QRect(corner, main.picLayout().spriteRect(1).size()));
  EXPECT_EQ(list().childAt(corner.x() + 5, corner.y() + 5), modem);
  EXPECT_EQ(list().childAt(corner.x() - 5, corner.y() - 5), nullptr);
  EXPECT_FALSE(modem->state().offscreen);
  EXPECT_TRUE(list().child(2)->state().offscreen) << "far out";
  EXPECT_FALSE(modem->state().selected);
  main.selection().SelectItem(1, SelectedColor, false);
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
  EXPECT_THAT(actions, ElementsAre(u"Press", u"ShowMenu", u"link"));
}

/// The controls of `window` that the keyboard can reach but no name tells, or no role.
Words unknown(QWidget &window) {
  Words found;
  for (QWidget *control : window.findChildren<QWidget *>()) {
    if (control->focusPolicy() == Qt::NoFocus || control->window() != &window ||
        control->objectName().startsWith(QStringLiteral("qt_")))
      continue;
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(control);
    if (name(interface).empty() || interface->role() == QAccessible::Client)
      found.push_back(window.objectName().toStdString() + "." +
                      control->objectName().toStdString());
  }
  return found;
}

TEST(AccessibleControls, EachHasANameAndARole) {
  frmMain main;
  const std::vector<QWidget *> windows{&main,
                                       &main.forms().get<frmToolbox>(),
                                       &main.forms().get<frmDevice>(),
                                       &main.forms().get<frmLinks>(),
                                       &main.forms().get<frmSubnet>(),
                                       &main.forms().get<frmLanInfo>(),
                                       &main.forms().get<frmThemes>(),
                                       &main.forms().get<frmSettings>(),
                                       &main.forms().get<frmAbout>()};
  for (QWidget *window : windows)
    EXPECT_THAT(unknown(*window), IsEmpty());
}

TEST_F(AccessibleSurface, ControlsHaveTheirRolesAndActions) {
  const auto of = [](QWidget &window, const char *control) {
    return QAccessible::queryAccessibleInterface(
        window.findChild<QWidget *>(QString::fromLatin1(control)));
  };
  auto &device = main.forms().get<frmDevice>();
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&main)->role(), QAccessible::Window);
  main.picDevice_Click();
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&device)->role(), QAccessible::Dialog);
  EXPECT_EQ(of(device, "optSecur0")->role(), QAccessible::RadioButton);
  const auto labels = of(device, "cboLock1")->relations(QAccessible::Label);
  ASSERT_EQ(labels.size(), 1);
  EXPECT_EQ(name(labels[0].first), "Lock 2:");
  const auto itemLabels =
      of(main.forms().get<frmToolbox>(), "cboItem")->relations(QAccessible::Label);
  ASSERT_EQ(itemLabels.size(), 1);
  EXPECT_EQ(name(itemLabels[0].first), "Device type:");
  EXPECT_EQ(of(main.forms().get<frmToolbox>(), "picPreview")->role(), QAccessible::Graphic);

  QAccessibleInterface *picNew = of(main, "picNew");
  EXPECT_EQ(picNew->role(), QAccessible::Button);
  picNew->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(UBound(Systems), 2) << "not while the caller waits";
  QCoreApplication::processEvents();
  EXPECT_EQ(UBound(Systems), 0);
}

} // namespace
} // namespace vnb::test
