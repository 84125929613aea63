#include "dialogs/message_layout.h"

#include <QStringList>
#include <algorithm>
#include <array>

#include "base/runtime_error.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<quint32, 4> kPalette{0x0000ff, 0x00c000, 0x00ffff, 0xffff00};
// The text colour knows only the first two palette colours, under two numbers each.
constexpr std::array<quint32, 4> kTextPalette{kPalette[0], kPalette[1], kPalette[0], kPalette[1]};

/// The palette colour of a digit from 1 to 4, else the colour given for it.
quint32 colourOf(int digit, const std::array<quint32, 4>& palette, quint32 other) {
  return digit >= 1 && digit <= 4 ? palette.at(static_cast<size_t>(digit - 1)) : other;
}

/// A window or text digit beyond the palette is a colour value whose lowest byte is red; a button
/// is then black, and white for 0.
std::optional<MessageLayout::Colours> coloursOf(const QString& style) {
  if (style.isEmpty()) return std::nullopt;
  const auto digit = [&](qsizetype i) {
    return i < style.size() ? std::max(0, style[i].digitValue()) : 0;
  };
  const auto ownColour = [&](qsizetype i) { return static_cast<quint32>(digit(i)) << 16; };
  return MessageLayout::Colours{colourOf(digit(0), kPalette, ownColour(0)),
                                colourOf(digit(1), kTextPalette, ownColour(1)),
                                colourOf(digit(2), kPalette, digit(2) == 0 ? 0xffffff : 0)};
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
  const auto gapBeside = [&](int margin) {
    return (layout.width - kWidth * count - 2 * margin) / (count - 1);
  };
  int left = gapBeside(700) < 1 ? 400 : 700;
  const int step = kWidth + gapBeside(left);
  for (MessageLayout::PlacedButton& button : layout.buttons) {
    button.left = left;
    left += step;
  }
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
  // Few lines stand beside the middle of the symbol, many start high enough to end above the
  // buttons.
  constexpr int kMiddle = message_design::kSymbolTop + message_design::kSymbolSize / 2;
  layout.textTop = std::max(450, kMiddle - 125 * (lines.count - 1));
  layout.buttonTop = layout.height - 1000;
  placeButtons(layout);
  return layout;
}

Button closeAnswer(const MessageLayout& layout) {
  const auto offers = [&](Button button) {
    return std::ranges::any_of(
        layout.buttons, [&](const auto& placed) { return buttonOf(placed.index) == button; });
  };
  if (offers(Button::kAbbrechen)) return Button::kAbbrechen;
  return offers(Button::kNein) ? Button::kNein : buttonOf(layout.buttons.front().index);
}

}  // namespace calvora
