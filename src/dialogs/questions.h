#pragma once

#include <QString>
#include <initializer_list>

namespace calvora {

/// Values of the message dialog's buttons. A caller asks for their sum and reads one of them back.
namespace button {
inline constexpr int kOk = 1;
inline constexpr int kJa = 2;
inline constexpr int kNein = 4;
inline constexpr int kAbbrechen = 8;
inline constexpr int kWiederholen = 16;
}  // namespace button

/// The value of a cancelled question or save, passed between procedures.
inline const QString kAbbruch = QStringLiteral("abbruch");

/// One question or notice, as the message dialog shows it.
struct Message {
  QString text;  ///< lines separated by line feed and carriage return, in this order
  int buttons = button::kOk;
  QString title;
  int symbol = 0;  ///< 1 attention, 2 warning, 3 stop, 4 done, 5 question; 0 none
  int left = 500;  ///< twips; 0: centred
  int top = 500;   ///< twips
  QString style = QStringLiteral("210|10");
};

/// Joins the lines of a catalogue message with line feed and carriage return. Empty lines at the
/// end vanish, those between texts stay.
QString joinedLines(std::initializer_list<QString> lines);

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
