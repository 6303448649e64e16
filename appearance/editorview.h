// SPDX-License-Identifier: MIT
/// The one way up: what the rooms below have to tell the editor.
#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace vnb {

/// The main window stands behind it, handed down to whoever calls it. What a tool or a test doesn't
/// need of it does nothing.
class EditorView {
public:
  EditorView() = default;
  EditorView(const EditorView &) = delete;
  EditorView &operator=(const EditorView &) = delete;
  virtual ~EditorView() = default;

  /// LinkColor is new: all lines and the rubber band take it, a picked line too.
  virtual void linkColorChanged() {}
  /// The colours are new: every form takes them, whether it shows or not.
  virtual void UpdateColors() {}
  /// ButtonImages gets those of this Tag; `files` as LoadButtonImages takes them. Raises what that
  /// raises. Shown by buttonImagesChanged.
  virtual void loadButtonImages(const QString & /*tag*/, const QString & /*files*/) {}
  /// ButtonImages is new: every button shows its own.
  virtual void buttonImagesChanged() {}
  /// DeviceImages is new: every sprite takes its picture.
  virtual void deviceImagesChanged() {}
  /// Colours wipe the grid, and the colour of a picked line. What this gives brings back those that
  /// are there now: for a switch that fails.
  virtual std::function<void()> keepDrawn() {
    return [] {};
  }

  /// lSelectedItem is a new device, or has been selected again: the panels are filled for it.
  virtual void deviceSelected() {}
  /// No device is selected any more.
  virtual void showNoDevice() {}
  /// System `lIndex` has been removed, and higher numbers have closed up. Lines still lie as they
  /// did.
  virtual void systemRemoved(std::int32_t /*lIndex*/) {}
  /// The LAN is a new, empty one, and is drawn as such.
  virtual void lanCleared() {}
  /// There are other locks than the lock boxes list.
  virtual void PopulateLockBoxes() {}
};

} // namespace vnb
