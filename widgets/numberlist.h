// SPDX-License-Identifier: MIT
/// Lists whose rows stand for numbered things, filled in one go however many there are.
#pragma once

#include <QListView>

#include <functional>
#include <optional>
#include <vector>

namespace vnb {

/// A row: what it shows, and the device or link that it stands for. The text is put together when
/// it is shown: few of thousands are.
struct NumberRow {
  QString name; // shared with other rows
  std::int32_t number = 0;
  std::optional<std::int32_t> shown = {}; // the number behind the name, as of filling

  QString text() const;
  /// Letters of the text.
  qsizetype length() const;
};

/// A list of one column and a single selection, in the order of filling.
class NumberList : public QListView {
public:
  explicit NumberList(QWidget *parent);

  /// Replaces all rows; none is selected.
  void setRows(std::vector<NumberRow> rows);
  void addRow(NumberRow row);
  /// Takes out a row; none is selected afterwards.
  void removeRow(int row);
  const std::vector<NumberRow> &rows() const;
  /// Changes the numbers of the rows, not their texts.
  void renumber(const std::function<void(std::int32_t &)> &change);

  /// The selected row, -1 for none.
  int ListIndex() const;
  void setListIndex(int row);
  /// It, null for none.
  const NumberRow *picked() const;

  /// A row has become selected, by the user or by the program, or the user has picked it again.
  std::function<void()> Click;

protected:
  void mousePressEvent(QMouseEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  /// The user can pick another row, not none.
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                       const QEvent *event) const override;

private:
  class Model;

  void raiseClick();

  Model *m_model;
};

} // namespace vnb
