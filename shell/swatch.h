// SPDX-License-Identifier: MIT
/// Colour swatches of the settings dialog.
#pragma once

#include "appearance/globals.h"

#include <QAbstractButton>

namespace vnb {

/// A box filled with a colour, with a border. A click is its owner's to answer, who asks for
/// another colour and sets it.
class Swatch : public QAbstractButton {
public:
  explicit Swatch(QWidget *parent) : QAbstractButton(parent) {}

  Colour BackColor() const { return m_colour; }
  void setBackColor(Colour colour);

protected:
  void paintEvent(QPaintEvent *event) override;

private:
  Colour m_colour = 0;
};

} // namespace vnb
