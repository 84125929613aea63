// The whole program, driven through its real windows: start, questions, runtime errors, end.
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

#include "app/application.h"
#include "app/start_window.h"
#include "dialogs/windows/nachricht.h"
#include "support/shown_window.h"
#include "support/tables.h"
#include "support/window_support.h"
#include "tools/windows/dimum.h"
#include "tools/windows/info1.h"
#include "tools/windows/varios.h"
#include "tools/windows/version_window.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

Message question(Buttons buttons) {
  return {.text = u"erste Zeile\n\rzweite Zeile"_s,
          .buttons = buttons,
          .title = u"T"_s,
          .symbol = Symbol::kQuestion};
}

}  // namespace

class ProgramTest : public QObject {
  Q_OBJECT

 private slots:
  void theWindowsSayWhatTheyShould() {
    QStringList said;
    const auto say = [&](const QString& name, const auto& controls) {
      for (const auto& [index, control] : controls) {
        said += u"%1(%2) '%3' %4"_s.arg(name).arg(index).arg(control->text(), control->toolTip());
      }
    };
    Mask mask;
    auto& [questions, desktop, folder, program, window] = mask;
    say(u"Label5"_s, window.Label5);
    say(u"Label6"_s, window.Label6);
    say(u"Label3"_s, window.Label3);
    say(u"Label10"_s, window.Label10);
    say(u"Command1"_s, window.Command1);
    said += u"'%1' '%2'"_s.arg(window.Label1->text(), window.Label4->text());
    for (QAction* menu : window.menuBar()->actions()) {
      said += u"menu '%1'"_s.arg(menu->text().remove('&'_L1));
      for (QAction* action : menu->menu()->actions()) {
        said += u"  '%1' %2 %3"_s.arg(action->text().remove('&'_L1), action->shortcut().toString(),
                                      action->isEnabled() ? u"on"_s : u"off"_s);
      }
    }
    const start startWindow(window, desktop);
    say(u"start Label1"_s, startWindow.Label1);
    say(u"start Label3"_s, startWindow.Label3);
    say(u"start Command1"_s, startWindow.Command1);
    for (const int field : {1, 3, 23}) {
      const dimum converter(program.record, field, questions, desktop, {}, window);
      said += u"dimum '%1' '%2'"_s.arg(converter.windowTitle(), converter.Label2->text());
      said += u"'%1' '%2' '%3'"_s.arg(converter.Command1->text(), converter.Command2->text(),
                                      converter.mnuhelp->text());
      say(u"dimum Label1"_s, converter.Label1);
    }
    const bb_msg report(desktop);
    said += u"bb_msg '%1'"_s.arg(report.windowTitle());
    say(u"bb_msg Label1"_s, report.Label1);
    say(u"bb_msg Check1"_s, report.Check1);
    const varios volume(&window);
    said += u"varios '%1' '%2'"_s.arg(volume.Label1->text(), volume.Command1->text());
    say(u"varios Label2"_s, volume.Label2);
    say(u"varios Label3"_s, volume.Label3);
    for (const QComboBox* list : {volume.Combo1, volume.Combo2}) {
      said += u"varios '%1': '%2' to '%3'"_s.arg(list->accessibleName(), list->itemText(0),
                                                 list->itemText(list->count() - 1));
    }
    info1 information(&window);
    information.infotxt1();
    said += u"info1 '%1' '%2'"_s.arg(information.windowTitle(), information.Command1->text());
    for (int i = 0; i < information.List1->count(); ++i) {
      said += u"'%1'"_s.arg(information.List1->item(i)->text());
    }
    const Version version(QDate(2026, 5, 4), &window);
    said += u"Version '%1'"_s.arg(version.windowTitle());
    for (const int i : {1, 2, 3, 5, 6}) said += version.Label1(i).text();
    for (QString& line : said) line = line.replace('\n'_L1, u"¶"_s).trimmed();

    QFile golden(QFINDTESTDATA("program/golden/texts.txt"));
    QVERIFY(golden.open(QFile::ReadOnly));
    const QStringList expected = QString::fromUtf8(golden.readAll()).trimmed().split('\n'_L1);
    for (qsizetype i = 0; i < said.size(); ++i) QCOMPARE(said[i], expected.value(i).trimmed());
    QCOMPARE(said.size(), expected.size());
  }

  void theStartWindowLeadsIntoTheProgramOrOut_data() {
    addRows(
        "beenden         | 1 | ends\n"
        "Weiter          | 2 | goes on\n"
        "close box       | 0 | goes on");
  }
  void theStartWindowLeadsIntoTheProgramOrOut() {
    QFETCH(QStringList, row);
    const int button = row[1].toInt();
    Application application;
    main& window = application.mainWindow();
    QCOMPARE(application.program().fieldIndex, kFirstActivationPending);
    application.show();
    QTRY_VERIFY(!window.isEnabled());
    auto* startWindow = dynamic_cast<start*>(window.findChild<QDialog*>());
    QVERIFY(startWindow != nullptr && startWindow->isEnabled() && !startWindow->isModal());
    QCOMPARE(application.program().fieldIndex, 0);
    const double scale = window.logicalDpiX() / 1440.0;
    QCOMPARE(startWindow->pos() - window.pos(), QPoint(qRound(40 * scale), qRound(400 * scale)));
    QCOMPARE(startWindow->Label3(1).text(),
             u"> Temperatur\n> Säurekapazität Ks 4,3 / Ks8,2\n> Basekapazität  Kb 8,2"_s);
    QTimer::singleShot(0, startWindow, [&] {
      button == 0 ? void(startWindow->close()) : startWindow->Command1(button).click();
    });
    constexpr int kStillThere = 1;
    QTimer patience;
    patience.callOnTimeout(qApp, [] { QCoreApplication::exit(kStillThere); });
    patience.start(300);
    const bool ends = row[2] == "ends"_L1;
    QCOMPARE(QApplication::exec(), ends ? 0 : kStillThere);
    QCOMPARE(window.isEnabled(), !ends);
  }

  void keysAnswerAMessage_data() {
    QTest::addColumn<Buttons>("buttons");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Button>("answer");
    const Buttons all = Button::kJa | Button::kNein | Button::kAbbrechen;
    QTest::newRow("Enter presses the first") << all << Qt::Key_Enter << Button::kJa;
    QTest::newRow("Space presses the first") << all << Qt::Key_Space << Button::kJa;
    QTest::newRow("Escape cancels") << all << Qt::Key_Escape << Button::kAbbrechen;
    QTest::newRow("Escape says no")
        << (Button::kJa | Button::kNein) << Qt::Key_Escape << Button::kNein;
    QTest::newRow("Escape takes notice") << Buttons(Button::kOk) << Qt::Key_Escape << Button::kOk;
    QTest::newRow("Tab reaches the second") << all << Qt::Key_Tab << Button::kNein;
  }
  void keysAnswerAMessage() {
    QFETCH(Buttons, buttons);
    QFETCH(Qt::Key, key);
    RecordingDesktop desktop;
    DialogQuestions questions(desktop);
    onNextModal<nachricht>(this, [&](nachricht& message) {
      QCOMPARE(message.windowTitle(), u"T      "_s);
      QCOMPARE(message.Label6->text(), u"erste Zeile\nzweite Zeile"_s);
      QVERIFY(message.Image1(5).isVisible() && !message.Image1(1).isVisible());
      for (int index = 1; index <= 5; ++index) {
        QCOMPARE(message.Command1(index).isVisible(), buttons.testFlag(buttonOf(index)));
      }
      QTest::keyClick(message.focusWidget(), key);
      if (key == Qt::Key_Tab) QTest::keyClick(message.focusWidget(), Qt::Key_Space);
    });
    QTEST(questions.ask(question(buttons)), "answer");
  }

  // Right after a dialog has closed no window need be active.
  void aMessageBelongsToTheWindowThatAsked() {
    Mask mask;
    RecordingDesktop desktop;
    DialogQuestions questions(desktop);
    QWidget overview;
    overview.show();
    {
      QDialog header(&overview);
      new QLineEdit(&header);
      header.show();
      header.activateWindow();
      QVERIFY(QTest::qWaitForWindowActive(&header));
    }
    QTRY_VERIFY(QApplication::activeWindow() == nullptr);
    onNextModal<nachricht>(this, [&](nachricht& message) {
      QCOMPARE(message.parentWidget(), &overview);
      message.close();
    });
    questions.ask(question(Button::kOk));
  }

  void noMessageIsCut_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("one line") << u" Daten vorher speichern ?"_s;
    QTest::newRow("a last line that is the longest")
        << u"kurz\n\rkurz\n\r\n\rkurz\n\r negative Ks8,2 Werte als Kb8,2 eingeben !"_s;
    QTest::newRow("a long folder") << u"folgender Pfad\n\r\n\r"_s + QString(200, 'W'_L1);
    QTest::newRow("many words") << u"lange Wörter "_s.repeated(30);
  }
  void noMessageIsCut() {
    QFETCH(QString, text);
    nachricht window;
    Message message = question(Button::kJa | Button::kNein | Button::kAbbrechen);
    message.text = text;
    window.messein(message);
    window.show();
    const QLabel& label = *window.Label6;
    const QRect needed = label.fontMetrics().boundingRect(
        QRect(label.pos(), QSize(label.width(), 10000)), Qt::TextWordWrap, label.text());
    QVERIFY(needed.height() <= label.height() && needed.width() <= label.width());
    for (int index = 2; index <= 4; ++index) {
      const QPushButton& button = window.Command1(index);
      QVERIFY(button.y() >= needed.bottom() && button.geometry().bottom() < window.height() &&
              button.geometry().right() < window.width());
      QVERIFY(button.width() > button.fontMetrics().horizontalAdvance(button.text()) + 4);
    }
  }

  void aRuntimeErrorIsShownAndTheUserDecides() {
    RecordingDesktop desktop;
    auto questions = std::make_unique<DialogQuestions>(desktop);
    QCOMPARE(QCoreApplication::applicationVersion().count('.'_L1), 2);
    QCoreApplication::setApplicationVersion(u"1.0.5"_s);
    questions->reportError(u"13 werteingabe\\formz"_s);
    QVERIFY(shownWindow<bb_msg>() != nullptr && !shownWindow<bb_msg>()->isModal());
    QCOMPARE(shownWindow<bb_msg>()->Label1(2).text(),
             u"  Error-Code :   13 werteingabe\\formz    V-105"_s);
    questions->reportError(u"9 main_T1_lostfocus"_s);
    QVERIFY(shownWindow<bb_msg>()->Label1(2).text().contains(u"9 main_T1"_s));
    for (const int answer : {1, 2}) {
      questions->reportError(u"9 main_T1_lostfocus"_s);
      QTest::mouseClick(&shownWindow<bb_msg>()->Check1(answer), Qt::LeftButton);
      QCOMPARE(shownWindow<bb_msg>(), nullptr);
      QCOMPARE(desktop.ended, answer - 1);
    }
    bb_msg quiet(desktop);
    quiet.message(1, u"13"_s);
    QVERIFY(!quiet.isVisible());
    questions->reportError(u"9 main_T1_lostfocus"_s);
    questions.reset();  // it goes with the program
    QCOMPARE(shownWindow<bb_msg>(), nullptr);
  }

  void aRuntimeErrorIsAnsweredWhileADialogIsOpen() {
    RecordingDesktop desktop;
    DialogQuestions questions(desktop);
    const auto report = [&] { questions.reportError(u"9 main_T1_lostfocus"_s); };
    const auto isAnswered = [] {  // through the platform, which keeps events from blocked windows
      const bb_msg& window = *shownWindow<bb_msg>();
      QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                        window.Check1(1).geometry().center());
      return QTest::qWaitFor([] { return shownWindow<bb_msg>() == nullptr; }, 500);
    };
    QDialog dialog;
    dialog.setModal(true);
    report();
    dialog.show();
    QVERIFY(isAnswered());
    report();
    QVERIFY(isAnswered());
    {
      QDialog upper(&dialog);
      upper.setModal(true);
      upper.show();
      report();
    }
    Mask::settle();
    QVERIFY(isAnswered() && dialog.isVisible());
  }
};

CALVORA_TEST_MAIN(ProgramTest)
#include "program_test.moc"
