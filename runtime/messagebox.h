// SPDX-License-Identifier: MIT
/// Message boxes behind one replaceable function, so that tests script the answers and never block.
#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace vnb {

/// What a box can be answered. Closing one that asks is a No.
enum class Answer : std::uint8_t { Ok, Yes, No };

/// What a modal message box shows.
struct MessageBox {
  enum class Icon : std::uint8_t { Critical, Question, Exclamation };
  enum class Buttons : std::uint8_t { Ok, YesNo };

  /// Plain text; a line feed begins a line.
  QString title, text;
  Icon icon = Icon::Critical;
  Buttons buttons = Buttons::Ok;
  /// What the Return key answers in a YesNo box.
  Answer preset = Answer::Yes;
};

/// Asks nobody: writes the text to the standard error stream. Returns Ok or No.
Answer printMessage(const MessageBox &box);

/// Shows a box and waits for the answer: Ok for an Ok box, Yes or No for a YesNo box. It is
/// printMessage until a window system's function is put here. While a window waits, events run:
/// timers, painting, an end of the program.
extern std::function<Answer(const MessageBox &)> showMessageBox;

} // namespace vnb
