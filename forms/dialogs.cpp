// SPDX-License-Identifier: MIT
#include "forms/dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>

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

/// Tells a file's kind without reading it: some files keep a reader waiting for ever.
class Icons : public QFileIconProvider {
public:
  using QFileIconProvider::icon;
  QIcon icon(const QFileInfo &file) const override { return icon(file.isDir() ? Folder : File); }
  QString type(const QFileInfo &file) const override {
    return file.isDir() ? QStringLiteral("Folder") : QStringLiteral("File");
  }
};

/// The folder of the current file, or what is left of the way to it.
QDir nearestFolder(const QFileInfo &file) {
  QDir folder = file.absoluteDir();
  while (!folder.exists() && !folder.isRoot())
    folder = QFileInfo(folder.path()).absoluteDir();
  return folder;
}

std::optional<QString> showQtFileDialog(const FileDialog &request) {
  Icons icons;
  QFileDialog dialog(request.owner, request.title, request.folder);
  dialog.setIconProvider(&icons);
  dialog.setAcceptMode(request.kind == FileDialog::Kind::Save ? QFileDialog::AcceptSave
                                                              : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.kind == FileDialog::Kind::Save ? QFileDialog::AnyFile
                                                            : QFileDialog::ExistingFile);
  // The descriptions already say what they have to.
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.askBeforeOverwriting);
  const QStringList filters = toQtFilter(request.filter).split(QStringLiteral(";;"));
  dialog.setNameFilters(filters);
  dialog.selectNameFilter(filters.value(std::max(request.filterIndex, 1) - 1));
  if (!request.fileName.isEmpty()) {
    const QFileInfo file(request.fileName);
    dialog.setDirectory(nearestFolder(file));
    dialog.selectFile(file.fileName());
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return std::nullopt;
  return dialog.selectedFiles().constFirst();
}

std::optional<QRgb> showQtColourDialog(const ColourDialog &request) {
  for (int i = 0; i < QColorDialog::customCount(); ++i)
    QColorDialog::setCustomColor(i, Qt::white);
  const QColor chosen = QColorDialog::getColor(QColor::fromRgb(request.start), request.owner);
  return chosen.isValid() ? std::optional(chosen.rgb()) : std::nullopt;
}

} // namespace

Answer showMessageWindow(const MessageBox &box) {
  const bool ask = box.buttons == MessageBox::Buttons::YesNo;
  const QPointer<QWidget> before = asker();
  QMessageBox window(icon(box.icon), box.title, box.text,
                     ask ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, before);
  // Error descriptions and device texts are not HTML.
  window.setTextFormat(Qt::PlainText);
  const int button = window.exec();
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
