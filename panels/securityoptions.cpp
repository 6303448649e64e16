// SPDX-License-Identifier: MIT
#include "panels/securityoptions.h"

#include "appearance/globals.h"
#include "runtime/error.h"

namespace vnb {
namespace {

constexpr int step = 345; // twips

} // namespace

SecurityOptions::SecurityOptions(QWidget &parent, Place first) : QObject(&parent) {
  for (int i = 0; i < static_cast<int>(SecureColor.size()); ++i) {
    auto *option = add<PushOption>(parent, QStringLiteral("optSecur%1").arg(i));
    option->setText(QString::number(i + 1));
    option->setAccessibleName(QStringLiteral("Security level %1").arg(i + 1));
    place(*option, {first.left + i * step, first.top, first.width, first.height});
    m_group.addButton(option, i);
  }
  m_group.Click = [this](int Index) {
    if (Click)
      Click(Index);
  };
}

void SecurityOptions::mark(std::int32_t lSecur) {
  QAbstractButton *option = m_group.button(lSecur - 1);
  if (option == nullptr) {
    // Else the level of the link before would stand for this one's.
    m_group.clear();
    throw RuntimeError(Fault::ControlArrayElement);
  }
  option->setChecked(true);
}

void SecurityOptions::UpdateColors() {
  for (std::size_t i = 0; i < SecureColor.size(); ++i) {
    QAbstractButton &option = *m_group.button(static_cast<int>(i));
    QPalette colours = option.palette();
    colours.setColor(QPalette::Button, toQColor(SecureColor[i]));
    colours.setColor(QPalette::ButtonText, toQColor(SecureColor[i] ^ 0xFFFFFF));
    option.setPalette(colours);
  }
}

} // namespace vnb
