#include "platform/form.h"

#include <QBoxLayout>
#include <QPushButton>

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

QBoxLayout* makeButtonRow(std::initializer_list<QPushButton*> buttons) {
  auto* row = new QHBoxLayout;
  row->setSpacing(twips(kButtonGap));
  row->addStretch();
  for (QPushButton* button : buttons) row->addWidget(button);
  return row;
}

}  // namespace calvora
