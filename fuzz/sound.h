// SPDX-License-Identifier: MIT
/// What holds of every document, whatever was read or done.
#pragma once

#include "document/modDeclares.h"
#include "fuzz/require.h"
#include "lanfile/lanfile.h"

namespace vnb {

inline void requireSoundDocument() {
  require(!Systems.empty() && !Links.empty() && !Subnets.empty() && !DataItems.empty(),
          "every array has element 0");
  require(!LoadingFile, "the reading has ended");
  require(lSelectedItem >= -1 && lSelectedItem <= UBound(Systems), "what is selected exists");
  require(Systems[0].lType == SystemType::Router && Systems[0].sDataX.isEmpty(),
          "system 0 is the router");
  for (const SystemRec &system : Systems) {
    require(system.lSecur >= 1 && system.lSecur <= 3, "levels go from 1 to 3");
    require(system.lType >= 0 && system.lType <= SystemType::Last, "types are of the table");
  }
  require(Links[0].lTo == 0 && Subnets[0].lFor == 0 && DataItems[0].sText.isEmpty(),
          "the dummies are untouched");
}

/// What the next reading takes off: a header line without its usual key can leave one blank in
/// front of the value.
inline void trimHeader() {
  for (QString *text : {&LanHeader.NAME, &LanHeader.COMPANY, &LanHeader.IP})
    *text = SuperTrim(*text);
}

} // namespace vnb
