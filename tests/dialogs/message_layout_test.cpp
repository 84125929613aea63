#include "dialogs/message_layout.h"

#include "support/tables.h"

using namespace calvora;

namespace {

/// Lines given by their lengths, such as "200 50": the first of the letter a, the second of b.
QString linesOf(const QString& lengths) {
  QStringList lines;
  for (const QString& length : lengths.split(u' ')) {
    lines += QString(length.toInt(), QChar(u'a' + static_cast<char16_t>(lines.size())));
  }
  return lines.join(u"\n\r"_s);
}

/// A message from the lengths of its lines, its buttons, its symbol and its place.
Message messageOf(const QStringList& parts) {
  return {.text = linesOf(parts.at(0)),
          .buttons = Buttons::fromInt(parts.at(1).toInt()),
          .title = {},
          .symbol = static_cast<Symbol>(parts.at(2).toInt()),
          .left = parts.value(4).toInt(),
          .top = parts.value(5).toInt()};
}

}  // namespace

class MessageLayoutTest : public QObject {
  Q_OBJECT

 private slots:
  void theWindowFitsItsTextAndItsButtonsStandInARow_data() {
    // lengths of the lines; buttons; symbol; measured text width; left; top
    // => width, height, left edge and height of the text, symbol, index@left of buttons, any place
    rows(
        "5;1;5;=>4000 2700 950 500 5 1@1400 | 5;1;5;;300;700=>4000 2700 950 500 5 1@1400 300;700 | "
        "5;1;5;;300;0=>4000 2700 950 500 5 1@1400 300;0 | 5;1;-1;=>4000 2700 950 500 2 1@1400 | "
        "5;1;5;;0;700=>4000 2700 950 500 5 1@1400 5600;4000 | 5;0;5;=>4000 2700 950 500 5 1@1400 | "
        "1 1 1 1 1;1;5;=>4000 2700 950 1500 5 1@1400 | 1 0;1;5;=>4000 2700 950 1000 5 1@1400 | "
        "1 1 1 1 1 1;1;5;;0;0=>4000 2900 950 1750 5 1@1400 5600;3900 | "
        "1 300;1;5;=>4000 2700 950 750 5 1@1400 | 150 1;1;5;=>11300 2700 950 750 5 1@5050 | "
        "149 1;1;5;;0;0=>16550 2700 950 750 5 1@7675 -675;4000 | "
        "200 50;1;5;=>11300 2700 950 750 5 1@5050 | 1 39 1;16;5;=>5105 2700 950 1000 5 5@1952 | "
        "5;-3;5;=>4000 2700 950 500 5 1@1400 | 5;6;5;=>4000 2700 950 500 5 2@700 3@2100 | "
        "5;17;5;=>4000 2700 950 500 5 1@700 5@2100 | 60 1;6;0;=>5205 2700 250 750 0 2@700 3@3305 | "
        "5;14;5;;0;0=>4600 2700 950 500 5 2@400 3@1700 4@3000 5300;4000 | "
        "5;28;5;=>4600 2700 950 500 5 3@400 4@1700 5@3000 | "
        "39 1;14;5;=>5000 2700 950 750 5 2@400 3@1900 4@3400 | "
        "40 1;14;5;;0;0=>5105 2700 950 750 5 2@700 3@1952 4@3204 5047;4000 | "
        "5;1;0;;0;0=>2000 2700 250 500 0 1@400 5600;4000 | 5;1;5;100=>4000 2700 950 500 5 1@1400 | "
        "5;14;0;=>4400 2700 250 500 0 2@400 3@1600 4@2800 | "
        "5;1;5;6000=>7200 2700 950 500 5 1@3000");
  }
  void theWindowFitsItsTextAndItsButtonsStandInARow() {
    QFETCH(QStringList, given);
    const auto measured = [&](const QString&, int) { return given.at(3).toInt(); };
    const MessageLayout layout =
        layoutMessage(messageOf(given), given.at(3).isEmpty() ? TextWidth() : measured);
    const int symbol = static_cast<int>(layout.symbol);
    QString shown = u"%1 %2 "_s.arg(layout.width).arg(layout.height);
    shown += u"%1 %2 %3"_s.arg(layout.textLeft).arg(layout.textHeight).arg(symbol);
    for (const auto& [index, left] : layout.buttons) shown += u" %1@%2"_s.arg(index).arg(left);
    if (given.size() > 4) shown += u" %1;%2"_s.arg(layout.left).arg(layout.top);
    QTEST(shown, "expected");
    QCOMPARE(layout.buttonTop, layout.height - 1000);
  }

  void aTextWithALineTooLongIsRebuilt() {
    const auto rebuilt = [](const QString& lengths) {
      return layoutMessage(messageOf({lengths, u"1"_s, u"5"_s})).text;
    };
    const QString start = QString(120, u'a') + u"\n\r"_s;
    QCOMPARE(rebuilt(u"149 400"_s), linesOf(u"149 400"_s));
    QCOMPARE(rebuilt(u"150 50"_s), start + linesOf(u"30 50"_s));
    QCOMPARE(rebuilt(u"200 50"_s), start + u". . . "_s + linesOf(u"68 50"_s));
    QCOMPARE(rebuilt(u"2 1 0"_s), u"aa\n\rb\n"_s);  // a break at the end
  }

  void closingTheWindowIsTheCarefulAnswer_data() {  // buttons => the one that closing stands for
    rows(
        "14=>8 | 24=>8 | 6=>4 | 20=>4 | 1=>1 | 2=>2 | 17=>1 | 18=>2 | 15=>error 5 | "
        "23=>error 5 | 30=>error 5 | 31=>error 5 | 33=>error 5");
  }
  void closingTheWindowIsTheCarefulAnswer() {
    QFETCH(QStringList, given);
    const Message message = messageOf({u"1"_s, given.at(0), u"5"_s});
    Button answer{};
    const int error = errorOf([&] { answer = closeAnswer(layoutMessage(message)); });
    const QString told = u"error %1"_s.arg(error);
    QTEST(error == 0 ? QString::number(static_cast<int>(answer)) : told, "expected");
  }

  void theStyleChoosesColoursAndFont_data() {  // style => window, text, buttons; font size
    rows(
        "210|10=>00c000 0000ff ffffff;10 | 210=>00c000 0000ff ffffff;0 | "
        "121|0=>0000ff 00c000 0000ff;0 | 332|8=>00ffff 0000ff 00c000;8 | "
        "443|12=>ffff00 00c000 00ffff;12 | 004=>000000 000000 ffff00;0 | "
        "565=>050000 060000 000000;0 | 787=>070000 080000 000000;0 | "
        "999=>090000 090000 000000;0 | =>none;0");
  }
  void theStyleChoosesColoursAndFont() {
    QFETCH(QStringList, given);
    const MessageLayout layout = layoutMessage({.text = {}, .title = {}, .style = given.at(0)});
    const auto hex = [](quint32 rgb) { return u"%1"_s.arg(rgb, 6, 16, '0'_L1); };
    const auto& c = layout.colours;
    const QString colours =
        c ? hex(c->window) + u' ' + hex(c->text) + u' ' + hex(c->button) : u"none"_s;
    QTEST(colours + u';' + QString::number(layout.fontSize), "expected");
  }

  void linesAreJoinedByLineBreaks() {
    QCOMPARE(joinedLines({{}, u"a"_s, u" b "_s, {}, u"c"_s, {}, {}}), u"\n\ra\n\r b \n\r\n\rc"_s);
  }
};

QTEST_GUILESS_MAIN(MessageLayoutTest)

#include "message_layout_test.moc"
