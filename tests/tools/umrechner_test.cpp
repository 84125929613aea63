// The unit converter: its factors and its window.
#include <QInputDialog>
#include <QScreen>

#include "support/tables.h"
#include "support/window_support.h"
#include "tools/windows/dimum.h"

using namespace calvora;

namespace {

/// The converter that a unit of the mask opens.
dimum& opened(Mask& mask, int field, double value = 0) {
  mask.program.record.value[field] = FixedPoint::fromDouble(value);
  mask.window.Command1(field).click();
  dimum& window = *mask.window.findChild<dimum*>();
  std::ignore = QTest::qWaitForWindowActive(&window);
  return window;
}

QColor background(QWidget& slot) {
  return slot.grab().toImage().pixelColor(4, slot.height() / 2);
}

}  // namespace

class UmrechnerTest : public QObject {
  Q_OBJECT

 private slots:
  void theSlotsShow_data() {  // field; stored value; slot and text typed => slots
    rows(
        "1;1500;0=>1500;1,50;150;0,15;0,15;1500 | 1;1500;2 -2=>-2000;-2;-200;-0,20;-0,20;-2000 | "
        "3;10;2 68=>20;68;527,67;293,15 | 3;10;1 0=>0;32;491,67;273,15 | "
        "3;10;2 =>-17,78;0;459,67;255,37 | 3;10;3 491,67=>0;32;491,67;273,15 | "
        "3;10;4 293,15=>20;68;527,67;293,15 | 2;7;1 5=> | "
        "4;0.5;0=>1,40;1,46;2,50;1,75;25;25;------;------;------;------;0,50;0,50;500;0,50 | "
        "5;0;14 0,5=>1,40;1,46;2,50;1,75;25;25;------;------;------;------;0,50;0,50;500;0,50 | "
        "6;0.5;0=>2,80;2,92;5;3,50;50;50;------;------;------;------;0,50;0,50;500;1 | "
        "20;14;0=>14;14,58;25;17,50;250;250;------;------;------;------;2,50;2,50;2500;5 | "
        "24;24.31;0=>5,60;5,83;10;7;100;100;24,31;24,31;24,31;24310;1;1;1000;2 | "
        "25;35.45;0=>2,80;2,92;5;3,50;50;50;35,45;35,45;35,45;35450;1;1;1000;1 | "
        "26;55.85;0=>5,60;5,83;10;7;100;100;55,85;55,85;55,85;55850;1;1;1000;2 | "
        "23;40.08;0=>5,60;5,83;10;7;100;100;40,08;40,08;40,08;40080;1;1;1000;2 | "
        "25;0.01;0=>0,00079;0,00082;0,0014;0,00099;0,014;0,014;0,010;0,010;0,010;10;0,00028;0,"
        "00028;0,28;0,00028");
  }
  void theSlotsShow() {
    QFETCH(QStringList, given);
    const int slot = given[2].section(' ', 0, 0).toInt();
    const int field = given[0].toInt();
    AnalysisRecord record;
    record.value[field] = FixedPoint::fromDouble(given[1].toDouble());
    Umrechner converter(record, field);
    if (slot != 0) converter.enter(slot, given[2].section(' ', 1));
    QStringList shown;
    for (int i = 1; i <= kUnitSlots; ++i) {
      const QString& text = converter.slot(i).text;
      QCOMPARE(converter.slot(i).enabled, !text.isEmpty() && text != "------"_L1);
      shown += text;
    }
    while (!shown.isEmpty() && shown.last().isEmpty()) shown.removeLast();
    QTEST(shown.join(';'), "expected");
  }

  void aTypedValueIsConvertedAndTakenOver_data() {
    // field; slot; typed; told after it; message on taking it over; then in the mask => own slot
    rows(
        "1;2;1,2,3/5-3/-/2;N/N/N;;2000,0000=>2000 | 1;1;cancel;;disabled;=>7 | "
        "1;1;0;;disabled;=>7 | 1;1;x/cancel;N;disabled;=>7 | 3;1;0;;3 1-90 °C;=>0 | "
        "3;1;10001/25;10000;;25,0000=>25 | 1;3;10000,1/10000;10000;3 0,5 - 5000 µS/cm;=>100000 | "
        "24;14;10001/cancel;10000;disabled;=> | 1;1;99999999999999999999/5;10000;;5,0000=>5 | "
        "23;10;900001/900000;900000;3 0,1 - 700;=>900 | 5;14;,5;;;0,5000=>0,50 | "
        "23;9;10001/10000;10000;3 0,1 - 700;=>10000 | 20;3;25;;;14,0=>14 | "
        "5;14;2,5;;;2,5000=>2,50 | 6;13;125;;;0,1250=>0,13 | 4;1;2,8;;disabled;=>1");
  }
  void aTypedValueIsConvertedAndTakenOver() {
    QFETCH(QStringList, given);
    QFETCH(QString, expected);
    const int field = given[0].toInt();
    const int slot = given[1].toInt();
    const QStringList typed = given[2].split('/');
    const QString& message = given[4];
    Mask mask;
    mask.enter(2, u"7"_s);  // rules Ks8,2 out, which stays locked
    mask.enter(3, u"10"_s);
    mask.enter(6, u"0,25"_s);
    mask.program.record.flag.clear();
    dimum& window = opened(mask, field, 7);
    QVERIFY(!mask.window.isEnabled() && window.isEnabled() && !window.isModal());
    mask.desktop.texts = QStringList(typed).replaceInStrings(u"cancel"_s, QString());
    for (const QString& told : given[3].split('/', Qt::SkipEmptyParts)) {
      mask.questions.expect(says(told == 'N'_L1 ? u"not-a-number"_s : u"too-large "_s + told));
    }
    const auto& clicked = typed.size() > 1 ? window.Label1 : window.Label3;
    QTest::mouseClick(&clicked(slot), Qt::LeftButton);
    QCOMPARE(mask.desktop.textRequests.size(), static_cast<size_t>(typed.size()));
    QCOMPARE(mask.desktop.textRequests[0].title, u"Eingabe"_s);
    QCOMPARE(
        mask.desktop.textRequests[0].prompt,
        mask.window.Label5(field).text() + u"   in    "_s + window.Label1(slot).text().trimmed());
    QCOMPARE(window.Label3(window.Text2).text(), expected);
    const bool emptied = expected.isEmpty();
    for (const auto& [index, value] : window.Label3) QVERIFY(!emptied || value->text().isEmpty());

    const bool disabled = message == "disabled"_L1;
    QCOMPARE(window.Command1->isEnabled(), !disabled);
    // Only the check of the conductivity does not ask for the value again.
    const bool again = !disabled && !message.isEmpty() && field != 1;
    if (disabled) {
      window.close();
    } else {
      if (!message.isEmpty()) mask.questions.expect(says(message));
      QTest::mouseClick(window.Command1, Qt::LeftButton);
      QCOMPARE(mask.window.Text1(field).text(), given[5]);
      QCOMPARE(mask.program.record.flag[flag::kStatus], u"1"_s);
      QCOMPARE(mask.program.fieldIndex, field);
      QCOMPARE(mask.window.Label2(11).text().isEmpty(), field != 5);  // recalculated
    }
    QCOMPARE(window.isVisible(), again);
    QCOMPARE(mask.window.isEnabled(), !again);
    if (again) return;
    mask.activate();
    QCOMPARE(mask.focusedBox(), field == 4 ? 5 : field);
  }

  void theMaskComesBackHoweverTheConverterCloses() {
    for (const QString& way : {u"abbrechen"_s, u"Escape"_s, u"close box"_s}) {
      Mask mask;
      mask.enter(3, u"20"_s);
      dimum& window = opened(mask, 3, 20);
      // A fault is reported, the mask shows what the record holds, and the way out stays open.
      const auto fault = [] { throw RuntimeError(ErrorNumber::kOverflow); };
      mask.desktop.texts = {u"x"_s, u"200"_s};
      mask.questions.expect(says(u"not-a-number"_s), Button::kOk, fault);
      QTest::mouseClick(&window.Label1(1), Qt::LeftButton);
      QTest::mouseClick(&window.Label1(1), Qt::LeftButton);
      mask.questions.expect(says(u"3 1-90 °C"_s), Button::kOk, fault);
      QTest::mouseClick(window.Command1, Qt::LeftButton);
      QCOMPARE(std::exchange(mask.questions.errors, {}),
               (QStringList{u"6 dimum\\labclick"_s, u"6 dimum\\command1"_s}));
      QCOMPARE(mask.window.Text1(3).text(), QString());
      QVERIFY(!mask.window.isEnabled() && window.isVisible());
      if (way == "abbrechen"_L1) QTest::mouseClick(window.Command2, Qt::LeftButton);
      if (way == "Escape"_L1) QTest::keyClick(&window, Qt::Key_Escape);
      if (way == "close box"_L1) window.close();
      QVERIFY(mask.window.isEnabled() && !window.isVisible());
      mask.activate();
      QCOMPARE(mask.focusedBox(), 3);
    }
  }

  void keysReachAndOpenASlot() {
    Mask mask;
    QPushButton& unit = mask.window.Command1(20);
    for (int i = 0; i < 20 && !unit.hasFocus(); ++i) mask.press(Qt::Key_Tab);
    mask.press(Qt::Key_Enter);
    dimum& window = *mask.window.findChild<dimum*>();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTRY_COMPARE(window.focusWidget(), &window.Label1(1));
    const auto press = [&](Qt::Key key) {
      QTest::keyClick(window.focusWidget(), key);
      return window.focusWidget();
    };
    QCOMPARE(press(Qt::Key_Right), &window.Label1(1));  // beside it none can be clicked
    for (const int next : {2, 3, 4, 5, 6, 11}) QCOMPARE(press(Qt::Key_Down), &window.Label1(next));
    QCOMPARE(background(window.Label1(11)), QColor(0x0000c0));
    QCOMPARE(press(Qt::Key_Left), &window.Label1(4));
    QCOMPARE(background(window.Label1(11)), QColor(0xffff00));
    mask.desktop.texts = {u"17,5"_s};
    press(Qt::Key_Enter);
    QCOMPARE(window.Label3(1).text(), u"14"_s);
    QTest::mouseMove(window.windowHandle(), window.Label1(3).mapTo(&window, QPoint(5, 5)));
    QCOMPARE(background(window.Label3(3)), QColor(0x0000c0));
    QCOMPARE(background(window.Label1(4)), QColor(0xffff00));
    QCOMPARE(press(Qt::Key_Tab), window.Command1);
    press(Qt::Key_Enter);
    QVERIFY(!window.isVisible());
    QCOMPARE(mask.window.Text1(20).text(), u"14,0"_s);
  }

  void theInputBoxIsFullyVisible() {
    RealDesktop desktop;
    QWidget parent;
    for (const bool accept : {true, false}) {
      onNextModal<QInputDialog>(this, [accept](QInputDialog& box) {
        QVERIFY(box.screen()->availableGeometry().contains(box.frameGeometry()));
        auto* line = box.findChild<QLineEdit*>();
        QTest::keyClicks(line, u"12,5"_s);
        QTest::keyClick(line, accept ? Qt::Key_Enter : Qt::Key_Escape);
      });
      QCOMPARE(desktop.askText(&parent, {u"Eingabe"_s, u"Leitfähigkeit  gemessen"_s, 6200, 8400}),
               accept ? std::optional(u"12,5"_s) : std::nullopt);
    }
  }
};

CALVORA_TEST_MAIN(UmrechnerTest)
#include "umrechner_test.moc"
