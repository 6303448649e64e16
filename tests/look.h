// SPDX-License-Identifier: MIT
/// Pictures and colours for tests that need no theme.
#pragma once

#include "appearance/globals.h"
#include "appearance/images.h"
#include "document/modDeclares.h"

namespace vnb::test {

/// The built-in pictures, and colours that differ from each other.
struct Look {
  Look() {
    LoadDeviceImages(QString(SystemType::Last - 1, u'|'));
    SelectedColor = 0xFFFFFF;
    LinkColor = 0xE48257;
    LinkSelColor = 0x0000FF;
    LockColor = 0x00FFFF;
    SubnetColor = 0x008000;
    SubnetSelColor = 0x00FF00;
  }
};

} // namespace vnb::test
