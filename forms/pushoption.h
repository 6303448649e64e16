// SPDX-License-Identifier: MIT
/// Option buttons that look like push buttons and stay down while they are on.
#pragma once

#include <QAbstractButton>
#include <QButtonGroup>

namespace vnb {

/// Filled with its palette's button colour; while on it has a thick frame inside. Those that
/// exclude each other share a QButtonGroup.
class PushOption : public QAbstractButton {
public:
  explicit PushOption(QWidget *parent);
  /// Without a caption it fits any place.
  QSize sizeHint() const override { return text().isEmpty() ? QSize() : QSize(20, 18); }

protected:
  void paintEvent(QPaintEvent *event) override;
};

/// Turns every button of an exclusive group off.
void clearOptions(QButtonGroup &group);

} // namespace vnb
