// SPDX-License-Identifier: MIT
#include "runtime/report.h"

#include "runtime/messagebox.h"

namespace vnb {

bool Report::ask(const RuntimeError &error) const {
  const QString text = QStringLiteral("Error %1 occurred in %2.%3!\n")
                           .arg(QString::number(error.number()), QString::fromLatin1(m_module),
                                QString::fromLatin1(m_procedure)) +
                       error.description() + QStringLiteral("\n\nResume next statement?");
  return showMessageBox({.title = QStringLiteral("Error!"),
                         .text = text,
                         .icon = MessageBox::Icon::Critical,
                         .buttons = MessageBox::Buttons::YesNo}) == Answer::Yes;
}

} // namespace vnb
