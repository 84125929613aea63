// Files that come otherwise than by a file dialog, and what one session leaves to the next.
#include <QMenu>
#include <QMenuBar>
#include <QUrl>

#include "app/start_window.h"
#include "overview/windows/analysen.h"
#include "print/windows/drucker.h"
#include "storage/session_memory.h"
#include "storage/windows/dateien.h"
#include "storage/windows/firma.h"
#include "support/tables.h"
#include "support/window_support.h"

using namespace calvora;

namespace {

/// A mask whose folder holds some files. Every header window is left as soon as it comes.
struct Room : Mask {
  Room() {
    const QByteArray analysis = "\"n\"\r\n" + QByteArray("\"\"\r\n").repeated(7) +
                                "\"ende\"\r\n1,420,\"420,0000\"\r\n999,0,0\r\n";
    for (const auto& name : {u"a.cva"_s, u"B.CVA"_s, u"c&d.cva"_s}) put(at(name), analysis);
    put(at(u"kurz.cva"_s), analysis.left(30));
    put(at(u"p.cvp"_s), QByteArray("\"\"\r\n").repeated(6) + "\"ende\"\r\n\"endread\"\r\n");
    put(at(u"x.txt"_s), "7,5");
    QDir(folder.path()).mkdir(u"ordner.cva"_s);
    QObject::connect(&leaving, &QTimer::timeout, [this] {
      auto* header = dynamic_cast<Dateien*>(QApplication::activeModalWidget());
      headers += header != nullptr ? 1 : 0;
      if (header != nullptr) header->reject();
    });
    leaving.start(10);
  }

  /// The names in the menu.
  QString recent() {
    settle();
    emit window.mnu_recent->aboutToShow();
    QStringList names;
    for (const QAction* action : window.mnu_recent->actions())
      names += action->text().section(' '_L1, 2);
    return names.join(' '_L1);
  }

  int headers = 0;
  QTimer leaving;
};

}  // namespace

class FilesTest : public QObject {
  Q_OBJECT

 private slots:
  void whatIsDroppedIsTakenOrTold_data() {
    // Where and what; the message => the conductivity, the overview's captions, header windows
    rows<QString>(
        "box a.cva;=>420,0000;;1 | locked a.cva;=>;;0 | box 7,5;=>7,5;;0 | frame "
        "B.CVA;=>420,0000;;1 | frame p.cvp;=>;;1"
        " | box x.txt;not-loaded x.txt=>;;0 | box ordner.cva;not-loaded ordner.cva=>;;0"
        " | box a.cva p.cvp;not-loaded a.cva p.cvp=>;;0 | overview a.cva;=>;n;1"
        " | overview a.cva B.CVA a.cva;=>;nnn;0 | overview p.cvp p.cvp;not-loaded p.cvp p.cvp=>;;0"
        " | overview kurz.cva fort.cva a.cva;overview-incomplete kurz.cva fort.cva=>;nn;0"
        " | overview a.cva a.cva a.cva a.cva a.cva a.cva a.cva a.cva B.CVA;overview-full "
        "B.CVA=>;nnnnnnnn;0");
  }
  void whatIsDroppedIsTakenOrTold() {
    QFETCH(QString, given);
    Room room;
    const QString where = given.section(' '_L1, 0, 0);
    const QString message = given.section(';'_L1, 1);
    if (where == "overview"_L1) room.window.mnu2_ana->trigger();
    auto* overview = shownWindow<analysen>();
    const QString names = message.section(' '_L1, 1).replace(' '_L1, u"\n\r "_s);
    if (!message.isEmpty())
      room.questions.expect(says(message.section(' '_L1, 0, 0) + u"  "_s + names));
    QWidget* target = where == "overview"_L1 ? overview->MSFlexGrid1->viewport()
                      : where == "frame"_L1  ? static_cast<QWidget*>(room.window.Frame1)
                                             : &room.window.Text1(1);
    QMimeData data;  // files, whose names are also a text, or a text alone
    data.setText(given.section(';'_L1, 0, 0).section(' '_L1, 1));
    QList<QUrl> urls;
    for (const QString& name : data.text().split(' '_L1))
      urls += QUrl::fromLocalFile(room.at(name));
    if (data.text().contains('.'_L1)) data.setUrls(urls);
    QVERIFY(Room::dropOn(*target, data));
    room.window.setEnabled(where != "locked"_L1);  // before the files are looked at
    Room::settle();
    QString captions;
    overview = shownWindow<analysen>();
    for (int k = 1; overview != nullptr && k <= 8; ++k) {
      if (overview->project().grid.slot[k].filled) captions += overview->Label1(k).caption();
    }
    QTEST(u"%1;%2;%3"_s.arg(room.window.Text1(1).text(), captions).arg(room.headers), "expected");
  }

  void whatWasUsedLastIsFoundAgain() {
    Room room;
    for (const auto& name : {u"a.cva"_s, u"c&d.cva"_s, u"B.CVA"_s, u"a.cva"_s, u"kurz.cva"_s}) {
      if (name == "kurz.cva"_L1) room.questions.expect(says(u"file-incomplete"_s));
      room.window.openFiles({room.at(name)});
    }
    QCOMPARE(room.recent(), u"a B c&&d"_s);
    changeMemory(room.folder.path(), [&](SessionMemory& memory) {  // another instance
      for (int i = 0; i < 6; ++i) memory.noteAnalysis(room.at(u"fort%1.cva"_s.arg(i)));
    });
    QCOMPARE(readMemory(room.folder.path()).analyses.size(), kRecentAnalyses);
    QCOMPARE(room.recent(), u"a B"_s);
    room.window.mnu_recent->actions().back()->trigger();
    QCOMPARE(room.recent(), u"B a"_s);
    QFile::remove(room.at(u"B.CVA"_s));
    room.questions.expect(says(u"file-missing "_s + room.at(u"B.CVA"_s)));
    room.window.mnu_recent->actions().front()->trigger();
    QCOMPARE(room.program.record.text[1], u"420,0000"_s);
    for (const auto* rubbish : {"", "[1]", "{\"analysen\":{},\"fenster\":[]}",
                                "{\"analysen\":[7,\"\"],\"fenster\":{\"main\":{\"rahmen\":9}}}"}) {
      put(room.at(u"cvra_zuletzt.json"_s), rubbish);
      QCOMPARE(readMemory(room.folder.path()), SessionMemory());
    }
  }

  void windowsOpenWhereTheyWereLeft() {
    Room room;
    const auto visit = [&](const QRect& moveTo) {  // returns where it opened
      room.window.mnu2_fatext->trigger();
      Room::settle();
      auto* window = shownWindow<firma>();
      const QRect opened = window->geometry();
      if (moveTo.isValid()) window->setGeometry(moveTo);
      window->close();
      return opened;
    };
    const QRect first = visit({});
    QCOMPARE(readMemory(room.folder.path()), SessionMemory());  // nobody moved it
    const QRect place(QPoint(70, 90), first.size() + QSize(40, 30));
    visit(place);
    QCOMPARE(visit({}), place);
    changeMemory(room.folder.path(), [](SessionMemory& memory) {
      memory.windows[u"firma"_s].frame.moveTo(-10, 50);
      memory.windows[u"main"_s] = {{0, 0, 9000, 700}, {9000, 700}, true};
    });
    QCOMPARE(visit({}), first);
    main again(room.program, room.questions, room.desktop);
    again.show();
    QVERIFY(again.isMaximized());
  }

  void aFileOfTheStartIsLoadedBehindTheStartWindow() {
    Room room;
    main window(room.program, room.questions, room.desktop);  // asks for the start window
    window.filesAtStart = {room.at(u"a.cva"_s)};
    window.show();
    Room::activate(window);
    Room::settle();
    QCOMPARE(room.program.record.text[1], QString());
    window.findChild<start*>()->Command1(2).click();
    Room::settle();
    QCOMPARE(room.program.record.text[1], u"420,0000"_s);
  }

  void aPrintedFileIsNamedUntilTheNextEntry() {
    Room room;
    const QPushButton& link = *room.window.Command5;
    room.enter(2, u"7,5"_s);
    room.desktop.file = room.at(u"bericht"_s);
    onNextModal<Drucker>(&room.window, [](Drucker& dialog) { dialog.Command2->click(); });
    room.window.mnu_drucken->trigger();
    QVERIFY(link.isVisible() && link.text() == "PDF: bericht.pdf"_L1);
    QTest::keyClick(room.window.Command5, Qt::Key_Enter);
    QCOMPARE(room.desktop.opened, QStringList{room.at(u"bericht.pdf"_s)});
    QFile::remove(room.at(u"bericht.pdf"_s));
    room.questions.expect(says(u"not-opened "_s + room.at(u"bericht.pdf"_s)));
    QTest::keyClick(room.window.Command5, Qt::Key_Enter);
    room.activate();
    room.enter(2, u"7,6"_s);
    QVERIFY(!link.isVisible());
  }
};

CALVORA_TEST_MAIN(FilesTest)
#include "files_test.moc"
