#include <QClipboard>
#include <QMenuBar>
#include <QStatusBar>

#include "model/fields.h"
#include "print/windows/drucker.h"
#include "storage/windows/dateien.h"
#include "support/tables.h"
#include "support/window_support.h"

using namespace calvora;

class MainWindowTest : public QObject {
  Q_OBJECT

 private slots:
  // ⏎ ↓ ↑ ⇥ ␣ ⌫, ⟲ undo and ⟳ redo are keys, and so is every other character; @5 clicks into box 5
  // and D5 doubly, V pastes, C composes, T5: drops on box 5 (¶ a line end, → a tab), K clicks the
  // toggle. No event loop runs within a step. Then the message that comes; what boxes and L
  // displays show; K, what box 1, the toggle and the unit show; the box with the focus (@), locked
  // ones (#), and ! where the entry is going on.
  void entriesGoTheirWay_data() {
    addRows(
        uR"(
      a whole analysis  | 420⏎ 7,5⏎ 10⏎ 2.5⏎ ,25⏎ ⏎ 60⏎ 10⏎ 20⏎ ⏎ | | 1=420,0000 4= 6=0,2500 20=10,7 21=7,0 22=3,7 23=60,0 24=10,0 25=20,0000 L7=7,44 L8= L9=7,35 L10=11,27 L11=152,5 L12=0,15 L13=11,0 L14=7,3 L15=0,0 L20=340 L21=7,50 #4 @1
      faster than the program   | 420⏎7⇥⇥        |            | 1=420,0000 2=7,0000 #4 @5
      number characters         | <1,2.3         |            | 1=<1,2.3 @1 !
      no number characters      | aE%-ß          |            | 1= @1
      space empties             | @3 10⏎ 0,5⏎ @3 ␣ |          | 3= 4=0,5000 @3 !
      what is emptied is checked | @3 10⏎ 0,5⏎ @3 ␣ ⏎ |       | 3= 4= @3
      once                      | @3 10⏎ @3 ␣ ⏎ ⏎ |           | 3= @4
      walked with the keys      | @6 ↓↓↓↑↑       |            | @20
      the value stays           | 20⏎ 10⏎        | 1 25       | 1=20,0000 2=10,0000 #6 @3
      the focus goes on         | @2 12,1⏎       | 3 4- 12    | 2= @3
      the focus comes back      | @3 91⏎         | 3 1-90 °C  | 3= @3
      a step finds it           | @24 100⏎ @20 10⏎ | 8        | 20= 24=100,0 @23

      a high pH                 | @6 0,2⏎ @2 8,2⏎ |           | 6= #6 @3
      a low one                 | @2 9⏎ @4 0,4⏎ @2 7,5⏎ |     | 4= #4 @3
      none                      | @2 9⏎ @2 ⌫⏎    |            | 2= @2
      a locked one is clicked   | @2 7,5⏎ @2 8 @4 5␣ |        | 2=8,0000 4= #4 @4
      and left                  | @2 7,5⏎ @4 5␣ ⏎ |           | 2=7,5000 4= #4 @5
      a double click            | @2 7,5⏎ @2 @2 D2 8⏎ |       | 2=8,0000 #4 @3
      completed in the next box | @20 20⏎ 60⏎    |            | 20=20,0 23=60,0 24=50,4 @24
      after a refused paste     | @20 20⏎ 60⏎ Vzehn 10⏎ |     | 20=10,7 23=60,0 24=10,0 @25

      one number                | @5 V→0,25→¶    |            | 5=0,25 @5 !
      a negative one            | @6 V-0,3       |            | 6=-0,3 @6 !
      at the cursor             | @5 1, V2       |            | 5=1,2 @5 !
      a minus inside            | @5 1 V-2       |            | 5=1 @5 !
      separated by blanks       | V1_5           |            | 1= 2= @1
      a difference              | V0-1           |            | 1= @1
      a separator alone         | @5 1 V,        |            | 5=1 @5 !
      a column                  | @20 7 V20¶60¶  |            | 20=20,0 23=60,0 24=50,4 @24
      a row, one locked         | @2 V7,5→10→2.5→,25 |        | 2=7,5000 3=10,0000 4= 5=2,5000 6=0,2500 #4 @20
      over what is selected     | 420⏎ @1 V420,5¶7 |          | 1=420,5000 2=7,0000 #4 @3
      up to the last box        | @25 V20¶5      |            | 25=20,0000 26=5,0000 @1
      beyond it                 | @25 V20¶5¶7    |            | 25= 26= @25
      one locked meanwhile      | V420¶7¶10¶2¶1¶9¶8¶7¶6¶5¶4 | | 1= 2= 26= @1
      a rejected one            | @3 V91¶1¶3     | 3 1-90 °C  | 3= 4=1,0000 5=3,0000 @3
      a word in a cell          | @23 2 V60¶x¶5  |            | 23=2 24= @23 !
      an empty cell             | @23 V60¶¶5     |            | 23= 24= 25= @23

      composed in part          | C5x            |            | 1= @1
      composed                  | C7 C_ C1 C, Cx C5 C-2 |     | 1=1,5 @1 !
      dropped                   | 420 T5:2,5 ⏎   |            | 1=420,0000 5=2,5000 @6
      dropped on another        | T5:7 T5:2,5 ⏎  |            | 5=2,5000 @6
      dropped with a unit       | T5:2,5_mmol/l  |            | 5= @5
      a dropped column          | T25:20¶5       |            | 25=20,0000 26=5,0000 @1

      nothing to convert yet    | 1000⏎          |            | K1000,0000;bei_Temp.;25_°C @2
      converted            | 1000⏎ @3 15⏎ K |   | K790;bei_25_°C_?;15,0000_°C #1
      converted back       | 1000⏎ @3 15⏎ K K | | 1=1000,0000 K1000,0000;bei_15,0000_°C_?;25_°C
      any redisplay        | 1000⏎ @3 15⏎ K @25 20⏎ |   | K1000,0000;bei_15,0000_°C_?;25_°C @26
      its entry is ended   | 1000⏎ @3 15⏎ @3 ␣ K |      | 3= K1000,0000;bei_Temp.;25_°C
      back after an entry  | 1000⏎ @3 15⏎ K @26 5 K |   | 26=5,0000 K1000,0000;bei_15,0000_°C_?;25_°C
      left as converted    | 1000⏎ @3 15⏎ @1 K ⏎ K |    | 1=1000,0000
      typed over converted | 1000⏎ @3 15⏎ @1 K @1 500 | | K500;bei_15,0000_°C_?;25_°C @1 !
      it counts at 25 °C   | 1000⏎ @3 15⏎ @1 K @1 500⏎ || 1=500,0000 @2

      undone               | 420⏎ 7,5⏎ ⟲         |        | 1=420,0000 2= L10=n.b. @2
      what was deleted     | @2 9⏎ @4 0,4⏎ @2 7,5⏎ ⟲ |    | 2=9,0000 4=0,4000 #6 @2
      what was completed   | @20 8⏎ 40⏎ ⟲        |        | 20=8,0 23= 24= @23
      what was rejected    | @3 10⏎ @3 91⏎ ⟲     | 3 1-90 °C | 3=10,0000 @3
      done again           | 420⏎ 7,5⏎ ⟲⟲⟳⟳      |        | 1=420,0000 2=7,5000 #4 @2
      and gone on          | 420⏎ 7⏎ ⟲ 8⏎ ⟳ ⟲⟲   |        | 1= 2= @1
      a pasted column      | @20 V20¶60¶¶ @20 V20¶60¶ ⟲ | | 20= 23= 24= @20
      typing first         | 420⏎ @1 99⟲         |        | 1=420,0000 @1
      then the entry       | 420⏎ @1 99⟲⟲        |        | 1= @1
      typed again          | 420⏎ @1 99⟲⟳⏎       |        | 1=99,0000 @2
      an emptied field     | 420⏎ @1 ␣⟲          |        | 1=420,0000 @1
      emptied and typed    | 420⏎ @1 ␣5⟲⟲        |        | 1=420,0000 @1
      more than there is   | 420⏎ ⟲⟲⟲⟳⟳⟳         |        | 1=420,0000 @1
    )"_s);
  }
  void entriesGoTheirWay() {
    QFETCH(QStringList, row);
    Mask mask;
    if (!row[2].isEmpty()) mask.questions.expect(says(row[2]));
    for (const QString& step : row[1].split(' ')) play(mask, step);
    QList<int> locked;
    for (const QString& expected : row[3].split(' ')) {
      const int index = expected.mid(1).section('=', 0, 0).toInt();
      if (expected.startsWith('@'_L1)) QCOMPARE(mask.focusedBox(), index);
      if (expected.startsWith('#'_L1)) locked += index;
      if (expected.startsWith('K'_L1)) {
        const auto& [box, toggle, unit] =
            std::tie(mask.window.Text1(1), *mask.window.Command3, *mask.window.Label7);
        const QStringList shown{box.text(), toggle.text(), unit.text()};
        QCOMPARE('K'_L1 + shown.join(';').replace(' ', '_'), expected);
        QCOMPARE(toggle.isEnabled(), shown[1] != "bei Temp."_L1);
      } else if (expected.startsWith('L'_L1)) {
        QCOMPARE(mask.window.Label2(index).text(), expected.section('=', 1));
      } else if (expected.contains('='_L1)) {
        const int box = expected.section('=', 0, 0).toInt();
        QCOMPARE(mask.window.Text1(box).text(), expected.section('=', 1));
        if (!row[3].endsWith('!'_L1))
          QCOMPARE(mask.program.record.text[box], expected.section('=', 1));
        QCOMPARE(mask.program.record.value[box].isZero(), mask.program.record.text[box].isEmpty());
      }
    }
    for (const int box : typedFields()) {
      QCOMPARE(mask.window.Text1(box).isReadOnly(), locked.contains(box));
    }
    QCOMPARE(mask.program.entryChanged, row[3].endsWith('!'_L1));
    if (!mask.questions.asked.empty()) QCOMPARE(mask.program.record.flag[flag::kStatus], u"1"_s);
    if (!mask.program.entryChanged) mask.press(Qt::Key_Down);  // must not bring the message back
  }

  void focusWalksTheBoxesAndSkipsLockedOnes() {
    const auto walk = [](const std::vector<int>& locked, int step) {
      QStringList walked;
      for (const int box : typedFields()) {
        const auto isLocked = [&](int other) { return std::ranges::count(locked, other) > 0; };
        walked += QString::number(nextBox(box, step, isLocked));
      }
      return walked.join(' ');
    };
    QCOMPARE(walk({}, 1), u"2 3 4 5 6 20 23 24 25 26 1"_s);
    QCOMPARE(walk({4}, 1), u"2 3 5 5 6 20 23 24 25 26 1"_s);
    QCOMPARE(walk({4}, -1), u"1 1 2 3 3 5 20 20 23 24 25"_s);
    QCOMPARE(walk(typedFields(), 1), u"1 2 3 4 5 6 20 23 24 25 26"_s);
  }

  void tabWalksTheBoxesThenTheButtons() {
    Mask mask;
    mask.enter(2, u"9"_s);
    mask.focus(1);
    QList<QWidget*> order;
    for (const int box : {1, 2, 3, 4, 5, 20, 23, 24, 25, 26}) order += &mask.window.Text1(box);
    for (const int unit : {1, 3, 4, 5, 6, 20, 23, 24, 25, 26}) order += &mask.window.Command1(unit);
    for (QWidget* next :
         order + QList<QWidget*>{mask.window.Command2, mask.window.Command4, order[0]}) {
      QCOMPARE(mask.window.focusWidget(), next);
      mask.press(Qt::Key_Tab);
    }
    mask.focus(20);
    mask.press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(mask.focusedBox(), 5);
  }

  void textFieldsTakeMoreThanKeysCanType() {
    Mask mask;
    Dateien window(Dateien::Mode::kSaveAnalysis, mask.program, mask.questions, mask.desktop,
                   &mask.window);
    window.show();
    QGuiApplication::clipboard()->setText(u"\"Größe\"\n5 µm – é"_s);
    for (QWidget* field : std::initializer_list<QWidget*>{window.Text1, window.Text7}) {
      field->setFocus();
      for (const QChar c : u"Weiß é\""_s) {
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_A, QString(c), {});
      }
      QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    }
    QCOMPARE(window.Text1->text(), u"Weiss Größe 5 µm – é"_s);
    QCOMPARE(window.Text7->toPlainText(), u"Weiss Größe 5 µm – é"_s);
    // A double click selects a word there, as everywhere.
    QTest::mouseDClick(window.Text1, Qt::LeftButton, {}, QPoint(20, 10));
    QCOMPARE(window.Text1->selectedText(), u"Weiss"_s);
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

  void commandsFinishTheEntryFirst() {
    for (const QByteArray command :
         {"shortcut", "menu", "button", "close box", "Alt and close box"}) {
      Mask mask;
      mask.focus(3);
      mask.keys(u"99"_s);
      mask.questions.expect(says(u"3 1-90 °C"_s));
      mask.questions.expect(says(u"save-first"_s), Button::kAbbrechen);
      if (command == "shortcut") mask.press(Qt::Key_N, Qt::ControlModifier);
      if (command == "menu") mask.window.mnu_ende->trigger();
      if (command == "button") QTest::mouseClick(mask.window.Command2, Qt::LeftButton);
      if (command.startsWith("Alt")) mask.window.menuBar()->setFocus(Qt::MenuBarFocusReason);
      mask.settle();
      if (command.endsWith("close box")) mask.window.close();
      mask.settle();
      QVERIFY2(mask.questions.complaints().isEmpty() && mask.desktop.ended == 0 &&
                   mask.window.isVisible(),
               command.constData());
    }
  }

  void restartEmptiesEverything() {
    Mask mask;
    mask.enter(1, u"420"_s);
    mask.enter(2, u"7"_s);
    mask.program.header[1] = u"Projekt"_s;
    mask.program.dataPresent = true;
    mask.program.settings.slot[setting::kDataFolder] = u"/gibt/es/nicht"_s;  // is read again
    QVERIFY(mask.window.eincheck());
    mask.questions.expect(says(u"save-first"_s), Button::kNein);
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
    QVERIFY(mask.window.close());
    QCOMPARE(mask.desktop.ended, 1);
  }

  // What stands in a file is saved, whichever way it came back, until the file holds something
  // else.
  void undoKnowsWhatIsSavedAndBringsBackWholeAnalyses() {
    Mask mask;
    mask.desktop.file = mask.folder.filePath(u"probe"_s);
    onNextModal<Dateien>(this, [](Dateien& window) {
      window.Text1->setText(u"P"_s);
      window.Command1->click();
    });
    const auto press = [&](Qt::Key key, const QString& state, const QString& project = {}) {
      mask.press(key, Qt::ControlModifier);
      const AnalysisRecord& record = mask.program.record;
      QCOMPARE(mask.window.fileStatus->text(), state);
      QCOMPARE(record.flag[flag::kStatus] == "1"_L1, state.startsWith(u"nicht"_s));
      QCOMPARE(mask.program.header[kopf::kProjekt], project);
    };
    const QString saved = u"gespeichert: probe"_s;
    const QString unsaved = u"nicht gespeichert: probe"_s;
    QGuiApplication::clipboard()->setText(u"480\n7,6"_s);
    mask.press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_Z, {});
    mask.enter(1, u"420"_s);
    mask.press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);  // it has no file yet
    mask.activate();
    mask.enter(3, u"10"_s);
    press(Qt::Key_Z, saved, u"P"_s);
    press(Qt::Key_Y, unsaved, u"P"_s);
    mask.press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);  // no window, no question
    press(Qt::Key_Z, unsaved, u"P"_s);
    press(Qt::Key_Y, saved, u"P"_s);
    press(Qt::Key_N, {});
    press(Qt::Key_Z, saved, u"P"_s);
    QCOMPARE(mask.window.mnu3_undo->text(), u"&Rückgängig: Temperatur"_s);
    press(Qt::Key_Z, unsaved, u"P"_s);
    press(Qt::Key_Z, u"nicht gespeichert"_s);
    press(Qt::Key_Z, {});
    QCOMPARE(mask.program.record, AnalysisRecord{});
    QVERIFY(!mask.window.mnu3_undo->isEnabled());
    for (int step = 0; step < 2; ++step) mask.press(Qt::Key_Y, Qt::ControlModifier);
    mask.program.header[kopf::kProjekt] = QString(70'000, 'P'_L1);  // cannot be written
    onNextModal<Dateien>(this, [](Dateien& window) {
      QCOMPARE(window.findChild<QLabel*>(u"failure"_s)->text(),
               u"Die Datei wurde nicht gespeichert. Ein Text ist zu lang."_s);
      window.close();
    });
    mask.press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  }

  // Name, steps as above, then what the fields look like (K11 a kept result 11, C20 a completed
  // input, an unnamed one is fresh), and the status bar: field, action, kept results, file.
  void theMaskShowsWhereItsValuesComeFrom_data() {
    addRows(
        uR"(
      all fresh        | 420⏎ 7,5⏎ 10⏎ 2.5⏎ ,25⏎ | | Gesamthärte: 0,05 bis 100 °d; ; ; nicht gespeichert
      Kb8,2 is missing | @2 7,5⏎ 10⏎ 2.5⏎ ,25⏎ @6 ␣ ⏎ @5 3⏎ | K7 K11 K12 | Kb8,2: 0 bis 2,5 mmol/l; ; 3 alte Ergebnisse: es fehlt Kb8,2; nicht gespeichert
      of an old entry  | 420⏎ 7,5⏎ 10⏎ 2.5⏎ ,25⏎ @23 60⏎ @6 ␣ ⏎ | K7 K11 K12 K15 C20 K21 K22 C24 | Kb8,2: 0 bis 2,5 mmol/l; Magnesium ergänzt aus Calcium; 7 alte Ergebnisse: es fehlt Kb8,2; nicht gespeichert
      completed        | @20 8⏎ 40⏎ | C24 | Magnesium: 0,1 bis 420 mg/l; Magnesium ergänzt aus Gesamthärte und Calcium; ; nicht gespeichert
      pasted           | @20 V8¶40¶5 | C20 | Chlorid: 0,01 bis 500 mg/l; Gesamthärte neu aus Calcium und Magnesium; ; nicht gespeichert
      told once        | @20 8⏎ 40⏎ @26 1⏎ | C24 | Leitfähigkeit: 0,5 bis 5000 µS/cm; ; ; nicht gespeichert
      saved, then read | @2 7,5⏎ 10⏎ 2.5⏎ ,25⏎ @6 ␣ ⏎ @20 8⏎ 40⏎ SO | K7 K11 K12 K15 K21 K22 | Leitfähigkeit: 0,5 bis 5000 µS/cm; ; 6 alte Ergebnisse: es fehlt Kb8,2; gespeichert: probe
      restarted        | @20 8⏎ 40⏎ SN | | Leitfähigkeit: 0,5 bis 5000 µS/cm; ; ;
    )"_s);
  }
  void theMaskShowsWhereItsValuesComeFrom() {
    QFETCH(QStringList, row);
    Mask mask;
    mask.desktop.file = mask.folder.filePath(u"probe"_s);
    const auto save = [](Dateien& window) { window.Command1->click(); };
    for (const QString& step : row[1].split(' ')) {
      if (!step.startsWith('S'_L1)) {
        play(mask, step);
        continue;
      }
      onNextModal<Dateien>(this, save);
      mask.press(Qt::Key_S, Qt::ControlModifier);
      mask.activate();
      if (step == "SO"_L1) onNextModal<Dateien>(this, [](Dateien& window) { window.close(); });
      mask.focus(1);
      mask.press(step == "SO"_L1 ? Qt::Key_O : Qt::Key_N, Qt::ControlModifier);
    }
    QStringList looks;
    const auto look = [&](const QWidget& control, int index) {
      const QString role = control.property("role").toString();
      if (role == "kept"_L1) looks += u"K%1"_s.arg(index);
      if (role == "completed"_L1) looks += u"C%1"_s.arg(index);
      if (role == "kept"_L1) QVERIFY(control.accessibleDescription().contains(u"früheren"_s));
    };
    for (const Field& field : resultFields()) look(mask.window.Label2(field.index), field.index);
    for (const Field& field : inputFields()) look(mask.window.Text1(field.index), field.index);
    QCOMPARE(looks.join(' '), row[2]);
    const QStringList status{mask.window.fieldStatus->text(), mask.window.actionStatus->text(),
                             mask.window.keptStatus->text(), mask.window.fileStatus->text()};
    QCOMPARE(status.join(u"; "_s).trimmed(), row[3]);
  }

  void aTextInAFieldIsDataToPrintAndToSave() {
    Mask mask;
    mask.questions.expect(says(u"nothing-to-save"_s));
    mask.press(Qt::Key_S, Qt::ControlModifier);
    for (int field = 0; field <= 40; ++field) {
      mask.program.resetRecord();
      mask.program.record.text[field] = u"1"_s;
      const bool printed = (field >= 2 && field <= 7) || (field >= 20 && field <= 26);
      QCOMPARE(mask.window.eincheck(), printed);
    }
    mask.questions.expect(says(u"nothing-to-print"_s));
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
    mask.questions.expect(says(u"3 4- 12"_s), Button::kOk, fault);
    mask.enter(2, u"13"_s);
    QCOMPARE(takeErrors(), QStringList{u"11 main_T1_lostfocus"_s});
    QCOMPARE(mask.window.Text1(2).text(), QString());
    // A fault inside a step: the mask shows what the record holds, and locks what it rules out.
    mask.enter(1, u"20"_s);
    mask.questions.expect(says(u"1 25"_s), Button::kOk, fault);
    mask.enter(2, u"10"_s);
    QCOMPARE(takeErrors(), QStringList{u"11 main_T1_lostfocus"_s});
    QVERIFY(mask.window.Text1(6).isReadOnly());
    mask.questions.expect(says(u"save-first"_s), Button::kOk, fault);
    mask.press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(takeErrors(), QStringList{u"11 main_neustart"_s});
    mask.enter(2, u"7"_s);
    QCOMPARE(mask.program.record.text[2], u"7,0000"_s);
  }

  void theManualOpensOnlyWhereItExists() {
    Mask mask;
    const QString manual = mask.folder.filePath(u"hb_cvra.pdf"_s);
    mask.press(Qt::Key_F1);
    QCOMPARE(mask.desktop.opened, QStringList{});
    put(manual, {});
    QMetaObject::invokeMethod(mask.window.menuBar()->actions().at(1)->menu(), "aboutToShow");
    mask.press(Qt::Key_F1);
    QCOMPARE(mask.desktop.opened, QStringList{manual});
  }

  void everyBoxHasANameAndRoom() {
    Mask mask;
    mask.enter(1, u"1000"_s);
    mask.enter(3, u"88,8888"_s);
    QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
    mask.settle();
    const auto room = [](const QWidget& control, const QString& text) {
      return control.width() - control.fontMetrics().horizontalAdvance(text);
    };
    for (const int box : typedFields()) {
      QVERIFY(!mask.window.Text1(box).accessibleName().isEmpty());
      QVERIFY(room(mask.window.Text1(box), u"5000,0000"_s) >= 16);
    }
    QVERIFY(room(*mask.window.Label7, mask.window.Label7->text()) >= 12);
    // At every resolution the window has its designed size, so its content fits into it, and the
    // status bar stands below.
    const double scale = mask.window.logicalDpiX() / 1440.0;
    const QSize designed(qRound(15000 * scale), qRound(10900 * scale));
    QCOMPARE(mask.window.size() - QSize(0, mask.window.statusBar()->height()), designed);
  }

 private:
  static void play(Mask& mask, QString step) {
    step.replace(u'_', u' ').replace(u'→', u'\t').replace(u'¶', u"\r\n"_s);
    const QString rest = step.mid(1);
    QWidget* focus = mask.window.focusWidget();
    if (step.startsWith('@'_L1)) {
      QTest::mouseClick(&mask.window.Text1(rest.toInt()), Qt::LeftButton);
    } else if (step.startsWith('D'_L1)) {
      QTest::mouseDClick(&mask.window.Text1(rest.toInt()), Qt::LeftButton);
    } else if (step.startsWith('K'_L1)) {
      QTest::mouseClick(mask.window.Command3, Qt::LeftButton);
    } else if (step.startsWith('T'_L1)) {
      mask.drop(rest.section(':', 0, 0).toInt(), rest.section(':', 1));
    } else if (step.startsWith('V'_L1)) {
      QGuiApplication::clipboard()->setText(rest);
      QTest::keyClick(focus, Qt::Key_V, Qt::ControlModifier);
    } else if (step.startsWith('C'_L1)) {
      QInputMethodEvent event;
      event.setCommitString(rest);
      QCoreApplication::sendEvent(focus, &event);
    } else {
      for (const QChar c : step) type(mask.window.focusWidget(), c);
    }
    mask.settle();
    mask.settle();  // what the first one left queued
  }

  static void type(QWidget* focus, QChar c) {
    static const QHash<QChar, Qt::Key> kKeys{{u'⏎', Qt::Key_Enter}, {u'↓', Qt::Key_Down},
                                             {u'↑', Qt::Key_Up},    {u'⇥', Qt::Key_Tab},
                                             {u'␣', Qt::Key_Space}, {u'⌫', Qt::Key_Backspace}};
    if (c == u'⟲' || c == u'⟳') {
      QTest::keyClick(focus, c == u'⟲' ? Qt::Key_Z : Qt::Key_Y, Qt::ControlModifier);
    } else if (kKeys.contains(c)) {
      QTest::keyClick(focus, kKeys[c], c == u'⏎' ? Qt::KeypadModifier : Qt::NoModifier);
    } else {
      QTest::sendKeyEvent(QTest::Click, focus, Qt::Key_0, QString(c), Qt::KeypadModifier);
    }
  }
};

CALVORA_TEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
