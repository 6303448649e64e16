// SPDX-License-Identifier: MIT
/// The words of the about box, apart from the form that shows them.
#pragma once

#include <QString>

namespace vnb {

/// Short name of the group that tests the program: the caption of the second button.
inline constexpr char testersCaption[] = "Knots";

/// Text of a page: 0 tells of the program, 1 of its testers, 2 of flying. Lines end with a carriage
/// return and a line feed, the last one with nothing; empty for any other page.
QString aboutText(int page);

} // namespace vnb
