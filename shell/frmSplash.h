// SPDX-License-Identifier: MIT
/// The splash: what one sees while the program starts.
#pragma once

#include "widgets/form.h"

#include <QElapsedTimer>
#include <QTimer>

class QLabel;

namespace vnb {

/// Its dots go round as long as the start lets events in.
class frmSplash : public FormWindow {
public:
  frmSplash();

  /// Shows the form at the centre of the screen.
  void show();

protected:
  void paintEvent(QPaintEvent *event) override;
  /// While it is hidden the dots stand still; shown again, they are where they would have been.
  void showEvent(QShowEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  /// Only hides it: it stays to the end of the process.
  void closeEvent(QCloseEvent *event) override;
  /// Takes no key, so that Escape doesn't close it.
  void keyPressEvent(QKeyEvent * /*event*/) override {}

private:
  void tmrDots_Timer();

  QLabel *m_lblLoading;
  QTimer m_tmrDots{this};
  QElapsedTimer m_sinceHidden;
  int m_dots = 0;
};

} // namespace vnb
