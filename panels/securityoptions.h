// SPDX-License-Identifier: MIT
/// The three security level buttons that the device and link panels share.
#pragma once

#include "widgets/controls.h"
#include "widgets/optiongroup.h"
#include "widgets/pushoption.h"

#include <functional>

namespace vnb {

/// `optSecur(0..2)`, captioned 1 to 3. A child of the container that it is made in.
class SecurityOptions : public QObject {
public:
  /// The first button stands at `first`; the others follow to its right.
  SecurityOptions(QWidget &parent, Place first);

  /// Marks a level, 1 to 3, which is a Click unless it was marked. Raises 340 for any other, and no
  /// level is marked then.
  void mark(std::int32_t lSecur);

  /// The buttons in SecureColor, their digits in its inverse.
  void UpdateColors();

  /// As OptionGroup's; `Index` is the level less 1.
  std::function<void(std::int32_t Index)> Click;

private:
  OptionGroup m_group;
};

} // namespace vnb
