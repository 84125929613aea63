#pragma once

#include <QString>
#include <initializer_list>
#include <span>

namespace calvora {

/// Values of the message dialog's buttons. A caller asks for their sum and reads one of them back.
namespace button {
inline constexpr int kOk = 1;
inline constexpr int kJa = 2;
inline constexpr int kNein = 4;
inline constexpr int kAbbrechen = 8;
inline constexpr int kWiederholen = 16;
}  // namespace button

/// Symbols of the message dialog.
namespace symbol {
inline constexpr int kNone = 0;
inline constexpr int kAttention = 1;
inline constexpr int kWarning = 2;
inline constexpr int kStop = 3;
inline constexpr int kDone = 4;
inline constexpr int kQuestion = 5;
}  // namespace symbol

/// The value of a cancelled question or save, passed between procedures.
inline const QString kAbbruch = QStringLiteral("abbruch");

/// One question or notice, as the message dialog shows it.
struct Message {
  QString text;  ///< lines separated by line feed and carriage return, in this order
  int buttons = button::kOk;
  QString title;
  int symbol = symbol::kNone;
  int left = 500;  ///< twips; 0: centred
  int top = 500;   ///< twips
  QString style = QStringLiteral("210|10");
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
CatalogueMessage catalogueEntry(int code, const QString& title, int buttons, int symbol,
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

  /// Shows the message, waits for the user and returns the value of the pressed button.
  virtual int ask(const Message& message) = 0;

  /// Reports a runtime error: its number as text, directly followed by the location text.
  virtual void reportError(const QString& numberAndLocation) = 0;
};

}  // namespace calvora
