// SPDX-License-Identifier: MIT
// What is written on the forms, and where their controls lie.
#include "appearance/frmThemes.h"
#include "editor/frmMain.h"
#include "editor/frmToolbox.h"
#include "look.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "shell/frmAbout.h"
#include "shell/frmSettings.h"
#include "shell/frmSplash.h"
#include "support.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QLineEdit>

#include <QRegularExpression>

#include <map>

namespace vnb::test {
namespace {

class Forms : public testing::Test {
protected:
  Forms() {
    main.operations().ClearLAN();
    GridRes = 20;
    main.forms().get<frmSettings>().Form_Load();
    main.forms().get<frmLanInfo>().showHeader();
    main.show();
  }

  const Look look;
  frmMain main;
  const std::vector<QWidget *> all{&main,
                                   &main.forms().get<frmAbout>(),
                                   &main.forms().get<frmDevice>(),
                                   &main.forms().get<frmLanInfo>(),
                                   &main.forms().get<frmLinks>(),
                                   &main.forms().get<frmSettings>(),
                                   &main.forms().get<frmSplash>(),
                                   &main.forms().get<frmSubnet>(),
                                   &main.forms().get<frmThemes>(),
                                   &main.forms().get<frmToolbox>()};
};

/// The controls of the form's own, those in containers among them.
std::vector<QWidget *> controls(const QWidget &form) {
  std::vector<QWidget *> result;
  for (QWidget *control : form.findChildren<QWidget *>())
    if (!control->objectName().isEmpty() && !control->objectName().startsWith(u"qt_"))
      result.push_back(control);
  return result;
}

/// What is written on a control, and in brackets what else assistive technology reads.
QString caption(const QWidget &control) {
  QString text;
  if (const auto *label = qobject_cast<const QLabel *>(&control))
    text = label->text();
  else if (const auto *button = qobject_cast<const QAbstractButton *>(&control))
    text = button->text();
  else if (const auto *box = qobject_cast<const QLineEdit *>(&control))
    text = box->text();
  QStringList others{control.accessibleName(), control.toolTip()};
  others.removeAll(text);
  others.removeDuplicates();
  others.removeAll(QString());
  return others.empty() ? text : text + u'(' + others.join(u'/') + u')';
}

TEST_F(Forms, SayThis) {
  const std::map<std::string, std::string> due{
      {"frmMain", "(New LAN/New LAN (Ctrl-N))|(Open LAN/Open LAN (Ctrl-O))|(Save LAN/Save LAN "
                  "(Ctrl-S))|(Show Toolbox/Show Toolbox (Alt-T))|(LAN Information/LAN Information "
                  "(Alt-I))|(Link Properties/Link Properties (Alt-L))|(Device Properties/Device "
                  "Properties (Alt-D))|(Valid Subnets/Valid Subnets (Alt-S))|(Themes/Themes "
                  "(Ctrl-T))|(Settings/Settings (Ctrl-P))|(About/About (Ctrl-A))|(Layout)|(Layout, "
                  "left to right)|(Layout, top to bottom)"},
      {"frmAbout", "About|About|Knots|Flying|(Vantry Network Builder)|(Page text)"},
      {"frmDevice", "Device Properties|Extra information:|(Extra information)|Security level:|"
                    "1(Security level 1)|2(Security level 2)|3(Security level 3)|Locked|"
                    "Lock 1:|(Lock 1)|Lock 2:|(Lock 2)|Lock 3:|(Lock 3)|"
                    "Phone number:|(Phone number)|Lock 1:|(Lock 1)|Lock 2:|(Lock 2)|"
                    "Frequency:           .           GHz|(Frequency, whole GHz)|"
                    "(Frequency, digits behind the point)|No Device Selected"},
      {"frmLanInfo", "LAN Info|Worldmap location:|LAN Name: |Unnamed Network(LAN Name)|Company:|"
                     "Unknown Company(Company)|IP Address:|123.123.123.123(IP Address)|"
                     "X:|0(X on the world map)|Y:|0(Y on the world map)"},
      {"frmLinks", "Links|Links for #####:|(Links)|Remove link|Security level:|1(Security level 1)|"
                   "2(Security level 2)|3(Security level 3)| Link position: |(Link position 0, 0)|"
                   "(Link position 0.25, 0)|(Link position 0.5, 0)|(Link position 0.75, 0)|"
                   "(Link position 1, 0)|(Link position 0, 0.25)|(Link position 1, 0.25)|"
                   "(Link position 0, 0.5)|(Link position 0.5, 0.5)|(Link position 1, 0.5)|"
                   "(Link position 0, 0.75)|(Link position 1, 0.75)|(Link position 0, 1)|"
                   "(Link position 0.25, 1)|(Link position 0.5, 1)|(Link position 0.75, 1)|"
                   "(Link position 1, 1)|Other:|X:|0.5(X of the link's end)|Y:|0.5(Y of the link's "
                   "end)|No Device Selected"},
      {"frmSettings", "Settings|Draw Grid|Grid resolution (px):|20(Grid resolution (px))|"
                      "Auto-load last file|OK|Cancel|Grid:|(Grid)|Selected item:|(Selected item)|"
                      "Lock:|(Lock)|Subnet:|(Subnet)|Selected subnet:|(Selected subnet)|Link:|"
                      "(Link)|Selected link:|(Selected link)"},
      {"frmSplash", "Loading..."},
      {"frmSubnet", "Valid Subnets|Valid subnets for #####:|(Valid subnets)|(Add a subnet)|"
                    "(Remove a subnet)|(Other systems)|No Device Selected"},
      {"frmThemes", "Themes|Current theme:|Default|Switch (temp button)|Available themes:|"
                    "(Available themes)|Name:|Author: |Description:|(Description)"},
      {"frmToolbox", "Toolbox|(Device type)|Device type:|Add to LAN|(Preview)|Preview"}};
  for (const QWidget *form : all) {
    QStringList texts{form->windowTitle()};
    for (const QWidget *control : controls(*form))
      texts << caption(*control);
    texts.removeAll(QString());
    EXPECT_EQ(texts.join(u'|').toStdString(), due.at(form->objectName().toStdString()));
  }
}

/// Whatever lies on or around others by its design.
bool liesUnderOthers(const QWidget &control) {
  static const QRegularExpression names(
      QStringLiteral("^(pic(Properties|Links|Subnets|Specific.|About)|shpFrame.|lblFreq)$"));
  return names.match(control.objectName()).hasMatch();
}

TEST_F(Forms, HaveEachControlInAPlaceOfItsOwn) {
  for (const QWidget *form : all)
    for (QWidget *one : controls(*form)) {
      const std::string name = (form->objectName() + u'.' + one->objectName()).toStdString();
      const QRect room = one->parentWidget()->rect();
      if (one->objectName() == u"picLayout" || one->objectName() == u"lblItem")
        continue; // larger than its viewport; read out only
      EXPECT_TRUE(room.contains(one->geometry())) << name;
      EXPECT_TRUE(one->pos() != QPoint() || one->width() == room.width() ||
                  one->height() > room.height() / 2)
          << name;
      if (one->focusPolicy() != Qt::NoFocus) {
        auto *access = QAccessible::queryAccessibleInterface(one);
        EXPECT_NE(access->role(), QAccessible::Client) << name;
        EXPECT_FALSE(access->text(QAccessible::Name).isEmpty()) << name;
      }
      const auto *label = qobject_cast<const QLabel *>(one);
      const auto *box = qobject_cast<QLineEdit *>(label != nullptr ? label->buddy() : nullptr);
      const QPoint off =
          (box != nullptr ? box : one)->geometry().center() - one->geometry().center();
      EXPECT_LE(std::abs(off.y()), 1) << name << " doesn't stand level with its box";
      for (const QWidget *other : controls(*form)) {
        const bool apart = other == one || other->parentWidget() != one->parentWidget() ||
                           liesUnderOthers(*one) || liesUnderOthers(*other) ||
                           !one->geometry().intersects(other->geometry());
        EXPECT_TRUE(apart) << name << " and " << other->objectName().toStdString();
      }
    }
}

} // namespace
} // namespace vnb::test
