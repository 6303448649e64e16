// SPDX-License-Identifier: MIT
#include "appearance/colours.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>

#include <array>
#include <map>

namespace vnb {
namespace {

/// A shade between two colours; `share` of the second one, in percent.
QColor mixed(const QColor &first, const QColor &second, int share) {
  const auto channel = [share](int a, int b) { return (a * (100 - share) + b * share) / 100; };
  return {channel(first.red(), second.red()), channel(first.green(), second.green()),
          channel(first.blue(), second.blue())};
}

/// With every role set, so that widgets take it as it is instead of making palettes of their own.
QPalette complete(const QPalette &palette) {
  QPalette result = palette.resolve(QApplication::palette());
  for (int group = 0; group < QPalette::NColorGroups; ++group)
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
      const auto g = static_cast<QPalette::ColorGroup>(group);
      const auto r = static_cast<QPalette::ColorRole>(role);
      result.setBrush(g, r, result.brush(g, r));
    }
  return result;
}

QPalette makePalette(const QColor &background, const QColor &text, const QColor &window) {
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
  return complete(result);
}

/// The palette of a key, made at its first use: for each palette there is, equal or not, the style
/// keeps pictures of controls.
template <class Key, class Make>
QPalette once(const Key &key, const Make &make) {
  static std::map<Key, QPalette> made; // a few for each theme
  const auto found = made.find(key);
  return found != made.end() ? found->second : made.emplace(key, make()).first->second;
}

QPalette palette(const QColor &background, const QColor &text, const QColor &window) {
  return once(std::array{background.rgb(), text.rgb(), window.rgb()},
              [&] { return makePalette(background, text, window); });
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
  control.setPalette(once(std::pair(control.palette().cacheKey(), colour), [&] {
    QPalette changed = control.palette();
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
      changed.setColor(role, toQColor(colour));
    return changed;
  }));
}

} // namespace vnb
