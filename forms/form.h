// SPDX-License-Identifier: MIT
/// Forms: windows with one default instance each, made hidden when first addressed and destroyed by
/// their close box.
#pragma once

#include <QPointer>
#include <QWidget>

class QEventLoop;

namespace vnb {

/// The forms' own font, or the desktop's family where that isn't installed; the size is that of the
/// design, whatever the desktop's is.
QFont formFont(qreal pointSize);

/// What all forms but the main window have in common. A form T derives from it, has its design
/// state after construction, and a member `void Form_Load()`. None of its controls takes a letter
/// with Alt or Meta for text: such keys are the main window's.
class FormWindow : public QWidget {
public:
  /// `caption` is the title, `client` the size of the client area in twips.
  FormWindow(const char *name, const char *caption, QSize client);

  /// Shows the form above `owner`, which stays usable. Without a task bar entry.
  void showOwned(QWidget *owner);
  /// Shows the form and returns when it is closed; other windows are inert meanwhile.
  void showModal(QWidget *owner);

protected:
  /// Refused while a box or a dialog is up: it may be one of this form's handlers that asks.
  void closeEvent(QCloseEvent *event) override;
  /// Escape closes the form as its close box does; Enter presses the button with the focus.
  void keyPressEvent(QKeyEvent *event) override;

private:
  template <class T>
  friend class Form;

  /// Ends the form: it takes no input any more, not even what is queued, and goes with the next
  /// turn of the event loop.
  void retire();

  void (*m_release)() = nullptr; // lets go of the default instance
  QEventLoop *m_modalLoop = nullptr;
};

/// Sets a control's place, in twips, within its parent. A text that is longer than its room in the
/// font at hand gets more: to the right, or to the left if it is aligned to the right.
void place(QWidget &control, int left, int top, int width, int height);

/// The default instance of form `T`.
template <class T>
class Form {
public:
  /// The form, made and loaded now if it isn't there.
  static T &instance() {
    if (!pointer()) {
      pointer() = new T;
      pointer()->m_release = [] { pointer() = nullptr; };
      pointer()->Form_Load();
    }
    return *pointer();
  }

  static bool isLoaded() { return pointer(); }

  /// Closes the form. Does nothing if it isn't loaded.
  static void unload() {
    if (pointer())
      pointer()->retire();
  }

private:
  static QPointer<T> &pointer() {
    static QPointer<T> instance;
    return instance;
  }
};

} // namespace vnb
