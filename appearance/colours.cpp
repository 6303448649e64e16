// SPDX-License-Identifier: MIT
#include "appearance/colours.h"

#include <QAbstractItemView>
#include <QComboBox>

namespace vnb {
namespace {

/// A shade between two colours; `share` of the second one, in percent.
QColor mixed(const QColor &first, const QColor &second, int share) {
  const auto channel = [share](int a, int b) { return (a * (100 - share) + b * share) / 100; };
  return {channel(first.red(), second.red()), channel(first.green(), second.green()),
          channel(first.blue(), second.blue())};
}

QPalette palette(const QColor &background, const QColor &text, const QColor &window) {
  QPalette result(text, background, text, text, mixed(background, text, 50), text, text, background,
                  window);
  result.setColor(QPalette::AlternateBase, background);
  result.setColor(QPalette::ToolTipBase, background);
  result.setColor(QPalette::ToolTipText, text);
  // A picked row is the reverse of the others: readable in every theme.
  result.setColor(QPalette::Highlight, text);
  result.setColor(QPalette::HighlightedText, background);
  const QColor faint = mixed(background, text, 50);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    result.setColor(QPalette::Disabled, role, faint);
  result.setColor(QPalette::PlaceholderText, faint);
  return result;
}

/// The list that drops down from a box is a window of its own.
void colourList(const QComboBox &box, const QPalette &colours) {
  box.view()->setPalette(colours);
  box.view()->parentWidget()->setPalette(colours);
}

} // namespace

QPalette controlPalette() {
  const QColor background = toQColor(BackgroundColor);
  const QColor text = toQColor(TextColor);
  // The style draws the border of a control a good deal darker than its window colour, which
  // nothing else of a control shows: so that is where the border's shade goes.
  return palette(background, text, mixed(background, text, 60));
}

void applyColours(QWidget &form) {
  const QColor background = toQColor(BackgroundColor);
  form.setPalette(palette(background, toQColor(TextColor), background));
  const QPalette controls = controlPalette();
  for (QWidget *control : form.findChildren<QWidget *>())
    // A window among them is a dialog, or the list of a drop-down box, whose turn comes below.
    if (!control->isWindow())
      control->setPalette(controls);
  for (const QComboBox *box : form.findChildren<QComboBox *>())
    colourList(*box, controls);
}

void setForeground(QWidget &control, Colour colour) {
  QPalette changed = control.palette();
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    changed.setColor(role, toQColor(colour));
  control.setPalette(changed);
}

} // namespace vnb
