// SPDX-License-Identifier: MIT
/// Option buttons that look like push buttons and stay down while they are on.
#pragma once

#include <QAbstractButton>

namespace vnb {

/// Filled with its palette's button colour; while on it has a thick frame inside. Those that
/// exclude each other share an OptionGroup.
class PushOption : public QAbstractButton {
public:
  explicit PushOption(QWidget *parent);
  /// Without a caption it fits any place.
  QSize sizeHint() const override { return text().isEmpty() ? QSize() : QSize(20, 18); }

protected:
  void paintEvent(QPaintEvent *event) override;
};

} // namespace vnb
