// Any text as a typed number: the first byte chooses what is allowed, the rest is the text.
#include "entry/number_text.h"

#include <QRegularExpression>
#include <cmath>

#include "entry/key_filter.h"
#include "fuzz_support.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

const auto kNumber = QRegularExpression(u"^<?-?[0-9]+(,[0-9]+| )?$"_s);
const auto kDisplay = QRegularExpression(u"^-?[0-9]*(,[0-9]+)?(E[+-][0-9]{2,})?$"_s);

/// Requires of a display text that it looks like one, says the number to the digits it shows, and
/// never says minus zero.
void requireShows(double number, const QString& text) {
  const QString what = QString::number(number, 'g', 17) + u" as "_s + text;
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

void checkDisplays(double number) {
  for (const int kind : {1, 2, 3, 4, 5, 9, 11, 12}) {
    const auto format = static_cast<Format>(kind);
    const QString text = numberText(number, format);
    if (text.isEmpty()) {
      const bool vanishes = std::abs(number) < 5e-10 && number != 0;
      fuzz::require(vanishes, "only a tiny number vanishes", QString::number(kind));
      continue;
    }
    requireShows(number, text);
    if (format > Format::kThreeDecimals) continue;
    requireShows(fuzz::shown(text), reformatted(text, format));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const bool belowAllowed = data[0] % 2 != 0;
  const QString typed = QString::fromUtf8(fuzz::bytes(data + 1, size - 1));

  for (const QString& number : pastedNumbers(typed)) {
    fuzz::require(isNumberText(number), "what is pasted is a number", number);
  }
  const QString kept = filteredText(typed);
  fuzz::require(filteredText(kept) == kept, "what was filtered passes", kept);

  QString limited = typed;
  QString maximum;
  const auto found = checkLimits(limited, u"0,5"_s, maximum, belowAllowed);
  const bool accepted = found == Check::kValid || found == Check::kBelowLimit;
  fuzz::require(!accepted || !limited.contains(u','), "a checked number has a point", limited);

  QString text = typed;
  const auto result = checkTyped(text, belowAllowed);
  fuzz::require(result != Check::kInvalid || text == typed, "an invalid text is left alone", text);
  fuzz::require(result != Check::kEmpty || text.isEmpty(), "an empty text is empty", text);
  if (result != Check::kValid) return 0;
  fuzz::require(kNumber.match(text).hasMatch(), "a valid text is a number", text);
  QString again = text;
  const bool stays = checkTyped(again, belowAllowed) == Check::kValid && again == text.trimmed();
  fuzz::require(stays, "valid stays valid", again);

  const double number = numberIn(text);
  const double expected = fuzz::shown(QString(text).remove(u'<').trimmed());
  fuzz::require(number == expected, "a text gives its number", text);
  if (std::isfinite(number)) checkDisplays(number);
  return 0;
}
