// Any text as a typed number: the first byte chooses the codes, the rest is the text.
#include "entry/werteingabe.h"

#include <QRegularExpression>
#include <cmath>

#include "entry/decimal.h"
#include "entry/fixed_point.h"
#include "entry/key_filter.h"
#include "fuzz_support.h"

using namespace calvora;

namespace {

const auto kNumber = QRegularExpression(QStringLiteral("^<?-?[0-9]+(,[0-9]+| )?$"));
const auto kDisplay = QRegularExpression(QStringLiteral("^-?[0-9]*(,[0-9]+)?(E[+-][0-9]{2,})?$"));

/// Requires of a display text that it looks like one, says the number to the digits it shows, and
/// never says minus zero.
void requireShows(double number, const QString& text, int kind) {
  const QString what = QStringLiteral("%1 as kind %2: %3").arg(number, 0, 'g', 17).arg(kind) + text;
  fuzz::require(kDisplay.match(text).hasMatch(), "a display text is a number", what);
  const qsizetype comma = text.indexOf(u',');
  const qsizetype exponent = text.indexOf(u'E');
  const qsizetype end = exponent < 0 ? text.size() : exponent;
  const qsizetype decimals = comma < 0 ? 0 : end - comma - 1;
  double unit = std::pow(10.0, -static_cast<double>(decimals));
  if (exponent >= 0) unit *= std::pow(10.0, text.mid(exponent + 1).toDouble());
  const double error = std::abs(fuzz::shown(text) - number);
  fuzz::require(error <= unit * 0.5 + std::abs(number) * 1e-14, "a display text is right", what);
  fuzz::require(fuzz::shown(text) != 0 || !text.startsWith(u'-'), "zero has no minus", what);
}

void checkDisplays(const Werteingabe& entry, double number) {
  for (const int kind : {1, 2, 3, 4, 5, 9, 11, 12}) {
    NumberCell cell = number;
    QString text;
    int used = kind;
    entry.formz(cell, text, used);
    const bool vanishes = std::abs(number) < 5e-10 && used != kind::kScientific;
    if (text.isEmpty()) {
      fuzz::require(vanishes && number != 0, "only a tiny number vanishes", QString::number(kind));
      continue;
    }
    requireShows(number, text, kind);
    if (used > kind::kThreeDecimals) continue;
    QString again = text;
    entry.wertformat(again, used);
    requireShows(fuzz::shown(text), again, kind);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  static fuzz::AnyQuestions questions;
  static const Werteingabe entry(questions);
  const int codeBefore = data[0] % 2 == 0 ? check::kValid : check::kBelowLimit;
  const QString typed = QString::fromUtf8(fuzz::bytes(data + 1, size - 1));

  QString kept = filteredNumber(typed, data[0] % 4 < 2);
  fuzz::require(filteredNumber(kept, true) == kept, "what was filtered passes", kept);

  QString text = typed;
  int code = codeBefore;
  entry.wertprüf(text, code);
  fuzz::require(code == check::kValid || code == check::kEmpty || code == check::kInvalid,
                "wertprüf knows three codes", QString::number(code));
  fuzz::require(code != check::kInvalid || text == typed, "an invalid text is left alone", text);
  fuzz::require(code != check::kEmpty || text.isEmpty(), "an empty text is empty", text);

  QString limited = typed;
  QString maximum;
  int limitedCode = codeBefore;
  entry.werteingabe(limited, QStringLiteral("0,5"), maximum, limitedCode);
  const bool accepted = limitedCode == check::kValid || limitedCode == check::kBelowLimit;
  fuzz::require(!accepted || !limited.contains(u','), "a checked number has a point", limited);

  if (code != check::kValid) return 0;
  fuzz::require(kNumber.match(text).hasMatch(), "a valid text is a number", text);
  QString again = text;
  int codeAgain = codeBefore;
  entry.wertprüf(again, codeAgain);
  fuzz::require(codeAgain == check::kValid && again == text.trimmed(), "valid stays valid", again);

  NumberCell cell;
  entry.strzahl(text, cell);
  const double number = numberOf(cell);
  const double expected = fuzz::shown(QString(text).remove(u'<').trimmed());
  fuzz::require(number == expected, "a text gives its number", text);
  if (std::isfinite(number)) checkDisplays(entry, number);
  return 0;
}
