// SPDX-License-Identifier: MIT
/// Themes: folders that restyle the whole program. Their file stands in docs/themes.md.
#pragma once

#include "appearance/editorview.h"
#include "appearance/globals.h"

#include <QString>

namespace vnb {

/// Full path of the theme.xml that was loaded last, also when that failed.
extern QString ThemeFile;
/// Name of the folder that it lies in.
extern QString ThemeName;

/// The folder that holds the themes: `themes` beside the executable.
QString themesFolder();
/// The theme.xml of a folder in it.
QString themePath(const QString &name);

/// Loads a theme by the name of its folder or the full path of its theme.xml: colours first, then
/// the forms, then the pictures. A colour that the theme leaves out stays, a picture goes back to
/// the built-in one. Raises what is wrong with the file or an image, and stops there; what was done
/// so far stands. A fault of the file itself changes nothing but ThemeFile and ThemeName.
void LoadTheme(const QString &sFileName, EditorView &view);

/// A colour of the form #RRGGBB. The first character isn't looked at, a pair counts as far as it
/// holds hexadecimal digits, and what is missing counts as 0.
Colour ParseColor(QStringView text);

} // namespace vnb
