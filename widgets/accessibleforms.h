// SPDX-License-Identifier: MIT
/// What assistive technology reads of the forms and their picture controls, which Qt takes for
/// plain areas.
#pragma once

namespace vnb {

/// Makes forms known as windows and dialogs, picture buttons as buttons that can be pressed, and
/// picture boxes as pictures.
void installFormAccess();

} // namespace vnb
