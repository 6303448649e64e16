// SPDX-License-Identifier: MIT
/// Option buttons that exclude each other.
#pragma once

#include <QButtonGroup>

#include <functional>

namespace vnb {

/// Tab goes to the option that is on, or to the first one while none is; arrows go on from there.
class OptionGroup : public QButtonGroup {
public:
  OptionGroup();

  /// Turns every option off, which is no Click.
  void clear();

  /// An option was turned on, or the user has picked the one that is on; `id` is its own.
  std::function<void(int id)> Click;

private:
  void moveTabStop();
  void raise(int id);

  bool m_raised = false; // since the press that a click ends
};

} // namespace vnb
