// SPDX-License-Identifier: MIT
/// The desktop's own boxes and dialogs, each behind one replaceable function, so that tests script
/// the answers and never block.
#pragma once

#include "runtime/messagebox.h"

#include <QColor>
#include <QString>

#include <functional>
#include <optional>

class QWidget;

namespace vnb {

/// Shows a message box over the window that had the keys last, which gets them back. Escape and the
/// close box answer No, or Ok where that is all there is. `main` puts it into showMessageBox.
Answer showMessageWindow(const MessageBox &box);

/// What a file dialog is asked to show.
struct FileDialog {
  enum class Kind : std::uint8_t { Open, Save };

  Kind kind = Kind::Open;
  QWidget *owner = nullptr;
  QString title = {};
  /// Pairs of description and pattern, all separated by the bar character.
  QString filter = {};
  /// Counted from 1; 0 stands for the first.
  int filterIndex = 0;
  /// Where it starts, unless the folder of `fileName` is there.
  QString folder = {};
  /// The path filled in at first; empty for none.
  QString fileName = {};
  bool askBeforeOverwriting = false;
};

/// The chosen path, or nothing when the user cancels, or when the dialog's owner ends.
extern std::function<std::optional<QString>(const FileDialog &)> showFileDialog;

/// What a colour dialog is asked to show. Its custom colours are white at each opening.
struct ColourDialog {
  QWidget *owner = nullptr;
  QRgb start = 0;
};

/// The chosen colour, or nothing as above.
extern std::function<std::optional<QRgb>(const ColourDialog &)> showColourDialog;

/// A bar-separated filter in the form that Qt takes. "*.*" becomes "*": Qt's own dialog would
/// otherwise hide names without a dot. A description without a pattern is left out.
QString toQtFilter(const QString &filter);

} // namespace vnb
