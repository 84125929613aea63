// The whole program, driven through its real windows: start, questions, runtime errors, end.
#include "app/application.h"
#include "app/start_window.h"
#include "dialogs/windows/nachricht.h"
#include "plausi/windows/plausi.h"
#include "support/tables.h"
#include "support/window_support.h"
#include "tools/windows/dimum.h"
#include "tools/windows/info1.h"
#include "tools/windows/varios.h"
#include "tools/windows/version_window.h"

using namespace calvora;

namespace {

Message question(Buttons buttons, const QString& text = u"erste Zeile\n\rzweite Zeile"_s) {
  return {.text = text, .buttons = buttons, .title = u"T"_s, .symbol = Symbol::kQuestion};
}

/// What a window says: its title, and the text, tip and spoken name of every control and command.
QStringList textsOf(const QString& name, const QWidget& window) {
  QStringList said{u"%1 '%2'"_s.arg(name, window.windowTitle())};
  const auto say = [&](const QString& text, const QString& more = {}) {
    QString line = u"  '%1' %2"_s.arg(text, more).replace('\n'_L1, u"¶"_s).trimmed();
    if (line != "''"_L1) said += line;
  };
  for (const QObject* child : window.findChildren<QObject*>()) {
    const auto* action = qobject_cast<const QAction*>(child);
    if (action != nullptr && !action->text().isEmpty()) {
      say(action->text(),
          action->shortcut().toString() + (action->isEnabled() ? u" on"_s : u" off"_s));
    } else if (const auto* list = qobject_cast<const QAbstractItemView*>(child)) {
      for (int i = 0; i < list->model()->rowCount(); ++i) {
        say(list->model()->index(i, 0).data().toString());
      }
    } else if (const auto* control = qobject_cast<const QWidget*>(child)) {
      say(control->property("text").toString(),
          control->toolTip() + ' '_L1 + control->accessibleName());
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
    said += textsOf(u"plausi"_s, plausi(checkPlausibility({}, {}), mask.program.settings,
                                        mask.program.programFolder, mask.questions));
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

  void theStartWindowLeadsIntoTheProgramOrOut() {
    const QTemporaryDir folder;
    for (const int button : {0, 1, 2}) {  // 0: the close box
      Application application;
      application.program().programFolder = folder.path();
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
      QCOMPARE(QApplication::exec(), button == 1 ? 0 : kStillThere);
      QCOMPARE(window.isEnabled(), button != 1);
    }
  }

  void keysAnswerAMessage_data() {  // sum of the buttons; key => button
    rows("14;Enter=>2 | 14;Space=>2 | 14;Esc=>8 | 6;Esc=>4 | 1;Esc=>1 | 14;Tab=>4");
  }
  void keysAnswerAMessage() {
    QFETCH(QStringList, given);
    const Buttons buttons = Buttons::fromInt(given.at(0).toInt());
    const auto key = static_cast<Qt::Key>(QKeySequence(given.at(1))[0].key());
    BasicMask<DialogQuestions> mask;
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
    QTEST(QString::number(static_cast<int>(mask.questions.ask(question(buttons)))), "expected");
  }

  // Right after a dialog has closed no window need be active.
  void aMessageBelongsToTheWindowThatAsked() {
    BasicMask<DialogQuestions> mask;
    QWidget overview;
    overview.show();
    auto header = std::make_unique<QDialog>(&overview);
    new QLineEdit(header.get());
    header->show();
    header->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(header.get()));
    header.reset();
    QTRY_VERIFY(QApplication::activeWindow() == nullptr);
    onNextModal<nachricht>(this, [&](nachricht& message) {
      QCOMPARE(message.parentWidget(), &overview);
      message.close();
    });
    mask.questions.ask(question(Button::kOk));
  }

  void noMessageIsCut() {
    const QString longestLast = u"kurz\n\r\n\rkurz\n\r negative Ks8,2 Werte als Kb8,2 eingeben !"_s;
    const QString longFolder = u"folgender Pfad\n\r\n\r"_s + QString(200, 'W'_L1);
    const QString manyWords = u"lange Wörter "_s.repeated(30);
    for (const QString& text : {u"eine Zeile"_s, longestLast, longFolder, manyWords}) {
      nachricht window;
      window.messein(question(Button::kJa | Button::kNein | Button::kAbbrechen, text));
      window.show();
      const QLabel& label = *window.Label6;
      const QRect needed = label.fontMetrics().boundingRect(
          QRect(label.pos(), QSize(label.width(), 10000)), Qt::TextWordWrap, label.text());
      QVERIFY(label.geometry().contains(needed));
      for (const int index : {2, 3, 4}) {
        const QPushButton& button = window.Command1(index);
        QVERIFY(window.rect().contains(button.geometry()) && button.y() >= needed.bottom());
        QVERIFY(button.width() > button.fontMetrics().horizontalAdvance(button.text()) + 4);
      }
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
    for (const int answer : {1, 2}) {
      questions->reportError(u"9 main_T1_lostfocus"_s);
      QVERIFY(shownWindow<bb_msg>()->Label1(2).text().contains(u"9 main_T1"_s));
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
