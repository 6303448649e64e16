// SPDX-License-Identifier: MIT
/// Menus of any number of entries.
#pragma once

#include "widgets/numberlist.h"

#include <QMenu>

namespace vnb {

/// A menu with a list in it that looks and acts as its entries. An entry of its own for each of
/// thousands takes seconds: each is searched for among all, measured and placed. Letters search.
class LongMenu : public QMenu {
public:
  LongMenu(const QString &title, QWidget *parent);

  /// Replaces all entries.
  void setRows(std::vector<NumberRow> rows);
  const std::vector<NumberRow> &rows() const;
  /// Closes all menus and runs Click for a row, as a click on it does.
  void choose(int row);

  /// An entry has been chosen; all menus are closed.
  std::function<void(const NumberRow &)> Click;

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;

private:
  class Entries;
  class EntryDelegate;

  Entries *m_entries;
  QAction *m_holder;
};

} // namespace vnb
