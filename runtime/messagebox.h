// SPDX-License-Identifier: MIT
/// Message boxes behind one replaceable function, so that tests script the answers and never block.
#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace vnb {

enum class Answer : std::uint8_t { Ok, Yes, No };

/// What a modal message box shows.
struct MessageBox {
  enum class Icon : std::uint8_t { Critical, Question, Exclamation };
  enum class Buttons : std::uint8_t { Ok, YesNo };

  QString title, text;
  Icon icon = Icon::Critical;
  Buttons buttons = Buttons::Ok;
};

/// Shows a box and waits for the answer: Ok for an Ok box, Yes or No for a YesNo box. Until a
/// window system's function is put here, the text goes to the standard error stream and the answer
/// is Ok or No.
extern std::function<Answer(const MessageBox &)> showMessageBox;

} // namespace vnb
