// SPDX-License-Identifier: MIT
/// How devices and links are called where people read of them.
#pragma once

#include "document/modDeclares.h"

namespace vnb {

/// "Main server": the type's displayed name; an unknown device if there is none of that number.
QString friendlyName(std::int32_t lIndex);

/// "Main server 3": displayed name and number; an unknown device if there is none of that number.
QString deviceName(std::int32_t lIndex);

/// "Link to Hub 3" as seen from system `lIndex`, "Link from Hub 3" where the link ends there. A
/// link of a device to itself is one to it.
QString linkName(const LinkRec &link, std::int32_t lIndex);

/// "Link to Hub" and 3: the parts of such a name.
QString linkKind(const LinkRec &link, std::int32_t lIndex);
std::int32_t otherEnd(const LinkRec &link, std::int32_t lIndex);

/// "link to Hub 3": such a name amid a sentence. REQUIRES: `name` isn't empty.
QString inSentence(QString name);

} // namespace vnb
