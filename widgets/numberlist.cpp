// SPDX-License-Identifier: MIT
#include "widgets/numberlist.h"

#include "runtime/at.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStringBuilder>

#include <algorithm>
#include <utility>

namespace vnb {

QString NumberRow::text() const {
  return shown ? name % u' ' % QString::number(*shown) : name;
}

qsizetype NumberRow::length() const {
  qsizetype digits = 0;
  for (std::int32_t rest = shown.value_or(0); rest > 0; rest /= 10)
    ++digits;
  return name.size() + digits;
}

/// Gives a row's text when it is painted: a list of thousands is filled at once.
class NumberList::Model : public QAbstractListModel {
public:
  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex &parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows.size());
  }

  QVariant data(const QModelIndex &index, int role) const override {
    // Ctrl+C asks for the current row, also where there is none.
    return index.isValid() && role == Qt::DisplayRole ? at(rows, index.row()).text() : QVariant();
  }

  void reset(std::vector<NumberRow> newRows) {
    beginResetModel();
    rows = std::move(newRows);
    endResetModel();
  }

  void append(NumberRow row) {
    const int end = static_cast<int>(rows.size());
    beginInsertRows({}, end, end);
    rows.push_back(std::move(row));
    endInsertRows();
  }

  void remove(int row) {
    beginRemoveRows({}, row, row);
    rows.erase(rows.begin() + row);
    endRemoveRows();
  }

  std::vector<NumberRow> rows;
};

NumberList::NumberList(QWidget *parent) : QListView(parent), m_model(new Model(this)) {
  setModel(m_model);
  setUniformItemSizes(true);
  setEditTriggers(NoEditTriggers);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &NumberList::raiseClick);
}

void NumberList::raiseClick() {
  if (ListIndex() >= 0 && Click)
    Click();
}

void NumberList::setRows(std::vector<NumberRow> rows) {
  m_model->reset(std::move(rows));
}

void NumberList::addRow(NumberRow row) {
  m_model->append(std::move(row));
}

void NumberList::removeRow(int row) {
  // Not the selection alone: where a current row goes, the view selects its neighbour, which would
  // be a click.
  selectionModel()->clear();
  m_model->remove(row);
  // The keys go on where it stood.
  const int next = std::min(row, static_cast<int>(rows().size()) - 1);
  selectionModel()->setCurrentIndex(m_model->index(next), QItemSelectionModel::NoUpdate);
}

const std::vector<NumberRow> &NumberList::rows() const {
  return m_model->rows;
}

void NumberList::renumber(const std::function<void(std::int32_t &)> &change) {
  for (NumberRow &row : m_model->rows)
    change(row.number);
}

int NumberList::ListIndex() const {
  const QModelIndexList selected = selectionModel()->selectedIndexes();
  return selected.isEmpty() ? -1 : selected.constFirst().row();
}

const NumberRow *NumberList::picked() const {
  const int row = ListIndex();
  return row < 0 ? nullptr : &at(rows(), row);
}

void NumberList::setListIndex(int row) {
  if (row < 0)
    clearSelection();
  else
    setCurrentIndex(m_model->index(row));
}

// A row that is picked again is a pick, too, though no selection changes.

void NumberList::mousePressEvent(QMouseEvent *event) {
  const int before = ListIndex();
  QListView::mousePressEvent(event);
  if (indexAt(event->position().toPoint()).row() == before)
    raiseClick();
}

/// Without a picked row an arrow picks the one that it would start from.
void NumberList::keyPressEvent(QKeyEvent *event) {
  const bool arrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
  if (event->key() == Qt::Key_Space && ListIndex() == currentIndex().row())
    raiseClick();
  else if (arrow && ListIndex() < 0 && !rows().empty())
    setListIndex(std::max(0, currentIndex().row()));
  else
    QListView::keyPressEvent(event);
}

QItemSelectionModel::SelectionFlags NumberList::selectionCommand(const QModelIndex &index,
                                                                 const QEvent *event) const {
  const auto command = QListView::selectionCommand(index, event);
  if (!index.isValid())
    return QItemSelectionModel::NoUpdate;
  return command & (QItemSelectionModel::Toggle | QItemSelectionModel::Deselect)
             ? QItemSelectionModel::ClearAndSelect
             : command;
}

} // namespace vnb
