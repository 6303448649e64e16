// SPDX-License-Identifier: MIT
/// The splash: what one sees while the program starts.
#pragma once

#include "widgets/form.h"

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
  /// Only hides it: it stays to the end of the process.
  void closeEvent(QCloseEvent *event) override;
  /// Takes no key, so that Escape doesn't close it.
  void keyPressEvent(QKeyEvent * /*event*/) override {}

private:
  void tmrDots_Timer();

  QLabel *m_lblLoading;
  QTimer m_tmrDots{this};
  int m_dots = 0;
};

} // namespace vnb
