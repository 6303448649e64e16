// SPDX-License-Identifier: MIT
#include "widgets/longmenu.h"

#include "runtime/at.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QStyleOptionMenuItem>
#include <QStyledItemDelegate>
#include <QWidgetAction>

#include <algorithm>

namespace vnb {
namespace {

/// Draws rows as the style draws the entries of `menu`.
class EntryDelegate : public QStyledItemDelegate {
public:
  EntryDelegate(const QMenu &menu, QObject *parent) : QStyledItemDelegate(parent), m_menu(menu) {}

  QSize sizeOf(const QString &text) const {
    const QStyleOptionMenuItem entry = entryOf(text);
    const QSize content(entry.fontMetrics.horizontalAdvance(text), entry.fontMetrics.height());
    return m_menu.style()->sizeFromContents(QStyle::CT_MenuItem, &entry, content, &m_menu);
  }

  QSize sizeHint(const QStyleOptionViewItem & /*option*/, const QModelIndex &index) const override {
    return sizeOf(index.data().toString());
  }

  void paint(QPainter *painter, const QStyleOptionViewItem &option,
             const QModelIndex &index) const override {
    QStyleOptionMenuItem entry = entryOf(index.data().toString());
    entry.rect = option.rect;
    entry.state.setFlag(QStyle::State_Selected, option.state.testFlag(QStyle::State_Selected));
    m_menu.style()->drawControl(QStyle::CE_MenuItem, &entry, painter, &m_menu);
  }

private:
  QStyleOptionMenuItem entryOf(const QString &text) const {
    QStyleOptionMenuItem entry;
    entry.initFrom(&m_menu);
    entry.state = QStyle::State_Enabled | QStyle::State_Active;
    entry.font = m_menu.font();
    entry.fontMetrics = QFontMetrics(entry.font);
    entry.text = text;
    return entry;
  }

  const QMenu &m_menu;
};

} // namespace

/// The picked row is the highlighted entry, which follows the pointer.
class LongMenu::Entries : public NumberList {
public:
  explicit Entries(LongMenu &menu)
      : NumberList(&menu), m_menu(menu), m_delegate(new EntryDelegate(menu, this)) {
    setItemDelegate(m_delegate);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    setAccessibleName(menu.title());
  }

  /// As wide as the longest text needs, as high as the screen allows.
  QSize sizeHint() const override {
    QString longest;
    for (const NumberRow &row : rows())
      if (row.length() > longest.size())
        longest = row.text();
    const QSize entry = m_delegate->sizeOf(longest);
    const int room = screen()->availableGeometry().height() - 4 * entry.height();
    const int fitting = std::max(1, room / entry.height());
    const int count = static_cast<int>(rows().size());
    const int bar = count > fitting ? verticalScrollBar()->sizeHint().width() : 0;
    return {entry.width() + bar, std::min(count, fitting) * entry.height()};
  }

  /// A key that the menu has got: windows of menus have no focus to give.
  void press(QKeyEvent *event) {
    const int last = static_cast<int>(rows().size()) - 1;
    const int end = event->key() == Qt::Key_Up ? 0 : last;
    const bool arrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (arrow && ListIndex() == end)
      setListIndex(last - end); // round and round, as in any menu
    else
      keyPressEvent(event);
  }

protected:
  /// Tells assistive technology, which a list without the focus doesn't.
  void currentChanged(const QModelIndex &current, const QModelIndex &previous) override {
    NumberList::currentChanged(current, previous);
    if (!current.isValid())
      return;
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(current.row());
    QAccessible::updateAccessibility(&event);
  }
  void mouseMoveEvent(QMouseEvent *event) override {
    if (const QModelIndex under = indexAt(event->position().toPoint()); under.isValid())
      selectionModel()->setCurrentIndex(under, QItemSelectionModel::ClearAndSelect);
  }
  void mousePressEvent(QMouseEvent *event) override { mouseMoveEvent(event); }
  void mouseReleaseEvent(QMouseEvent *event) override {
    if (const QModelIndex under = indexAt(event->position().toPoint()); under.isValid())
      m_menu.choose(under.row());
  }

private:
  LongMenu &m_menu;
  EntryDelegate *m_delegate;
};

LongMenu::LongMenu(const QString &title, QWidget *parent)
    : QMenu(title, parent), m_entries(new Entries(*this)) {
  auto *holder = new QWidgetAction(this);
  holder->setDefaultWidget(m_entries);
  addAction(holder);
  m_holder = holder;
  // It was opened by a key, which goes to its first entry.
  connect(holder, &QAction::hovered, m_entries, [this] {
    if (m_entries->ListIndex() < 0)
      m_entries->setListIndex(0);
  });
}

void LongMenu::keyPressEvent(QKeyEvent *event) {
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
  case Qt::Key_Space:
    if (m_entries->ListIndex() >= 0)
      choose(m_entries->ListIndex());
    break;
  case Qt::Key_Left:
  case Qt::Key_Right:
  case Qt::Key_Escape:
    QMenu::keyPressEvent(event);
    break;
  default:
    m_entries->press(event);
  }
}

void LongMenu::setRows(std::vector<NumberRow> rows) {
  m_entries->setRows(std::move(rows));
  m_holder->setData(m_holder->data().toInt() + 1); // the menu measures it anew
}

const std::vector<NumberRow> &LongMenu::rows() const {
  return m_entries->rows();
}

void LongMenu::choose(int row) {
  const NumberRow chosen = at(rows(), row);
  while (QWidget *popup = QApplication::activePopupWidget())
    popup->close();
  if (Click)
    Click(chosen);
}

} // namespace vnb
