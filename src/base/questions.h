#pragma once

#include <QFlags>
#include <QString>
#include <initializer_list>
#include <optional>
#include <span>

namespace calvora {

/// The buttons of the message dialog. A caller asks for some of them and gets one back.
enum class Button {
  kOk = 1,
  kJa = 2,
  kNein = 4,
  kAbbrechen = 8,
  kWiederholen = 16,
};
Q_DECLARE_FLAGS(Buttons, Button)
Q_DECLARE_OPERATORS_FOR_FLAGS(Buttons)

/// The symbols of the message dialog.
enum class Symbol { kNone, kAttention, kWarning, kStop, kDone, kQuestion };

/// The value of a cancelled question or save, passed between procedures.
inline const QString kAbbruch = QStringLiteral("abbruch");

/// One question or notice, as the message dialog shows it.
struct Message {
  QString text;  ///< lines separated by line feed and carriage return, in this order
  Buttons buttons = Button::kOk;
  QString title;
  Symbol symbol = Symbol::kNone;
  int left = 500;  ///< twips; 0: centred
  int top = 500;   ///< twips
  QString style = QStringLiteral("210|10");
  Buttons defaultButton = {};  ///< that Enter presses; the first one if none is named

  /// The answer of closing the window without a button, where that is not to count as one of them.
  std::optional<Button> closing = {};
};

/// Joins the lines of a catalogue message with line feed and carriage return. Empty lines at the
/// end vanish, those between texts stay.
QString joinedLines(std::initializer_list<QString> lines);

/// One message of a catalogue; %1 in its text is where the caller's text goes.
struct CatalogueMessage {
  int code;
  Message message;
};

/// A message of these lines, joined.
CatalogueMessage catalogueEntry(int code, const QString& title, Buttons buttons, Symbol symbol,
                                std::initializer_list<QString> lines);

/// The catalogue's message of a code with the caller's text in it; an empty one for a code that it
/// does not have.
Message catalogueMessage(std::span<const CatalogueMessage> catalogue, int code,
                         const QString& extra);

/// The one door through which rules ask and tell. The program answers with its message dialog, a
/// test with a script.
class Questions {
 public:
  Questions() = default;
  Questions(const Questions&) = delete;
  Questions& operator=(const Questions&) = delete;
  virtual ~Questions() = default;

  /// Shows the message, waits for the user and returns the button that was pressed.
  virtual Button ask(const Message& message) = 0;

  /// Reports a runtime error: its number as text, directly followed by the location text.
  virtual void reportError(const QString& numberAndLocation) = 0;
};

}  // namespace calvora
