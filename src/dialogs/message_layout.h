#pragma once

#include <QString>
#include <QtGlobal>
#include <functional>
#include <optional>
#include <vector>

#include "base/questions.h"

namespace calvora {

/// Everything about a message window that follows from its text and style. Lengths in twips.
struct MessageLayout {
  struct PlacedButton {
    int index;  ///< 1 "OK", 2 "Ja", 3 "Nein", 4 "abbrechen", 5 "wiederholen"
    int left;
  };
  /// The window's three colours; absent when the style is empty.
  struct Colours {
    quint32 window;
    quint32 text;
    quint32 button;
  };

  QString text;      ///< the caption of the text label, rebuilt where a line is too long
  QString title;     ///< with the blanks that end every caption
  int fontSize = 0;  ///< points; 0: the design's font
  Symbol symbol = Symbol::kNone;
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  int textLeft = 0;
  int textTop = 0;
  int textHeight = 0;
  int buttonTop = 0;
  std::vector<PlacedButton> buttons;
  std::optional<Colours> colours;
};

/// Widths and places of the window's design that the layout builds on, in twips.
namespace message_design {
inline constexpr int kButtonWidth = 1200;
inline constexpr int kSymbolLeft = 300;
inline constexpr int kSymbolTop = 650;
inline constexpr int kSymbolSize = 480;
inline constexpr int kTextLeft = 950;
inline constexpr int kTextRight = 250;  ///< from the window's right edge
inline constexpr int kWidest = 14000;   ///< beyond it, a measured line is broken
}  // namespace message_design

/// Measures a text, in twips, in a font of that size (points; 0: the design's).
using TextWidth = std::function<int(const QString& text, int fontSize)>;

/// Places a message. The window is at least as wide as its longest line counted in characters, and
/// wide enough for the text as measured, up to the widest, so that no line is cut. At most three
/// buttons fit the row: with more requested, runtime error 5.
MessageLayout layoutMessage(const Message& message, const TextWidth& measure = nullptr);

/// The button of an index, whose value is 2^(index − 1).
constexpr Button buttonOf(int index) {
  return static_cast<Button>(1 << (index - 1));
}

/// What closing the window without a button means: "abbrechen" where it is offered, else "Nein",
/// else the first button offered.
Button closeAnswer(const MessageLayout& layout);

}  // namespace calvora
