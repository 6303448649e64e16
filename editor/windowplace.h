// SPDX-License-Identifier: MIT
/// The main window as the settings store knows it.
#pragma once

#include "appearance/editorview.h"
#include "shell/settings.h"

#include <optional>

class QPoint;
class QWidget;

namespace vnb {

/// Keeps the place that the store gives the window: it counts when the window is shown, and again
/// when a place is stored.
class WindowPlace : public SettingsView {
public:
  /// The place of `window`; `view` takes the theme.
  WindowPlace(QWidget &window, EditorView &view) : m_window(window), m_view(view) {}

  /// Where the window is put when it is shown.
  void setLeft(std::int32_t lLeft) override;
  void setTop(std::int32_t lTop) override;
  /// The frame's corner as it stands now; the stored one while the window has not been moved.
  double Left() const override;
  double Top() const override;
  void LoadTheme(const QString &sFileName) override;

  /// Shows the window at its stored place, or where its title bar can be taken hold of. Where one
  /// edge alone is stored, the window system places the other; it is given half a second for that,
  /// during which events run. So they do below a scale of 1.
  void show();

private:
  void moveOnScreen(QPoint corner);
  int edge(const std::optional<int> &stored, int now) const;

  QWidget &m_window;
  EditorView &m_view;
  std::optional<int> m_left; // pixels
  std::optional<int> m_top;
};

} // namespace vnb
