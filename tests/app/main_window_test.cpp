#include <QClipboard>
#include <QMenuBar>
#include <QTemporaryDir>

#include "storage/dateien.h"
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
  void aWholeAnalysisIsTypedOnTheNumericPad();
  void everyMessageComesFromARealEntry_data();
  void everyMessageComesFromARealEntry();
  void keysMoveTheFocus();
  void tabWalksTheBoxesThenTheButtons();
  void onlyNumberCharactersEnterABox_data();
  void onlyNumberCharactersEnterABox();
  void pastedTextPassesTheFilter_data();
  void pastedTextPassesTheFilter();
  void spaceEmptiesTheBoxAndItsLeavingIsChecked();
  void aQuickSecondEntryIsNotLost();
  void aRejectedEntryKeepsTheFocusAndIsReportedOnce();
  void leavingForAnotherProgramDoesNotFinishAnEntry();
  void commandsFinishTheEntryFirst_data();
  void commandsFinishTheEntryFirst();
  void thePhLocksOneCapacity();
  void theToggleConvertsTheConductivity();
  void theToggleActsOnWhatIsTrueAfterTheEntry();
  void aDroppedTextBelongsToItsBox();
  void typingOverAConvertedConductivityEntersItAt25Degrees();
  void restartEmptiesEverything();
  void aFaultIsReportedAndTheProgramGoesOn();
  void theManualOpensOnlyWhereItExists();
  void everyBoxHasANameAndRoom();
};

void MainWindowTest::aWholeAnalysisIsTypedOnTheNumericPad() {
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
  const QList<std::pair<int, QString>> results{{7, u"7,44"_s},   {8, {}},          {9, u"7,35"_s},
                                               {10, u"11,27"_s}, {11, u"152,5"_s}, {12, u"0,15"_s},
                                               {13, u"11,0"_s},  {14, u"7,3"_s},   {15, u"0,0"_s},
                                               {20, u"340"_s},   {21, u"7,50"_s}};
  for (const auto& [index, text] : results) QCOMPARE(mask.window.Label2(index).text(), text);
  const QList<std::pair<int, QString>> boxes{
      {1, u"420,0000"_s}, {4, {}},         {6, u"0,2500"_s}, {20, u"10,7"_s},   {21, u"7,0"_s},
      {22, u"3,7"_s},     {23, u"60,0"_s}, {24, u"10,0"_s},  {25, u"20,0000"_s}};
  for (const auto& [index, text] : boxes) QCOMPARE(mask.window.Text1(index).text(), text);
  QCOMPARE(mask.program.record.flag[flag::kStatus], u"1"_s);
}

void MainWindowTest::everyMessageComesFromARealEntry_data() {
  // What is there before; what is typed; the message; whether it is cleared; the box then focused.
  addRows(
      uR"(
    conductivity too low for the pH | 1=20   | 2=10     | 1 25                | kept    | 3
    zero Ks4,3                      |        | 5=0      | 2 Ks4,3             | cleared | 6
    conductivity                    |        | 1=0,4    | 3 0,5 - 5000 µS/cm  | cleared | 2
    conductivity above              |        | 1=5001   | 3 0,5 - 5000 µS/cm  | cleared | 2
    pH                              |        | 2=12,1   | 3 4- 12             | cleared | 3
    temperature                     |        | 3=91     | 3 1-90 °C           | cleared | 3
    total hardness beyond all       |        | 20=99999999999999999999 | 3 0,05 - 100 °d | cleared | 20
    calcium                         |        | 23=0,05  | 3 0,1 - 700         | cleared | 23
    magnesium                       |        | 24=421   | 3 0,1 - 420␣        | cleared | 24
    chloride                        |        | 25=501   | 3 0,01 - 500        | cleared | 25
    iron                            |        | 26=20,1  | 3 0,01 - 20         | cleared | 26
    Ks8,2 above half of Ks4,3       | 5=1    | 4=0,6    | 4                   | cleared | 4
    Ks4,3 below twice Ks8,2         | 4=0,5  | 5=0,9    | 5 1,00              | cleared | 5
    a minimum with three decimals   | 4=0,004 | 5=0,004 | 5 0,008             | cleared | 5
    Ks8,2                           |        | 4=11     | 6  0 - 10           | cleared | 5
    Ks4,3                           |        | 5=8      | 6  0 - 7,0          | cleared | 6
    Kb8,2                           |        | 6=2,6    | 6  0 - 2,5          | cleared | 20
    total hardness below calcium    | 23=100 | 20=10    | 7                   | cleared | 23
    total hardness below magnesium  | 24=100 | 20=10    | 8                   | cleared | 23
    calcium above total hardness    | 20=10  | 23=100   | 9                   | cleared | 24
    magnesium above total hardness  | 20=10  | 24=100   | 10                  | cleared | 25
    pH above what Ks8,2 admits      | 4=0,5  | 2=11     | 11 10,7             | cleared | 3
    Ks8,2 below what the pH needs   | 2=10,5 | 4=0,2    | 12 0,32             | cleared | 5
    Kb8,2 beside Ks8,2              | 4=0,5  | 6=0,1    | 13                  | cleared | 20
    Ks8,2 beside Kb8,2              | 6=0,1  | 4=0,5    | 13                  | cleared | 5
  )"_s);
}

void MainWindowTest::everyMessageComesFromARealEntry() {
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

void MainWindowTest::keysMoveTheFocus() {
  Mask mask;
  const auto leadsTo = [&](int from, Qt::Key key) {
    mask.focus(from);
    mask.press(key);
    return mask.focusedBox();
  };
  QCOMPARE(leadsTo(6, Qt::Key_Return), 20);
  QCOMPARE(leadsTo(20, Qt::Key_Enter), 23);
  QCOMPARE(leadsTo(26, Qt::Key_Down), 1);
  QCOMPARE(leadsTo(1, Qt::Key_Up), 1);
  mask.enter(2, u"7,5"_s);
  QCOMPARE(leadsTo(3, Qt::Key_Down), 5);
  QCOMPARE(leadsTo(5, Qt::Key_Up), 3);
  mask.enter(2, u"8,2"_s);
  QCOMPARE(leadsTo(5, Qt::Key_Enter), 20);
}

void MainWindowTest::tabWalksTheBoxesThenTheButtons() {
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
}

void MainWindowTest::onlyNumberCharactersEnterABox_data() {
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("text");
  QTest::addColumn<bool>("changed");
  QTest::newRow("digits, comma, period, less-than") << u"<1,2.3"_s << u"<1,2.3"_s << true;
  QTest::newRow("letters") << u"aE%"_s << QString() << false;
  QTest::newRow("minus and quote") << u"-\""_s << QString() << false;
  QTest::newRow("letters between digits") << u"1x2"_s << u"12"_s << true;
}

void MainWindowTest::onlyNumberCharactersEnterABox() {
  QFETCH(QString, typed);
  Mask mask;
  mask.keys(typed);
  QTEST(mask.window.Text1(1).text(), "text");
  QTEST(mask.program.entryChanged, "changed");
}

void MainWindowTest::pastedTextPassesTheFilter_data() {
  QTest::addColumn<QString>("pasted");
  QTest::addColumn<QString>("text");
  QTest::newRow("with unit and blanks") << u" 0,25 mmol/l\n"_s << u"0,25"_s;
  QTest::newRow("negative") << u"-0,3"_s << u"-0,3"_s;
  QTest::newRow("minus inside") << u"0-1"_s << u"01"_s;
  QTest::newRow("nothing of a number") << u"abc"_s << QString();
}

void MainWindowTest::pastedTextPassesTheFilter() {
  QFETCH(QString, pasted);
  QFETCH(QString, text);
  Mask mask;
  mask.focus(6);
  QGuiApplication::clipboard()->setText(pasted);
  mask.press(Qt::Key_V, Qt::ControlModifier);
  QCOMPARE(mask.window.Text1(6).text(), text);
  QCOMPARE(mask.program.entryChanged, !text.isEmpty());
  mask.press(Qt::Key_Enter);
  QCOMPARE(mask.program.record.value[6].isZero(), text.isEmpty());
}

void MainWindowTest::spaceEmptiesTheBoxAndItsLeavingIsChecked() {
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

void MainWindowTest::aQuickSecondEntryIsNotLost() {
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

void MainWindowTest::aRejectedEntryKeepsTheFocusAndIsReportedOnce() {
  Mask mask;
  mask.questions.expect(says(u"3 1-90 °C"_s));
  mask.focus(3);
  mask.keys(u"99"_s);
  QTest::mouseClick(&mask.window.Text1(26), Qt::LeftButton);
  mask.settle();
  QCOMPARE(mask.focusedBox(), 3);
}

void MainWindowTest::leavingForAnotherProgramDoesNotFinishAnEntry() {
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

void MainWindowTest::commandsFinishTheEntryFirst_data() {
  QTest::addColumn<QString>("command");
  for (const auto* command : {"shortcut", "menu", "button", "close box", "Alt and close box"}) {
    QTest::newRow(command) << QString::fromLatin1(command);
  }
}

void MainWindowTest::commandsFinishTheEntryFirst() {
  QFETCH(QString, command);
  Mask mask;
  mask.focus(3);
  mask.keys(u"99"_s);
  mask.questions.expect(says(u"3 1-90 °C"_s));
  mask.questions.expect(kSaveQuestion, button::kAbbrechen);
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
  QCOMPARE(mask.desktop.ended, 0);
  QVERIFY(mask.window.isVisible());
}

void MainWindowTest::thePhLocksOneCapacity() {
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
  // With the capacity goes what was computed from it.
  mask.enter(3, u"10"_s);
  mask.enter(5, u"2"_s);
  mask.enter(2, u"8,5"_s);
  mask.enter(4, u"0,05"_s);
  QVERIFY(!mask.window.Label2(7).text().isEmpty() && !mask.window.Label2(11).text().isEmpty());
  mask.enter(2, u"7,5"_s);
  for (const int result : {7, 8, 11, 12, 13, 21}) {
    QCOMPARE(mask.window.Label2(result).text(), QString());
  }
  mask.enter(6, u"0,25"_s);
  QVERIFY(!mask.window.Label2(7).text().isEmpty() && !mask.window.Label2(13).text().isEmpty());
  mask.enter(2, u"8,5"_s);
  for (const int result : {7, 13, 14, 15}) QCOMPARE(mask.window.Label2(result).text(), QString());
  mask.enter(2, QString());
  mask.press(Qt::Key_Enter);
  // A box that is being locked under the focus hands it on.
  mask.focus(2);
  mask.keys(u"7"_s);
  QTest::mouseClick(&mask.window.Text1(4), Qt::LeftButton);
  mask.settle();
  QCOMPARE(mask.focusedBox(), 5);
}

void MainWindowTest::theToggleConvertsTheConductivity() {
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
}

void MainWindowTest::theToggleActsOnWhatIsTrueAfterTheEntry() {
  Mask mask;
  mask.enter(1, u"1000"_s);
  mask.enter(3, u"15"_s);
  mask.focus(3);
  mask.press(Qt::Key_Space);
  QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
  QVERIFY(!mask.window.Command3->isEnabled());
  QCOMPARE(mask.window.Text1(1).text(), u"1000,0000"_s);
  QCOMPARE(mask.window.Label7->text(), u"25 °C"_s);
  mask.enter(3, u"15"_s);
  QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
  mask.focus(25);
  mask.keys(u"20"_s);
  QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
  QCOMPARE(mask.window.Text1(1).text(), u"1000,0000"_s);
  QCOMPARE(mask.program.record.value[25], 20_fp);
}

void MainWindowTest::aDroppedTextBelongsToItsBox() {
  Mask mask;
  mask.keys(u"420"_s);
  mask.drop(5, u" 2,5 mmol/l"_s);
  QCOMPARE(mask.focusedBox(), 5);
  QCOMPARE(mask.program.record.value[1], 420_fp);
  mask.press(Qt::Key_Enter);
  QCOMPARE(mask.program.record.value[5], 2.5_fp);
}

void MainWindowTest::typingOverAConvertedConductivityEntersItAt25Degrees() {
  Mask mask;
  mask.enter(1, u"1000"_s);
  mask.enter(3, u"15"_s);
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

void MainWindowTest::restartEmptiesEverything() {
  Mask mask;
  mask.enter(1, u"420"_s);
  mask.enter(2, u"7"_s);
  mask.program.header[1] = u"Projekt"_s;
  mask.program.dataPresent = true;
  QVERIFY(mask.window.eincheck());
  mask.questions.expect(kSaveQuestion, button::kNein);
  mask.focus(20);
  mask.press(Qt::Key_N, Qt::ControlModifier);
  QCOMPARE(mask.program.record, AnalysisRecord{});
  QCOMPARE(mask.program.fieldIndex, 0);
  QCOMPARE(mask.program.header[1], QString());
  QVERIFY(!mask.program.entryChanged && !mask.program.dataPresent);
  QVERIFY(!mask.window.eincheck());
  for (const auto& [index, box] : mask.window.Text1) QCOMPARE(box->text(), QString());
  for (const auto& [index, label] : mask.window.Label2) QCOMPARE(label->text(), QString());
  QCOMPARE(mask.questions.complaints(), QString());
  QVERIFY(mask.window.close());
}

void MainWindowTest::aFaultIsReportedAndTheProgramGoesOn() {
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

void MainWindowTest::theManualOpensOnlyWhereItExists() {
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

void MainWindowTest::everyBoxHasANameAndRoom() {
  Mask mask;
  for (const int index : kInputFields) {
    const TextBox& box = mask.window.Text1(index);
    QVERIFY(!box.accessibleName().isEmpty());
    const int needed = box.fontMetrics().horizontalAdvance(u"5000,0000"_s);
    QVERIFY2(box.width() >= needed + 16, qPrintable(box.accessibleName()));
  }
  for (const auto& [index, label] : mask.window.Label5) {
    QVERIFY2(label->width() >= label->fontMetrics().horizontalAdvance(label->text()),
             qPrintable(label->text()));
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

CALVORA_TEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
