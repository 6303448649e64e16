// SPDX-License-Identifier: MIT
#include "widgets/formtable.h"

#include <algorithm>
#include <stdexcept>

namespace vnb {

FormTable::FormTable(const std::vector<Row> &rows) {
  for (const Row &row : rows)
    m_slots.push_back({.row = row, .form = {}});
}

FormTable::~FormTable() {
  for (const Slot &slot : m_slots)
    // At once: the event loop may have ended for good.
    delete slot.form;
}

FormTable::Slot &FormTable::slot(std::type_index type) {
  const auto found =
      std::ranges::find_if(m_slots, [type](const Slot &slot) { return slot.row.type == type; });
  if (found == m_slots.end())
    throw std::logic_error("no such form");
  return *found;
}

FormWindow &FormTable::form(Slot &slot) {
  if (!slot.form) {
    // In its place before it is loaded: loading may address it.
    slot.form = slot.row.make();
    slot.form->m_retired = [&slot] { slot.form = nullptr; };
    slot.form->Form_Load();
  }
  return *slot.form;
}

void FormTable::UpdateColors() {
  forEachLoaded([](FormWindow &form) { form.UpdateColors(); });
}

void FormTable::unload() {
  for (const Slot &slot : m_slots)
    if (slot.form)
      slot.form->retire();
}

} // namespace vnb
