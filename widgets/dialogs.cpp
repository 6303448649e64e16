// SPDX-License-Identifier: MIT
#include "widgets/dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QThread>

#include <algorithm>

namespace vnb {
namespace {

QMessageBox::Icon icon(MessageBox::Icon icon) {
  switch (icon) {
  case MessageBox::Icon::Critical:
    return QMessageBox::Critical;
  case MessageBox::Icon::Question:
    return QMessageBox::Question;
  case MessageBox::Icon::Exclamation:
    return QMessageBox::Warning;
  }
  return QMessageBox::NoIcon;
}

/// The window that had the keys. Between two boxes in a row none has them yet.
QWidget *asker() {
  static QPointer<QWidget> last;
  if (QWidget *active = QApplication::activeWindow())
    last = active;
  return last && last->isVisible() ? last : nullptr;
}

/// A dialog that its owner's end may take along; for whoever waits it was then cancelled. What the
/// user does between the answer and its getting there is dropped: it would change what the answer
/// is about. But not while a menu or box of the dialog's own is still open, which waits for it.
template <class Dialog>
class Shown : public QObject {
public:
  template <class... Arguments>
  explicit Shown(const Arguments &...arguments) : m_dialog(new Dialog(arguments...)) {
    const auto answered = [this] { qApp->installEventFilter(this); };
    connect(m_dialog, &QDialog::finished, this, answered);
    connect(m_dialog, &QObject::destroyed, this, answered);
  }
  ~Shown() override { delete m_dialog; }

  Dialog *operator->() const { return m_dialog; }

  bool eventFilter(QObject *target, QEvent *event) override {
    const bool innermost = QThread::currentThread()->loopLevel() <= m_level;
    return innermost && target->isWindowType() && event->isInputEvent();
  }

private:
  QPointer<Dialog> m_dialog;
  int m_level = QThread::currentThread()->loopLevel() + 1; // of the dialog's own loop
};

/// Tells a file's kind without reading it: some files keep a reader waiting for ever.
class Icons : public QFileIconProvider {
public:
  using QFileIconProvider::icon;
  QIcon icon(const QFileInfo &file) const override { return icon(file.isDir() ? Folder : File); }
  QString type(const QFileInfo &file) const override {
    return file.isDir() ? QStringLiteral("Folder") : QStringLiteral("File");
  }
};

/// Asks before a file is overwritten in our own box, behind which input is dropped as behind all.
class QtFileDialog : public QFileDialog {
public:
  using QFileDialog::QFileDialog;

  void accept() override {
    const bool ask = !testOption(DontConfirmOverwrite);
    // The desktop's own dialog, which this one only stands for, has asked already.
    if (ask && !testAttribute(Qt::WA_DontShowOnScreen) && !mayBeWritten())
      return;
    // So that Qt doesn't ask a second time; the next try is asked about again.
    setOption(DontConfirmOverwrite);
    QFileDialog::accept();
    setOption(DontConfirmOverwrite, !ask);
  }

private:
  bool mayBeWritten() const {
    const QFileInfo file(selectedFiles().value(0));
    // A folder is gone into, not replaced.
    if (!file.exists() || file.isDir())
      return true;
    return showMessageBox({.title = windowTitle(),
                           .text = QStringLiteral("%1 already exists.\nDo you want to replace it?")
                                       .arg(file.fileName()),
                           .icon = MessageBox::Icon::Exclamation,
                           .buttons = MessageBox::Buttons::YesNo,
                           .preset = Answer::No}) == Answer::Yes;
  }
};

std::optional<QString> showQtFileDialog(const FileDialog &request) {
  Icons icons;
  const Shown<QtFileDialog> dialog(request.owner, request.title, request.folder);
  dialog->setIconProvider(&icons);
  dialog->setAcceptMode(request.kind == FileDialog::Kind::Save ? QFileDialog::AcceptSave
                                                               : QFileDialog::AcceptOpen);
  dialog->setFileMode(request.kind == FileDialog::Kind::Save ? QFileDialog::AnyFile
                                                             : QFileDialog::ExistingFile);
  // The descriptions already say what they have to.
  dialog->setOption(QFileDialog::HideNameFilterDetails);
  dialog->setOption(QFileDialog::DontConfirmOverwrite, !request.askBeforeOverwriting);
  const QStringList filters = toQtFilter(request.filter).split(QStringLiteral(";;"));
  dialog->setNameFilters(filters);
  dialog->selectNameFilter(filters.value(std::max(request.filterIndex, 1) - 1));
  if (!request.fileName.isEmpty()) {
    const QFileInfo file(request.fileName);
    if (file.absoluteDir().exists()) // else where a dialog without a file starts
      dialog->setDirectory(file.absoluteDir());
    dialog->selectFile(file.fileName());
  }
  if (dialog->exec() != QDialog::Accepted || dialog->selectedFiles().isEmpty())
    return std::nullopt;
  return dialog->selectedFiles().constFirst();
}

std::optional<QRgb> showQtColourDialog(const ColourDialog &request) {
  // Qt would bring back those of the dialog before.
  for (int i = 0; i < QColorDialog::customCount(); ++i)
    QColorDialog::setCustomColor(i, Qt::white);
  const Shown<QColorDialog> dialog(QColor::fromRgb(request.start), request.owner);
  if (dialog->exec() != QDialog::Accepted)
    return std::nullopt;
  return dialog->selectedColor().rgb();
}

} // namespace

Answer showMessageWindow(const MessageBox &box) {
  const bool ask = box.buttons == MessageBox::Buttons::YesNo;
  const QPointer<QWidget> before = asker();
  const Shown<QMessageBox> window(icon(box.icon), box.title, box.text,
                                  ask ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok,
                                  before.data());
  if (ask && box.preset == Answer::No)
    window->setDefaultButton(QMessageBox::No);
  const int button = window->exec();
  // Window managers would give the keys to the main window, past the panel that asked.
  if (before)
    before->activateWindow();
  if (!ask)
    return Answer::Ok;
  return button == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

std::function<std::optional<QString>(const FileDialog &)> showFileDialog = showQtFileDialog;
std::function<std::optional<QRgb>(const ColourDialog &)> showColourDialog = showQtColourDialog;

QString toQtFilter(const QString &filter) {
  const QStringList parts = filter.split(u'|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString pattern = parts[i + 1] == u"*.*" ? QStringLiteral("*") : parts[i + 1];
    filters << parts[i] + QStringLiteral(" (") + pattern + u')';
  }
  return filters.join(QStringLiteral(";;"));
}

} // namespace vnb
