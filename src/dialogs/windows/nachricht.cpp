#include "dialogs/windows/nachricht.h"

#include <QKeyEvent>
#include <QRegularExpression>

#include "dialogs/windows/symbols.h"
#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// The text as a label breaks it: one line feed a line, and a place to break in every word, such as
/// a folder's path, that may be longer than the window is wide.
QString shownText(QString text) {
  static const QRegularExpression kLongWord(u"(\\S{60})"_s);
  return text.replace("\n\r"_L1, "\n"_L1).replace(kLongWord, u"\\1\u200b"_s);
}

}  // namespace

nachricht::nachricht(QWidget* parent)
    : QDialog(parent), Shape1(new QFrame(this)), Label6(new QLabel(this)) {
  Shape1->setObjectName(u"Shape1"_s);
  Label6->setObjectName(u"Label6"_s);
  Label6->setTextFormat(Qt::PlainText);
  Label6->setWordWrap(true);
  Label6->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  const std::array captions{u"OK"_s, u"Ja"_s, u"Nein"_s, u"abbrechen"_s, u"wiederholen"_s};
  for (int index = 1; index <= 5; ++index) {
    auto& button =
        Command1.add(index, new QPushButton(captions.at(static_cast<size_t>(index - 1)), this));
    button.hide();
    button.installEventFilter(this);
    connect(&button, &QPushButton::clicked, this, [this, index] { Command1_Click(index); });
    auto& picture = Image1.add(index, new Picture(symbolDrawing(static_cast<Symbol>(index)),
                                                  message_design::kSymbolSize, this));
    picture.move(twips(message_design::kSymbolLeft), twips(message_design::kSymbolTop));
    picture.hide();
  }
}

void nachricht::messein(const Message& message) {
  const auto measure = [this](const QString& text, int points) {
    QFont shown = font();
    if (points != 0) shown.setPointSize(points);
    Label6->setFont(shown);
    return Label6->fontMetrics().size(0, shownText(text)).width() * 1000 / twips(1000) + 1;
  };
  const MessageLayout layout = layoutMessage(message, measure);
  answer_ = message.closing.value_or(closeAnswer(layout));
  setWindowTitle(layout.title);
  Label6->setText(shownText(layout.text));
  for (const auto& [index, button] : Command1) button->setFont(Label6->font());
  colour(layout);
  place(layout);
  int enter = layout.buttons.front().index;
  for (const MessageLayout::PlacedButton& button : layout.buttons) {
    if (message.defaultButton.testFlag(buttonOf(button.index))) enter = button.index;
  }
  Command1(enter).setDefault(true);
  Command1(enter).setFocus();
}

void nachricht::place(const MessageLayout& layout) {
  Label6->setGeometry(twips(layout.textLeft), twips(layout.textTop),
                      twips(layout.width - layout.textLeft) - 2, twips(layout.textHeight));
  // A text that had to be broken into more lines than it has pushes the buttons down.
  const int overlap =
      Label6->y() + Label6->heightForWidth(Label6->width()) - twips(layout.buttonTop);
  const int extra = std::max(0, overlap);
  setFixedSize(twips(layout.width), twips(layout.height) + extra);
  Label6->setFixedHeight(std::max(Label6->height(), Label6->heightForWidth(Label6->width())));
  Shape1->setGeometry(twips(130), twips(260), twips(layout.width - 260),
                      twips(layout.height - 520) + extra);
  if (layout.symbol != Symbol::kNone) Image1(static_cast<int>(layout.symbol)).show();
  for (const auto& [index, left] : layout.buttons) {
    QPushButton& button = Command1(index);
    button.setGeometry(twips(left), twips(layout.buttonTop) + extra,
                       twips(message_design::kButtonWidth), twips(420));
    button.show();
  }
  const QPoint origin = parentWidget() == nullptr ? QPoint() : parentWidget()->window()->pos();
  move(origin + QPoint(twips(layout.left), twips(layout.top)));
}

void nachricht::colour(const MessageLayout& layout) {
  if (!layout.colours) {
    Shape1->setStyleSheet(u"border: 1px solid rgb(128, 128, 128);"_s);
    return;
  }
  const auto [window, text, button] = *layout.colours;
  const auto name = [](quint32 colour) { return QColor(colour).name(); };
  // The buttons' own text must be readable on whatever colour they are given.
  const QString buttonText = QColor(button).lightness() > 100 ? u"#000000"_s : u"#ffffff"_s;
  setStyleSheet(
      u"QDialog { background: %1; } QLabel { color: %2; background: transparent; }"
      "QPushButton { background: %3; color: %4; border: 1px solid #404040;"
      " border-radius: 3px; }"
      "QPushButton:focus { border: 3px solid #0b3d91; }"_s.arg(name(window), name(text),
                                                               name(button), buttonText));
  Shape1->setStyleSheet(u"border: 1px solid rgba(0, 0, 0, 110); border-radius: 4px;"_s);
}

void nachricht::Command1_Click(int index) {
  answer_ = buttonOf(index);
  accept();
}

bool nachricht::eventFilter(QObject* receiver, QEvent* event) {
  const bool repeated =
      event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->isAutoRepeat();
  return repeated || QDialog::eventFilter(receiver, event);
}

}  // namespace calvora
