#include "plausi/uncertainty.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>

#include "entry/decimal.h"
#include "entry/number_text.h"
#include "model/fields.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// One row of the setting: field:absolute/percent, the numbers with decimal comma.
const auto kRow = QRegularExpression(
    u"^([0-9]{1,2}):([0-9]{1,6}(?:,[0-9]{1,6})?)/"
    "([0-9]{1,6}(?:,[0-9]{1,6})?)$"_s);

}  // namespace

double Uncertainty::of(double value) const {
  return std::hypot(absolute, percent / 100 * value);
}

std::optional<double> uncertaintyIn(const QString& typed) {
  if (!isNumberText(typed)) return {};
  const double number = readNumber(QString(typed).replace(','_L1, '.'_L1));
  if (number < 0 || number > kLargestUncertainty) return {};
  return number;
}

const Uncertainties& defaultUncertainties() {
  // What careful work in the field reaches: a calibrated electrode, titrations of 100 ml from a
  // burette or dropper bottle, test kits for the ions. Kb8,2 loses carbon dioxide on the way.
  static const Uncertainties kDefaults{
      {feld::kLeitfähigkeit, 1, 2}, {feld::kPh, 0.1, 0},    {feld::kTemperatur, 0.5, 0},
      {feld::kKs82, 0.05, 3},       {feld::kKs43, 0.05, 2}, {feld::kKb82, 0.05, 10},
      {feld::kGesamthärte, 0.2, 2}, {feld::kCalcium, 1, 3}, {feld::kMagnesium, 1, 3},
      {feld::kChlorid, 1, 5},
  };
  return kDefaults;
}

QString settingOf(const Uncertainties& uncertainties) {
  if (uncertainties == defaultUncertainties()) return {};
  QStringList rows;
  for (const Uncertainty& row : uncertainties) {
    rows += u"%1:%2/%3"_s.arg(QString::number(row.field), Decimal(row.absolute).fixedText(6),
                              Decimal(row.percent).fixedText(6));
  }
  return rows.join(u'|');
}

Uncertainties uncertaintiesOf(const QString& setting) {
  Uncertainties uncertainties = defaultUncertainties();
  for (const QString& row : setting.split(u'|')) {
    const QRegularExpressionMatch match = kRow.match(row);
    if (!match.hasMatch()) continue;
    const auto found =
        std::ranges::find(uncertainties, match.captured(1).toInt(), &Uncertainty::field);
    if (found == uncertainties.end()) continue;
    found->absolute = numberIn(match.captured(2));
    found->percent = numberIn(match.captured(3));
  }
  return uncertainties;
}

}  // namespace calvora
