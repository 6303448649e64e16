// SPDX-License-Identifier: MIT
/// The viewport: the window's view of the surface, with its scroll bars.
#pragma once

#include "diagram/surface.h"

#include <QScrollBar>
#include <QWheelEvent>

namespace vnb {

/// Owns `picContainer` with the surface in it, `hsbScroll` and `vsbScroll`, all children of a form.
/// The square between the bars is left as bare form. All lengths are pixels.
class Viewport {
public:
  static constexpr int barWidth = 16;

  explicit Viewport(QWidget &form);

  Surface &picLayout() { return *m_picLayout; }
  const Surface &picLayout() const { return *m_picLayout; }
  /// Their values are how much of the surface lies to the left of what shows, and above it.
  QScrollBar &hsbScroll() { return *m_hsbScroll; }
  QScrollBar &vsbScroll() { return *m_vsbScroll; }

  /// Lays itself out below a toolbar, of a form of that size. Sizes that leave no room are left
  /// alone. What shows stays, as far as the surface reaches.
  void layOut(QSize form, int toolbarHeight);

  /// The surface takes BackgroundColor, which wipes its grid; the bars have the form's colours.
  void UpdateColors();

  /// Scrolls as a wheel or touchpad asks for, as far as the bars go: sideways with Shift and over
  /// `hsbScroll`. The event's place is the form's: bars leave theirs to it, so that a notch is as
  /// far everywhere.
  void wheel(const QWheelEvent &event);

private:
  QScrollBar *bar(QWidget &form, Qt::Orientation orientation, const char *name);

  // Children of the form, which deletes them.
  QWidget *m_picContainer;
  Surface *m_picLayout;
  QScrollBar *m_hsbScroll;
  QScrollBar *m_vsbScroll;
};

} // namespace vnb
