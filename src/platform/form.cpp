#include "platform/form.h"

#include <QBoxLayout>

#include "platform/enter_press.h"
#include "platform/twips.h"

namespace calvora {

namespace {

// Twips.
constexpr int kSideMargin = 360;
constexpr int kEndMargin = 300;
constexpr int kButtonHeight = 480;
constexpr int kButtonGap = 150;

}  // namespace

void setWindowMargins(QLayout& layout) {
  const int side = twips(kSideMargin);
  const int end = twips(kEndMargin);
  layout.setContentsMargins(side, end, side, end);
}

QPushButton* makeButton(const QString& caption, int width) {
  auto* button = new QPushButton(caption);
  button->setMinimumSize(twips(width), twips(kButtonHeight));
  return button;
}

void addButtons(ControlArray<QPushButton>& buttons, int width,
                std::initializer_list<std::pair<int, QString>> captions,
                const std::function<void(int)>& clicked) {
  for (const auto& [index, caption] : captions) {
    QPushButton& button = buttons.add(index, makeButton(caption, width));
    pressOnEnter(button);
    QObject::connect(&button, &QPushButton::clicked, [clicked, i = index] { clicked(i); });
  }
}

QBoxLayout* makeButtonRow(std::initializer_list<QPushButton*> buttons) {
  auto* row = new QHBoxLayout;
  row->setSpacing(twips(kButtonGap));
  row->addStretch();
  for (QPushButton* button : buttons) row->addWidget(button);
  return row;
}

}  // namespace calvora
