// SPDX-License-Identifier: MIT
/// What assistive technology reads of the forms and their picture controls, which Qt takes for
/// plain areas.
#pragma once

namespace vnb {

/// Makes forms known as windows and dialogs, picture buttons as buttons that can be pressed, and
/// picture boxes as pictures. Once is enough, and any further call does nothing. It must come
/// before a control is described, so the constructors of these controls call it.
void installFormAccess();

} // namespace vnb
