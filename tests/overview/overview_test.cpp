// Up to eight analyses side by side, and the project files that keep them.
#include <QClipboard>
#include <QScrollBar>

#include "overview/overview_content.h"
#include "overview/windows/analysen.h"
#include "print/windows/drucker.h"
#include "storage/line_file.h"
#include "storage/project_file.h"
#include "storage/windows/dateien.h"
#include "support/tables.h"
#include "support/window_support.h"

using namespace calvora;

namespace {

QByteArray golden() {
  return bytesOf(QFINDTESTDATA("overview/golden/three.cvp"));
}

/// Every field says its own index.
QByteArray analysisFile() {
  QByteArray file =
      "'brunnen'\n'P'\n'7'\n'Probe'\n'K'\n'03.02.2026'\n'05.02.2026'\n'nass'\n'ende'\n";
  for (int i = 1; i <= 26; ++i) file += u"%1,%1,'%1'\n"_s.arg(i).toLatin1();
  return file.replace('\'', '"') + "999,0,0\n";
}

/// The main window with an unsaved analysis, and the overview beside it.
struct Room : Mask {
  Room() {
    put(at(u"a.cva"_s), analysisFile());
    put(at(u"three.cvp"_s), golden());
    QDir(folder.path()).mkpath(u"folder.cvp/darin"_s);
    program.record.text[1] = u"420"_s;
    program.record.flag[flag::kStatus] = u"1"_s;
    program.dataPresent = true;
    for (int slot = 0; slot <= 7; ++slot) program.header[slot] = u"main %1"_s.arg(slot);
    program.header[5] = u"01.02.2026"_s;
    window.mnu2_ana->trigger();
    overview = shownWindow<analysen>();
  }

  /// The file dialog chooses that file, and the header that is shown then is left.
  void choose(
      const QString& name, const std::function<void(Dateien&)>& look = [](Dateien&) {}) {
    desktop.paths = {at(name)};
    onNextModal<Dateien>(&window, [look](Dateien& header) {
      look(header);
      if (header.isVisible()) header.Command2->click();
    });
  }
  QString filled() const {
    QString found;
    for (int k = 1; k <= 8; ++k) {
      if (grid().slot[k].filled) found += QString::number(k);
    }
    return found;
  }
  const OverviewGrid& grid() const { return overview->project().grid; }

  /// l load, x cancel the file dialog, m a missing file, r remove, n rather not; each with the
  /// slot. c clear, a rather not, p load the project, q rather not, s save the project, v rather
  /// not, f where a folder is in the way.
  void run(const QString& operation) {
    const QChar kind = operation[0];
    const int k = operation.mid(1).toInt();
    const bool clears = u"capq"_s.contains(kind);
    desktop.paths.clear();
    if (kind == 'l'_L1) choose(u"a.cva"_s);
    if (kind == 'm'_L1) desktop.paths = {at(u"fort.cva"_s)};
    if (kind == 'm'_L1) questions.expect(says(u"file-missing "_s + desktop.paths.front()));
    if (kind == 'p'_L1) choose(u"three.cvp"_s);
    if (kind == 'v'_L1) choose(u"ignored"_s);
    if (kind == 's'_L1 || kind == 'f'_L1) {
      const bool fails = kind == 'f'_L1;
      choose(fails ? u"folder.cvp"_s : u"new.cvp"_s, [this, fails](Dateien& header) {
        const QWidget* gone[] = {header.Text3, header.Label3, header.DTPicker1, header.Label5};
        QVERIFY(std::ranges::none_of(gone, &QWidget::isVisible));
        // Enter walks through the fields that are there.
        const QWidget* walk[] = {header.Text2, header.Text4, header.Text7, header.Command1};
        for (const QWidget* next : walk) {
          QTest::keyClick(header.focusWidget(), Qt::Key_Return);
          QCOMPARE(header.focusWidget(), next);
        }
        header.Label8->click();  // removes the date
        header.Command1->click();
        QCOMPARE(desktop.requests.back().extension, u"cvp"_s);
        QCOMPARE(desktop.requests.back().folder, program.settings.slot[10]);
        QCOMPARE(header.isVisible(), fails);
        QCOMPARE(header.findChild<QLabel*>(u"failure"_s)->isVisible(), fails);
      });
    }
    const bool goesOn = kind != 'n'_L1 && kind != 'a'_L1;
    if (k > 0 && grid().slot[k].filled) {
      questions.expect(says(u"overview-remove %1"_s.arg(k)), goesOn ? Button::kJa : Button::kNein);
    }
    if (clears && !filled().isEmpty()) {
      questions.expect(says(u"overview-clear"_s), goesOn ? Button::kOk : Button::kAbbrechen);
    }
    if (kind == 's'_L1) questions.expect(says(u"overview-saved"_s));
    const int button = !clears ? 4 : u"pq"_s.contains(kind) ? 5 : 2;
    (k > 0 ? static_cast<QAbstractButton&>(overview->Label1(k)) : overview->Command1(button))
        .click();
  }

  analysen* overview = nullptr;
};

}  // namespace

class OverviewTest : public QObject {
  Q_OBJECT

 private slots:
  void everyFieldStandsInItsRow() {
    const QStringList fields =
        u"05.02.2026,1,2,3,4,5,6,,20,21,22,23,24,25,26,,7,8,9,,11,12,13,14,15"_s.split(','_L1);
    Room room;
    room.choose(u"a.cva"_s, [](Dateien& header) {
      QCOMPARE(header.Text3->text(), u"Probe"_s);
      QCOMPARE(header.DTPicker1->date(), QDate(2026, 2, 3));
      QCOMPARE(header.Text6->text(), u"05.02.2026"_s);
      const QWidget* gone[] = {header.Command1, header.Label5, header.Label8, header.Label9};
      QVERIFY(std::ranges::none_of(gone, &QWidget::isVisible));
      QVERIFY(!header.DTPicker1->isEnabled() && !header.Text1->isEnabled());
    });
    room.overview->Label1(8).click();
    room.run(u"l1"_s);
    const main& mask = room.window;
    const auto cell = [&](int row, int column) {
      return room.overview->MSFlexGrid1->item(row, column);
    };
    QCOMPARE(cell(0, 0)->text(), u"Probe-Datum"_s);
    for (int row = 0; row < 25; ++row) {
      const QString& text = fields[row];
      QCOMPARE(cell(row, 2)->text(), text);
      QCOMPARE(cell(row, 9)->text(), row == 0 || text.isEmpty() ? text : ' '_L1 + text);
      if (row == 0 || text.isEmpty()) continue;
      const int field = text.toInt();
      const bool isButton = field <= 6 || field == 20 || field >= 23;
      QCOMPARE(cell(row, 0)->text(), mask.Label5(field).text());
      QCOMPARE(cell(row, 1)->text(),
               isButton ? mask.Command1(field).text() : mask.Label3(field).text());
    }
    QCOMPARE(room.overview->Label1(8).caption(), u"brunnen"_s);
    QStringList said{room.overview->windowTitle(), room.overview->Label4->text()};
    for (const auto& [index, button] : room.overview->Command1) said += button->text();
    QCOMPARE(said.join('|'_L1),
             u"      Analysen-Übersicht     |Analysen-Übersicht| << schliessen|alle Einträge  "
             "löschen|ausdrucken |speichern als Projekt|Projekt laden"_s);
  }

  void operationsChangeWhatTheyMay_data() {
    // Operations => filled slots, and the buttons of 2 to 4 that are enabled.
    rows<QString>(
        "x1 m2=>; | l1 l2 l3 r3=>12;234 | l1 n1 x2=>1;234 | l4 r4=>; | l1 l8 c=>;2 | p c=>;2 | l1"
        " c c=>;2 | l1 l8 a=>18;234 | l7 q=>;2 | q=>; | l7 p=>123;234 | p r2 l5=>135;234 | l2 "
        "s=>2;234 | p s=>123;234 | l2 v c=>;2 | l2 f=>2;234 | p q=>;2");
  }

  /// Nothing that is done here changes the analysis of the main window or its header; saving a
  /// project, and also giving that up, makes it count as saved.
  void operationsChangeWhatTheyMay() {
    QFETCH(QString, given);
    Room room;
    Program& program = room.program;
    const AnalysisHeader before = program.header;
    AnalysisHeader header = before;
    QString name;
    for (const QString& operation : given.split(' '_L1)) {
      AnalysisRecord record = program.record;
      room.run(operation);
      if (operation == 's'_L1) name = u"new"_s;
      if (operation == 's'_L1 || operation == 'f'_L1) {
        header[5].clear();
        header[6] = u"22.11.2026"_s;  // the window's creation date
      }
      if (operation == 'p'_L1) {
        header.clear();
        for (const int slot : {0, 1, 2, 4, 5, 7}) header[slot] = u"p%1"_s.arg(slot);
        header[5] = u"24.12.2025"_s;
      }
      if (operation == 'c'_L1 || operation == 'q'_L1) header = before;
      if (u"svf"_s.contains(operation)) record.flag[flag::kStatus].clear();
      QCOMPARE(room.overview->project().header, header);
      QCOMPARE(program.header, before);
      QCOMPARE(program.record.value, record.value);
      QCOMPARE(program.record.text, record.text);
      QCOMPARE(program.record.flag[flag::kStatus], record.flag[flag::kStatus]);
      QCOMPARE(program.record.flag[flag::kNameLine], name);
      QCOMPARE(program.dataPresent, name.isEmpty());
      for (const auto& [k, label] : room.overview->Label1) {
        const bool isFilled = room.grid().slot[k].filled;
        QCOMPARE(label->backColour().name(), isFilled ? u"#80ff80"_s : u"#e0e0e0"_s);
        if (!isFilled) QCOMPARE(label->caption(), u"   Analyse   laden"_s);
        for (int row = 0; row < OverviewGrid::kRows; ++row) {
          const QString shown = room.overview->MSFlexGrid1->item(row, k + 1)->text();
          QCOMPARE(shown, room.grid().slot[k].cells[row]);
        }
      }
    }
    QString enabled;
    for (int button = 2; button <= 4; ++button) {
      if (room.overview->Command1(button).isEnabled()) enabled += QString::number(button);
    }
    QTEST(room.filled() + ';'_L1 + enabled, "expected");
    if (!enabled.contains('3'_L1)) return;
    onNextModal<Drucker>(&room.window, [&](Drucker& dialog) {
      QCOMPARE(dialog.Command1->text(), u"Analysen Übersicht"_s);
      QCOMPARE(dialog.Text1(2).text(), header[1]);
      dialog.Text1(2).setText(u"nur hier"_s);
      dialog.Command2->click();  // cancelled, but the header is kept
    });
    room.overview->Command1(3).click();
    QCOMPARE(room.overview->project().header[1], u"nur hier"_s);
    QCOMPARE(program.header, before);
  }

  void aFileReadInPartFillsItsSlotAndIsTold() {
    Room room;
    put(room.at(u"cut.cva"_s), analysisFile().left(analysisFile().indexOf("\"4\"") + 1));
    room.questions.expect(says(u"file-incomplete"_s));
    room.choose(u"cut.cva"_s);
    room.overview->Label1(1).click();
    QCOMPARE(room.grid().slot[1].cells[3], u"3"_s);
    // What cannot be opened at all leaves the slot as it is.
    room.questions.expect(says(u"file-incomplete"_s));
    room.desktop.paths = {room.folder.path()};
    room.overview->Label1(2).click();
    QCOMPARE(room.filled(), u"1"_s);
    // A column that only begins in a project is shown, but is no filled slot.
    put(room.at(u"cut.cvp"_s), golden().split('\n').mid(0, 40).join('\n'));
    room.questions.expect(says(u"overview-clear"_s));
    room.questions.expect(says(u"file-incomplete"_s));
    room.choose(u"cut.cvp"_s, [](Dateien& header) {
      QVERIFY(header.Label9->isVisible());
      QCOMPARE(header.Text3->text() + header.Text6->text(), QString());
    });
    room.overview->Command1(5).click();
    QCOMPARE(room.filled(), u"1"_s);
    QCOMPARE(room.overview->Label1(2).caption(), u"wässer 5"_s);
    QCOMPARE(room.overview->MSFlexGrid1->item(1, 3)->text(), u"<1,5"_s);
  }

  void aProjectIsWrittenAsTheGoldenFile() {
    const Room room;
    Project project;
    QVERIFY(readProject(project, room.at(u"three.cvp"_s)));
    const OverviewGrid read = std::exchange(project.grid, {});
    for (int k = 1; k <= 3; ++k) {
      const int written = 3 * k - 1;  // it was written from a grid with gaps
      project.grid.slot[written] = read.slot[k];
      QCOMPARE(read.slot[k].caption, u"wässer %1"_s.arg(written));
      for (int row = 0; row < OverviewGrid::kRows; ++row) {
        const QString text = isSeparatorRow(row) ? QString() : u"<%1,%2"_s.arg(row).arg(written);
        QCOMPARE(read.slot[k].cells[row], k == 3 && row > 0 ? ' '_L1 + text : text);
      }
    }
    QCOMPARE(projectContent(project, u"p0"_s), golden());
    // A text that is a marker is kept with a blank; nothing is left of another header.
    project.grid.slot[2].caption = u"endread"_s;
    project.grid.slot[2].cells[7] = u"enddat"_s;
    put(room.at(u"marker.cvp"_s), projectContent(project, u"p0"_s));
    Project again;
    QVERIFY(readProject(again, room.at(u"marker.cvp"_s)) && isUnchanged(again.file));
    QCOMPARE(again.grid.slot[1].caption + again.grid.slot[1].cells[7], u"endread enddat "_s);
    put(room.at(u"cut.cvp"_s), golden().left(golden().indexOf("p2")));
    QVERIFY(!readProject(again, room.at(u"cut.cvp"_s)) && again.file.path.isEmpty());
    QStringList header;
    for (int slot = 0; slot <= 7; ++slot) header += again.header[slot];
    QCOMPARE(header.join(' '_L1).trimmed(), u"p0 p1"_s);
  }

  void oddProjectsKeepTheirWholeBlocks() {
    const Room room;
    const QByteArray header = golden().split('\n').mid(0, 7).join('\n') + '\n';
    const QByteArray block = "a\n" + QByteArray("1\n").repeated(25) + "enddat\n";
    for (const auto& [blocks, expected] :
         {std::pair<QByteArray, QString>{"endread\n", u"0 whole"_s},
          {"a\nc\n1\nenddat\n" + block + "endread\n", u"2 whole"_s},
          {"a\nenddat\n" + block + "endread\n", u"2 whole"_s},
          {block + "a\n" + block, u"1 cut"_s},
          {block.repeated(8) + "endread\n", u"8 whole"_s},
          {block.repeated(9) + "endread\n", u"8 cut"_s},
          {block + "\"a\n", u"1 cut"_s},
          {block + "endread\n" + block, u"1 whole"_s},
          {QByteArray(5'000'000, '\n'), u"0 cut"_s}}) {
      put(room.at(u"odd.cvp"_s), header + blocks);
      Project read;
      const QString how = readProject(read, room.at(u"odd.cvp"_s)) ? u" whole"_s : u" cut"_s;
      QCOMPARE(QString::number(filledSlots(read.grid)) + how, expected);
    }
  }

  void cellsAreCopiedAsTabSeparatedText() {
    Room room;
    room.run(u"p"_s);
    OverviewTable& table = *room.overview->MSFlexGrid1;
    const auto copied = [&] {
      QTest::keyClick(room.overview, Qt::Key_C, Qt::ControlModifier);
      return QGuiApplication::clipboard()->text();
    };
    Mask::activate(*room.overview);
    const QString whole = copied();
    QVERIFY(
        whole.startsWith(u"\t\twässer 2\twässer 5\twässer 8\t\t\t\t\t\nProbe-Datum\t\t<0,2\t"_s));
    QCOMPARE(whole.count('\n'_L1), 26);
    table.selectAll();
    QCOMPARE(copied(), whole);
    table.clearSelection();
    table.setRangeSelected({1, 3, 2, 4}, true);
    table.setRangeSelected({4, 1, 4, 1}, true);
    QCOMPARE(copied(), u"\t<1,5\t<1,8\n\t<2,5\t<2,8\nmmol/l\t\t\n"_s);
    table.clearSelection();
    table.setRangeSelected({4, 0, 5, 0}, true);
    QCOMPARE(copied(), u"Säurekapazität Ks8,2\nSäurekapazität Ks4,3\n"_s);
  }

  void labelsWorkWithTheKeyboardAndShowLongNames() {
    Room room;
    put(room.at(u"long.cva"_s), analysisFile().replace("brunnen", QByteArray(200, 'w')));
    for (const auto& [k, file, key] :
         {std::tuple{1, u"a.cva"_s, Qt::Key_Enter}, std::tuple{2, u"long.cva"_s, Qt::Key_Space}}) {
      room.choose(file);
      room.overview->Label1(k).setFocus(Qt::TabFocusReason);
      QTest::keyClick(&room.overview->Label1(k), key);
    }
    QCOMPARE(room.filled(), u"12"_s);
    const QString tip = u" click -  für Analysen-Datei öffnen  "_s;
    QCOMPARE(room.overview->Label1(1).toolTip(), tip);
    QCOMPARE(room.overview->Label1(2).toolTip(), tip + '\n'_L1 + QString(200, 'w'_L1));
    room.window.mnu2_ana->trigger();  // brings up the one that is open
    const auto open = QApplication::topLevelWidgets();
    QCOMPARE(std::ranges::count_if(open, [](QWidget* w) { return qobject_cast<analysen*>(w); }), 1);
    // The whole grid is there at the designed size.
    const QSize size = room.overview->sizeHint();
    QVERIFY(size.width() <= 1240 && size.height() <= 740);
    room.overview->resize(size);
    Mask::settle();
    OverviewTable& table = *room.overview->MSFlexGrid1;
    QCOMPARE(table.horizontalScrollBar()->maximum() + table.verticalScrollBar()->maximum(), 0);
    // In a smaller one columns move as wholes, and the fixed ones stay in line with them.
    room.overview->resize(size * 2 / 3);
    Mask::settle();
    for (QScrollBar* bar : {table.horizontalScrollBar(), table.verticalScrollBar()}) {
      for (int i = 0; i <= 10; ++i) {
        bar->setValue(bar->maximum() * i / 10);
        for (const int narrower : {0, 3}) {
          room.overview->resize(room.overview->width() - narrower, room.overview->height());
          Mask::settle();
          const int beside = table.columnViewportPosition(9) - table.fixedWidth();
          QCOMPARE(beside % table.columnWidth(9), 0);
        }
        auto* fixed = table.findChild<QTableView*>();
        QCOMPARE(fixed->rowViewportPosition(20), table.rowViewportPosition(20));
      }
    }
  }
};

CALVORA_TEST_MAIN(OverviewTest)
#include "overview_test.moc"
