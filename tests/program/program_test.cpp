// The whole program, driven through its real windows: start, questions, runtime errors, end.
#include <QAbstractItemView>
#include <QDialog>
#include <QLineEdit>

#include "app/application.h"
#include "app/start_window.h"
#include "dialogs/windows/nachricht.h"
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

/// What a window says: its title, and the text, tip and spoken name of every control and command.
QStringList textsOf(const QString& name, const QWidget& window) {
  QStringList said{u"%1 '%2'"_s.arg(name, window.windowTitle())};
  const auto say = [&](const QString& text, const QStringList& more) {
    QString line = u"  '%1' %2"_s.arg(text, more.join(' '_L1)).replace('\n'_L1, u"¶"_s).trimmed();
    if (line != "''"_L1) said += line;
  };
  for (const QObject* child : window.findChildren<QObject*>()) {
    const auto* action = qobject_cast<const QAction*>(child);
    if (action != nullptr && !action->text().isEmpty()) {
      say(action->text(),
          {action->shortcut().toString(), action->isEnabled() ? u"on"_s : u"off"_s});
    } else if (const auto* list = qobject_cast<const QAbstractItemView*>(child)) {
      for (int i = 0; i < list->model()->rowCount(); ++i) {
        say(list->model()->index(i, 0).data().toString(), {});
      }
    } else if (const auto* control = qobject_cast<const QWidget*>(child)) {
      say(control->property("text").toString(), {control->toolTip(), control->accessibleName()});
    }
  }
  return said;
}

}  // namespace

class ProgramTest : public QObject {
  Q_OBJECT

 private slots:
  void theWindowsSayWhatTheyShould() {
    Mask mask;
    QStringList said = textsOf(u"main"_s, mask.window);
    said += textsOf(u"start"_s, start(mask.window, mask.desktop));
    for (const int field : {1, 3, 23}) {
      said += textsOf(u"dimum"_s, dimum(mask.program.record, field, mask.questions, mask.desktop,
                                        {}, mask.window));
    }
    said += textsOf(u"bb_msg"_s, bb_msg(mask.desktop));
    said += textsOf(u"varios"_s, varios(&mask.window));
    info1 information(&mask.window);
    information.infotxt1();
    said += textsOf(u"info1"_s, information);
    const Version version(QDate(2026, 5, 4), &mask.window);
    for (const int index : {0, 4}) version.Label1(index).clear();  // of this build
    said += textsOf(u"Version"_s, version);

    compareWithGolden(said, u"program/golden/texts.txt"_s);
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
