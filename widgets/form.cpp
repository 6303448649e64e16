// SPDX-License-Identifier: MIT
#include "widgets/form.h"

#include "runtime/twips.h"
#include "widgets/accessibleforms.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace vnb {

QFont formFont(qreal pointSize) {
  QFont font = QGuiApplication::font();
  font.setFamilies(QStringList(QStringLiteral("Dungeon")) + font.families());
  font.setPointSizeF(pointSize);
  return font;
}

namespace {

/// Keeps letters with Alt or Meta from the controls of forms. AltGr is neither of these.
class CommandKeys : public QObject {
public:
  using QObject::QObject;

  bool eventFilter(QObject *object, QEvent *event) override {
    if (event->type() != QEvent::KeyPress || !object->isWidgetType())
      return false;
    const auto &key = *static_cast<QKeyEvent *>(event);
    const bool command = (key.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) != 0;
    if (!command || key.text().isEmpty() || !key.text()[0].isPrint() ||
        dynamic_cast<FormWindow *>(static_cast<QWidget *>(object)->window()) == nullptr)
      return false;
    event->ignore();
    return true;
  }
};

} // namespace

FormWindow::FormWindow(const char *name, const char *caption, QSize client) {
  installFormAccess();
  setObjectName(QString::fromLatin1(name));
  setWindowTitle(QString::fromLatin1(caption));
  setFont(formFont(8.25));
  setFixedSize(pixels(client.width()), pixels(client.height()));
  // One for all forms, and another for the next application object.
  static QPointer<QObject> commands;
  if (!commands)
    qApp->installEventFilter(commands = new CommandKeys(qApp));
}

void FormWindow::showOwned(QWidget *owner) {
  if (parentWidget() != owner)
    setParent(owner, Qt::Tool | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  show();
  raise();
  activateWindow();
}

void FormWindow::showModal(QWidget *owner) {
  setParent(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  setWindowModality(Qt::ApplicationModal);
  if (owner != nullptr) {
    move(owner->frameGeometry().center() - rect().center());
  } else if (const QWidget *opener = QApplication::activeWindow()) {
    // Nobody's, but still no entry of its own in the task bar.
    winId();
    windowHandle()->setTransientParent(opener->windowHandle());
  }
  QEventLoop loop;
  m_modalLoop = &loop;
  show();
  loop.exec();
}

void FormWindow::closeEvent(QCloseEvent *event) {
  const QWidget *modal = QApplication::activeModalWidget();
  event->setAccepted(modal == nullptr || modal == this);
  if (event->isAccepted())
    retire();
}

void FormWindow::retire() {
  hide();
  if (m_retired)
    m_retired();
  if (m_modalLoop != nullptr)
    m_modalLoop->quit();
  // A handler of one of its own controls may be what closes it.
  deleteLater();
}

void FormWindow::keyPressEvent(QKeyEvent *event) {
  const int key = event->key();
  // Enter turns no check box or option: the space bar does.
  const bool enter = (key == Qt::Key_Return || key == Qt::Key_Enter) && !event->isAutoRepeat();
  auto *button = qobject_cast<QAbstractButton *>(focusWidget());
  if (key == Qt::Key_Escape)
    close();
  else if (enter && button != nullptr && !button->isCheckable())
    button->click();
  else
    QWidget::keyPressEvent(event);
}

} // namespace vnb
