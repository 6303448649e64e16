// SPDX-License-Identifier: MIT
/// Option buttons that exclude each other.
#pragma once

#include <QButtonGroup>

namespace vnb {

/// Tab goes to the option that is on, or to the first one while none is; arrows go on from there.
class OptionGroup : public QButtonGroup {
public:
  OptionGroup();

  /// Turns every option off.
  void clear();

private:
  void moveTabStop();
};

} // namespace vnb
