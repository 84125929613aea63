#include <QRegularExpression>
#include <cmath>
#include <random>

#include "chem/subcalc.h"
#include "model/program.h"
#include "support/files.h"
#include "support/scripted_questions.h"
#include "support/tables.h"

using namespace calvora;

// In the tables a field is written index=value'text: 5=2.5 has a text that does not matter, 6'0 is
// a typed zero, 4 alone is empty. LF'text and pH'text are the two narrow displays, last=20 is the
// field entered last. A message is its number and the text built in, ␣ a blank at its end.
namespace {

void put(Program& program, const QString& fields) {
  for (const QString& field : fields.split(' ', Qt::SkipEmptyParts)) {
    const QString name = field.section('\'', 0, 0).section('=', 0, 0);
    const double value = field.section('\'', 0, 0).section('=', 1).toDouble();
    const bool anyText = !field.contains('\'') && value != 0;
    const QString text = anyText ? u"x"_s : field.section('\'', 1);
    if (name == "LF"_L1) program.narrow.leitfähigkeitAusIonen = text;
    if (name == "pH"_L1) program.narrow.phNäherung = text;
    if (name == "last"_L1) program.fieldIndex = static_cast<int>(value);
    if (!name[0].isDigit()) continue;
    program.record.value[name.toInt()] = FixedPoint::fromDouble(value);
    program.record.text[name.toInt()] = text;
  }
}

/// All that the checks and steps may change, as one text.
QString dump(const Program& program) {
  QString all =
      u"LF'%1 pH'%2"_s.arg(program.narrow.leitfähigkeitAusIonen, program.narrow.phNäherung);
  for (int i = 0; i <= 40; ++i) {
    const qint64 raw = program.record.value[i].raw();
    const QString& text = program.record.text[i];
    if (raw != 0 || !text.isEmpty()) all += u" %1=%2'%3"_s.arg(i).arg(raw).arg(text);
  }
  return all;
}

struct Water {
  explicit Water(const QString& fields = {}) { put(program, fields); }

  /// These fields are as given, all others as in `base`, and only what was expected was asked.
  void compare(Program base, const QString& fields) const {
    put(base, fields);
    QCOMPARE(dump(program), dump(base));
    QCOMPARE(questions.complaints(), QString());
  }

  Program program;
  ScriptedQuestions questions;
  subcalc chem{program.record, program.fieldIndex, program.narrow, questions};
};

}  // namespace

class ChemTest : public QObject {
  Q_OBJECT

 private slots:
  void constantsMatchTheirReferences() {
    // Temperature in °C (0 also without one), calcite, water, both steps of carbonic acid.
    constexpr double kReferences[][5] = {
        {0, 8.37221945402, 14.9431495079, 6.57240315223, 10.62855295},
        {25, 8.481, 13.996, 6.356, 10.329},
        {90, 9.03265942501, 12.4107904151, 6.38017346582, 10.1363347018},
    };
    for (const auto& expected : kReferences) {
      Water water(u"3=%1"_s.arg(expected[0]));
      water.chem.konst_k();
      for (int slot = 1; slot <= 4; ++slot) {
        QVERIFY(std::abs(water.chem.constant(slot) - expected[slot]) < 1e-9);
      }
    }
  }

  // Name, record, what the step changes (after "only" the other fields do not matter), message.
  void eachStepComputesItsResultsAndLeavesTheRest_data() {
    addRows(
        uR"(
      ph_aus_lf
      above pH 12.5          | 1=8000 2=12      | 10=12.6055'>12,5 32=230' LF'1667
      1399 µS/cm, pH 7       | 1=1399 2=7       | 10=2.311'<4,0 LF'0
      1399.0001, pH 7.0001   | 1=1399.0001 2=7.0001 | 10=11.8483'11,85 LF'0
      0.5 µS/cm              | 1=0.5 2=7        | 10=5.845'5,85 LF'0
      below 0.5 µS/cm        | 1=0.4999 2=12 10=5 | 10=0'n.b. 32=230' LF' | 1 2430
      no pH                  | 1=100 10=5 32=7'  | 10=0'n.b. LF'
      below pH 1             | 1=100 2=0.9999 32=7' | 10=3.5323'<4,0 LF'15
      just too low           | 1=22.4 2=10      | 10=9.9585'9,96 32=2.3' LF'25 | 1 25
      just high enough       | 1=22.5 2=10      | 10=9.9604'9,96 32=2.3' LF'25
      below pH 8.3           | 1=420 2=8.2999 32=7' | 10=11.2735'11,27 32 LF'0
      pH 8.3                 | 1=420 2=8.3      | 10=11.2735'11,27 32=0.0459' LF'0
      salty | 1=1500 2=10.2 11=20 12=150 23=0.5 24=200 25=80 | 10=11.8785'11,88 32=3.6453' LF'1220
      phausks82
      without Ks8,2    | 8=5      | 8=5'
      too little       | 4=0.0019 | 8=8.2'<8,2
      enough           | 4=0.002  | 8=8.301'8,30
      capped           | 4=31.7   | 8=12.5'>12,50
      c_formen
      carbonate too large | 2=12 3=25 4=0.1 5=10000000000000 11=1 14=1 | 11 12 13 14
      1 °C         | 2=8.1999 3=1 5=3.1 6=0.001 | 11=189.1527'189,2 12=0.7183'0,72 13=0.044'0,0
      pH 8.2       | 2=8.2 3=20 4=0.05 5=2    | 11=115.9323'115,9 12=0.7605'0,76 13'0,0
      pH 8.21      | 2=8.21 3=20 4=0.05 5=2   | 11=115.9323'115,9 12=0.7782'0,78 13=1.2544'1,3
      Ks8,2 of 0   | 2=8.5 3=25 4'0 5=1.5 | 4=0.001'0 11=91.4035'91,4 12=1.3327'1,33 13=0.4732'0,5
      pH 9.5       | 2=9.5 3=25 4=0.35 5=1.2  | 11=30.5085'30,5 12=4.4482'4,45 13=0.0158'<0,1
      above pH 9.5 | 2=9.5001 3=25 4=0.35 5=1.2 | 11=32.4385'32,4 12=4.7307'4,73 13=0.0168'<0,1
      Ks8,2 half   | 2=9 3=25 4=0.2 5=0.4 11=1 | 11'0,0 12'<0,01 13'<0,1
      Ks8,2 above  | 2=9 3=25 4=0.2 5=0.3 11=1 | 11 12=-0.2813'<0,01 13=-0.01'<0,1
      no Ks8,2     | 2=8.2 3=10 5=2 11=1 12=1 13=1 14=1 | 11 12 13 14
      no Kb8,2     | 2=7 3=10 5=2 11=1 12=1 13=1 |
      no Ks4,3     | 2=7 3=10 4'0 6=2 11=1 | 4=0.001'0
      no temperature | 2=7 4'0 5=2 6=2 11=1 |
      ph_beit
      text of the unrounded  | 2=7.0049 3=25.009 | 9=7.005'7,00
      too large              | 2=922337203685477 3=90 9=5 | 9
      a tie                  | 2=8.255 3=25 | 9=8.255'8,26
      no temperature         | 2=7 9=5      | 9=5'
      s_index
      zero without sign      | 2=7.5 3=10 11=152.5425 23=60 | 15=-0.0083'0,0
      just too small         | 2=9 3=25 11=0.1 15=1 23=0.01 | 15
      product of four decimals | 2=7 11=0.0145 15=1 23=0.1 | 15
      just large enough      | 2=1 3=25 11=0.1 23=0.1  | 15=-12.2354'-12,2
      co2agg
      90 °C       | 2=7.8 3=90 6'0 11=122 23=60 24=6 | 14=-27.1009'-27,1 31=4.4875'
      pH > 9.4 | 2=9.4001 3=10 6'0 11=183 12=30 13=0.05 20=14 23=80.2 | 14=-12.0099'-12,0 31=7.4993'
      pH 9.4   | 2=9.4 3=10 6'0 11=183 12=30 13=0.05 20=14 23=80.2 | 14=-6.7337'-6,7 31=7.4993'
      no Kb8,2, all ions | 3=10 11=244 12=30 14=1 23=80 24=10 25=20 32=2.3' | 14 31=8.1462'
      no calcium  | 2=7.2 3=10 6=0.5 11=244 13=20 14=1 20=10 | 14 31=5.5707'
      negative, no hydrogencarbonate | 3=10 6=0.5 13=20 14=1 23=-80.2 | 14 31=4.002'
      secamg
      SE equals Ca    | last=20 20=13.97 23=100 | 20=13.97'14,0 23=100'100,0 24=0.001'0,0
      SE equals Mg    | last=20 20=11.5 24=50 | 20=11.5'11,5 23=0.001'0,0 24=50'50,0
      SE just below Ca | last=20 20=68.9 23=493.2 | 20 23=493.2'493,2 | 7
      SE just below Mg | last=20 20=68.9 24=299.5654 | 20 24=299.5654'299,6 | 8
      SE beside both  | last=20 20=10 23=50 24=20 | 20=10'10,0 23 24
      SE deleted      | last=20 23=50         | 20=6.986'7,0 23=50'50,0
      Ca above SE     | last=23 20=10 23=80   | 20=10'10,0 23 | 9
      Ca deleted      | last=23 20=10         | 20
      Ca beside both  | last=23 20=10 23=40 24=10 | 20=7.8924'7,9 23=40'40,0 24=10'10,0
      Mg above SE     | last=24 20=10 24=50   | 20=10'10,0 24 | 10
      Mg deleted      | last=24 20=10         | 20
      Mg deleted, Ca  | last=24 20=10 23=40   | 20=10'10,0 23=40'40,0 24=19.1492'19,1
      Mg beside both  | last=24 20=10 23=40 24=10 | 20=7.8924'7,9 23=40'40,0 24=10'10,0
      trace           | 20=5.6002 24=24.31    | 20=5.6002'5,6 23=0.001'0,0 24=24.31'24,3
      just no trace   | 20=5.6003 24=24.31    | 20=5.6003'5,6 23=0.0021'0,0 24=24.31'24,3
      all three       | 20=7 23=1 24=1        | 20=7'7,0 23=1'1,0 24=1'1,0
      khnkh
      below SE        | 11=152.5425 20=10.6864 | 21=7.0008'7,0 22=3.6856'3,7
      capped          | 11=300 20=10'10,00    | 21=10'10,00 22'0,0
      no hydrogencarbonate | 20=10 21=1 22=1  | 21 22
      phaus_c
      acid, refined          | 2=6 3=10 5=2.5 6=0.25 | 7=7.44'7,44
      a hundred from 7       | 2=6.6 3=25 5=0.02 6=2.5 | 7=5'5,00
      to and fro across 8.2  | 3=25 5=7 6=0.001 | 7=8.2'8,20
      no tolerance at 8.2    | 3=25 5=2 6'0 | 7=8.2'8,20
      acid, just not met     | 2=6 3=10 5=1 6=1.6 | 7=6.42'6,42
      acid, just met         | 2=6 3=10 5=1 6=1.35 | 7=6.5'6,50
      caustic, met below 9.5 | 3=25 4=0.24 5=2 | 7=9.5'9,50
      alkaline               | 3=25 4=0.05 5=2 | 7=8.74'8,74
      caustic, 90 °C         | 3=90 4=0.5 5=1 | 7=10.3053'10,31
      negative Ks8,2         | 3=25 4=-0.5 5=2 7=1 |
      neither capacity       | 3=25 5=2 7=1 |
      no temperature         | 5=2 6=1 7=1 |
      no Ks4,3               | 3=2 6=1 7=1 |
      ph_aus_ksr
      poor in salt           | 1=1000 5=2 6=2 | 35=6.524'6,52 pH'6,52
      rich in salt           | 1=1000.0001 5=2 6=2 | 35=6.3657'6,37 pH'6,37
      acid, pH 4.5           | 2=4.5 5=0.05 6=2.4 | 35=4.7127'4,71 pH'4,71
      below pH 4.5           | 2=4.4999 5=0.05 6=2.4 35=1 | 35 pH'
      Ks8,2 before Kb8,2     | 4=0.2 5=2 6=2 | 35=9.4032'9,40 pH'9,40
      ratio 1.21             | 4=0.21 5=1.21 | 35=9.7822'9,78 pH'9,78
      ratio above 1.21       | 4=0.2101 5=1.21 35=1 | 35=1'>9,6
      Ks8,2 equals Ks4,3     | 4=2 5=2 35=1 | 35 pH'
      negative ratio         | 5=0.5 6=-0.6 35=1 | 35 pH'
      result too large       | 4=1000000.0001 5=1000000 35=1 | 35 pH'
      clearRuledOutCapacity
      Ks8,2 below pH 8.2     | 2=8.1999 4=1 6=1 7=1 8=1 11=1 12=1 13=1 14=1 15=1 21=1 | 4 7 11 12 13 14 15 21 pH'
      Kb8,2 from pH 8.2      | 2=8.2 4=1 6=1 7=1 8=1 11=1 13=1 14=1 15=1 | 6 7 13 14 15
      none without a pH      | 2=0.9999 4=1 6=1 7=1 11=1 |
      none that is empty     | 2=7 7=1 11=1 |
      rechenlauf
      Ks8,2 alone            | 4=1 | only 8=11'11,00
      pH and temperature     | 2=7.3 3=10 | 9=7.15'7,15 10'n.b. pH' LF'
      ions without species   | 1=420 2=7.5 3=10 5=2.5 6=0.25 23=60 24=10 25=20 | only LF'239
      index without konst_k  | 2=7.5 3=10 11=152.5425 23=60 | only 15=2.0742'2,1
      calcium completed late | 2=7.5 3=10 5=2.5 6=0.25 20=10.6864 24=10 | only 14 15 23=59.997'60,0
      KH capped at new SE | 2=7.2 3=12 5=6.4 6=1.1 23=40 | only 20=5.5888'5,6 21=5.5888'5,6 22'0,0
      rechenlauf twice
      ions with species      | 1=420 2=7.5 3=10 5=2.5 6=0.25 23=60 24=10 25=20 | only LF'340
      Ca of the first | 2=7.5 3=10 5=2.5 6=0.25 20=10.6864 24=10 | only 14=7.2802'7,3 15=-0.0083'0,0
    )"_s);
  }
  void eachStepComputesItsResultsAndLeavesTheRest() {
    using S = subcalc;
    static const QHash<QString, void (S::*)()> steps{
        {u"ph_aus_lf"_s, &S::ph_aus_lf},   {u"phausks82"_s, &S::phausks82},
        {u"c_formen"_s, &S::c_formen},     {u"ph_beit"_s, &S::ph_beit},
        {u"co2agg"_s, &S::co2agg},         {u"s_index"_s, &S::s_index},
        {u"secamg"_s, &S::secamg},         {u"khnkh"_s, &S::khnkh},
        {u"phaus_c"_s, &S::phaus_c},       {u"ph_aus_ksr"_s, &S::ph_aus_ksr},
        {u"rechenlauf"_s, &S::rechenlauf}, {u"clearRuledOutCapacity"_s, &S::clearRuledOutCapacity}};
    QFETCH(QString, group);
    QFETCH(QStringList, row);
    Water water(u"LF'alt pH'alt "_s + row[1]);
    const Program before = water.program;
    if (row.size() > 3) water.questions.expect(says(row[3]));
    if (group == u"s_index"_s) water.chem.konst_k();
    if (group == u"rechenlauf twice"_s) water.chem.rechenlauf();
    (water.chem.*steps[group.section(' ', 0, 0)])();
    const bool only = row[2].startsWith(u"only "_s);
    water.compare(only ? water.program : before, only ? row[2].mid(5) : row[2]);
  }

  // Name, record as loaded, fields typed one after the other (a run follows each), then what was
  // completed, computed and kept; LF and pH are the narrow displays.
  void aRunNotesWhereEveryFieldComesFrom_data() {
    addRows(
        uR"(
      computed anew, even alike | 2=7.5 3=10 5=2.5 6=0.25 11=1 12'0,15 | 3=10 5=2,5 | | 7 9 10 11 12 13 35 pH |
      "n.b." and "<" alike  | 2=9 3=10 4=0.05 5=0.1 10'n.b. 8'<8,2 | 3=10 | | 7 8 9 10 11 12 13 35 |
      Kb8,2 emptied         | 2=7.5 3=10 5=2.5 6=0.25 20=14 23=60 | 3=10 6= 5=3 | 24 | 9 10 | 7 11 12 15 21 22
      and typed again       | 2=7.5 3=10 5=2.5 20=14 23=60 11=9 | 6=0,25 | 24 | 7 9 10 11 12 13 14 15 21 22 35 pH |
      of the file           | 5=2.5 7=1 11=2 12=1 13=1 LF'1 pH'1 | 5=2,5 | | 10 | 7 11 12 13
      conductivity of old ions | 1=420 2=7.5 3=10 11=99 | 1=420 | | 9 10 | 11 LF
      estimate above 9,6    | 4=0.6 5=2 35=1 pH'9,70 | 4=0,6 | | 8 10 35 | pH
      calcium deleted after its use | 2=7.5 3=10 5=2.5 6=0.25 23=60 24=9 | 3=10 20=14 | | 7 9 10 11 12 13 21 22 35 pH | 14 15
      sum of both ions      | 20=7 23=40 | 20=7 23=40 24=10 | 20 | 10 |
      completed, then typed | 20=7 23=40 | 20=7 24=5 | 20 | 10 |
      Ks8,2 of 0            | 2=9 3=25 | 4=0 | 4 | 8 9 10 |
      and typed             | 2=9 3=25 | 4=0 4=0,5 | | 8 9 10 |
    )"_s);
  }
  void aRunNotesWhereEveryFieldComesFrom() {
    QFETCH(QStringList, row);
    Water water(row[1]);
    for (const QString& entry : row[2].split(' ')) {
      int status = 0;
      water.program.fieldIndex = entry.section('=', 0, 0).toInt();
      water.chem.checkeingabe(water.program.fieldIndex, entry.section('=', 1), status);
      water.chem.rechenlauf();
    }
    const auto with = [&](Origin origin) {
      QStringList names;
      for (int i = 0; i <= 40; ++i) {
        if (originOf(water.program.record, i) == origin) names += QString::number(i);
      }
      if (water.program.narrow.originOfLeitfähigkeit() == origin) names += u"LF"_s;
      if (water.program.narrow.originOfNäherung() == origin) names += u"pH"_s;
      return names.join(' ');
    };
    QCOMPARE(with(Origin::kCompleted), row[3]);
    QCOMPARE(with(Origin::kComputed), row[4]);
    QCOMPARE(with(Origin::kKept), row.value(5));
    QCOMPARE(water.questions.complaints(), QString());
  }

  // Field, accepted, rejected, message, whether the focus comes back.
  void boundsAreAcceptedAndWhatLiesOutsideIsDeleted_data() {
    addRows(
        uR"(
      1  | 0,5 5000 | 0,4999 5000,0001 0 | 3 0,5 - 5000 µS/cm |
      2  | 4 12     | 3,9999 12,0001 0 -7 | 3 4- 12 |
      3  | 1 90     | 0,9999 90,0001 0   | 3 1-90 °C | focus
      4  | 0 10     | -0,0001 10,0001    | 6 ␣0 - 10 |
      5  | 0,0001 7 | 7,0001             | 6 ␣0 - 7,0 |
      6  | -99 0 2,5 | 2,5001 -99999999999999999999 | 6 ␣0 - 2,5 |
      20 | 0,05 100 | 0,0499 100,0001 0  | 3 0,05 - 100 °d | focus
      23 | 0,1 700  | 0,0999 700,0001    | 3 0,1 - 700 | focus
      24 | 0,1 420  | 0,0999 420,0001    | 3 0,1 - 420␣ | focus
      25 | 0,01 500 | 0,0099 500,0001    | 3 0,01 - 500 | focus
      26 | 0,01 20  | 0,0099 20,0001 -1  | 3 0,01 - 20 | focus
    )"_s);
  }
  void boundsAreAcceptedAndWhatLiesOutsideIsDeleted() {
    QFETCH(QStringList, row);
    const QStringList accepted = row[1].split(' ');
    const QStringList rejected = (row[2] + u" 99999999999999999999"_s).split(' ');
    for (const QString& text : accepted + rejected) {
      const double value = QString(text).replace(',', '.').toDouble();
      const QString shown = QString::number(value, 'f', 4).replace('.', ',');
      const bool taken = accepted.contains(text);
      Water water(u"7=1 10=1 11=1 12=1 13=1 14=1 15=1 21=1"_s);
      const Program before = water.program;
      if (!taken) water.questions.expect(says(row[3]));
      int status = 7;
      water.chem.checkeingabe(row[0].toInt(), text, status);
      const QString lost = row[0] == "2"_L1 ? u"11 12 13 14"_s : QString();
      water.compare(before, taken ? u"%1=%2'%3"_s.arg(row[0]).arg(value).arg(shown) : lost);
      QCOMPARE(status, !taken && row[4] == "focus"_L1 ? 1 : 0);
    }
  }

  // Name, field=typed text, record, what the entry changes, message, whether the focus comes back.
  void entriesMustAgreeAndTakeTheirResultsAlong_data() {
    addRows(QString(uR"(
      conductivity emptied        | 1=         | 1=420        | 1 10 LF' | | focus
      pH emptied                  | 2=         | 2=7          | 2 11 12 13 14 | | focus
      pH admitted by Ks8,2        | 2=10,69    | 4=0.5        | 2=10.69'10,6900
      pH too high for Ks8,2       | 2=10,7     | 2=9 4=0.5    | 2 11 12 13 14 | 11 10,7
      pH exactly at its limit     | 2=9        | 4=0.01       | 2=9'9,0000
      pH beside a Ks8,2 of 0      | 2=12       | 4'0          | 2=12'12,0000
      temperature emptied         | 3=         | 3=10 4=0.5   | 3 noKs82 | | focus
      temperature no number       | 3=5-       | 3=10 4=0.5   | 3 noKs82
      temperature out of range    | 3=91       | 3=10 4=0.5   | 3 | 3 1-90 °C | focus
      Ks8,2 emptied               | 4=         | 4=0.5        | noKs82 | | focus
      Ks8,2 of 0 at pH 9          | 4=0        | 2=9          | 4'0,0000
      within the fixed tolerance  | 4=0,0195   | 2=9.8999     | 4=0.0195'0,0195
      below the fixed tolerance   | 4=0,0194   | 2=9.8999     | noKs82 | 12 0,08
      within the relative one     | 4=0,0636   | 2=9.9        | 4=0.0636'0,0636
      below the relative one      | 4=0,0635   | 2=9.9        | noKs82 | 12 0,08
      only the first fault told   | 4=0,2      | 2=10.5 6=0.2 | noKs82 | 12 0,32
      Ks8,2 beside Kb8,2          | 4=0,1      | 6=0.2        | noKs82 | 13
      Ks8,2 beside negative Kb8,2 | 4=0,1      | 6=-0.2       | 4=0.1'0,1000
      Ks8,2 half of Ks4,3         | 4=0,5      | 5=1          | 4=0.5'0,5000
      Ks8,2 above half of Ks4,3   | 4=0,5001   | 5=1          | noKs82 | 4 | focus
      Ks4,3 emptied, Ks8,2 there  | 5=         | 4=0.5 5=2    | noKs43 | | focus
      Ks4,3 that rounds to 0      | 5=0,00004  | 5=1          | noKs43 | 2 Ks4,3
      negative Ks4,3              | 5=-1       | 5=1          | noKs43 | 2 Ks4,3
      Ks4,3 twice Ks8,2           | 5=1,2      | 4=0.6        | 5=1.2'1,2000
      Ks4,3 below twice Ks8,2     | 5=1,1999   | 4=0.6        | 5 | 5 1,20 | focus
      minimum with three decimals | 5=0,004    | 4=0.004      | 5 | 5 0,008 | focus
      and with two from 0.009     | 5=0,004    | 4=0.0045     | 5 | 5 0,01 | focus
      Kb8,2 emptied, Ks8,2 there  | 6=         | 4=0.5        | 6 13 14 15 | | focus
      Kb8,2 beside Ks8,2          | 6=0,1      | 4=0.5        | 6 13 14 15 | 13
      Kb8,2 beside a Ks8,2 of 0   | 6=0,1      | 4'0          | 6=0.1'0,1000
      value and text round alike  | 2=12,00005 | 2=7          | 2 11 12 13 14 | 3 4- 12
      a field without rules       | 30=9999999 |              | 30=9999999'9999999,0000
    )"_s)
                .replace(u"noKs82"_s, u"4 7 11 12 13 14 15 21 pH'"_s)
                .replace(u"noKs43"_s, u"5 7 11 12 13 14 15 21"_s));
  }
  void entriesMustAgreeAndTakeTheirResultsAlong() {
    QFETCH(QStringList, row);
    Water water(u"7=1 8=1 9=1 10=1 11=1 12=1 13=1 14=1 15=1 21=1 22=1 35=1 LF'alt pH'alt "_s +
                row[2]);
    const Program before = water.program;
    if (!row.value(4).isEmpty()) water.questions.expect(says(row[4]));
    int status = 0;
    water.chem.checkeingabe(row[1].section('=', 0, 0).toInt(), row[1].section('=', 1), status);
    water.compare(before, row[3]);
    QCOMPARE(status == 1, row.value(5) == u"focus"_s);
  }

  void noRecordHoweverOddEndsInARuntimeError() {
    constexpr qint64 kMost = std::numeric_limits<qint64>::max();
    const QList<qint64> extremes{0,          1,     -1,    20,       kMost,   -kMost,
                                 -kMost - 1, 81999, 82000, -2731500, -2731501};
    const QStringList texts{{}, {}, u"0,00"_s, u"<0,01"_s, u"1E+300"_s};
    static const QRegularExpression noNumber(u"(?i)nan|inf"_s);
    std::mt19937_64 random(20240229);
    const auto below = [&](qsizetype count) { return static_cast<int>(random() % count); };
    for (int i = 0; i < 20000; ++i) {
      Water water;
      auto& [value, text, flags, completed, computed] = water.program.record;
      for (int field = 0; field <= 40; ++field) {
        // An extreme, any size and sign, or what a water may hold.
        const qint64 raws[] = {extremes[below(extremes.size())], qint64(random()) >> below(64),
                               below(120000)};
        value[field] = FixedPoint::fromRaw(raws[below(3)]);
        text[field] = field == 7 ? QString() : texts[below(texts.size())];
      }
      water.program.fieldIndex = QList{0, 20, 23, 24}[below(4)];
      const bool searched = !value[5].isZero() && !value[3].isZero() &&
                            (value[6] > 0_fp || value[4] >= 0_fp) &&
                            !(text[4].isEmpty() && text[6].isEmpty());
      const QString before = dump(water.program);
      for (int run = 1; run <= 2; ++run) water.chem.rechenlauf();
      const bool isPh = !text[7].isEmpty() && value[7] >= 4.5_fp && value[7] <= 14_fp;
      QVERIFY2(water.questions.errors.isEmpty() && !dump(water.program).contains(noNumber) &&
                   (searched ? isPh : text[7].isEmpty()),
               qPrintable(before));
    }
  }

  void anIndexThatDoesNotExistIsARuntimeError() {
    Water water;
    AnalysisRecord& record = water.program.record;
    int status = 0;
    for (const int index : {-1, 41}) {
      QCOMPARE(errorOf([&] { record.value[index] = 1_fp; }), 9);
      QCOMPARE(errorOf([&] { record.text[index] = u"x"_s; }), 9);
      QCOMPARE(errorOf([&] { static_cast<void>(std::as_const(record).text[index]); }), 9);
      QCOMPARE(errorOf([&] { water.chem.checkeingabe(index, u"1"_s, status); }), 9);
    }
    water.compare({}, {});
  }
};

QTEST_GUILESS_MAIN(ChemTest)
#include "chem_test.moc"
