// SPDX-License-Identifier: MIT
#include "widgets/accessibleforms.h"

#include "widgets/picturebox.h"
#include "widgets/picturebutton.h"

#include <QAccessibleWidget>

namespace vnb {
namespace {

/// A form is a window of its own or belongs to one, which shows when it is opened.
class FormAccessible : public QAccessibleWidget {
public:
  using QAccessibleWidget::QAccessibleWidget;

  QAccessible::Role role() const override {
    return widget()->windowType() == Qt::Window ? QAccessible::Window : QAccessible::Dialog;
  }
};

/// A picture button takes any mouse button and so is none of Qt's.
class ButtonAccessible : public QAccessibleWidget {
public:
  explicit ButtonAccessible(PictureButton &button)
      : QAccessibleWidget(&button, QAccessible::Button), m_button(button) {}

  QStringList actionNames() const override {
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
  }
  /// A press comes later, from the event loop: a dialog would keep the caller waiting.
  void doAction(const QString &action) override {
    if (action != pressAction())
      QAccessibleWidget::doAction(action);
    else
      QMetaObject::invokeMethod(
          &m_button,
          [button = &m_button] {
            if (button->isEnabled() && button->Click)
              button->Click();
          },
          Qt::QueuedConnection);
  }

private:
  PictureButton &m_button;
};

QAccessibleInterface *interfaceOf(const QString &className, QObject *object) {
  if (auto *button = dynamic_cast<PictureButton *>(object))
    return new ButtonAccessible(*button);
  if (auto *picture = dynamic_cast<PictureBox *>(object))
    return new QAccessibleWidget(picture, QAccessible::Graphic);
  auto *widget = qobject_cast<QWidget *>(object);
  // Forms have no meta-object, so Qt knows them by the name of their base.
  if (widget != nullptr && widget->isWindow() && className == u"QWidget")
    return new FormAccessible(widget);
  return nullptr;
}

} // namespace

void installFormAccess() {
  QAccessible::installFactory(interfaceOf);
}

} // namespace vnb
