// SPDX-License-Identifier: MIT
#include "widgets/style.h"

#include "widgets/screenpixels.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

#include <algorithm>
#include <array>
#include <cmath>

namespace vnb {
namespace {

constexpr double lineContrast = 3;     // the least at which a line can be told from its ground
constexpr double borderContrast = 4.5; // as thin letters need it
constexpr double hoverContrast = 1.5;  // enough for an area

/// From 0 for black to 1 for white, as bright as the eye takes the colour.
double luminance(const QColor &colour) {
  static const std::array<double, 256> linear = [] {
    std::array<double, 256> result{};
    for (std::size_t i = 0; i < result.size(); ++i) {
      const double c = static_cast<double>(i) / 255;
      result[i] = c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    }
    return result;
  }();
  const auto of = [](int channel) { return linear[static_cast<std::size_t>(channel)]; };
  return 0.2126 * of(colour.red()) + 0.7152 * of(colour.green()) + 0.0722 * of(colour.blue());
}

/// A colour between two; `share` of the second one, in percent.
QColor mixed(const QColor &first, const QColor &second, int share) {
  const auto channel = [share](int a, int b) { return (a * (100 - share) + b * share) / 100; };
  return {channel(first.red(), second.red()), channel(first.green(), second.green()),
          channel(first.blue(), second.blue())};
}

/// What the states of one control are painted with. A disabled one has the same lines as others.
struct Shades {
  Shades(const QPalette &palette, QPalette::ColorRole groundRole, QPalette::ColorRole textRole)
      : ground(palette.color(QPalette::Active, groundRole)),
        text(palette.color(QPalette::Active, textRole)), ink(shade(ground, text)) {}
  explicit Shades(const QPalette &palette)
      : Shades(palette, QPalette::Window, QPalette::WindowText) {}
  static Shades ofButton(const QPalette &palette) {
    return {palette, QPalette::Button, QPalette::ButtonText};
  }

  QColor border() const { return shade(ground, text, borderContrast); }
  QColor thumb() const { return shade(ground, text, lineContrast); }
  /// A face that is held down is the reverse of the others, as a picked row is.
  QColor face(QStyle::State state) const {
    if (state.testFlag(QStyle::State_Sunken))
      return ink;
    const bool hovered = state.testFlag(QStyle::State_MouseOver);
    return hovered && state.testFlag(QStyle::State_Enabled) ? hover() : ground;
  }
  /// Away from the text, which then reads better; towards it only where there is no such way.
  QColor hover() const {
    const QColor away =
        contrast(text, Qt::black) > contrast(text, Qt::white) ? Qt::black : Qt::white;
    return shade(ground, contrast(ground, away) >= hoverContrast ? away : text, hoverContrast);
  }
  QColor onFace(QStyle::State state) const {
    return state.testFlag(QStyle::State_Sunken) ? ground : ink;
  }
  void paintFocus(QPainter &painter, const QRect &rect) const {
    vnb::paintFocus(painter, rect, ground, text);
  }

  QColor ground;
  QColor text;
  QColor ink; // the most that can be told from the ground
};

/// The inside of a border of one pixel.
QRect inside(const QRect &rect) {
  return rect.adjusted(1, 1, -1, -1);
}

/// A filled shape at the centre of `rect`, whose points are given in pixels from there.
void paintShape(QPainter &painter, const QRectF &rect, QPolygonF points, const QColor &colour) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  points.translate(rect.center());
  painter.drawPolygon(points);
  painter.restore();
}

void paintArrow(QPainter &painter, const QRectF &rect, Qt::ArrowType arrow, const QColor &colour) {
  const double along = arrow == Qt::UpArrow || arrow == Qt::LeftArrow ? -1 : 1;
  QPolygonF points{{-3.5, -2 * along}, {3.5, -2 * along}, {0, 2 * along}};
  if (arrow == Qt::LeftArrow || arrow == Qt::RightArrow)
    for (QPointF &point : points)
      point = point.transposed();
  paintShape(painter, rect, std::move(points), colour);
}

void paintCheckBox(QPainter &painter, const QStyleOption &box) {
  const Shades shades(box.palette);
  painter.fillRect(box.rect, shades.face(box.state));
  paintFrame(painter, box.rect, shades.border());
  if (box.state.testFlag(QStyle::State_On))
    paintShape(painter, box.rect,
               {{-4, -1}, {-1.2, 1.8}, {4, -3.6}, {4, -1.2}, {-1.2, 4}, {-4, 1.2}},
               shades.onFace(box.state));
}

void paintRadioButton(QPainter &painter, const QStyleOption &button) {
  constexpr double ring = 2;
  const Shades shades(button.palette);
  const QRectF area = QRectF(button.rect).adjusted(ring / 2, ring / 2, -ring / 2, -ring / 2);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(shades.border(), ring));
  painter.setBrush(shades.face(button.state));
  painter.drawEllipse(area);
  if (button.state.testFlag(QStyle::State_On)) {
    const double inset = area.width() / 4;
    painter.setPen(Qt::NoPen);
    painter.setBrush(shades.onFace(button.state));
    painter.drawEllipse(area.adjusted(inset, inset, -inset, -inset));
  }
  painter.restore();
}

void paintButtonFace(QPainter &painter, const QStyleOption &button) {
  const auto *push = qstyleoption_cast<const QStyleOptionButton *>(&button);
  const bool preset = push != nullptr && push->features.testFlag(QStyleOptionButton::DefaultButton);
  const Shades shades(button.palette);
  const Shades face = Shades::ofButton(button.palette);
  painter.fillRect(button.rect, face.face(button.state));
  paintFrame(painter, button.rect, preset ? shades.ink : shades.border());
  if (button.state.testFlag(QStyle::State_HasFocus))
    face.paintFocus(painter, inside(button.rect));
}

/// What drops down from the box stands for its being pressed.
void paintComboBox(QPainter &painter, const QStyleOptionComboBox &box, const QRect &arrow) {
  const Shades shades(box.palette);
  const Shades face = Shades::ofButton(box.palette);
  const bool open = box.state.testFlag(QStyle::State_On);
  painter.fillRect(box.rect, box.editable ? box.palette.color(QPalette::Base)
                                          : face.face(box.state & ~QStyle::State_Sunken));
  if (open)
    painter.fillRect(arrow, face.ink);
  paintArrow(painter, arrow, Qt::DownArrow, open ? face.ground : face.ink);
  if (!box.frame)
    return;
  paintFrame(painter, box.rect, shades.border());
  if (box.state.testFlag(QStyle::State_HasFocus))
    shades.paintFocus(painter, inside(box.rect));
}

/// With the frame of a field to type in or of a list: a border, and the mark of the focus in it.
void paintField(QPainter &painter, const QStyleOption &field) {
  const Shades shades(field.palette);
  paintFrame(painter, field.rect, shades.border());
  if (field.state.testFlag(QStyle::State_HasFocus))
    shades.paintFocus(painter, inside(field.rect));
}

/// What Fusion draws otherwise than the design has it.
class Style : public QProxyStyle {
public:
  Style() : QProxyStyle(QStringLiteral("Fusion")) {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override {
    switch (element) {
    case PE_Frame:
      if (isScrollArea(widget))
        return paintField(*painter, *option);
      break;
    case PE_FrameLineEdit:
      return paintField(*painter, *option);
    case PE_FrameFocusRect: // of a row as well: the current one isn't always picked
      return Shades(option->palette).paintFocus(*painter, option->rect);
    case PE_PanelButtonCommand:
      return paintButtonFace(*painter, *option);
    case PE_IndicatorCheckBox:
      return paintCheckBox(*painter, *option);
    case PE_IndicatorRadioButton:
      return paintRadioButton(*painter, *option);
    default:
      break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }

  void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                   const QWidget *widget) const override {
    if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
        element == CE_PushButtonLabel && button != nullptr &&
        button->state.testFlag(State_Sunken)) {
      QStyleOptionButton held = *button;
      held.palette.setColor(QPalette::ButtonText, Shades::ofButton(held.palette).ground);
      QProxyStyle::drawControl(element, &held, painter, widget);
    } else if (const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
               element == CE_ShapedFrame && frame != nullptr && frame->frameShape == QFrame::Box) {
      paintFrame(*painter, option->rect, Shades(option->palette).border());
    } else {
      QProxyStyle::drawControl(element, option, painter, widget);
    }
  }

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                          QPainter *painter, const QWidget *widget) const override {
    if (const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
        control == CC_ScrollBar && bar != nullptr)
      paintScrollBar(*painter, *bar, widget);
    else if (const auto *box = qstyleoption_cast<const QStyleOptionComboBox *>(option);
             control == CC_ComboBox && box != nullptr)
      paintComboBox(*painter, *box, subControlRect(control, box, SC_ComboBoxArrow, widget));
    else
      QProxyStyle::drawComplexControl(control, option, painter, widget);
  }

  int pixelMetric(PixelMetric metric, const QStyleOption *option,
                  const QWidget *widget) const override {
    // Room for the mark of the focus, which the contents would lie on.
    return metric == PM_DefaultFrameWidth && isScrollArea(widget)
               ? 3
               : QProxyStyle::pixelMetric(metric, option, widget);
  }

  QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                         const QWidget *widget) const override {
    // No higher than its line of text with a border, so that boxes below each other stay apart.
    return type == CT_LineEdit ? contents + QSize(2, 2)
                               : QProxyStyle::sizeFromContents(type, option, contents, widget);
  }

  int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                QStyleHintReturn *data) const override {
    switch (hint) {
    case SH_ComboBox_Popup:
      return 0; // a list below the box, in the colours of lists, instead of a menu over it
    case SH_Menu_Scrollable:
      return 1; // a menu stays on a screen that is lower than it
    default:
      return QProxyStyle::styleHint(hint, option, widget, data);
    }
  }

private:
  static bool isScrollArea(const QWidget *widget) {
    return qobject_cast<const QAbstractScrollArea *>(widget) != nullptr;
  }

  void paintScrollBar(QPainter &painter, const QStyleOptionSlider &bar,
                      const QWidget *widget) const {
    const Shades shades(bar.palette);
    const bool across = bar.orientation == Qt::Horizontal;
    const bool scrolls = bar.minimum < bar.maximum;
    const auto stateOf = [&](SubControl part) {
      const bool active = scrolls && (bar.activeSubControls & part) != 0;
      return active ? bar.state : bar.state & ~(State_Sunken | State_MouseOver);
    };
    const auto button = [&](SubControl part, Qt::ArrowType arrow) {
      const QRect rect = subControlRect(CC_ScrollBar, &bar, part, widget);
      painter.fillRect(rect, shades.face(stateOf(part)));
      paintArrow(painter, rect, arrow, scrolls ? shades.onFace(stateOf(part)) : shades.thumb());
    };
    painter.fillRect(bar.rect, shades.ground);
    button(SC_ScrollBarSubLine, across ? Qt::LeftArrow : Qt::UpArrow);
    button(SC_ScrollBarAddLine, across ? Qt::RightArrow : Qt::DownArrow);
    paintFrame(painter, bar.rect, shades.border());
    if (!scrolls)
      return;
    // Under the pointer the thumb grows, and once more while it is held, so that it shows also
    // where its colour can't change.
    const State state = stateOf(SC_ScrollBarSlider);
    const int inset = state.testFlag(State_Sunken) ? 1 : state.testFlag(State_MouseOver) ? 3 : 5;
    painter.fillRect(subControlRect(CC_ScrollBar, &bar, SC_ScrollBarSlider, widget)
                         .adjusted(across ? 0 : inset, across ? inset : 0, across ? 0 : -inset,
                                   across ? -inset : 0),
                     state.testFlag(State_Sunken) ? shades.ink : shades.thumb());
  }
};

} // namespace

void useStyle() {
  QApplication::setStyle(new Style);
}

double contrast(const QColor &one, const QColor &other) {
  const auto [dark, bright] = std::minmax({luminance(one), luminance(other)});
  return (bright + 0.05) / (dark + 0.05);
}

QColor shade(const QColor &ground, const QColor &text, double least) {
  for (int share = 0; share <= 100; ++share)
    if (const QColor between = mixed(ground, text, share); contrast(ground, between) >= least)
      return between;
  if (contrast(ground, text) >= lineContrast)
    return text;
  return contrast(ground, Qt::black) > contrast(ground, Qt::white) ? Qt::black : Qt::white;
}

void paintFrame(QPainter &painter, const QRect &rect, const QColor &colour, int width) {
  const ScreenPixels pixels(painter);
  const QRectF outer = pixels.snapped(rect);
  const double thick = pixels.thickness(width);
  const QSizeF across(outer.width(), thick);
  const QSizeF down(thick, outer.height());
  painter.fillRect({outer.topLeft(), across}, colour);
  painter.fillRect({outer.bottomLeft() - QPointF(0, thick), across}, colour);
  painter.fillRect({outer.topLeft(), down}, colour);
  painter.fillRect({outer.topRight() - QPointF(thick, 0), down}, colour);
}

void paintFocus(QPainter &painter, const QRect &rect, const QColor &ground, const QColor &text) {
  paintFrame(painter, rect, shade(ground, text));
  paintFrame(painter, inside(rect), ground);
}

} // namespace vnb
