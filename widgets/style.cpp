// SPDX-License-Identifier: MIT
#include "widgets/style.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace vnb {
namespace {

/// What Fusion draws otherwise than the design has it.
class Style : public QProxyStyle {
public:
  Style() : QProxyStyle(QStringLiteral("Fusion")) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override {
    if (element == PE_Frame && qobject_cast<const QAbstractScrollArea *>(widget) != nullptr)
      paintFrame(*painter, option->rect, frameColour(*option));
    else
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }

  int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                QStyleHintReturn *data) const override {
    switch (hint) {
    case SH_ComboBox_Popup:
      return 0; // a list below the box, in the colours of lists, instead of a menu over it
    case SH_Menu_Scrollable:
      return 1; // a menu of thousands of entries stays on the screen
    default:
      return QProxyStyle::styleHint(hint, option, widget, data);
    }
  }

private:
  /// As Fusion's own controls have it.
  static QColor border(const QPalette &palette) {
    return palette.color(QPalette::Window).darker(140).lighter(108);
  }
  static QColor frameColour(const QStyleOption &option) {
    return option.state.testFlag(State_HasFocus) ? option.palette.color(QPalette::Highlight)
                                                 : border(option.palette);
  }
};

} // namespace

void useStyle() {
  QApplication::setStyle(new Style);
}

void paintFrame(QPainter &painter, const QRect &rect, const QColor &colour, int width) {
  painter.fillRect(rect.left(), rect.top(), rect.width(), width, colour);
  painter.fillRect(rect.left(), rect.bottom() + 1 - width, rect.width(), width, colour);
  painter.fillRect(rect.left(), rect.top(), width, rect.height(), colour);
  painter.fillRect(rect.right() + 1 - width, rect.top(), width, rect.height(), colour);
}

} // namespace vnb
