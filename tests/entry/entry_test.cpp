
#include "entry/decimal.h"
#include "entry/fixed_point.h"
#include "entry/werteingabe.h"
#include "support/scripted_questions.h"
#include "support/tables.h"

using namespace calvora;

namespace {

static_assert((8.2_fp).raw() == 82000 && (7_fp).raw() == 70000 && (0.0001_fp).raw() == 1);
static_assert((1'000.0005_fp).raw() == 10000005 && (8.2_fp).toDouble() == 8.2);

QString joined(const QString& text, int number) {
  return text + u';' + QString::number(number);
}

/// A cell as the rows write it: nothing, a number with a point, or a text in quotes.
NumberCell cell(const QString& part) {
  if (part.isEmpty()) return {};
  return part.startsWith(u'\'') ? NumberCell(part.sliced(1).chopped(1)) : part.toDouble();
}
QString shown(const NumberCell& cell) {
  if (cell.index() == 0) return {};
  if (const auto* text = std::get_if<QString>(&cell)) return u'\'' + *text + u'\'';
  return QString::number(std::get<double>(cell), 'g', 15);
}

}  // namespace

class EntryTest : public QObject {
  Q_OBJECT

 private slots:
  void cleanup() { QCOMPARE(questions_.complaints(), QString()); }

  void aTypedNumberIsCheckedAndGetsADecimalComma() {  // text; code
    compare(
        R"(12.5;0=>12,5;0 |  7 ;0=>7;0 | 5;2=>5;0 | ,5;0=>0,5;0 | -,5;0=>-0,5;0 | 5,;0=>5 ;0
-12.5;0=>-12,5;0 | ;0=>;1 |   ;0=>;1 | ,;0=>,;2 | .;0=>.;2 | -;0=>-;2 | 1,2,3;0=>1,2,3;2
5-;0=>5-;2 | --5;0=>--5;2 | +5;0=>+5;2 | 1E3;0=>1E3;2 | 1 2;0=>1 2;2 | ٣;0=>٣;2 | <0,1;0=><0,1;2
12.5;9=>12,5;0 | <0,1;9=><0,1;0 |  < .1 ;9=><0,1;0 | <5,;9=><5 ;0 | <-1;9=><-1;2 | <<1;9=><<1;2
<;9=>;1)",
        [this](QStringList given) {
          int code = given[1].toInt();
          entry_.wertprüf(given[0], code);
          return joined(given[0], code);
        });
  }

  void aNumberIsCheckedAgainstItsLimitsAndGetsADecimalPoint() {
    // text; code; minimum; maximum => text; code; maximum
    compare(
        R"(12,5;0;0;10=>12.5;3;10 |  12,5 ;0;0;20=>12.5;0;20 | 10;0;10;10=>10;0;10
-1;0;0;=>-1;3; | -1;0;;=>-1;0; | 0.5;0;0,6;=>0.5;3; | 0.5;0;;0,4=>0.5;3;0,4 | ;0;1;=>;1;
1,2,3;0;;=>1.2,3;2; | 1,2,3;0;;1=>1.2,3;3;1 | 1,2a;0;2;=>1.2a;2; | 5-3;0;5;5=>5-3;0;5
<0,05;0;;=><0,05;2; | <0,05;9;;=>0.05;9;0.1 | <0,5;9;;=>0.5;3;0.1 | <0,5;9;;1=>0.5;9;1
<0,5;9;0.6;1=>0.5;3;1 | <-1;9;;=>-1;2;0.1 | <;9;;=>;1;0.1 | 5;9;;=>5;0;)",
        [this](QStringList given) {
          int code = given[1].toInt();
          entry_.werteingabe(given[0], given[2], given[3], code);
          return joined(given[0], code) + u';' + given[3];
        });
  }

  void aTextBecomesTheNumberThatItShows() {
    compare(
        R"(12,5=>12.5 |  12.5 =>12.5 | -0,5=>-0.5 | <0,05=>0.05 | => |   => | <=> | ,5=>0
12 mg=>12 | 1,5E+03=>'1,50E+03' | 1.5E3=>'1,50E+03')",
        [this](const QStringList& given) {
          NumberCell value = 99.0;
          entry_.strzahl(given[0], value);
          return shown(value);
        });
  }

  void aNumberIsReadWhereverTheTextHasOne() {
    compare(
        R"(12.5=>12.5 | -12.5=>-12.5 | .5=>0.5 | -.5=>-0.5 | 5.=>5 | 5.E2=>500 | 1e+03x=>1000
12 mg=>12 | 1.2.3=>1.2 | 1E=>1 | 1E+=>1 | 1,5=>1 | =>0 | -=>0 | .=>0 | .E2=>0 | +5=>0 |  5=>0
nan=>0 | -inf=>0 | ٣=>0 | 5€=>5 | 1e400=>inf | -1e400=>-inf | 1e-400=>0
5e-324=>4.94065645841247e-324)",
        [](const QStringList& given) { return shown(readNumber(given[0])); });
  }

  void aNumberIsShownInItsFormat() {  // number; format
    compare(
        R"(7;1=>7 | -7;1=>-7 | 12.5;1=>12,50 | 0.001234;1=>0,0012 | -0.25;1=>-0,25
0.996;1=>1,00 | 6.9999999999;1=>7 | 1e20;1=>100000000000000000000 | 1.2345e-8;1=>0,000000012
1.2345e-9;1=>0,0000000012 | 4.9e-10;1=> | -4.9e-10;1=> | 2.5;2=>3 | -2.5;2=>-3 | -0.4;2=>0
1e-10;2=> | 9007199254740992;2=>9007199254740990 | 0.05;3=>0,1 | -0.04;3=>0,0 | 5e-10;3=>0,0
4.9e-10;3=> | 2.675;4=>2,68 | -2.675;4=>-2,68 | 0.125;4=>0,13 | 1234567.891;4=>1234567,89
1.23456;5=>1,235 | 1.23456;6=>1,2346 | 1.23456789;7=>1,23457 | 1.23456789;8=>1,234568
-0.00123;9=>-1,23E-03 | 0.5;10=>,500000000 | 7;11=>7,00 | 0.001234;11=>0,0012 | 1.23456;12=>1,235
-1234;12=>-1234,000 | 0.012345;12=>0,0123 | 1e9;12=>1000000000,000 | 1.0001e9;12=>1,00E+09
1e-9;12=>0,00000000100 | 1.2345e-8;12=>0,0000000123 | 9e-10;12=>9,00E-10 | 0;1=>0 | 0;2=>0
0;3=>0,0 | 0;4=>0,00 | 0;5=>0,000 | 0;8=>0,000000 | 0;9=>0,0000000 | -0;4=>0,00 | 0;11=>0,00
0;12=>0,0000000)",
        [](const QStringList& given) {
          return numberText(given[0].toDouble(), static_cast<Format>(given[1].toInt()));
        });
  }

  void showingANumberChangesTheCallersVariablesButAFaultDoesNot() {
    // value; kind => text; value; kind; reported error
    compare(
        R"(2.675;4=>2,68;2.675;4 | 2.675;-4=>2,68;2.68;4 | -0.04;-3=>0,0;0;3
0.001234;-1=>0,0012;0.0012;1 | 1.23456;-12=>1,235;1.235;12 | 7.126;11=>7,13;7.126;11
7.126;-11=>7,13;7.13;11 | 2.5;2=>3;3;2 | 1500;9=>1,50E+03;'1,50E+03';9
2e9;12=>2,00E+09;'2,00E+09';9 | 4.9e-10;4=>;;4 | 0;-4=>0,00;0;4 | ;4=>0,00;;4
'1,50E+03';4=>1500,00;'1,50E+03';4 | '2,675';-4=>2,68;2.68;4
'Eisen';4=>before;'Eisen';4;13 werteingabe\formz
'Eisen';-4=>before;'Eisen';-4;13 werteingabe\formz | 'nan';4=>before;'nan';4;13 werteingabe\formz
inf;4=>before;inf;4;6 werteingabe\formz)",
        [this](const QStringList& given) {
          NumberCell value = cell(given[0]);
          int kind = given[1].toInt();
          QStringList result{u"before"_s};
          entry_.formz(value, result[0], kind);
          result << joined(shown(value), kind) << std::exchange(questions_.errors, {});
          return result.join(u';');
        });
  }

  void aTypedTextIsReformatted() {  // text; kind
    compare(
        R"(0;4=>0;4 | 7,0;1=>7;1 | 12.5;0=>12,50;1 | 12,5;-3=>12,50;1 | <0,05;1=>0,050;1
2,675;4=>2,68;4 | 0,0005;5=>0,001;5 | 0,5;6=>,50000000;6 | 1500;9=>1,50E+03;9
012,50;10=>12,5;10 | 1,5E+03;4=>1500,00;4)",
        [this](QStringList given) {
          int kind = given[1].toInt();
          entry_.wertformat(given[0], kind);
          return joined(given[0], kind);
        });
  }

  void aTextGetsAFixedNumberOfDecimals() {  // text; decimals
    compare(
        R"(;4=>0,0000 | 0;2=>0,00 | 0;0=>0 | 12,345;0=>12 | 12;0=>12 | 12,345;1=>12,3
2,675;2=>2,68 | -1,25;1=>-1,3 | -0,04;1=>0,0 | 2,0005;3=>2,001 | 5 ;4=>5,0000 | ,5;2=>0,50
12,345;5=>12,345 | ;5=>0,00 | 7,5;-1=>7,5)",
        [this](QStringList given) {
          entry_.formstr(given[0], given[1].toInt());
          return given[0];
        });
  }

  void aDecimalHasFifteenDigitsAndRoundsTiesAwayFromZero() {
    // number; decimals => that many decimals; scientific; all digits
    compare(
        R"(-0;1=>0,0;0,00E+00;0 | 1500;0=>1500;1,50E+03;1500 | 9.999;2=>10,00;1,00E+01;9,999
-9.995;2=>-10,00;-1,00E+01;-9,995 | 0.0009999;4=>0,0010;1,00E-03;0,0009999
0.95;1=>1,0;9,50E-01;0,95 | 0.05;0=>0;5,00E-02;0,05 | -0.5;0=>-1;-5,00E-01;-0,5
-0.04;1=>0,0;-4,00E-02;-0,04 | 0.30000000000000004;3=>0,300;3,00E-01;0,3
0.6666666666666666;16=>0,6666666666666670;6,67E-01;0,666666666666667
123456789012345;1=>123456789012345,0;1,23E+14;123456789012345
9007199254740992;0=>9007199254740990;9,01E+15;9,00719925474099E+15
1e20;0=>100000000000000000000;1,00E+20;1E+20 | 5e-324;2=>0,00;5,00E-324;5E-324)",
        [](const QStringList& given) {
          const Decimal number(given[0].toDouble());
          const QString fixed = number.fixedText(given[1].toInt());
          return QStringList{fixed, number.scientificText(), number.fullText()}.join(u';');
        });
  }

  void aNumberBecomesAFixedPointValueOrAnOverflow() {  // number => raw value
    compare(
        R"(8.2=>82000 | 0.03125=>312 | 0.09375=>938 | -0.03125=>-312 | -0.09375=>-938
500000000000000=>5000000000000000000 | 922337203685477.5807=>error 6
-922337203685477.5808=>-9223372036854775808 | -922337203685478=>error 6 | nan=>error 6
inf=>error 6 | -inf=>error 6)",
        [](const QStringList& given) {
          FixedPoint value;
          const double number = given[0].toDouble();
          const int error = errorOf([&] { value = FixedPoint::fromDouble(number); });
          return error == 0 ? QString::number(value.raw()) : u"error %1"_s.arg(error);
        });
  }

  void fixedPointArithmeticIsExactAndStaysInItsRange() {  // raw values
    compare(
        R"(15000;+;-20000=>-5000 | max;+;1=>max | min;+;-1=>min | max;+;min=>-1 | min;-;1=>min
max;-;-1=>max | 0;-;min=>max | min;-;min=>0 | 1234567891;*;987654321=>121932631211401
5000;*;1=>0 | 5001;*;1=>1 | 15000;*;1=>2 | 25000;*;1=>2 | -5000;*;1=>0 | -15000;*;1=>-2
-25000;*;1=>-2 | max;*;20000=>max | max;*;max=>max | max;*;-20000=>min | min;*;-10000=>max
min;*;10000=>min | 9223372036840000000;*;10000=>9223372036840000000)",
        [](const QStringList& given) {
          const QString kMost = QString::number(FixedPoint::highest().raw());
          const QString kLeast = QString::number(FixedPoint::lowest().raw());
          const auto raw = [&](QString text) {
            text.replace(u"max"_s, kMost).replace(u"min"_s, kLeast);
            return FixedPoint::fromRaw(text.toLongLong());
          };
          const auto compute = given[1] == u"+"_s   ? saturatedSum
                               : given[1] == u"-"_s ? saturatedDifference
                                                    : saturatedProduct;
          const QString result = QString::number(compute(raw(given[0]), raw(given[2])).raw());
          return QString(result).replace(kMost, u"max"_s).replace(kLeast, u"min"_s);
        });
  }

 private:
  ScriptedQuestions questions_;
  Werteingabe entry_{questions_};
};

QTEST_GUILESS_MAIN(EntryTest)

#include "entry_test.moc"
