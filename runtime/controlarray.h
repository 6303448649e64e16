// SPDX-License-Identifier: MIT
/// Control arrays: numbered view objects that come and go at the top end.
#pragma once

#include "runtime/error.h"

#include <cstdint>
#include <limits>
#include <vector>

namespace vnb {

/// Elements 0 to UBound, contiguous. Element 0 stands from the start and is the template of all
/// others. Numbers go up to 32767. A reference to an element holds until the next Load or Unload.
template <class T>
class ControlArray {
public:
  /// `design` becomes element 0.
  explicit ControlArray(T design = {}) : m_elements(1, std::move(design)) {}

  /// Number of the top element, 0 at least.
  std::int32_t UBound() const { return static_cast<std::int32_t>(m_elements.size()) - 1; }

  /// Raises 6 beyond 16 bits and 340 for an element that doesn't exist.
  T &operator()(std::int32_t index) { return m_elements[checked(index)]; }
  const T &operator()(std::int32_t index) const { return m_elements[checked(index)]; }

  /// Adds element `index` as a copy of element 0. Raises 6 beyond 16 bits, 360 for an element that
  /// is there, 340 when elements below it are missing. Returns the new element.
  T &Load(std::int32_t index) {
    if (beyond16Bits(index))
      throw RuntimeError(Fault::Overflow);
    if (index <= UBound())
      throw RuntimeError(Fault::ObjectAlreadyLoaded);
    if (index > UBound() + 1)
      throw RuntimeError(Fault::ControlArrayElement);
    return m_elements.emplace_back(T(m_elements.front()));
  }

  /// Takes away the top element. Raises 362 for element 0 and 340 for any other but the top one.
  void Unload(std::int32_t index) {
    if (index == 0)
      throw RuntimeError(Fault::CannotUnload);
    if (index != UBound())
      throw RuntimeError(Fault::ControlArrayElement);
    m_elements.pop_back();
  }

  /// Takes away all elements but element 0, and their memory.
  void unloadAll() {
    m_elements.resize(1);
    m_elements.shrink_to_fit();
  }

  /// All elements, element 0 included.
  auto begin() { return m_elements.begin(); }
  auto end() { return m_elements.end(); }
  auto begin() const { return m_elements.begin(); }
  auto end() const { return m_elements.end(); }

private:
  static bool beyond16Bits(std::int32_t index) {
    return index > std::numeric_limits<std::int16_t>::max() ||
           index < std::numeric_limits<std::int16_t>::min();
  }

  /// 6 comes first: it tells a number that no array has from one that this array lacks.
  std::size_t checked(std::int32_t index) const {
    if (beyond16Bits(index))
      throw RuntimeError(Fault::Overflow);
    if (index < 0 || index > UBound())
      throw RuntimeError(Fault::ControlArrayElement);
    return static_cast<std::size_t>(index);
  }

  std::vector<T> m_elements;
};

} // namespace vnb
