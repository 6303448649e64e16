// SPDX-License-Identifier: MIT
/// The pictures of buttons and devices: read once for each theme and shared by all who show them.
#pragma once

#include "document/systemtype.h"
#include "widgets/picturebutton.h"
#include "widgets/pictures.h"

#include <QPixmap>
#include <QString>

#include <array>
#include <map>
#include <span>

namespace vnb {

/// The three pictures of a button.
struct ButtonImageSet {
  QPixmap Off;  // at rest
  QPixmap Over; // kept, but shown nowhere
  QPixmap Down; // while pressed
};

/// The pictures of the button with this Tag.
ButtonImageSet &ButtonImages(const QString &tag);

/// `button` shows its pictures from now on: Off, and Down while it is pressed.
void showImages(PictureButton &button);

/// Picture of a device type, opaque; that of type 0 is empty for good, and so are all but the
/// router's, which is built in, until the first load. Raises 9 for a code above 16 or below 0. The
/// next load changes what the reference refers to.
const QPixmap &DeviceImages(std::int32_t lType);

/// How a device is shown.
struct DeviceLook {
  QPixmap picture;
  QSize size{48, 32}; // pixels: of the picture, or of the blank area where there is none
};

/// The looks of all device types, by code. A loop over devices makes one and asks it for each.
class DeviceLooks {
public:
  DeviceLooks();

  /// A code outside the table looks as type 0.
  const DeviceLook &operator()(std::int32_t lType) const {
    return m_looks[lType >= 0 && lType <= SystemType::Last ? static_cast<std::size_t>(lType) : 0];
  }

private:
  std::span<const DeviceLook> m_looks;
};

/// All pictures, to go back to after a load that fails.
struct Pictures {
  std::map<QString, ButtonImageSet> buttons; // by Tag
  std::array<DeviceLook, SystemType::Last + 1> devices;
  PictureFiles files; // of the theme that is being loaded
};
Pictures &allPictures();

/// `path` as it has to stand in the lists of paths below: a "|" of its own must not part it.
QString listedPath(const QString &path);

/// Fills `set` from `files`, the paths of Off, Over and Down with "|" between them; the built-in
/// bitmaps named by the button's `tag` stand in for empty paths. Raises ownError unless there are
/// three fields, and what LoadPicture raises.
void LoadButtonImages(ButtonImageSet &set, const QString &tag, const QString &files);

/// Fills DeviceImages but 0 from a path for each in the same form, and raises the same; what is
/// clear in a picture gets BackgroundColor. Stops at the first picture that can't be loaded; those
/// of lower types are then done.
void LoadDeviceImages(const QString &files);

/// Shows Off if `up`, Down otherwise; the picture of the design while none has been loaded.
void DoImage(PictureButton &button, const ButtonImageSet &set, bool up);

} // namespace vnb
