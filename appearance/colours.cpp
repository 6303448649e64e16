// SPDX-License-Identifier: MIT
#include "appearance/colours.h"

#include "widgets/style.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>

#include <map>
#include <utility>

namespace vnb {
namespace {

/// Of texts that are disabled: as a rule less than others have, and still readable.
constexpr double faintContrast = 4.5;

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

QPalette makePalette(const QColor &background, const QColor &text) {
  QPalette result(text, background, text, text, text, text, text, background, background);
  result.setColor(QPalette::AlternateBase, background);
  result.setColor(QPalette::ToolTipBase, background);
  result.setColor(QPalette::ToolTipText, text);
  // A picked row is the reverse of the others: readable in every theme.
  result.setColor(QPalette::Highlight, shade(background, text));
  result.setColor(QPalette::HighlightedText, background);
  const QColor faint = shade(background, text, faintContrast);
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

/// The list that drops down from a box is a window of its own.
void colourList(const QComboBox &box, const QPalette &colours) {
  box.view()->setPalette(colours);
  box.view()->parentWidget()->setPalette(colours);
}

} // namespace

QPalette themePalette() {
  const QColor background = toQColor(BackgroundColor);
  const QColor text = toQColor(TextColor);
  return once(std::pair(background.rgb(), text.rgb()),
              [&] { return makePalette(background, text); });
}

void applyColours(QWidget &form) {
  const QPalette colours = themePalette();
  form.setPalette(colours);
  for (QWidget *control : form.findChildren<QWidget *>())
    // A window among them is a dialog, or the list of a drop-down box, whose turn comes below.
    if (!control->isWindow())
      control->setPalette(colours);
  for (const QComboBox *box : form.findChildren<QComboBox *>())
    colourList(*box, colours);
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
