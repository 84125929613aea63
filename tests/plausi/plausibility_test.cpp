#include "plausi/plausibility.h"

#include <QTest>
#include <cmath>
#include <random>

#include "chem/subcalc.h"
#include "entry/decimal.h"
#include "model/fields.h"
#include "support/consistency.h"
#include "support/scripted_questions.h"
#include "support/tables.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

/// A record with only typed fields, written as index=value.
AnalysisRecord typed(const QString& fields) {
  AnalysisRecord record;
  for (const QString& field : fields.split(' ', Qt::SkipEmptyParts)) {
    const int index = field.section('=', 0, 0).toInt();
    record.value[index] = FixedPoint::fromDouble(field.section('=', 1).toDouble());
    record.text[index] = field.section('=', 1);
  }
  return record;
}

AnalysisRecord computed(AnalysisRecord record) {
  NarrowTexts narrow;
  ScriptedQuestions questions;
  const int noField = 0;
  subcalc steps(record, noField, narrow, questions);
  steps.rechenlauf();
  return record;
}

QStringList linesOf(const Plausibility& check) {
  QStringList lines{check.summary()};
  for (const Comparison& row : check.rows) lines += cellsOf(row).join('|');
  for (const PhMark& mark : check.marks) {
    lines += u"%1 %2 %3"_s.arg(mark.name).arg(mark.ph).arg(mark.uncertainty);
  }
  return lines;
}

/// Any water, from sensible to absurd, as typing or a file may bring it.
AnalysisRecord anyRecord(std::mt19937& random) {
  AnalysisRecord record;
  std::uniform_real_distribution<double> share(0, 1);
  for (const int field : typedFields()) {
    if (share(random) < 0.25) continue;
    const FieldRange& range = fieldOf(field).range;
    const double least = std::max(0.0, range.minimum.toDouble());
    const double highest = range.maximum.toDouble();
    double value = least + (highest - least) * std::pow(share(random), 3);
    if (share(random) < 0.03) value = share(random) < 0.5 ? -value : 1e9 * value;
    record.value[field] = FixedPoint::fromDouble(value);
    record.text[field] = u"x"_s;
  }
  return record;
}

const QString kTap = u"1=420 2=7.5 3=10 5=2.5 6=0.25 23=60 24=10 25=20 "_s;

}  // namespace

class PlausibilityTest : public QObject {
  Q_OBJECT

 private slots:
  // Name, typed fields, group and row in it, verdict, what the note says.
  void eachComparisonJudges_data() {
    addRows(
        uR"(
      1
      agrees            | 2=7.5 3=10 5=2.5 6=0.25 | 1.1 | stimmig |
      approximation     | 2=7.5 3=10 5=2.5 6=0.25 | 1.2 | stimmig |
      second            | 2=7.5 3=10 5=2.5 6=0.25 | 1.3 | stimmig |
      a little high     | 2=7.6 3=10 5=2.5 6=0.25 | 1.3 | prüfen | vor der pH-Messung
      too low           | 2=7 3=10 5=2.5 6=0.25 | 1.1 | Widerspruch | Kohlendioxid entwichen
      taken up          | 2=10 3=20 4=0.3 5=2.4 | 1.3 | Widerspruch | aus der Luft
      other bases       | 2=9 3=20 4=0.9 5=2.4  | 1.3 | Widerspruch | Amine
      only simple is off | 2=9.7 3=55 4=0.9 5=2.4 1=420 25=15 | 1.1 | Widerspruch | über der zweiten
      caustic           | 2=10 3=25 4=0.9 5=2.4 | 1.2 | nicht prüfbar | nur bis pH 9,6
      no pH             | 3=10 5=2.5 | 1.1 | nicht prüfbar | Es fehlen pH-Wert und Kb8,2 oder Ks8,2.
      no Kb8,2          | 2=7.5 3=10 5=2.5 | 1.3 | nicht prüfbar | Es fehlt Kb8,2.
      no temperature    | 2=9 4=0.1 5=2.5 | 1.1 | nicht prüfbar | Es fehlt Temperatur.
      2
      upper bound kept  | 1=15 2=8.6 4=0.1 | 2.1 | stimmig | Carbonat
      Ks8,2 too little  | 1=40 2=11 4=0.1  | 2.1 | Widerspruch | reicht Ks8,2 nicht
      just salt-poor    | 1=100 2=8.21     | 2.2 | stimmig | Salzen
      not salt-poor     | 1=100.1 2=9      | 2.2 | nicht prüfbar | bis 100
      not alkaline      | 1=20 2=8.2       | 2.2 | nicht prüfbar | über pH 8,2
      no conductivity   | 2=9              | 2.2 | nicht prüfbar | Es fehlt Leitfähigkeit.
      conductivity low  | 1=10 2=10        | 2.2 | Widerspruch | Einheit
      3
      a rest            | 1=420 2=7.5 3=10 5=2.5 6=0.25 23=60 24=10 25=20 | 3.1 | stimmig | tragen 80 µS/cm; als Natriumsulfat wären es 48 mg/l
      hardness alone    | 1=420 2=7.5 3=10 5=2.5 6=0.25 20=14 | 3.1 | stimmig | Nicht eingegeben: Calcium, Magnesium, Chlorid.
      too many ions     | 1=200 2=7.5 3=10 5=2.5 6=0.25 23=60 24=10 25=20 | 3.1 | Widerspruch | Einheit
      pH conducts more  | 1=10 2=10.5 | 3.2 | Widerspruch | leitet allein
      acid conducts     | 1=10 2=4    | 3.2 | Widerspruch |
      enough            | 1=100 2=10  | 3.2 | stimmig |
      4
      agrees            | 2=7.5 3=10 5=2.5 6=0.25 | 4.1 | stimmig |
      lost              | 2=7 3=10 5=2.5 6=0.25   | 4.1 | Widerspruch | entwichen
      alkaline          | 2=9 3=10 5=2.5 4=0.2    | 4.1 | nicht prüfbar | Ab pH 8,2
      5
      Ks8,2 in acid     | 2=7 4=0.5 5=2   | 5.1 | Widerspruch | Unter pH 8,2
      Ks8,2 near 8.2    | 2=8.15 4=0.5 5=2 | 5.1 | stimmig |
      Ks8,2 above Ks4,3 | 2=10 4=2 5=1    | 5.1 | Widerspruch | kann nicht größer
      a zero            | 2=9 4=0 5=1     | 5.1 | stimmig |
      Kb8,2 in alkaline | 2=9 6=0.5       | 5.2 | Widerspruch | Ab pH 8,2
      hydroxide         | 2=11.1 3=25 4=1.5 5=2 | 5.3 | stimmig | = 1,00 mmol/l
      too much of it    | 2=9.5 3=25 4=1.5 5=2  | 5.3 | Widerspruch | zu niedrig
      none              | 2=9.5 3=25 4=1 5=2    | 5.3 | nicht prüfbar | kein Hydroxid
      6
      agrees            | 20=10.8 23=60 24=10   | 6.1 | stimmig |
      contradicts       | 20=14 23=60 24=10     | 6.1 | Widerspruch | umgerechnet
      one completed         | 20=10.6869 23=60 24=10 | 6.1 | nicht prüfbar | wenn eine Datei alle drei
      softened | 2=7.5 3=10 5=2.5 6=0.25 20=0.1 | 6.2 | Hinweis | enthärtetes
      hard     | 2=7.5 3=10 5=2.5 6=0.25 20=14  | 6.2 | stimmig |
      7
      cations missing   | 5=4.5 20=0.1 25=30 | 7.1 | Hinweis | fehlen 5,31 mmol/l Kationen (Natrium, Kalium); als Natrium wären es 122
      anions missing    | 5=2.5 20=14        | 7.1 | Hinweis | fehlen 2,50 mmol/l Anionen
      balanced          | 5=5 20=14 25=1     | 7.1 | Hinweis | gleichen sich
      8
      pH agrees         | 2=7.5 3=10 5=2.5 6=0.25 | 8.1 | Hinweis | liegt in der
      index too high    | 1=420 2=7.5 3=10 5=2.5 6=0.25 23=60 24=10 25=20 | 8.4 | Hinweis | größer als
      no calcium        | 2=7.5 3=10 5=2.5 6=0.25 20=5 | 8.4 | nicht prüfbar | Es fehlt Calcium.
      impossible        | 2=7.5 3=1000 5=2.5 6=0.25 | 8.1 | nicht prüfbar | Temperatur (außerhalb)"_s);
  }

  void eachComparisonJudges() {
    QFETCH(QStringList, row);
    const Plausibility check = checkPlausibility(typed(row[1]), defaultUncertainties());
    const int group = row[2].section('.', 0, 0).toInt();
    const auto first = std::ranges::find(check.rows, group, &Comparison::group);
    const Comparison& found = *(first + row[2].section('.', 1).toInt() - 1);
    QCOMPARE(found.group, group);
    QCOMPARE(verdictWord(found.verdict), row[3]);
    QVERIFY2(found.note.contains(row[4]), qPrintable(found.note));
  }

  void anInputThatBothValuesRestOnCountsOnce() {
    // 21 µS/cm of the measured conductivity lower the factor of the computed one: by 1.5 µS/cm.
    const Plausibility check = checkPlausibility(typed(kTap), {{feld::kLeitfähigkeit, 0, 5}});
    QCOMPARE(check.rows[5].second, u"Leitfähigkeit aus den Ionen"_s);
    QVERIFY(std::abs(*check.rows[5].uncertainty - 22.5) < 0.5);
  }

  void withoutUncertaintyOnlyEqualValuesAgree() {
    Uncertainties none = defaultUncertainties();
    for (Uncertainty& row : none) row = {row.field, 0, 0};
    const Plausibility check = checkPlausibility(typed(u"2=9 3=20 4=0 5=1 20=0.5 6=0"_s), none);
    QCOMPARE(*check.rows[0].en(), 999.0);
    QCOMPARE(check.rows[9].second, u"Kb8,2, beim pH höchstens"_s);
    QCOMPARE(*check.rows[9].en(), 0.0);
    QCOMPARE(check.overall(), Verdict::kWiderspruch);
  }

  void theWorstRowSpeaksForTheWater() {
    const Plausibility good = checkPlausibility(typed(kTap), defaultUncertainties());
    QCOMPARE(good.overall(), Verdict::kStimmig);
    QVERIFY(good.marks.front().measured && good.marks.size() == 4);
    const Plausibility bad = checkPlausibility(
        typed(u"2=7.7 3=10 5=2.5 6=0.25 20=14 23=60 24=10"_s), defaultUncertainties());
    QCOMPARE(bad.worst()->first, u"Gesamthärte gemessen"_s);
    QVERIFY(bad.summary().startsWith(u"Widerspruch (") && bad.summary().contains(u"1 Widerspruch"));
    const Plausibility empty = checkPlausibility({}, defaultUncertainties());
    QVERIFY(empty.worst() == nullptr && empty.overall() == Verdict::kNichtPrüfbar);
  }

  // What is set; what is not there, or no number of 0 or more, is the default.
  void settingsKeepTheUncertainties_data() {
    rows<QString>(
        "=> | 2:0,2/0=>0,2/0 | 1:9/9|2:0/0|99:1/1=>0/0 | 2:0,1234/12,5=>0,1234/12,5 "
        "| 2:0.2/0=> | 2:-1/0=> | 2:0,2=> | 2:0,2/x=> | 2:0,2/0/0=> | 2:1e3/0=>");
  }

  void settingsKeepTheUncertainties() {
    QFETCH(QString, given);
    QFETCH(QString, expected);
    const Uncertainties read = uncertaintiesOf(given);
    QCOMPARE(read.size(), defaultUncertainties().size());
    const QString ph = expected.isEmpty() ? u"0,1/0"_s : expected;
    QCOMPARE(read[1], (Uncertainty{feld::kPh, numberIn(ph.section('/', 0, 0)),
                                   numberIn(ph.section('/', 1))}));
    QCOMPARE(uncertaintiesOf(settingOf(read)), read);
    QCOMPARE(settingOf(read).isEmpty(), read == defaultUncertainties());
    QVERIFY(!settingOf(read).contains('"'));
  }

  void resultsOfEarlierInputsTakeNoPart() {
    const QStringList expected = linesOf(checkPlausibility(typed(kTap), defaultUncertainties()));
    AnalysisRecord kept = computed(typed(kTap));
    kept.clearField(feld::kGesamthärte);  // completed, so that its row says why it is none
    for (int i = 0; i <= 40; ++i) {
      if (!fieldOf(i).isTyped()) kept.value[i] = 3_fp, kept.text[i] = u"3,00"_s;
    }
    QCOMPARE(linesOf(checkPlausibility(kept, defaultUncertainties())), expected);
    kept.clearField(feld::kKb82);
    for (const Comparison& row : checkPlausibility(kept, defaultUncertainties()).rows) {
      const bool needsKb82 = row.group == 1 || row.group == 4 || row.group == 8;
      if (needsKb82) QVERIFY(row.note.contains(u"Es fehlt Kb8,2"));
      if (needsKb82) QCOMPARE(row.verdict, Verdict::kNichtPrüfbar);
    }
  }

  // Some hundred here; CALVORA_ENTRIES=100000 plays as many as that.
  void anyEntriesAreJudgedConsistently() {
    std::mt19937 random(13);  // NOLINT: the same entries each time
    AnyQuestions questions;
    NarrowTexts narrow;
    AnalysisRecord record;
    int lastField = 0;
    subcalc steps(record, lastField, narrow, questions);
    const int entries = std::max(1500, qEnvironmentVariableIntValue("CALVORA_ENTRIES"));
    for (int i = 0; i < entries; ++i) {
      const AnalysisRecord other = anyRecord(random);
      if (i % 25 == 0) record = other;  // as from a file
      lastField = typedFields().at(random() % typedFields().size());
      int status = 0;
      const double typed = other.value[lastField].toDouble();
      steps.checkeingabe(lastField, typed == 0 ? QString() : Decimal(typed).fixedText(2), status);
      if (random() % 2 == 0) steps.clearRuledOutCapacity();
      steps.rechenlauf();
      requireOriginsOfResults(record);
      requireJudgedFromInputs(record);
    }
  }
};

QTEST_APPLESS_MAIN(PlausibilityTest)
#include "plausibility_test.moc"
