// SPDX-License-Identifier: MIT
#include "runtime/messagebox.h"

#include <cstdio>

namespace vnb {

Answer printMessage(const MessageBox &box) {
  std::fprintf(stderr, "%s %s\n", qUtf8Printable(box.title), qUtf8Printable(box.text));
  return box.buttons == MessageBox::Buttons::Ok ? Answer::Ok : Answer::No;
}

std::function<Answer(const MessageBox &)> showMessageBox = printMessage;

} // namespace vnb
