// SPDX-License-Identifier: MIT
#include "shell/frmSplash.h"

#include "widgets/controls.h"
#include "widgets/pictures.h"

#include <QCloseEvent>
#include <QFontInfo>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>

namespace vnb {
namespace {

constexpr int interval = 100; // milliseconds
constexpr int states = 4;     // no dot to three

/// The splash's own font; what stands in for it is made to fit the label.
QFont loadingFont() {
  QFont font(QStringLiteral("Battlefield"));
  font.setPointSizeF(36);
  if (QFontInfo(font).family() != font.family())
    font.setPointSizeF(24);
  return font;
}

} // namespace

frmSplash::frmSplash() : FormWindow("frmSplash", "", {6240, 4665}) {
  setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
  setAttribute(Qt::WA_OpaquePaintEvent);
  QPalette onBlack = palette();
  onBlack.setColor(QPalette::WindowText, Qt::white);
  setPalette(onBlack);
  auto *picAbout = addLabel(*this, "picAbout", {}, {465, 180, 5310, 3600});
  picAbout->setPixmap(LoadResPicture(QStringLiteral("LOGO")));
  m_lblLoading = addLabel(*this, "lblLoading", {}, {585, 3870, 5070, 690});
  m_lblLoading->setFont(loadingFont());
  m_lblLoading->setText(QStringLiteral("Loading..."));
  m_tmrDots.callOnTimeout(this, [this] { tmrDots_Timer(); });
  m_tmrDots.start(interval);
}

void frmSplash::show() {
  const QRect room = screen()->availableGeometry();
  move(room.center() - rect().center());
  QWidget::show();
}

void frmSplash::paintEvent(QPaintEvent *event) {
  QPainter(this).fillRect(event->rect(), Qt::black);
}

void frmSplash::hideEvent(QHideEvent * /*event*/) {
  m_tmrDots.stop();
  m_sinceHidden.start();
}

void frmSplash::showEvent(QShowEvent * /*event*/) {
  if (m_tmrDots.isActive())
    return;
  if (const qint64 missed = m_sinceHidden.elapsed() / interval; missed > 0) {
    m_dots = static_cast<int>((m_dots + missed - 1) % states);
    tmrDots_Timer();
  }
  m_tmrDots.start(interval);
}

void frmSplash::closeEvent(QCloseEvent *event) {
  // Not the base's, which would destroy the form.
  event->accept();
}

void frmSplash::tmrDots_Timer() {
  m_lblLoading->setText(QStringLiteral("Loading") + QString(m_dots, u'.'));
  m_dots = (m_dots + 1) % states;
}

} // namespace vnb
