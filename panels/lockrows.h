// SPDX-License-Identifier: MIT
/// The rows of the lock boxes: the numbers of locks, which follow the devices that they name.
#pragma once

#include <QAbstractListModel>

#include <cstdint>
#include <optional>
#include <vector>

namespace vnb {

/// One list for all boxes of one kind. It is filled seldom, and read when it is dropped down.
class LockRows : public QAbstractListModel {
public:
  /// Whether the first row is "None".
  enum class First : std::uint8_t { Lock, None };

  explicit LockRows(First first) : m_none(first == First::None ? 1 : 0) {}

  /// Replaces all rows by these locks, ascending.
  void refill(const std::vector<std::int32_t> &locks);

  /// System `gone` was removed, and higher numbers close up. Its own row goes on showing its
  /// number until the next refill, and stands for nothing.
  void closeGap(std::int32_t gone);

  /// The lock of a row, -1 for "None". Nothing for a lock that has been removed.
  std::optional<std::int32_t> lockAt(int row) const;

  /// The last row whose value is `lNumber`, -1 if there is none. The value of "None" is 0.
  int rowOf(std::int32_t lNumber) const;

  int rowCount(const QModelIndex &parent) const override;
  QVariant data(const QModelIndex &index, int role) const override;

private:
  /// One that has been removed keeps the number that its row shows.
  struct Lock {
    std::int32_t number;
    bool removed = false;
  };

  std::vector<Lock> m_locks;
  int m_none; // rows above the locks
};

} // namespace vnb
