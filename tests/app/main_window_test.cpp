#include <QClipboard>
#include <QMenuBar>
#include <QTemporaryDir>

#include "model/fields.h"
#include "print/windows/drucker.h"
#include "storage/windows/dateien.h"
#include "support/tables.h"
#include "support/window_support.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

const QString kSaveQuestion = u" Daten vorher speichern ?"_s;

}  // namespace

class MainWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void aWholeAnalysisIsTypedOnTheNumericPad() {
    Mask mask;
    const auto pad = [&](const QString& number) {
      for (const QChar c : number) {
        QTest::keyClick(mask.window.focusWidget(), c.toLatin1(), Qt::KeypadModifier);
      }
      mask.press(Qt::Key_Enter, Qt::KeypadModifier);
    };
    // Ks8,2 is locked by the pH, total hardness, carbonate hardness and the rest follow.
    for (const auto* number : {"420", "7,5", "10", "2.5", ",25", "", "60", "10", "20", ""}) {
      pad(QString::fromLatin1(number));
    }
    QCOMPARE(mask.focusedBox(), 1);
    const QList<std::pair<int, QString>> results{
        {7, u"7,44"_s},   {8, {}},         {9, u"7,35"_s},  {10, u"11,27"_s},
        {11, u"152,5"_s}, {12, u"0,15"_s}, {13, u"11,0"_s}, {14, u"7,3"_s},
        {15, u"0,0"_s},   {20, u"340"_s},  {21, u"7,50"_s}};
    for (const auto& [index, text] : results) QCOMPARE(mask.window.Label2(index).text(), text);
    const QList<std::pair<int, QString>> boxes{
        {1, u"420,0000"_s}, {4, {}},         {6, u"0,2500"_s}, {20, u"10,7"_s},   {21, u"7,0"_s},
        {22, u"3,7"_s},     {23, u"60,0"_s}, {24, u"10,0"_s},  {25, u"20,0000"_s}};
    for (const auto& [index, text] : boxes) QCOMPARE(mask.window.Text1(index).text(), text);
    QCOMPARE(mask.program.record.flag[flag::kStatus], u"1"_s);
  }

  void aRejectedEntryIsToldOnce_data() {
    // What is there before; what is typed; the message; whether it is cleared; the box then
    // focused.
    addRows(
        uR"(
      the value stays           | 1=20   | 2=10   | 1 25       | kept    | 3
      the focus goes on         |        | 2=12,1 | 3 4- 12    | cleared | 3
      the focus comes back      |        | 3=91   | 3 1-90 °C  | cleared | 3
      checked against another   | 5=1    | 4=0,6  | 4          | cleared | 4
      a step finds it           | 24=100 | 20=10  | 8          | cleared | 23
    )"_s);
  }

  void aRejectedEntryIsToldOnce() {
    QFETCH(QStringList, row);
    Mask mask;
    const auto enter = [&](const QString& entry) {
      if (!entry.isEmpty()) mask.enter(entry.section('=', 0, 0).toInt(), entry.section('=', 1));
    };
    enter(row[1]);
    mask.questions.expect(says(row[3]));
    enter(row[2]);
    QCOMPARE(mask.questions.asked.front().title, u"Eingabefehler"_s);
    const int box = row[2].section('=', 0, 0).toInt();
    QCOMPARE(mask.window.Text1(box).text().isEmpty(), row[4] == "cleared"_L1);
    QCOMPARE(mask.program.record.value[box].isZero(), row[4] == "cleared"_L1);
    QCOMPARE(mask.focusedBox(), row[5].toInt());
    mask.press(Qt::Key_Down);  // leaving again must not bring the message back
  }

  // Locked boxes, then where each box leads forward and backward.
  void focusWalksTheBoxesAndSkipsLockedOnes_data() {
    addRows(
        uR"(
        none | | 2 3 4 5 6 20 23 24 25 26 1 | 1 1 2 3 4 5 20 20 23 24 25
        4    | 4 | 2 3 5 5 6 20 23 24 25 26 1 | 1 1 2 3 3 5 20 20 23 24 25
        6    | 6 | 2 3 4 5 20 20 23 24 25 26 1 | 1 1 2 3 4 5 20 20 23 24 25
        all  | 1 2 3 4 5 6 20 23 24 25 26 | 1 2 3 4 5 6 20 23 24 25 26 | 1 2 3 4 5 6 20 23 24 25 26
      )"_s);
  }
  void focusWalksTheBoxesAndSkipsLockedOnes() {
    QFETCH(QStringList, row);
    const QStringList locked = row[1].split(' ');
    const auto isLocked = [&](int box) { return locked.contains(QString::number(box)); };
    QStringList forward;
    QStringList backward;
    for (const int box : typedFields()) {
      forward += QString::number(nextBox(box, 1, isLocked));
      backward += QString::number(nextBox(box, -1, isLocked));
    }
    QCOMPARE(forward.join(' '), row[2]);
    QCOMPARE(backward.join(' '), row[3]);
  }

  void tabWalksTheBoxesThenTheButtons() {
    Mask mask;
    mask.enter(2, u"9"_s);
    mask.focus(1);
    QList<int> walked;
    while (mask.focusedBox() != 0 && walked.size() < 20) {
      walked += mask.focusedBox();
      mask.press(Qt::Key_Tab);
    }
    QCOMPARE(walked, (QList<int>{1, 2, 3, 4, 5, 20, 23, 24, 25, 26}));
    for (const int unit : {1, 3, 4, 5, 6, 20, 23, 24, 25, 26}) {
      QCOMPARE(mask.window.focusWidget(), &mask.window.Command1(unit));
      mask.press(Qt::Key_Tab);
    }
    QCOMPARE(mask.window.focusWidget(), mask.window.Command2);
    mask.press(Qt::Key_Tab);
    QCOMPARE(mask.focusedBox(), 1);
    mask.focus(20);
    mask.press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(mask.focusedBox(), 5);
    // Enter and the arrows lead from box to box, too.
    for (const auto& [key, box] : {std::pair{Qt::Key_Return, 20},
                                   {Qt::Key_Enter, 23},
                                   {Qt::Key_Down, 24},
                                   {Qt::Key_Up, 23},
                                   {Qt::Key_Up, 20}}) {
      mask.press(key);
      QCOMPARE(mask.focusedBox(), box);
    }
  }

  void onlyNumberCharactersEnterABox_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("changed");
    QTest::newRow("digits, comma, period, less-than") << u"<1,2.3"_s << u"<1,2.3"_s << true;
    QTest::newRow("letters") << u"aE%"_s << QString() << false;
    QTest::newRow("minus and quote") << u"-\""_s << QString() << false;
    QTest::newRow("letters between digits") << u"1x2"_s << u"12"_s << true;
  }

  void onlyNumberCharactersEnterABox() {
    QFETCH(QString, typed);
    Mask mask;
    mask.keys(typed);
    QTEST(mask.window.Text1(1).text(), "text");
    QTEST(mask.program.entryChanged, "changed");
  }

  // Box, what is typed there, what is pasted (¶ a line end, → a tab), a message, what the boxes
  // then hold, and which has the focus.
  void pastedNumbersFillTheirBoxes_data() {
    addRows(
        uR"(
      one number          | 5  |     | → 0,25 ¶    | | 5=0,25                          | 5
      a negative one      | 6  |     | -0,3        | | 6=-0,3                          | 6
      at the cursor       | 5  | 1,  | 2           | | 5=1,2                           | 5
      another number      | 5  | 1,2 | 5,5         | | 5=1,2                           | 5
      a minus inside      | 5  | 1   | -2          | | 5=1                             | 5
      with a unit         | 5  | 1   | 0,25 mmol/l | | 5=1                             | 5
      a word between      | 5  |     | 12 abc 5    | | 5=                              | 5
      separated by blanks | 5  |     | 1 5         | | 5= 6=                           | 5
      a difference        | 5  |     | 0-1         | | 5=                              | 5
      a separator alone   | 5  | 1   | ,           | | 5=1                             | 5
      a column            | 20 | 7   | 20¶60¶      | | 20=20,0 23=60,0 24=50,4         | 24
      a row, one locked   | 2  |     | 7,5→10→2.5→,25 | | 2=7,5000 3=10,0000 4= 5=2,5000 6=0,2500 | 20
      up to the last box  | 25 |     | 20¶5        | | 25=20,0000 26=5,0000            | 1
      beyond the last box | 25 |     | 20¶5¶7      | | 25= 26= 1=                      | 25
      one locked meanwhile | 1 | | 420¶7¶10¶2¶1¶9¶8¶7¶6¶5¶4 | | 1= 2= 26=              | 1
      a rejected one      | 3  |     | 91¶1¶3      | 3 1-90 °C | 3= 4=1,0000 5=3,0000  | 3
      a word in a cell    | 23 | 2   | 60¶x¶5      | | 23=2 24= 25=                    | 23
      an empty cell       | 23 |     | 60¶¶5       | | 23= 24= 25=                     | 23
    )"_s);
  }
  void pastedNumbersFillTheirBoxes() {
    QFETCH(QStringList, row);
    Mask mask;
    mask.focus(row[1].toInt());
    mask.keys(row[2]);
    mask.program.entryChanged = false;
    if (!row[4].isEmpty()) mask.questions.expect(says(row[4]));
    QString pasted = row[3];
    QGuiApplication::clipboard()->setText(pasted.replace(u'¶', u"\r\n"_s).replace(u'→', u'\t'));
    mask.press(Qt::Key_V, Qt::ControlModifier);
    for (const QString& pair : row[5].split(' ')) {
      const TextBox& box = mask.window.Text1(pair.section('=', 0, 0).toInt());
      QCOMPARE(box.text(), pair.section('=', 1));
    }
    QCOMPARE(mask.focusedBox(), row[6].toInt());
    QCOMPARE(mask.program.entryChanged, mask.window.Text1(row[1].toInt()).text() != row[2] &&
                                            mask.focusedBox() == row[1].toInt() &&
                                            row[4].isEmpty());
  }

  void whatTheProgramPutsIntoTheFocusedBoxIsTypedOver() {
    Mask mask;
    mask.enter(20, u"20"_s);
    mask.enter(23, u"60"_s);
    QCOMPARE(mask.focusedBox(), 24);
    QCOMPARE(mask.window.Text1(24).text(), u"50,4"_s);  // completed
    QGuiApplication::clipboard()->setText(u"zehn"_s);
    mask.press(Qt::Key_V, Qt::ControlModifier);  // refused, with what was selected
    mask.keys(u"10"_s);
    mask.window.finishEntry();
    QCOMPARE(mask.program.record.value[24], 10_fp);
    mask.keys(u"20"_s);  // the entry was finished without leaving the box
    mask.press(Qt::Key_Enter);
    QCOMPARE(mask.program.record.value[24], 20_fp);
  }

  void composedTextIsTypedOrPasted() {
    Mask mask;
    const auto compose = [&](const QString& text) {
      QInputMethodEvent event;
      event.setCommitString(text);
      QCoreApplication::sendEvent(mask.window.focusWidget(), &event);
      mask.settle();
    };
    for (const auto* part : {"1", ",", "x", "5", "-2"}) compose(QString::fromLatin1(part));
    QCOMPARE(mask.window.Text1(1).text(), u"1,5"_s);
    QVERIFY(mask.program.entryChanged);
  }

  void textFieldsTakeMoreThanKeysCanType() {
    Mask mask;
    Dateien window(Dateien::Mode::kSaveAnalysis, mask.program, mask.questions, mask.desktop,
                   &mask.window);
    window.show();
    for (QWidget* field : std::initializer_list<QWidget*>{window.Text1, window.Text7}) {
      field->setFocus();
      for (const QChar c : u"Weiß é\""_s) {
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_A, QString(c), {});
      }
      QGuiApplication::clipboard()->setText(u"\"Größe\"\n5 µm – é"_s);
      QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    }
    const QString expected = u"Weiss Größe 5 µm – é"_s;
    QCOMPARE(window.Text1->text(), expected);
    QCOMPARE(window.Text7->toPlainText(), expected);
    // A double click selects a word there, as everywhere.
    QTest::mouseDClick(window.Text1, Qt::LeftButton, {}, QPoint(20, 10));
    QCOMPARE(window.Text1->selectedText(), u"Weiss"_s);
  }

  void spaceEmptiesTheBoxAndItsLeavingIsChecked() {
    Mask mask;
    mask.enter(3, u"10"_s);
    mask.enter(4, u"0,5"_s);
    mask.focus(3);
    mask.press(Qt::Key_Space);
    QCOMPARE(mask.focusedBox(), 3);
    QCOMPARE(mask.program.record.text[3], QString());
    QCOMPARE(mask.program.record.text[4], u"0,5000"_s);
    mask.press(Qt::Key_Enter);
    // A temperature deleted takes Ks8,2 with it; an empty entry keeps the focus once.
    QCOMPARE(mask.program.record.text[4], QString());
    QCOMPARE(mask.focusedBox(), 3);
    mask.press(Qt::Key_Enter);
    QCOMPARE(mask.focusedBox(), 4);
  }

  void aQuickSecondEntryIsNotLost() {
    Mask mask;
    // No event loop runs between these keys, as when they come faster than the program.
    const auto quick = [&](auto key) { QTest::keyClick(mask.window.focusWidget(), key); };
    for (const char c : {'4', '2', '0'}) quick(c);
    quick(Qt::Key_Enter);
    quick('7');
    quick(Qt::Key_Tab);
    quick(Qt::Key_Tab);
    mask.settle();
    QCOMPARE(mask.program.record.text[1], u"420,0000"_s);
    QCOMPARE(mask.program.record.text[2], u"7,0000"_s);
    QCOMPARE(mask.focusedBox(), 5);  // 4 was locked under it
  }

  void leavingForAnotherProgramDoesNotFinishAnEntry() {
    Mask mask;
    mask.keys(u"420"_s);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    mask.settle();
    QCOMPARE(mask.program.record.text[1], QString());
    mask.activate();
    mask.keys(u"0"_s);
    mask.press(Qt::Key_Enter);
    QCOMPARE(mask.program.record.text[1], u"4200,0000"_s);
  }

  void commandsFinishTheEntryFirst_data() {
    QTest::addColumn<QString>("command");
    for (const auto* command : {"shortcut", "menu", "button", "close box", "Alt and close box"}) {
      QTest::newRow(command) << QString::fromLatin1(command);
    }
  }

  void commandsFinishTheEntryFirst() {
    QFETCH(QString, command);
    Mask mask;
    mask.focus(3);
    mask.keys(u"99"_s);
    mask.questions.expect(says(u"3 1-90 °C"_s));
    mask.questions.expect(kSaveQuestion, Button::kAbbrechen);
    if (command == "shortcut"_L1) mask.press(Qt::Key_N, Qt::ControlModifier);
    if (command == "menu"_L1) mask.window.mnu_ende->trigger();
    if (command == "button"_L1) QTest::mouseClick(mask.window.Command2, Qt::LeftButton);
    if (command.startsWith("Alt"_L1)) {
      mask.window.menuBar()->setFocus(Qt::MenuBarFocusReason);
      mask.settle();
    }
    if (command.endsWith("close box"_L1)) mask.window.close();
    mask.settle();
    QCOMPARE(mask.questions.complaints(), QString());
    QCOMPARE(mask.questions.asked.back().buttons, Button::kJa | Button::kNein | Button::kAbbrechen);
    QCOMPARE(mask.desktop.ended, 0);
    QVERIFY(mask.window.isVisible());
  }

  void thePhLocksOneCapacity() {
    Mask mask;
    mask.enter(6, u"0,2"_s);
    mask.enter(2, u"8,2"_s);
    QVERIFY(mask.window.Text1(6).isReadOnly());
    QVERIFY(!mask.window.Text1(4).isReadOnly());
    QCOMPARE(mask.program.record.text[6], QString());
    mask.enter(4, u"0,4"_s);
    mask.enter(2, u"7,5"_s);
    QVERIFY(mask.window.Text1(4).isReadOnly());
    QVERIFY(!mask.window.Text1(6).isReadOnly());
    QCOMPARE(mask.program.record.value[4], FixedPoint{});
    mask.enter(2, QString());
    QVERIFY(!mask.window.Text1(4).isReadOnly());
  }

  void aClickSelectsABoxAndALockedOneTakesNothing() {
    Mask mask;
    mask.enter(2, u"7,5"_s);
    const auto click = [&](int box) {
      QTest::mouseClick(&mask.window.Text1(box), Qt::LeftButton);
      mask.settle();
    };
    click(2);
    mask.keys(u"8"_s);
    click(4);  // ruled out
    QCOMPARE(mask.window.Text1(2).text(), u"8,0000"_s);
    mask.keys(u"5"_s);
    mask.press(Qt::Key_Space);
    QVERIFY(!mask.program.entryChanged);
    mask.press(Qt::Key_Enter);
    QCOMPARE(mask.focusedBox(), 5);
    QCOMPARE(mask.window.Text1(2).text(), u"8,0000"_s);
    QCOMPARE(mask.window.Text1(4).text(), QString());
    // A second click sets the cursor, a double click selects the value again.
    click(2);
    click(2);
    QVERIFY(!mask.window.Text1(2).hasSelectedText());
    QTest::mouseDClick(&mask.window.Text1(2), Qt::LeftButton);
    QCOMPARE(mask.window.Text1(2).selectedText(), u"8,0000"_s);
  }

  void theToggleConvertsTheConductivity() {
    Mask mask;
    QVERIFY(!mask.window.Command3->isEnabled());
    QCOMPARE(mask.window.Command3->text(), u"bei Temp."_s);
    mask.enter(1, u"1000"_s);
    mask.enter(3, u"15"_s);
    QCOMPARE(mask.window.Command3->text(), u"bei 15,0000 °C ?"_s);
    QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
    QCOMPARE(mask.window.Text1(1).text(), u"790"_s);
    QCOMPARE(mask.window.Label7->text(), u"15,0000 °C"_s);
    QCOMPARE(mask.window.Command3->text(), u"bei 25 °C ?"_s);
    QCOMPARE(mask.program.record.value[1], 1000_fp);
    QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
    QCOMPARE(mask.window.Text1(1).text(), u"1000,0000"_s);
    QCOMPARE(mask.window.Label7->text(), u"25 °C"_s);
    // Any redisplay shows the stored value, and says so.
    QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
    mask.enter(25, u"20"_s);
    QCOMPARE(mask.window.Text1(1).text(), u"1000,0000"_s);
    QCOMPARE(mask.window.Label7->text(), u"25 °C"_s);
    // It acts on what is true after the entry that was still going on.
    mask.focus(3);
    mask.press(Qt::Key_Space);
    QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
    QVERIFY(!mask.window.Command3->isEnabled());
    QCOMPARE(mask.window.Label7->text(), u"25 °C"_s);
    mask.enter(3, u"15"_s);
    QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
    mask.focus(26);
    mask.keys(u"5"_s);
    QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
    QCOMPARE(mask.window.Text1(1).text(), u"1000,0000"_s);
    QCOMPARE(mask.program.record.value[26], 5_fp);
    // What is typed over the converted value counts at 25 °C.
    mask.focus(1);
    QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
    mask.press(Qt::Key_Enter);
    QCOMPARE(mask.program.record.value[1], 1000_fp);
    mask.focus(1);
    mask.keys(u"500"_s);
    QCOMPARE(mask.window.Label7->text(), u"25 °C"_s);
    mask.press(Qt::Key_Enter);
    QCOMPARE(mask.program.record.value[1], 500_fp);
  }

  void aDroppedTextBelongsToItsBox() {
    Mask mask;
    mask.keys(u"420"_s);
    mask.drop(5, u" 2,5 mmol/l"_s);
    QCOMPARE(mask.window.Text1(5).text(), QString());
    mask.drop(5, u"7"_s);
    mask.drop(5, u" 2,5"_s);
    QCOMPARE(mask.focusedBox(), 5);
    QCOMPARE(mask.program.record.value[1], 420_fp);
    QTest::mouseClick(&mask.window.Text1(5), Qt::LeftButton);
    QVERIFY(!mask.window.Text1(5).hasSelectedText());
    mask.press(Qt::Key_Enter);
    QCOMPARE(mask.program.record.value[5], 2.5_fp);
    mask.drop(25, u"20\n5"_s);
    mask.settle();
    QCOMPARE(mask.program.record.value[26], 5_fp);
  }

  void restartEmptiesEverything() {
    Mask mask;
    mask.enter(1, u"420"_s);
    mask.enter(2, u"7"_s);
    mask.program.header[1] = u"Projekt"_s;
    mask.program.dataPresent = true;
    mask.program.settings.slot[setting::kDataFolder] = u"/gibt/es/nicht"_s;  // is read again
    QVERIFY(mask.window.eincheck());
    mask.questions.expect(kSaveQuestion, Button::kNein);
    mask.focus(20);
    mask.press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(mask.program.record, AnalysisRecord{});
    QCOMPARE(mask.program.fieldIndex, 0);
    QCOMPARE(mask.program.header[1], QString());
    QCOMPARE(mask.program.settings.slot[setting::kDataFolder], mask.folder.filePath(u"daten"_s));
    QVERIFY(!mask.program.entryChanged && !mask.program.dataPresent);
    QVERIFY(!mask.window.eincheck());
    for (const auto& [index, box] : mask.window.Text1) QCOMPARE(box->text(), QString());
    for (const auto& [index, label] : mask.window.Label2) QCOMPARE(label->text(), QString());
    QCOMPARE(mask.questions.complaints(), QString());
    QVERIFY(mask.window.close());
    QCOMPARE(mask.desktop.ended, 1);
  }

  void aTextInAFieldIsDataToPrintAndToSave() {
    Mask mask;
    mask.questions.expect(u"Es sind keine Daten zum speichern  \n\r vorhanden ! "_s);
    mask.press(Qt::Key_S, Qt::ControlModifier);
    for (int field = 0; field <= 40; ++field) {
      mask.program.resetRecord();
      mask.program.record.text[field] = u"1"_s;
      const bool printed = (field >= 2 && field <= 7) || (field >= 20 && field <= 26);
      QCOMPARE(mask.window.eincheck(), printed);
    }
    mask.questions.expect(u"Es sind keine Daten zum drucken  \n\r vorhanden ! "_s);
    mask.press(Qt::Key_P, Qt::ControlModifier);
    mask.program.record.text[26] = u"1"_s;
    onNextModal<Drucker>(this, [](Drucker& window) { window.close(); });
    mask.press(Qt::Key_P, Qt::ControlModifier);
    onNextModal<Dateien>(this, [](Dateien& window) { window.close(); });
    mask.window.mnu_save->trigger();
    QVERIFY(mask.program.dataPresent);
  }

  void aFaultIsReportedAndTheProgramGoesOn() {
    Mask mask;
    const auto fault = [] { throw RuntimeError(ErrorNumber::kDivisionByZero); };
    const auto takeErrors = [&] { return std::exchange(mask.questions.errors, {}); };
    mask.questions.expectAndRaise(says(u"3 4- 12"_s), fault);
    mask.enter(2, u"13"_s);
    QCOMPARE(takeErrors(), QStringList{u"11 main_T1_lostfocus"_s});
    QCOMPARE(mask.window.Text1(2).text(), QString());
    // A fault inside a step: the mask shows what the record holds, and locks what it rules out.
    mask.enter(1, u"20"_s);
    mask.questions.expectAndRaise(says(u"1 25"_s), fault);
    mask.enter(2, u"10"_s);
    QCOMPARE(takeErrors(), QStringList{u"11 main_T1_lostfocus"_s});
    QVERIFY(mask.window.Text1(6).isReadOnly());
    mask.questions.expectAndRaise(kSaveQuestion, fault);
    mask.press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(takeErrors(), QStringList{u"11 main_neustart"_s});
    mask.enter(2, u"7"_s);
    QCOMPARE(mask.program.record.text[2], u"7,0000"_s);
  }

  void theManualOpensOnlyWhereItExists() {
    QTemporaryDir folder;
    Mask mask;
    mask.program.programFolder = folder.path();
    mask.press(Qt::Key_F1);
    QCOMPARE(mask.desktop.opened, QStringList{});
    QFile manual(folder.filePath(u"hb_cvra.pdf"_s));
    QVERIFY(manual.open(QFile::WriteOnly));
    QMetaObject::invokeMethod(mask.window.menuBar()->actions().last()->menu(), "aboutToShow");
    mask.press(Qt::Key_F1);
    QCOMPARE(mask.desktop.opened, QStringList{folder.filePath(u"hb_cvra.pdf"_s)});
  }

  void everyBoxHasANameAndRoom() {
    Mask mask;
    for (const int index : typedFields()) {
      const TextBox& box = mask.window.Text1(index);
      QVERIFY(!box.accessibleName().isEmpty());
      const int needed = box.fontMetrics().horizontalAdvance(u"5000,0000"_s);
      QVERIFY2(box.width() >= needed + 16, qPrintable(box.accessibleName()));
    }
    mask.enter(1, u"1000"_s);
    mask.enter(3, u"88,8888"_s);
    QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
    mask.settle();
    const auto& unit = *mask.window.Label7;
    QVERIFY(unit.width() >= unit.fontMetrics().horizontalAdvance(unit.text()) + 12);
    // At every resolution the window has its designed size, so its content fits into it.
    const double scale = mask.window.logicalDpiX() / 1440.0;
    QCOMPARE(mask.window.size(), QSize(qRound(15000 * scale), qRound(10900 * scale)));
  }
};

CALVORA_TEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
