// SPDX-License-Identifier: MIT
/// The common dialogs with one object's face; its FileName is the program's current file name.
#pragma once

#include "appearance/globals.h"

#include <QString>

class QWidget;

namespace vnb {

struct FileDialog;

/// Properties stay from one dialog to the next.
class CdlgEx {
public:
  /// Bits of `flags`, some of which mean two things: set all of them before each dialog. Only
  /// StartOnColour and OverwritePrompt change anything. Custom colours are always shown, names
  /// always long, and no box offers reading only.
  static constexpr std::int32_t StartOnColour = 0x1;
  static constexpr std::int32_t ShowCustomColours = 0x2;
  static constexpr std::int32_t OverwritePrompt = 0x2;
  static constexpr std::int32_t HideReadOnly = 0x4;
  static constexpr std::int32_t LongNames = 0x200000;

  /// Window that a dialog lies over, or null. Set it each time: the last one may be gone.
  QWidget *hOwner = nullptr;
  std::int32_t flags = 0;
  QString DialogTitle;
  /// Path given to a file dialog, and the path that it returns.
  QString FileName;
  /// Bare name of the path that was returned.
  QString FileTitle;
  /// Pairs of description and pattern, all separated by the bar character.
  QString Filter;
  /// The filter that is on at first, from 1; 0 is the first, too.
  std::int32_t FilterIndex = 0;
  /// Folder that a file dialog starts in while FileName is empty; empty for the executable's if
  /// that can be written, else the user's documents, else their home.
  QString InitDir;
  /// Colour that the colour dialog starts on and returns.
  Colour RGBResult = 0;

  /// Run a dialog. False, and no property changed, when the user cancels.
  bool ShowOpen();
  bool ShowSave();
  bool ShowColor();

private:
  bool run(const FileDialog &dialog);
};

/// The one instance, which lives to the end of the process.
extern CdlgEx Cdlg;

} // namespace vnb
