#include "plausi/origin.h"

#include "chem/subcalc.h"
#include "model/fields.h"
#include "model/program.h"
#include "support/files.h"
#include "support/scripted_questions.h"
#include "support/tables.h"

using namespace calvora;
using namespace Qt::StringLiterals;

class OriginTest : public QObject {
  Q_OBJECT

 private slots:
  // Name, fields typed one after the other, what the last one made the program do by itself, the
  // summary of kept results, then field: explanation; LF and pH are the narrow displays.
  void theProgramTellsWhatItDidAndWhatItShows_data() {
    const QString full = u"1=420 2=7,5 3=10 5=2,5 6=0,25 23=60 24=10"_s;
    addRows(QString(uR"(
      no conductivity      | 2=9 | | | 10: Nicht berechnet: es fehlt Leitfähigkeit.
      below 8.2 without Kb8,2 | FULL 6= 5=3 | | 6 alte Ergebnisse: es fehlt Kb8,2 | 11: Nicht neu berechnet: es fehlt Kb8,2. Der Wert gehört zu früheren Eingaben.
      what follows from it | FULL 6= | | 6 alte Ergebnisse: es fehlt Kb8,2 | 15: Aus Hydrogencarbonat, das nicht neu berechnet ist: es fehlt Kb8,2. Der Wert gehört zu früheren Eingaben.
      of old ions          | FULL 6= 5=3 | | 6 alte Ergebnisse: es fehlt Kb8,2 | LF: Mit Hydrogencarbonat oder Carbonat, die nicht neu berechnet sind. Der Wert gehört zu früheren Eingaben.
      Kb8,2 of 0           | FULL 6=0 | | 7 alte Ergebnisse: es fehlt Kb8,2 über 0 | 13: Nicht neu berechnet: es fehlt Kb8,2 über 0. Der Wert gehört zu früheren Eingaben.
      both ions deleted    | FULL 20=8 | Calcium und Magnesium gelöscht: Gesamthärte eingegeben | 2 alte Ergebnisse: es fehlt Calcium | 14: Nicht neu berechnet: es fehlt Calcium. Der Wert gehört zu früheren Eingaben.
      computed             | FULL | Gesamthärte neu aus Calcium und Magnesium | | 11: Berechnet aus pH-Wert, Temperatur, Ks4,3 und Kb8,2.
      a sum                | FULL | Gesamthärte neu aus Calcium und Magnesium | | 20: Vom Programm ergänzt aus Calcium und Magnesium.
      a rest               | 20=8 23=40 | Magnesium ergänzt aus Gesamthärte und Calcium | | 24: Vom Programm ergänzt aus Gesamthärte und Calcium.
      filled in again      | 20=8 23=40 24= | Magnesium ergänzt aus Gesamthärte und Calcium | | 23: Calcium, gelöst: 0,1 bis 700 mg/l.
      from calcium alone   | 23=60 | Gesamthärte ergänzt aus Calcium | | 20: Vom Programm ergänzt aus Calcium.
      gone with calcium    | 23=60 23= | Gesamthärte gelöscht: Calcium gelöscht | | 20: Calcium und Magnesium zusammen: 0,05 bis 100 °d.
      no number            | 1=1.420,5 | „1.420,5“ ist keine Zahl und wurde gelöscht | | 1: Gemessene Leitfähigkeit, bei 25 °C: 0,5 bis 5000 µS/cm.
      out of range         | 3=91 | Temperatur „91“ abgelehnt und gelöscht | | 9: Leer: es fehlen pH-Wert und Temperatur.
      a high pH            | FULL 2=9 | Kb8,2 gelöscht: pH ab 8,2 | | 6: Gesperrt: Kb8,2 gibt es nur unter pH 8,2, gemessen ist pH 9,0000.
      ruled out results    | 2=9 3=10 5=2 4=0,1 | | | 14: Nur unter pH 8,2 zu berechnen, mit Kb8,2.
      and below            | 2=7 | | | 8: Nur ab pH 8,2 zu berechnen, aus Ks8,2.
      a low pH             | 2=9 4=0,1 2=7 | Ks8,2 gelöscht: pH unter 8,2 | | 4: Gesperrt: Ks8,2 gibt es nur ab pH 8,2, gemessen ist pH 7,0000.
      emptied temperature  | 3=10 4=0,1 3= | Ks8,2 gelöscht: Temperatur gelöscht | | 7: Leer: es fehlen Temperatur, Ks4,3 und Ks8,2 oder Kb8,2.
      Ks8,2 of 0           | 2=9 3=10 4=0 | Ks8,2 0 als 0,001 mmol/l gerechnet | | 4: Mit 0,001 mmol/l gerechnet: 0 steht für weniger, als sich titrieren lässt.
      the estimate         | 5=2 6=0,2 | | | pH: Berechnet aus Ks4,3 und Kb8,2.
      and an old one       | 5=2 4=0,1 4=0,6 | | | pH: Nicht neu berechnet: das Verhältnis der Kapazitäten gibt nur noch „>9,6“. Der Wert gehört zu früheren Eingaben.
    )"_s)
                .replace(u"FULL"_s, full));
  }
  void theProgramTellsWhatItDidAndWhatItShows() {
    QFETCH(QStringList, row);
    Program program;
    ScriptedQuestions questions;
    subcalc chem{program.record, program.fieldIndex, program.narrow, questions};
    if (row[1] == u"3=91"_s) questions.expect(says(u"3 1-90 °C"_s));
    QString did;
    for (const QString& entry : row[1].split(' ')) {
      const AnalysisRecord before = program.record;
      int status = 0;
      program.fieldIndex = entry.section('=', 0, 0).toInt();
      chem.checkeingabe(program.fieldIndex, entry.section('=', 1), status);
      chem.clearRuledOutCapacity();
      chem.rechenlauf();
      did = whatChanged(before, program.record, program.fieldIndex, entry.section('=', 1));
    }
    QCOMPARE(did, row[2]);
    QCOMPARE(keptSummary(program.record), row[3]);
    const QString field = row[4].section(u": "_s, 0, 0);
    QString said = explain(program.record, field.toInt());
    if (field == u"LF"_s) said = explainConductivity(program.record, program.narrow);
    if (field == u"pH"_s) said = explainApproximation(program.record, program.narrow);
    QVERIFY2(said.split('\n').contains(row[4].section(u": "_s, 1)), qPrintable(said));
    QCOMPARE(questions.complaints(), QString());
  }
};

QTEST_GUILESS_MAIN(OriginTest)
#include "origin_test.moc"
