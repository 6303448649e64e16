// SPDX-License-Identifier: MIT
/// The forms of a program: each has one default instance, made hidden when it is first addressed
/// and destroyed by its close box.
#pragma once

#include "widgets/form.h"

#include <QPointer>

#include <functional>
#include <typeindex>
#include <vector>

namespace vnb {

/// Knows all forms but the main window, which owns the table; they end with it.
class FormTable {
public:
  /// One form, and how it is made.
  struct Row {
    std::type_index type;
    std::function<FormWindow *()> make;
  };

  /// The row of form `T`, which is made of `parts`. These must outlive the table.
  template <class T, class... Parts>
  static Row row(Parts &...parts) {
    return {typeid(T), [&parts...] { return new T(parts...); }};
  }

  /// `rows` in the order of all loops.
  explicit FormTable(const std::vector<Row> &rows);
  ~FormTable();
  FormTable(const FormTable &) = delete;
  FormTable &operator=(const FormTable &) = delete;

  /// The form, made and loaded now if it isn't there. A form without a row is a slip in the
  /// program: std::logic_error.
  template <class T>
  T &get() {
    return static_cast<T &>(form(slot(typeid(T))));
  }
  /// The form, null if it isn't there.
  template <class T>
  T *loaded() {
    return static_cast<T *>(slot(typeid(T)).form.data());
  }

  /// Calls `visit` with each form that is there.
  template <class Visit>
  void forEachLoaded(Visit visit) {
    for (const Slot &slot : m_slots)
      if (slot.form)
        visit(*slot.form);
  }

  /// Every form that is there takes the theme's colours. One that isn't takes them when it is made.
  void UpdateColors();

  /// Closes all forms. Each goes with the next turn of the event loop, and can be addressed anew.
  void unload();

private:
  /// A row with the form of the moment.
  struct Slot {
    Row row;
    QPointer<FormWindow> form;
  };

  Slot &slot(std::type_index type);
  static FormWindow &form(Slot &slot);

  std::vector<Slot> m_slots;
};

} // namespace vnb
