// SPDX-License-Identifier: MIT
#include "panels/lockrows.h"

#include "runtime/at.h"

#include <algorithm>

namespace vnb {

void LockRows::refill(const std::vector<std::int32_t> &locks) {
  beginResetModel();
  m_locks.clear();
  m_locks.reserve(locks.size());
  for (const std::int32_t lock : locks)
    m_locks.push_back({.number = lock});
  endResetModel();
}

void LockRows::closeGap(std::int32_t gone) {
  for (Lock &lock : m_locks) {
    if (lock.removed || lock.number < gone)
      continue;
    lock.removed = lock.number == gone;
    lock.number -= lock.removed ? 0 : 1;
  }
  // One signal for all rows: what a view doesn't show it doesn't ask for.
  if (!m_locks.empty())
    Q_EMIT dataChanged(index(m_none), index(rowCount({}) - 1));
}

std::optional<std::int32_t> LockRows::lockAt(int row) const {
  if (row < m_none)
    return -1;
  const Lock &lock = at(m_locks, row - m_none);
  return lock.removed ? std::nullopt : std::optional(lock.number);
}

int LockRows::rowOf(std::int32_t lNumber) const {
  const auto found = std::find_if(m_locks.rbegin(), m_locks.rend(), [&](const Lock &lock) {
    return !lock.removed && lock.number == lNumber;
  });
  if (found != m_locks.rend())
    return m_none + static_cast<int>(m_locks.rend() - found) - 1;
  return m_none > 0 && lNumber == 0 ? 0 : -1;
}

int LockRows::rowCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : m_none + static_cast<int>(m_locks.size());
}

QVariant LockRows::data(const QModelIndex &index, int role) const {
  if (!index.isValid() || role != Qt::DisplayRole)
    return {};
  if (index.row() < m_none)
    return QStringLiteral("None");
  return QString::number(at(m_locks, index.row() - m_none).number);
}

} // namespace vnb
