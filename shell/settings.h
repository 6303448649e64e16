// SPDX-License-Identifier: MIT
/// The settings store: preferences that last from one run to the next.
#pragma once

#include "appearance/globals.h"

namespace vnb {

/// What the settings move and restyle in the main window. Positions are twips.
class SettingsView {
public:
  SettingsView() = default;
  SettingsView(const SettingsView &) = delete;
  SettingsView &operator=(const SettingsView &) = delete;
  virtual ~SettingsView() = default;

  /// Only called for a place that the store holds.
  virtual void setLeft(std::int32_t lLeft) = 0;
  virtual void setTop(std::int32_t lTop) = 0;
  virtual double Left() const = 0;
  virtual double Top() const = 0;
  /// Raises what is wrong with the theme.
  virtual void LoadTheme(const QString &sFileName) = 0;

  /// LoadSettings could not read all that the store may hold.
  bool settingsLeftOut = false;
};

/// Reads the store once, at start: VNB.ini in the user's configuration folder, a regular file of at
/// most 1 MiB. Where there is none, or it lacks a key, the standard counts. The theme is loaded
/// before the colours are read: the user's own win over its. Any error goes to the standard error
/// report; No leaves the remaining values as they are.
void LoadSettings(SettingsView &view);

/// Writes every key, once, at shutdown; keys of others stay. A store that can't be read or written
/// is reported and left alone; where LoadSettings could not read all of it, the user is asked
/// first.
void SaveSettings(const SettingsView &view);

/// Position in twips that stands for none: no screen reaches there.
inline constexpr std::int32_t noPosition = -1000000;

} // namespace vnb
