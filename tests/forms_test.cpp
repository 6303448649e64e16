// SPDX-License-Identifier: MIT
// What the forms look like when they are opened.
#include "appearance/frmThemes.h"
#include "editor/frmMain.h"
#include "editor/frmToolbox.h"
#include "formtest.h"
#include "listing.h"
#include "look.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "runtime/twips.h"
#include "shell/frmAbout.h"
#include "shell/frmSettings.h"
#include "shell/frmSplash.h"
#include "widgets/controls.h"

#include <QAccessible>
#include <QRegularExpression>

namespace vnb::test {
namespace {

/// All forms in colours of which no two are the same.
class Forms : public testing::Test {
protected:
  Forms() {
    for (int i = 0; const ColourRow &row : colourRows)
      *row.colour = 0x010203 * ++i;
    main.operations().ClearLAN();
    GridRes = 20;
    ShowGrid = LoadLastFile = false;
    main.forms().get<frmSettings>().Form_Load();
    main.forms().get<frmLanInfo>().showHeader();
    main.show();
    main.view().UpdateColors();
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

/// The controls of the form's own and those in containers, as the Tab key goes.
std::vector<QWidget *> controls(const QWidget &form) {
  std::vector<QWidget *> result;
  for (QWidget *next = form.nextInFocusChain(); next != &form; next = next->nextInFocusChain())
    if (!next->objectName().isEmpty() && !next->objectName().startsWith(u"qt_"))
      result.push_back(next);
  return result;
}

QString roleOf(QWidget &control) {
  return QVariant::fromValue(QAccessible::queryAccessibleInterface(&control)->role()).toString();
}

/// Where the listing has a control, if its form puts it there and makes no more than the room that
/// it needs in the font at hand. Else where it is. A label that is as large as its text has no
/// size.
QRect placeOf(QWidget &control, const QRect &listed) {
  const QRect now = control.geometry();
  place(control,
        {twips(listed.x()), twips(listed.y()), twips(listed.width()), twips(listed.height())});
  const bool there = control.geometry() == now;
  control.setGeometry(now);
  const auto *label = qobject_cast<QLabel *>(&control);
  const bool sized = label != nullptr && label->text().isEmpty();
  return there ? listed : QRect(now.topLeft(), sized ? QSize(0, 0) : now.size());
}

QRect listedPlace(const QString &name, const QStringList &listed) {
  for (const QString &line : listed)
    if (const QStringList words = line.split(u' '); words.size() > 5 && words[0] == name)
      return {words[2].toInt(), words[3].toInt(), words[4].toInt(), words[5].toInt()};
  return {};
}

QString textOf(const QWidget &control) {
  for (const char *property : {"windowTitle", "text", "plainText", "currentText"})
    if (const QVariant text = control.property(property); !text.toString().isEmpty())
      return text.toString();
  return {};
}

QString colourName(const QColor &colour) {
  for (const ColourRow &row : colourRows)
    if (*row.colour == toColour(colour))
      return QString::fromUtf8(row.key.data(), static_cast<qsizetype>(row.key.size()));
  return colour.name();
}

/// What of a control isn't as it is with most.
QStringList oddities(const QWidget &control) {
  QStringList out;
  for (const auto &[property, usual] : std::initializer_list<std::pair<const char *, int>>{
           {"alignment", Qt::AlignLeft | Qt::AlignVCenter},
           {"autoFillBackground", false},
           {"checked", false},
           {"frameShape", QFrame::NoFrame},
           {"maximum", 0},
           {"maxVisibleItems", 10},
           {"pageStep", 0},
           {"readOnly", false},
           {"singleStep", 0},
           {"tabChangesFocus", false},
           {"textFormat", Qt::PlainText},
           {"verticalScrollBarPolicy", Qt::ScrollBarAsNeeded}})
    if (const QVariant now = control.property(property); now.isValid() && now.toInt() != usual)
      out << QLatin1String(property) + u'=' + now.toString();
  if (control.testAttribute(Qt::WA_WState_ExplicitShowHide) && control.isHidden())
    out << u"hidden"_qs;
  if (control.testAttribute(Qt::WA_ForceDisabled))
    out << u"disabled"_qs;
  const auto *label = qobject_cast<const QLabel *>(&control);
  if (label != nullptr && label->buddy() != nullptr)
    out << u"for "_qs + label->buddy()->objectName();
  const QFont font = control.font();
  if (font.families() != QApplication::font().families() &&
      (font.pointSizeF() != 8.25 || font.families().constFirst() != u"Dungeon"))
    out << QStringLiteral("%1 %2pt").arg(font.families().constFirst()).arg(font.pointSizeF());
  for (const auto &[role, name, usual] : {std::tuple(QPalette::Window, "window", BackgroundColor),
                                          {QPalette::Base, "base", BackgroundColor},
                                          {QPalette::Button, "button", BackgroundColor},
                                          {QPalette::WindowText, "foreground", TextColor},
                                          {QPalette::ButtonText, "caption", TextColor}})
    if (const QColor now = control.palette().color(QPalette::Active, role); now != toQColor(usual))
      out << QLatin1String(name) + u'=' +
                 (now == QApplication::palette().color(role) ? u"unthemed"_qs : colourName(now));
  return out;
}

QString lineOf(QWidget &control, const QStringList &listed) {
  const bool form = control.isWindow();
  const QString name =
      (form ? QString() : control.window()->objectName() + u'.') + control.objectName();
  const QRect at = form ? control.rect() : placeOf(control, listedPlace(name, listed));
  const QString text = textOf(control);
  QStringList others{control.accessibleName(), control.toolTip()};
  others.removeAll(text);
  others.removeAll(QString());
  others.removeDuplicates();
  QStringList line{name, roleOf(control)};
  for (const int number : {at.x(), at.y(), at.width(), at.height()})
    line << QString::number(number);
  line << u'"' + text + u'"';
  if (!others.empty())
    line << u'(' + others.join(u", ") + u')';
  return (line + oddities(control)).join(u' ');
}

TEST_F(Forms, LookAsListed) {
  const QStringList listed = listing("forms.txt");
  QStringList now;
  for (QWidget *form : all) {
    now << lineOf(*form, listed);
    for (QWidget *control : controls(*form))
      now << lineOf(*control, listed);
  }
  expectListed("forms.txt", now);
}

/// Whatever lies on or around others by its design, or is larger than its viewport.
bool sharesItsPlace(const QWidget &control) {
  static const QRegularExpression names(QStringLiteral(
      "^(pic(Properties|Links|Subnets|Specific.|About|Layout)|shpFrame.|lblFreq|lblItem)$"));
  return names.match(control.objectName()).hasMatch();
}

/// Also where the font at hand needs more room.
TEST_F(Forms, HaveEachControlInAPlaceOfItsOwn) {
  for (const QWidget *form : all)
    for (const QWidget *one : controls(*form)) {
      const std::string name = (form->objectName() + u'.' + one->objectName()).toStdString();
      if (sharesItsPlace(*one))
        continue;
      EXPECT_TRUE(one->parentWidget()->rect().contains(one->geometry())) << name;
      for (const QWidget *other : controls(*form))
        EXPECT_TRUE(other == one || other->parentWidget() != one->parentWidget() ||
                    sharesItsPlace(*other) || !one->geometry().intersects(other->geometry()))
            << name << " and " << other->objectName().toStdString();
    }
  const auto &lblFreq = controlOf<QLabel>(*all[2], "lblFreq");
  const QFontMetricsF metrics(lblFreq.font());
  const QString front = lblFreq.text().section(u'.', 0, 0);
  EXPECT_NEAR(metrics.horizontalAdvance(front) + metrics.horizontalAdvance(u'.') / 2, 105, .5)
      << "the point stands between the boxes";
}

} // namespace
} // namespace vnb::test
