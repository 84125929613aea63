#include "platform/form.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <algorithm>

#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

// Twips.
constexpr int kSideMargin = 360;
constexpr int kEndMargin = 300;
constexpr int kButtonHeight = 480;
constexpr int kButtonGap = 150;

class EnterPress : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* button, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (!isEnter(key) || key.isAutoRepeat()) return false;
    static_cast<QPushButton*>(button)->click();
    return true;
  }
};

}  // namespace

QLabel* makeFailureLine() {
  auto* line = new QLabel;
  line->setObjectName(u"failure"_s);
  line->setStyleSheet(u"color: #a01010; font-weight: bold"_s);
  line->setTextFormat(Qt::PlainText);
  line->setWordWrap(true);
  line->hide();
  return line;
}

void showFailure(QLabel& line, const QString& text) {
  line.setText(text);
  line.setVisible(!text.isEmpty());
  if (text.isEmpty()) return;
  QWidget& window = *line.window();
  QLayout& layout = *window.layout();
  layout.activate();
  const int needed = layout.totalHeightForWidth(window.width());
  window.resize(window.width(), std::max(window.height(), needed));
}

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

QPushButton* makeLink() {
  auto* link = new QPushButton;
  link->setFlat(true);
  link->setCursor(Qt::PointingHandCursor);
  link->setStyleSheet(
      QStringLiteral("color: #0b57d0; text-decoration: underline; padding: 2px 6px"));
  pressOnEnter(*link);
  return link;
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

void pressOnEnter(QPushButton& button) {
  button.setAutoDefault(false);
  button.installEventFilter(new EnterPress(&button));
}

bool isEnter(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool isCommand(const QKeyEvent& key) {
  return key.modifiers().testFlag(Qt::ControlModifier) &&
         !key.modifiers().testFlag(Qt::AltModifier);
}

bool typesSharpS(QWidget& field, const QKeyEvent& key) {
  if (key.text() != QStringLiteral("ß")) return false;
  for (int i = 0; i < 2; ++i) {
    QKeyEvent s(QEvent::KeyPress, Qt::Key_S, Qt::NoModifier, QStringLiteral("s"));
    QCoreApplication::sendEvent(&field, &s);
  }
  return true;
}

}  // namespace calvora
