// Saving, loading and settings through the real windows.
#include <sys/resource.h>

#include <QCalendarWidget>
#include <QClipboard>
#include <QDeadlineTimer>
#include <QDirIterator>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QSettings>
#include <QWheelEvent>
#include <csignal>

#include "dialogs/windows/nachricht.h"
#include "storage/windows/dateien.h"
#include "storage/windows/datenpfad.h"
#include "storage/windows/firma.h"
#include "support/tables.h"
#include "support/window_support.h"

using namespace calvora;

namespace {

const QByteArray kSmallFile = fileOf(
    "'brunnen'¶'Projekt A'¶'7'¶'Probe'¶'Caf\xE9'¶'03.02.2026'¶'05.02.2026'¶'nass'¶'ende'¶"
    "1,420,'420,0000'¶20,10.6868,'10,7'¶23,60,'60,0'¶24,10,'10,0'¶999,0,0¶");

/// A mask whose data folder is that of the program.
struct House : Mask {
  House() { program.settings.slot[setting::kDataFolder] = folder.path(); }
  void load(const QString& name, const std::function<void(Dateien&)>& look) {
    desktop.paths += at(name);
    onNextModal<Dateien>(&window, [look](Dateien& header) {
      look(header);
      if (header.isVisible()) header.reject();
    });
    activate();
    press(Qt::Key_O, Qt::ControlModifier);
  }
  void save(const std::function<void(Dateien&)>& act) {
    onNextModal<Dateien>(&window, act);
    activate();
    press(Qt::Key_S, Qt::ControlModifier);
  }
  void expect(const QString& message, Button answer = Button::kOk) {
    questions.expect(says(message), answer);
  }
  /// Saves the settings of a window, which a message answers.
  void save(const auto& settings, const QString& message, Button answer = Button::kOk) {
    expect(message, answer);
    settings.Command1(1).click();
  }
  /// A window of the settings, in a program folder with some folders.
  template <class Window>
  Window& open() {
    for (const auto& name : {u"daten"_s, u"Werte/Werte"_s, u".versteckt"_s, u"Вода"_s}) {
      QDir(folder.path()).mkpath(name);
    }
    QDir::setCurrent(folder.path());
    auto* made = new Window(program.settings, program.programFolder, questions, &window);
    made->show();
    activate(*made);
    settle();
    return *made;
  }
};

/// Clicks on the folders of a way, one after another.
void click(datenpfad& window, const QStringList& way, bool twice = false) {
  for (const QString& name : way) {
    const QListWidgetItem* found = window.Dir1->findItems(name, Qt::MatchEndsWith).value(0);
    QVERIFY2(found != nullptr, qPrintable(name));
    const QPoint place = window.Dir1->visualItemRect(found).center();
    QTest::mouseClick(window.Dir1->viewport(), Qt::LeftButton, {}, place);
    if (twice) QTest::mouseDClick(window.Dir1->viewport(), Qt::LeftButton, {}, place);
  }
}

}  // namespace

class StorageWindowsTest : public QObject {
  Q_OBJECT

 private slots:
  void anAnalysisIsSavedWithItsHeader() {
    House house;
    house.enter(1, u"420"_s);
    house.desktop.paths = {house.at(u"brunnen.cva"_s)};
    house.save([](Dateien& window) {
      QCOMPARE(window.windowTitle(), u"  Daten - laden / speichern"_s);
      QTest::keyClicks(window.Text1, u"Projekt \"A\""_s);
      QTest::keyClick(window.Text1, Qt::Key_Enter);
      QCOMPARE(window.focusWidget(), window.Text2);
      for (TextBox* field : {window.Text2, window.Text3, window.Text4}) {
        QTest::keyClicks(field, u" x\" "_s);
        field->insert(u"\"€"_s);  // as pasted
        QTest::keyClick(field, Qt::Key_Enter);
      }
      QCOMPARE(window.focusWidget(), window.Text7);
      QTest::keyClicks(window.Text7, u"Wasser \"aus"_s);
      // Enter leads to the button, but who types on means the remark.
      window.Text7->moveCursor(QTextCursor::Start);
      QTest::keyClick(window.Text7, Qt::Key_Enter);
      QCOMPARE(window.focusWidget(), window.Command1);
      QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);  // to another program
      QCoreApplication::sendEvent(window.Command1, &away);
      QTest::keyClick(window.Command1, ' ');
      QCOMPARE(window.focusWidget(), window.Text7);
      QTest::keyClicks(window.Text7, u"der \"Burg"_s);
      QTest::keyClick(window.Text7, Qt::Key_Enter);
      QTest::keyClick(window.Command1, Qt::Key_Enter);
    });
    QCOMPARE(bytesOf(house.at(u"brunnen.cva"_s)),
             fileOf("'brunnen'¶'Projekt A'¶'x \x80'¶'x \x80'¶'x \x80'¶'22.11.2026'¶'22.11.2026'¶"
                    "'Wasser aus der Burg'¶'ende'¶1,420,'420,0000'¶10,0,'n.b.'¶999,0,0¶"));
    QCOMPARE(house.desktop.requests.front().folder, house.folder.path());
    QCOMPARE(house.program.record.flag[flag::kStatus], QString());
    QCOMPARE(house.program.record.flag[flag::kNameLine], u"brunnen"_s);
    QVERIFY(!house.program.dataPresent);
    QVERIFY(house.window.close());
  }

  void aFileIsSavedUnderItsNameOrNothingChanges_data() {
    // What the dialog answers, the answer to the question that follows, and that question => the
    // file written, or ! where a fault is told: no folder, a folder in the way, a remark that no
    // file can hold, the disk full.
    rows<QString>(
        "probe=>probe.cva | probe.txt.a ja cut=>probe.cva | probe 1.2 nein cut=> | "
        "ab.cd/probe=>ab.cd/probe.cva | DA.CVA=>DA.cva | da ja replace=>da.cva | "
        "da.cva nein replace=> | da.txt ja cut-replace=>da.cva | da.txt nein cut-replace=> | "
        "eigen.cva ja changed=>eigen.cva | eigen nein changed=> | eigen.x nein cut-changed=> | "
        "GROSS.CVA ja replace=>GROSS.CVA | => | fort/a.cva=>! | ordner.cva=>! | lang.cva=>! | "
        "voll.cva ja replace=>!");
  }
  void aFileIsSavedUnderItsNameOrNothingChanges() {
    QFETCH(QString, given);
    QFETCH(QString, expected);
    QStringList words = given.split(' '_L1);
    const bool asked = words.size() > 2;
    const QString question = asked ? u"file-"_s + words.takeLast() : QString();
    const QString answer = asked ? words.takeLast() : QString();
    const QString chosen = words.join(' '_L1);
    const bool told = expected == '!'_L1;
    const bool saved = !told && !expected.isEmpty();
    const bool full = chosen == "voll.cva"_L1;
    House house;
    for (const QString& name : {u"ab.cd"_s, u"ordner.cva"_s}) QDir(house.folder.path()).mkdir(name);
    for (const auto& name : {u"da.cva"_s, u"GROSS.CVA"_s, u"voll.cva"_s, u"eigen.cva"_s})
      put(house.at(name), "alt");
    const auto files = [&] {
      QMap<QString, QByteArray> contents;
      QDirIterator all(house.folder.path(), QDir::Files | QDir::Hidden,
                       QDirIterator::Subdirectories);
      while (all.hasNext()) {
        const QString path = all.next();
        if (!path.endsWith("/cvra_zuletzt.json"_L1)) contents[path] = bytesOf(path);
      }
      return contents;
    };
    auto before = files();
    house.enter(1, u"420"_s);
    house.program.record.flag[flag::kNameLine] = u"vorher"_s;
    house.program.header[kopf::kDateiname] = u"a/b.c"_s;
    if (!given.isEmpty()) house.desktop.paths = {house.at(chosen) + ' '_L1};
    house.program.file = {house.at(u"eigen.cva"_s), "another hash"};
    const QString name = chosen.section('.'_L1, 0, 0) + u".cva"_s;
    if (asked) {
      house.expect(question + ' '_L1 + (saved ? expected : name),
                   answer == "ja"_L1 ? Button::kJa : Button::kNein);
    }
    rlimit room{};
    getrlimit(RLIMIT_FSIZE, &room);
    std::signal(SIGXFSZ, SIG_IGN);
    house.save([&](Dateien& window) {
      if (chosen == "lang.cva"_L1) window.Text7->setPlainText(QString(70000, 'x'_L1));
      const rlimit none{64, room.rlim_max};
      if (full) setrlimit(RLIMIT_FSIZE, &none);
      window.Command1->click();
      setrlimit(RLIMIT_FSIZE, &room);
      QCOMPARE(window.isVisible(), !saved);
      QCOMPARE(window.findChild<QLabel*>(u"failure"_s)->isVisible(), told);
      QCOMPARE(cutTexts(window), QStringList());
      if (answer == "nein"_L1) {
        window.Command1->click();
        QCOMPARE(house.desktop.requests.back().proposed, chosen);
      }
      window.Command2->click();
    });
    QCOMPARE(house.desktop.requests.front().proposed, u"a-b.cva"_s);
    QCOMPARE(house.questions.asked.size(), asked ? 1 : 0);
    for (const Message& message : house.questions.asked) {
      nachricht shown;
      shown.messein(message);
      const bool replaces = question != "file-cut"_L1;
      QVERIFY(shown.Command1(3).isDefault() == replaces);
      QVERIFY(shown.Command1(2).isDefault() != replaces);
    }
    auto after = files();
    if (saved) QVERIFY(after.take(house.at(expected)).endsWith("999,0,0\r\n"));
    if (saved) before.remove(house.at(expected));
    QCOMPARE(after, before);
    const auto& flags = house.program.record.flag;
    QCOMPARE(flags[flag::kStatus], saved ? QString() : u"1"_s);
    QCOMPARE(flags[flag::kNameLine] == u"vorher"_s, !saved);
  }

  void theSamplingDateCanBeRemovedAndSetAgain() {
    House house;
    house.program.header[kopf::kProbenahme] = u"03.02.2026"_s;
    Dateien window(Dateien::Mode::kSaveAnalysis, house.program, house.questions, house.desktop,
                   &house.window);
    window.show();
    QCOMPARE(window.DTPicker1->date(), QDate(2026, 2, 3));
    // The wheel on its way over the form does not change it.
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(window.DTPicker1, &wheel);
    QTest::keyClicks(window.DTPicker1->calendarWidget(), u"15"_s);
    QCOMPARE(window.DTPicker1->date(), QDate(2026, 2, 3));
    QCOMPARE(window.DTPicker1->calendarWidget()->firstDayOfWeek(), Qt::Monday);
    window.Label8->click();
    QVERIFY(!window.DTPicker1->isVisible());
    window.Command1->setFocus();
    QTest::keyClick(window.Command1, Qt::Key_Space);  // cancelled, but the header is kept
    QCOMPARE(house.desktop.requests.size(), 1U);
    QCOMPARE(house.program.header[kopf::kProbenahme], QString());
    window.Label8->click();
    QVERIFY(window.DTPicker1->isVisible());
    window.Command1->click();
    QCOMPARE(house.program.header[kopf::kProbenahme], u"03.02.2026"_s);
  }

  void aDateCanBeTyped_data() {
    // Keys, with < for backspace, ^ for the arrow up and } for the page down, and the date that is
    // then saved; with ! it is saved only after the user has seen that what was typed is none.
    rows<QString>(
        "31.12.2025=>31.12.2025 | 1.2.2025=>01.02.2025 | 22.11.20267=>22.11.2026 | "
        "3a1-.1/2.2025=>31.12.2025 | <29.02.2024=>29.02.2024 | ^=>04.03.2026 | }=>03.02.2026 | "
        "31=>!03.03.2026 | 31}=>!03.03.2026 | 31^=>!03.03.2026 | 31.02.2026=>!03.03.2026 | "
        "1.2.26=>!03.03.2026 | 23.11.2026=>!03.03.2026 | <=>!03.03.2026 | 31122025=>!03.03.2026");
  }
  void aDateCanBeTyped() {
    QFETCH(QString, given);
    QFETCH(QString, expected);
    const bool refused = expected.startsWith('!'_L1);
    House house;
    house.program.header[kopf::kProbenahme] = u"03.03.2026"_s;
    house.enter(1, u"420"_s);
    house.save([&](Dateien& window) {
      window.Text4->setFocus();
      QTest::keyClick(window.Text4, Qt::Key_Tab);
      QCOMPARE(window.focusWidget(), window.DTPicker1);
      for (const QChar c : given) {
        const auto typed = static_cast<Qt::Key>(c.toUpper().unicode());
        const Qt::Key key = c == '^'_L1 ? Qt::Key_Up : c == '}'_L1 ? Qt::Key_PageDown : typed;
        QTest::keyClick(window.DTPicker1, c == '<'_L1 ? Qt::Key_Backspace : key);
      }
      QTest::mouseClick(window.Command1, Qt::LeftButton);
      QCOMPARE(house.desktop.requests.size(), refused ? 0U : 1U);
      QCOMPARE(window.findChild<QLabel*>(u"failure"_s)->isVisible(), refused);
      if (refused) {
        QCOMPARE(window.focusWidget(), window.DTPicker1);
        for (const int day : {2, 3}) window.DTPicker1->setDate(QDate(2026, 3, day));
        QVERIFY(!window.findChild<QLabel*>(u"failure"_s)->isVisible());
        QTest::mouseClick(window.Command1, Qt::LeftButton);
      }
      window.reject();
    });
    QCOMPARE(house.program.header[kopf::kProbenahme], expected.remove('!'_L1));
  }

  void onlyAFreshAnalysisProposesToday() {
    House house;
    put(house.at(u"ohne.cva"_s), QByteArray(kSmallFile).replace("03.02.2026", ""));
    put(house.at(u"morgen.cva"_s), QByteArray(kSmallFile).replace("03.02.2026", "23.11.2026"));
    const auto saving = [&](bool dated, int day = 22) {
      const Dateien window(Dateien::Mode::kSaveAnalysis, house.program, house.questions,
                           house.desktop, &house.window);
      QCOMPARE(window.DTPicker1->isVisibleTo(&window), dated);
      QCOMPARE(window.Label8->text(), dated ? u"löschen"_s : u"setzen"_s);
      QCOMPARE(window.DTPicker1->date(), QDate(2026, 11, day));
      QCOMPARE(window.DTPicker1->isEnabled(), day == 22);
      QCOMPARE(window.findChild<QLabel*>(u"failure"_s)->isVisibleTo(&window), day != 22);
      if (day == 22) return;
      for (int click = 0; click < 2; ++click) window.Label8->click();
      QVERIFY(window.DTPicker1->isEnabled() && window.DTPicker1->date() == QDate(2026, 11, 22));
    };
    saving(true);
    house.load(u"ohne.cva"_s, [](Dateien& window) { QVERIFY(!window.DTPicker1->isVisible()); });
    saving(false);
    // A later day is shown as it came, but cannot be entered.
    house.load(u"morgen.cva"_s,
               [](Dateien& window) { QCOMPARE(window.DTPicker1->text(), u"23.11.2026"_s); });
    saving(true, 23);
    house.desktop.paths = {house.at(u"später.cva"_s)};
    house.save([](Dateien& window) { window.Command1->click(); });
    QVERIFY(bytesOf(house.at(u"später.cva"_s)).contains("23.11.2026"));
    house.window.mnu_neustart->trigger();
    saving(true);
    // What was saved without a date has none.
    house.keys(u"5"_s);
    house.press(Qt::Key_Enter);
    house.desktop.paths = {house.at(u"neu.cva"_s)};
    house.save([](Dateien& window) {
      window.Label8->click();
      window.Command1->click();
    });
    saving(false);
  }

  void aLoadedAnalysisShowsItsHeaderAndIsSavedAgainAsItWas() {
    House house;
    const QString path = house.at(u"brunnen.cva"_s);
    put(path, kSmallFile);
    house.focus(20);
    house.focus(1);  // the field last left is the total hardness
    house.desktop.paths = {house.at(u"gibt es nicht.cva"_s)};
    house.load(u"brunnen.cva"_s, [&](Dateien& window) {
      QCOMPARE(window.Text4->text(), u"Café"_s);  // what cannot be typed stays
      QCOMPARE(window.Text6->text(), u"05.02.2026"_s);
      QCOMPARE(window.Text7->toPlainText(), u"nass"_s);
      QCOMPARE(window.DTPicker1->date(), QDate(2026, 2, 3));
      QVERIFY(!window.DTPicker1->isEnabled() && !window.Label8->isVisible());
      QVERIFY(window.Text1->isEnabled());
      house.desktop.paths = {path};
      house.expect(u"file-replace brunnen.cva"_s, Button::kJa);
      window.Command1->click();
    });
    QCOMPARE(house.desktop.requests.size(), 3U);
    QCOMPARE(house.desktop.requests.back().proposed, u"brunnen.cva"_s);
    const qsizetype header = kSmallFile.indexOf("1,420");
    QCOMPARE(bytesOf(path).left(header), kSmallFile.left(header));
    QStringList shown;
    for (const int box : {1, 20, 23, 24}) shown += house.window.Text1(box).text();
    QCOMPARE(shown.join(' '_L1), u"420,0000 10,7 60,0 10,0"_s);
    // What cannot be opened leaves the analysis that is there, and says so.
    house.desktop.paths = {house.folder.path()};
    house.expect(u"file-incomplete"_s);
    house.activate();
    house.press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(house.window.Text1(1).text(), u"420,0000"_s);
    QCOMPARE(house.program.header[kopf::kProjekt], u"Projekt A"_s);
    QVERIFY(house.window.close());  // nothing unsaved
  }

  void loadingTellsWhatItCouldNotRead() {
    const auto dated = [](const char* date) {
      return QByteArray(kSmallFile).replace("03.02.2026", date);
    };
    for (const QByteArray& content :
         {kSmallFile.left(kSmallFile.indexOf("23,60") + 3), kSmallFile.left(40),
          kSmallFile.left(kSmallFile.indexOf("999")),
          QByteArray(kSmallFile).replace("23,60", "23,6"), dated("31.02.2026"), dated("+1.+2.2026"),
          dated("01.02.0099"), dated("heute")}) {
      House house;
      put(house.at(u"a.cva"_s), content);
      house.expect(u"file-incomplete"_s);
      house.load(u"a.cva"_s, [](Dateien&) {});
      const bool hasRecords = content.size() > 40;
      QCOMPARE(house.window.Text1(1).text(), hasRecords ? u"420,0000"_s : QString());
    }
  }

  /// Also one after another: nothing of one water may show beside the next.
  void theExamplesLoadWithoutAMessage() {
    const QDir folder(QStringLiteral(CALVORA_EXAMPLES));
    const QStringList examples = folder.entryList(QDir::Files);
    QVERIFY(examples.size() >= 4);
    House used;
    for (const QString& example : examples + examples) {
      House fresh;
      QStringList shown[2];
      for (const int which : {0, 1}) {
        House& house = which == 0 ? fresh : used;
        house.load(folder.filePath(example), [](Dateien&) {});
        for (const auto& [index, label] : house.window.Label2) shown[which] += label->text();
      }
      QVERIFY(!fresh.window.Label2(11).text().isEmpty());
      QCOMPARE(shown[1], shown[0]);
    }
  }

  void noCommandDropsChangesUnasked_data() {
    // The command and the answer => what becomes of the dialog that follows.
    rows(
        "load;ja=>saved | load;ja=>cancelled | load;nein=>loaded | load;nein=>cancelled | "
        "load;abbrechen=> | new;ja=>saved | new;ja=>cancelled | new;nein=> | new;abbrechen=> | "
        "end;ja=>saved | end;ja=>cancelled | end;nein=> | end;abbrechen=>");
  }
  /// "Ja" saves and stops there; so does cancelling, without saving.
  void noCommandDropsChangesUnasked() {
    QFETCH(QStringList, given);
    QFETCH(QString, expected);
    const QString command = given[0];
    const bool discards = given[1] == "nein"_L1;
    const bool cancels = given[1] == "abbrechen"_L1;
    const bool saved = expected == "saved"_L1;
    const bool loads = expected == "loaded"_L1;
    const bool ends = command == "end"_L1 && discards;
    const bool gone = loads || (command == "new"_L1 && discards);
    House house;
    const QString chosen = house.at(loads ? u"alt.cva"_s : u"neu.cva"_s);
    put(house.at(u"alt.cva"_s), kSmallFile);
    house.keys(u"500"_s);  // not left yet
    const Button answer = discards ? Button::kNein : cancels ? Button::kAbbrechen : Button::kJa;
    house.expect(u"save-first"_s, answer);
    if (loads || saved) house.desktop.paths = {chosen};
    if (loads || answer == Button::kJa) {
      onNextModal<Dateien>(this, [&](Dateien& window) {
        if (!loads) window.Command1->click();
        QCOMPARE(window.isVisible(), !saved);
        window.Command2->click();
      });
    }
    if (command == "load"_L1) house.press(Qt::Key_O, Qt::ControlModifier);
    if (command == "new"_L1) house.press(Qt::Key_N, Qt::ControlModifier);
    if (command == "end"_L1) QCOMPARE(house.window.close(), ends);
    QCOMPARE(house.desktop.ended, ends ? 1 : 0);
    QCOMPARE(bytesOf(house.at(u"neu.cva"_s)).contains("1,500,"), saved);
    QCOMPARE(house.program.record.flag[flag::kStatus], gone || saved ? QString() : u"1"_s);
    const QString other = loads ? u"420,0000"_s : QString();
    QCOMPARE(house.window.Text1(1).text(), gone ? other : u"500,0000"_s);
  }

  void theFileDialogsSpeakGermanAndLeaveTheQuestionToTheProgram() {
    House house;
    put(house.at(u"da.cva"_s), "alt");
    for (const bool saved : {true, false}) {
      onNextModal<QFileDialog>(this, [&](QFileDialog& dialog) {
        QCOMPARE(dialog.labelText(QFileDialog::LookIn), u"Suchen in:"_s);
        QCOMPARE(dialog.nameFilters(), QStringList{u"Calvora-Dateien (*.cva)"_s});
        QCOMPARE(dialog.directory().canonicalPath(), QDir(house.folder.path()).canonicalPath());
        auto* name = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
        QTest::keyClick(name, saved ? Qt::Key_Return : Qt::Key_Escape);
      });
      const auto path = house.desktop.real.askSaveFile(
          &house.window, {house.folder.path(), u"cva"_s, u"da.cva"_s});
      QCOMPARE(path, saved ? std::optional(house.at(u"da.cva"_s)) : std::nullopt);
    }
  }

  /// The toolkit alone waits half a minute for another host's lock, which that may have left.
  void aLockThatAnotherHostLeftHoldsUpNoFileDialog() {
    House house;
    put(QSettings(QSettings::UserScope, u"QtProject"_s).fileName() + u".lock"_s, "1\nx\nother\n");
    QTest::qWait(1100);
    const QDeadlineTimer limit(10'000);
    onNextModal<QFileDialog>(this, [](QFileDialog& dialog) { dialog.reject(); });
    house.desktop.real.askSaveFile(&house.window, {house.folder.path(), u"cva"_s, {}});
    QVERIFY(!limit.hasExpired());
  }

  void theDataFolderIsChosenAndKept() {
    House house;
    house.program.settings = {};
    auto& window = house.open<datenpfad>();
    const QString here = QFileInfo(house.folder.path()).fileName();
    const QString chosen = house.at(u"Werte"_s);
    QCOMPARE(window.Label3(1).text(), house.at(u"daten"_s));
    QVERIFY(!window.Command1(1).isEnabled());
    QVERIFY(window.Dir1->findItems(u".versteckt"_s, Qt::MatchEndsWith).isEmpty());
    click(window, {here});
    click(window, {u"Werte"_s}, true);  // not on into the folder that the first click brought there
    QCOMPARE(window.Label3(2).text(), chosen);
    house.save(window, u"folder-confirm "_s + chosen, Button::kAbbrechen);
    QCOMPARE(house.program.settings.slot[setting::kDataFolder], QString());
    // A folder whose name no file can hold, or that is gone, is refused.
    click(window, {here, u"Вода"_s});
    house.save(window, u"folder-unwritable"_s);
    click(window, {here, u"daten"_s});
    QVERIFY(QDir().rmdir(house.at(u"daten"_s)));
    house.save(window, u"folder-gone"_s);
    QVERIFY(window.isVisible());
    QCOMPARE(house.program.settings.slot[setting::kDataFolder], QString());
    click(window, {here, u"Werte"_s});
    house.expect(u"folder-confirm "_s + chosen);
    house.save(window, u"folder-saved"_s);
    // The next start of the program finds it.
    Program later;
    later.programFolder = house.folder.path();
    const main next(later, house.questions, house.desktop);
    QCOMPARE(later.settings.slot[setting::kDataFolder], chosen);
  }

  void aDriveIsChosenInItsListAndCountsForThisRunIfItIsNotSaved() {
    House house;
    QString& kept = house.program.settings.slot[setting::kDataFolder];
    kept = u"C:\\"_s;  // a bare drive
    auto& window = house.open<datenpfad>();
    QCOMPARE(window.Label3(1).text(), house.at(u"daten"_s));
    QVERIFY(window.Drive1->currentIndex() >= 0);
    const int root = window.Drive1->findText(u"/"_s);
    window.Drive1->setCurrentIndex(root);
    emit window.Drive1->activated(root);
    QCOMPARE(window.Label3(2).text(), u"/"_s);
    QCOMPARE(window.Drive1->currentText(), u"/"_s);
    // A second call brings up the window that is open.
    house.window.mnu2_pfad->trigger();
    const auto lists = house.window.findChildren<QListWidget*>();
    QCOMPARE(std::ranges::count_if(lists, &QWidget::isVisible), 1);
    window.close();
    kept = u"/gibt/es/nicht"_s;
    house.expect(u"folder-gone"_s);
    auto& again = house.open<datenpfad>();
    house.program.programFolder = u"/gibt/es/nicht"_s;
    again.Dir1->setFocus();
    QTest::keyClick(again.Dir1, Qt::Key_Enter);
    const QString chosen = again.Label3(2).text();
    house.save(again, u"folder-confirm "_s + chosen);
    QVERIFY(again.findChild<QLabel*>(u"failure"_s)->text().contains("nicht gespeichert"_L1));
    QVERIFY(again.isVisible());
    house.window.mnu_neustart->trigger();
    QCOMPARE(kept, chosen);
  }

  void theCompanyLineIsKept() {
    House house;
    auto& window = house.open<firma>();
    QVERIFY(!window.Command1(1).isEnabled());
    QTest::keyClicks(&window.Text1(0), u"Wasser\""_s);
    QTest::keyClick(&window.Text1(0), Qt::Key_Up);
    QCOMPARE(window.focusWidget(), &window.Text1(3));
    QTest::keyClick(&window.Text1(3), Qt::Key_Enter);
    QCOMPARE(window.focusWidget(), &window.Text1(0));
    window.Text1(3).setFocus();
    QTest::keyClicks(&window.Text1(3), u"Hof|9"_s);
    QCOMPARE(window.Text1(4).text(), u"Wasser       Hof/9"_s);  // no room for lines that are empty
    house.save(window, u"line-saved"_s);
    QVERIFY(!window.isVisible());
    const QString& printLine = house.program.settings.slot[setting::kPrintLine];
    QCOMPARE(printLine, u"Wasser               Hof/9"_s);
    Settings read;
    readSettings(read, house.folder.path());
    QCOMPARE(read.slot[setting::kPrintLine], printLine);
    auto& again = house.open<firma>();
    QCOMPARE(again.Text1(3).text(), u"Hof/9"_s);
    QCOMPARE(again.Label3(1).text(), QString::number(115 - printLine.size()));
    // What cannot be saved is reported, and printed for the rest of the run.
    const QString programFolder = std::exchange(house.program.programFolder, u"/gibt/es/nicht"_s);
    again.Text1(3).setFocus();
    QTest::keyClicks(&again.Text1(3), u"b"_s);
    again.Command1(1).click();
    QVERIFY(again.findChild<QLabel*>(u"failure"_s)->text().contains("nicht gespeichert"_L1));
    QCOMPARE(printLine, u"Wasser               Hof/9b"_s);
    // What is too long is not saved at all.
    again.Text1(0).insert(QString(100, 'A'_L1));
    QCOMPARE(again.Label3(1).text(), u"0"_s);
    house.save(again, u"line-too-long"_s);
    QVERIFY(again.isVisible());
    QCOMPARE(printLine, u"Wasser               Hof/9b"_s);
    again.Text1(0).undo();
    house.program.programFolder = programFolder;
    house.save(again, u"line-saved"_s);
    QVERIFY(!again.isVisible());
  }

  /// Pasting with the mouse alone does not count; every key does.
  void onlyAKeyLetsTheCompanyLineBeSaved() {
    for (const QKeyCombination keys :
         {Qt::NoModifier | Qt::Key(0), Qt::CTRL | Qt::Key_V, Qt::SHIFT | Qt::Key_Insert,
          Qt::NoModifier | Qt::Key_QuoteDbl, Qt::NoModifier | Qt::Key_Left,
          Qt::NoModifier | Qt::Key_Enter}) {
      House house;
      auto& window = house.open<firma>();
      QGuiApplication::clipboard()->setText(u"Quelle"_s);
      window.Text1(0).setFocus();
      const bool pressed = keys.key() != 0;
      if (keys.keyboardModifiers() == Qt::NoModifier) window.Text1(0).paste();
      if (pressed) QTest::keyClick(&window.Text1(0), keys.key(), keys.keyboardModifiers());
      QCOMPARE(window.Text1(4).text(), u"Quelle"_s + QString(7, ' '_L1));
      if (pressed) house.expect(u"line-saved"_s);
      window.Command1(1).click();
      QCOMPARE(window.isVisible(), !pressed);
      window.Command1(2).click();
      QVERIFY(!window.isVisible());
    }
  }
};

CALVORA_TEST_MAIN(StorageWindowsTest)
#include "storage_windows_test.moc"
