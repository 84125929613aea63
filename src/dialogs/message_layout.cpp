#include "dialogs/message_layout.h"

#include <QStringList>
#include <algorithm>
#include <array>

#include "base/runtime_error.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

using Rgb = quint32;

constexpr Rgb rgb(Rgb red, Rgb green, Rgb blue) {
  return red << 16 | green << 8 | blue;
}

constexpr std::array<Rgb, 4> kPalette{rgb(0, 0, 255), rgb(0, 192, 0), rgb(0, 255, 255),
                                      rgb(255, 255, 0)};
// The text colour knows only the first two palette colours, under two numbers each.
constexpr std::array<Rgb, 4> kTextPalette{kPalette[0], kPalette[1], kPalette[0], kPalette[1]};
constexpr Rgb kWhite = rgb(255, 255, 255);
constexpr Rgb kBlack = 0;

/// The palette colour of a digit from 1 to 4, else the digit as a colour value of its own, whose
/// lowest byte is red.
Rgb colourOf(int digit, const std::array<Rgb, 4>& palette) {
  if (digit >= 1 && digit <= 4) return palette.at(static_cast<size_t>(digit - 1));
  return rgb(static_cast<Rgb>(digit), 0, 0);
}

Rgb buttonColourOf(int digit) {
  if (digit >= 1 && digit <= 4) return kPalette.at(static_cast<size_t>(digit - 1));
  return digit == 0 ? kWhite : kBlack;
}

std::optional<MessageLayout::Colours> coloursOf(const QString& style) {
  if (style.isEmpty()) return std::nullopt;
  const auto digit = [&](qsizetype i) { return i < style.size() ? style[i].digitValue() : 0; };
  const auto known = [&](qsizetype i) { return std::max(0, digit(i)); };
  return MessageLayout::Colours{colourOf(known(0), kPalette), colourOf(known(1), kTextPalette),
                                buttonColourOf(known(2))};
}

struct Lines {
  QString text;
  int count;
  qsizetype longest;
};

/// Counts the lines, one more than there are, and measures the distances between line feeds. What
/// follows the last line feed is not measured; a text that ends in a line break loses its last
/// character and counts one more.
Lines analyse(const QString& message) {
  Lines lines{message, 1, 1};
  const QStringList parts = message.split('\n'_L1);
  lines.count += static_cast<int>(parts.size());
  for (const QString& part : parts.first(parts.size() - 1)) {
    lines.longest = std::max(lines.longest, part.size() + 1);
  }
  const bool endsInBreak = parts.size() > 1 && (parts.last().isEmpty() || parts.last() == "\r"_L1);
  if (endsInBreak) {
    lines.text.chop(1);
    ++lines.count;
  }
  return lines;
}

/// Breaks a text whose lines are too long for any window.
void shorten(Lines& lines) {
  constexpr qsizetype kTooLong = 150;
  constexpr qsizetype kPart = 120;
  if (lines.longest <= kTooLong) return;
  lines.longest = 100;
  const QString rest =
      lines.text.size() > 2 * kPart ? u". . . "_s + lines.text.right(kPart) : lines.text.mid(kPart);
  lines.text = lines.text.left(kPart) + u"\n\r"_s + rest;
}

/// The marked buttons in the order of their index; their places follow once the width is known.
std::vector<MessageLayout::PlacedButton> requestedButtons(int sum) {
  std::vector<MessageLayout::PlacedButton> buttons;
  for (int index = 5; index >= 1; --index) {
    const int value = static_cast<int>(buttonOf(index));
    if (sum < value) continue;
    sum -= value;
    buttons.insert(buttons.begin(), {index, 0});
  }
  return buttons;
}

void placeButtons(MessageLayout& layout) {
  constexpr int kWidth = message_design::kButtonWidth;
  const int count = static_cast<int>(layout.buttons.size());
  if (count == 1) {
    layout.buttons.front().left = (layout.width - kWidth) / 2;
    return;
  }
  int left = 700;
  int gap = (layout.width - kWidth * count - 2 * left) / (count - 1);
  if (gap < 1) {
    left = 400;
    gap = (layout.width - kWidth * count - 2 * left) / (count - 1);
  }
  for (MessageLayout::PlacedButton& button : layout.buttons) {
    button.left = left;
    left += kWidth + gap;
  }
}

/// Few lines stand beside the middle of the symbol, many start high enough to end above the
/// buttons.
int textTop(int lineCount) {
  constexpr int kHighest = 450;
  constexpr int kMiddle = message_design::kSymbolTop + message_design::kSymbolSize / 2;
  return std::max(kHighest, kMiddle - 125 * lineCount);
}

}  // namespace

MessageLayout layoutMessage(const Message& message, const TextWidth& measure) {
  MessageLayout layout;
  const qsizetype bar = message.style.indexOf('|'_L1);
  if (bar >= 0) layout.fontSize = message.style.mid(bar + 1).toInt();
  layout.colours = coloursOf(bar >= 0 ? message.style.left(bar) : message.style);
  layout.symbol = message.symbol < Symbol::kNone ? Symbol::kWarning : message.symbol;
  layout.title = message.title + u"      "_s;

  Lines lines = analyse(message.text);
  shorten(lines);
  layout.text = lines.text;
  layout.textHeight = 250 * lines.count;

  layout.buttons = requestedButtons(std::max(message.buttons.toInt(), 1));
  const int buttonCount = static_cast<int>(layout.buttons.size());
  if (buttonCount > 3) throw RuntimeError(ErrorNumber::kInvalidCall, u"more than three buttons"_s);
  layout.width = std::max({1000 + message_design::kButtonWidth * buttonCount, 4000,
                           800 + 105 * static_cast<int>(lines.longest)});
  layout.height = std::max(1500 + 200 * lines.count, 2700);

  layout.textLeft = message_design::kTextLeft - (layout.symbol == Symbol::kNone ? 700 : 0);
  int needed = 0;
  if (measure) {
    const int text = measure(layout.text, layout.fontSize);
    needed = std::min(layout.textLeft + text + message_design::kTextRight, message_design::kWidest);
  }
  layout.width = std::max(layout.width, needed);

  layout.left = message.left;
  layout.top = message.top;
  if (layout.left == 0) {
    layout.left = (15200 - layout.width) / 2;
    layout.top = (10700 - layout.height) / 2;
  }
  if (layout.symbol == Symbol::kNone) {
    // Narrower, but never so narrow that the text is cut or the buttons cover one another.
    const int row = 800 + message_design::kButtonWidth * buttonCount;
    layout.width = std::max({layout.width - 2000, row, needed});
  }
  layout.textTop = textTop(lines.count - 1);
  layout.buttonTop = layout.height - 1000;
  placeButtons(layout);
  return layout;
}

Button closeAnswer(const MessageLayout& layout) {
  for (const auto button : {Button::kAbbrechen, Button::kNein}) {
    const auto isThat = [&](const MessageLayout::PlacedButton& b) {
      return buttonOf(b.index) == button;
    };
    if (std::ranges::any_of(layout.buttons, isThat)) return button;
  }
  return buttonOf(layout.buttons.front().index);
}

}  // namespace calvora
