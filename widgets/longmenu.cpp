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

void closeMenus() {
  while (QWidget *popup = QApplication::activePopupWidget())
    popup->close();
}

} // namespace

/// Draws rows as the style draws the entries of `menu`.
class LongMenu::EntryDelegate : public QStyledItemDelegate {
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

  /// A list would else be several rows high at least.
  QSize minimumSizeHint() const override { return sizeHint(); }

  /// A key that the menu has got: windows of menus have no focus to give.
  using NumberList::keyPressEvent;

  /// Goes to the next row or the one before, round and round, as in any menu.
  void step(int by) {
    const int count = static_cast<int>(rows().size());
    if (count == 0)
      return;
    const int from = ListIndex() < 0 && by < 0 ? 0 : ListIndex();
    setListIndex((from + by + count) % count);
  }

  /// Highlights the row at `point` of the viewport, none where there is none.
  void highlight(QPoint point) {
    const QModelIndex under = viewport()->rect().contains(point) ? indexAt(point) : QModelIndex();
    selectionModel()->setCurrentIndex(under, QItemSelectionModel::ClearAndSelect);
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
  void mouseMoveEvent(QMouseEvent *event) override { highlight(event->position().toPoint()); }
  void mousePressEvent(QMouseEvent *event) override { mouseMoveEvent(event); }
  void mouseReleaseEvent(QMouseEvent *event) override {
    mouseMoveEvent(event);
    if (ListIndex() >= 0)
      m_menu.choose(ListIndex());
    else
      closeMenus();
  }
  void wheelEvent(QWheelEvent *event) override {
    NumberList::wheelEvent(event);
    highlight(event->position().toPoint());
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
  const bool plain = (event->modifiers() & (Qt::AltModifier | Qt::ControlModifier)) == 0;
  const QString text = event->text();
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (m_entries->ListIndex() >= 0)
      choose(m_entries->ListIndex());
    break;
  case Qt::Key_Down:
  case Qt::Key_Tab:
    m_entries->step(1);
    break;
  case Qt::Key_Up:
  case Qt::Key_Backtab:
    m_entries->step(-1);
    break;
  case Qt::Key_Home:
  case Qt::Key_End:
  case Qt::Key_PageUp:
  case Qt::Key_PageDown:
    m_entries->keyPressEvent(event);
    break;
  default:
    if (plain && !text.isEmpty() && text.front().isLetterOrNumber())
      m_entries->keyPressEvent(event); // searches
    else
      QMenu::keyPressEvent(event);
  }
}

void LongMenu::mouseMoveEvent(QMouseEvent *event) {
  m_entries->highlight(QPoint(-1, -1)); // the pointer isn't in the list
  QMenu::mouseMoveEvent(event);
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
  closeMenus();
  if (Click)
    Click(chosen);
}

} // namespace vnb
