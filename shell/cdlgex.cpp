// SPDX-License-Identifier: MIT
#include "shell/cdlgex.h"

#include "widgets/dialogs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace vnb {

CdlgEx Cdlg;

namespace {

/// A folder in which the user can keep files. That of a program in the user's own folder is one,
/// that of an installed program isn't.
QString ownFolder() {
  for (const QString &folder :
       {QCoreApplication::applicationDirPath(),
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)})
    if (QFileInfo(folder).isWritable())
      return folder;
  return QDir::homePath();
}

} // namespace

bool CdlgEx::ShowOpen() {
  return run({.kind = FileDialog::Kind::Open});
}

bool CdlgEx::ShowSave() {
  return run(
      {.kind = FileDialog::Kind::Save, .askBeforeOverwriting = (flags & OverwritePrompt) != 0});
}

bool CdlgEx::ShowColor() {
  const Colour start = (flags & StartOnColour) != 0 ? RGBResult : 0;
  const std::optional<QRgb> chosen =
      showColourDialog({.owner = hOwner, .start = toQColor(start).rgb()});
  if (!chosen)
    return false;
  RGBResult = toColour(QColor::fromRgb(*chosen));
  return true;
}

bool CdlgEx::run(const FileDialog &dialog) {
  FileDialog request = dialog;
  request.owner = hOwner;
  request.title = DialogTitle;
  request.filter = Filter;
  request.filterIndex = FilterIndex;
  request.folder = InitDir.isEmpty() ? ownFolder() : InitDir;
  request.fileName = FileName;
  const std::optional<QString> chosen = showFileDialog(request);
  if (!chosen)
    return false;
  FileName = *chosen;
  FileTitle = QFileInfo(FileName).fileName();
  return true;
}

} // namespace vnb
