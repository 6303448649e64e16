// SPDX-License-Identifier: MIT
/// The LAN information panel: the document's header.
#pragma once

#include "lanfile/lanfile.h"
#include "widgets/form.h"

#include <array>

namespace vnb {

class TextBox;

/// Edits the head of the file, whatever is selected. A file that is opened fills the boxes; a new
/// LAN leaves them as they are.
class frmLanInfo : public FormWindow {
public:
  frmLanInfo();
  void Form_Load() override;
  void UpdateColors() override;

  /// Shows all fields of the header as they stand.
  void showHeader();
  /// Shows one field, which the reader has just stored.
  void showField(HeaderField field);

private:
  static constexpr std::size_t fields = 5;

  /// Stores what the box of this field holds; what is no number counts as 0.
  void Change(HeaderField field);

  std::array<TextBox *, fields> m_boxes{}; // by HeaderField
};

} // namespace vnb
