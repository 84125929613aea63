// Reports on paper and the dialog that prints them, read back from the PDF files with poppler.
#include <QClipboard>
#include <QComboBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QRegularExpression>
#include <QToolBar>

#include "plausi/windows/plausi.h"
#include "print/windows/drucker.h"
#include "print/windows/report_printer.h"
#include "support/tables.h"
#include "support/window_support.h"

using namespace calvora;

namespace {

/// The lines that a page reader sees, pages separated by "---", blanks run together.
QStringList linesOf(const QString& pdf) {
  QStringList lines;
  QString text = outputOf(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s});
  text.chop(1);  // the form feed behind the last page
  for (const QString& line : text.replace('\f'_L1, u"\n---\n"_s).split('\n'_L1)) {
    if (!line.trimmed().isEmpty()) lines += line.simplified();
  }
  return lines;
}

/// Left and right end in points of every word that matches.
QList<std::pair<double, double>> extents(const QString& pdf, const QString& word) {
  const QRegularExpression box(
      u"xMin=\"([0-9.]+)\" yMin=\"[0-9.]+\" xMax=\"([0-9.]+)\"[^>]*>%1<"_s.arg(word));
  QList<std::pair<double, double>> found;
  const QString words = outputOf(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s});
  for (const QRegularExpressionMatch& match : box.globalMatch(words)) {
    found.emplaceBack(match.captured(1).toDouble(), match.captured(2).toDouble());
  }
  return found;
}

/// A printer whose pages are so low that a report needs many, and that jams at one of them.
struct JammingPaper : Paper, QPdfWriter {
  JammingPaper(const QString& path, int at) : QPdfWriter(path), jamsAt(at) {
    setPageSize(QPageSize(QSizeF(210, 40), QPageSize::Millimeter));
  }
  QPagedPaintDevice& device() override { return *this; }
  void deliver() override {}
  bool newPage() override { return ++asked != jamsAt && QPdfWriter::newPage(); }
  int jamsAt, asked = 0;
};

/// A mask over a folder, with the example analysis in it.
struct Printing : Mask {
  Printing() {
    program.settings.slot[setting::kDataFolder] = folder.path();
    program.settings.slot[setting::kPrintLine] = u"Firma       Weg 1    Ort"_s;
    program.header[0] = u"brunnen"_s;
    program.header[1] = u"Wohnanlage"_s;
    for (int i = 1; i <= 26; ++i) {
      program.record.text[i] = i == 1 ? u"1420,000"_s : u"7,50"_s;
      program.record.computed[i] = true;
    }
    desktop.paper = [this](const PrintRequest& request) {
      return std::make_unique<PdfPaper>(pdf, request.title, reportPage(request.landscape));
    };
  }

  /// The print dialog for a kind of report, shown.
  Drucker& opened(Bericht kind, Project* project = nullptr) {
    dialog = std::make_unique<Drucker>(program, questions, desktop, &window, project);
    dialog->druckart(kind);
    dialog->show();
    return *dialog;
  }

  QString pdf = folder.filePath(u"a.pdf"_s);
  std::unique_ptr<Drucker> dialog;
};

}  // namespace

class PrintTest : public QObject {
  Q_OBJECT

 private slots:
  void anAnalysisIsPrintedFromTheMenu() {
    Printing mask;
    onNextModal<Drucker>(this, [&](Drucker& window) {
      QCOMPARE(window.windowTitle(), u"   Drucker"_s);
      window.Text1(2).setText(u"Neubau"_s);
      QTest::keyClick(window.Command2, Qt::Key_Enter);
    });
    mask.press(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(mask.desktop.printRequests.at(0).pdfFile, mask.folder.filePath(u"brunnen.pdf"_s));
    compareWithGolden(linesOf(mask.pdf), u"print/golden/analysis_page.txt"_s);
    // Padded values end in one place, and so do the columns that they are read by.
    const double end = extents(mask.pdf, u"1420,000"_s).value(0).second;
    const auto values = extents(mask.pdf, u"7,50"_s);
    QCOMPARE(values.size(), 20);
    for (const auto& value : values) QVERIFY(std::abs(value.second - end) < 0.5);
    const QRegularExpression embedded(u" yes \\w+ +yes "_s);  // plain and bold
    QCOMPARE(outputOf(u"pdffonts"_s, {mask.pdf}).count(embedded), 2);
    const QString info = outputOf(u"pdfinfo"_s, {mask.pdf});
    QVERIFY(info.contains(u"Wasser - Analyse - brunnen"_s) && info.contains(u"Calvora"_s));
  }

  void anOverviewOfEightFitsItsPage() {
    Printing mask;
    Project project;
    project.header[3] = u"Rücklauf"_s;
    OverviewGrid& grid = project.grid;
    for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
      grid.slot[k].filled = true;
      grid.slot[k].caption = u"0000000%1"_s.arg(k);
      grid.slot[k].cells[24] = u"9999,999"_s;
    }
    Drucker& window = mask.opened(Bericht::kÜbersicht, &project);
    QVERIFY(!window.Text1(3).isVisible() && !window.Label3->isVisible());
    window.Command2->click();
    const QStringList lines = linesOf(mask.pdf);
    QVERIFY(lines.contains(u"Bezeichnung Probe: Rücklauf"_s) && !lines.contains(u"---"_s));
    QCOMPARE(lines.back(), u"SI"_s + u" 9999,999"_s.repeated(8));
    QVERIFY(extents(mask.pdf, u"00000008"_s).value(0).second < (297 - 10) / 25.4 * 72);
    const auto values = extents(mask.pdf, u"9999,999"_s);
    for (int k = 0; k < 8; ++k) {
      const double column = 10 / 25.4 * 72 + (66 + 14 * k) * 904 / 2048.0 * 10;
      QVERIFY(std::abs(values.value(k).first - column) < 0.5);
    }
    QVERIFY(mask.program.landscape);  // stays in force
  }

  void aPlausibilityCheckIsPrintedWithItsPicture() {
    Printing mask;
    mask.program.header[kopf::kProbenahme] = u"12.10.2026"_s;
    for (const auto* entry : {"1 420", "2 9", "3 10", "5 2,5", "4 0,2", "23 60", "24 10"}) {
      const QString given = QString::fromLatin1(entry);
      mask.window.takeOver(given.section(' '_L1, 0, 0).toInt(), given.section(' '_L1, 1));
    }
    onNextModal<Drucker>(this, [](Drucker& window) { window.Command2->click(); });
    mask.window.mnu2_plausi->trigger();
    shownWindow<plausi>()->Command1(2).click();
    const QString& name = mask.desktop.printRequests.at(0).pdfFile;
    QCOMPARE(name, mask.folder.filePath(u"brunnen - Plausibilitäts-Prüfung.pdf"_s));
    const QStringList lines = linesOf(mask.pdf);
    QVERIFY(lines.contains(u"Probenahme-Datum: 12.10.2026"_s));
    QVERIFY(lines.contains(u"pH-Wert 4 5 6 7 8 9 10 11 12"_s));
    // Every cell is there, wrapped or not, and the second value stands under the first.
    QString printed = lines.join(' '_L1).remove(u"--- "_s);
    const Plausibility found = checkPlausibility(mask.program.record, defaultUncertainties());
    for (const Comparison& row : found.rows) {
      const QStringList cells = cellsOf(row);
      QStringList said{cells[0], cells[1], cells[3], cells[5], cells[6], cells[7]};
      said += {cells[2], cells[4], cells[8]};
      said.removeAll(QString());
      QVERIFY2(printed.contains(said.join(' '_L1)), qPrintable(said.join(' '_L1)));
    }
    const double edge = (210 - 10) / 25.4 * 72;
    for (const auto& word : extents(mask.pdf, u"[^<]+"_s)) QVERIFY(word.second < edge + 0.5);
    QCOMPARE(lines.count(u"---"_s), 1);  // a second page
  }

  void statementsFallOnThePage_data() {
    // "tab:13", "/" for a new line, or a text, each repeated as often as "*" says => lines, "---"
    // between the pages
    rows<QString>(
        "W*20 tab:60 b=>W{20} b; | W*20 tab:20 b=>W{20};b; | W*80=>W{80}; | "
        "tab:13 W*115=>W{90,110}…; | W*20 tab:130 b=>W{20} +…; | x /*90=>x; | "
        "a /*67 b / c /*67 d=>a;b;---;c;d;");
  }
  void statementsFallOnThePage() {
    QFETCH(QString, given);
    QFETCH(QString, expected);
    const QTemporaryDir folder;
    const QString pdf = folder.filePath(u"a.pdf"_s);
    PdfPaper paper(pdf, u"T"_s, reportPage(false));
    ReportPrinter printer(paper.device());
    for (const QString& word : given.split(' '_L1)) {
      const QString what = word.section('*'_L1, 0, 0);
      const int count = std::max(1, word.section('*'_L1, 1).toInt());
      if (what == "/"_L1) {
        for (int i = 0; i < count; ++i) printer.print({Statement::Kind::kEndLine});
      } else if (what.startsWith("tab:"_L1)) {
        printer.print({Statement::Kind::kTab, what.mid(4).toInt()});
      } else {
        printer.print({Statement::Kind::kText, 0, what.repeated(count)});
      }
    }
    printer.end();
    paper.deliver();
    const QString printed = linesOf(pdf).join(';'_L1) + ';'_L1;
    const QRegularExpression pattern(QRegularExpression::anchoredPattern(expected));
    QVERIFY2(pattern.match(printed).hasMatch(), qPrintable(printed));
    for (const auto& word : extents(pdf, u"[^<]+"_s)) QVERIFY(word.second < 200 / 25.4 * 72 + 0.5);
  }

  void aFaultIsToldAndTheHeaderKept_data() {  // fault => what is told, and what the file holds
    rows<QString>(
        "cancelled=>;old | no printer=>told;old | no folder=>told;old | no page=>told;old | "
        "jam in the head 1=>482 drucker\\druckkopf;body | jam in the body 3=>told;body");
  }
  void aFaultIsToldAndTheHeaderKept() {
    QFETCH(QString, given);
    QFETCH(QString, expected);
    Printing mask;
    const QString old = mask.pdf;
    put(old, "old");
    const auto pdfPaper = mask.desktop.paper;
    mask.desktop.paper = [&](const PrintRequest& request) -> std::unique_ptr<Paper> {
      if (given == "cancelled"_L1) return nullptr;
      if (given == "no printer"_L1) throw RuntimeError(ErrorNumber::kPrinter);
      if (given.startsWith("no "_L1)) mask.pdf = u"/gibt/es/nicht.pdf"_s;
      if (given == "no folder"_L1) return pdfPaper(request);
      return std::make_unique<JammingPaper>(mask.pdf, given.section(' '_L1, -1).toInt());
    };
    Drucker& window = mask.opened(Bericht::kAnalyse);
    window.Text1(2).setText(u"Neubau"_s);
    if (expected.startsWith("told"_L1)) mask.questions.expect(says(u"not-printed"_s));
    window.Command2->click();
    QVERIFY(!window.isVisible());
    QCOMPARE(mask.program.header[1], u"Neubau"_s);
    QString outcome = mask.questions.asked.empty() ? QString() : u"told"_s;
    outcome += std::exchange(mask.questions.errors, {}).join(' '_L1) + ';'_L1;
    if (bytesOf(old) == "old") outcome += u"old"_s;
    if (linesOf(mask.pdf).contains(u"Sättigungs-Index SI 7,50"_s)) outcome += u"body"_s;
    QCOMPARE(outcome, expected);
    QCOMPARE(QDir(mask.folder.path()).entryList(QDir::Files), QStringList{u"a.pdf"_s});
  }

  void theDialogIsUsedWithTheKeyboard() {
    Printing mask;
    mask.program.header[3] = QString(150, 'x'_L1);
    mask.program.header[7] = u"eins\r\nzwei"_s;
    Drucker& window = mask.opened(Bericht::kAnalyse);
    QCOMPARE(window.focusWidget(), window.Command2);
    window.Text1(2).setFocus();
    window.Text1(2).selectAll();
    for (const QChar c : u"a\"~b\rÄßüX"_s) {
      const Qt::Key key = c == '\r'_L1 ? Qt::Key_Return : Qt::Key_unknown;
      QTest::sendKeyEvent(QTest::Press, &window.Text1(2), key, c, Qt::NoModifier);
    }
    QCOMPARE(window.Text1(2).text(), u"abÄssüX"_s);
    QVERIFY(window.isVisible());
    QTest::keyClick(&window.Text1(2), Qt::Key_Escape);
    QVERIFY(!window.isVisible());
    QCOMPARE(mask.program.header[1], u"Wohnanlage"_s);
    // What came with a file and was not touched stays as it is.
    window.Command2->click();
    QCOMPARE(mask.program.header[1], u"abÄssüX"_s);
    QCOMPARE(mask.program.header[3], QString(150, 'x'_L1));
    QCOMPARE(mask.program.header[7], u"eins  zwei"_s);
    window.Text4->selectAll();
    QGuiApplication::clipboard()->setText(u"eins\r\n\"zwei\""_s + QString(200, 'y'_L1));
    window.Text4->paste();
    QTest::keyClicks(window.Text4, u"z"_s);
    QCOMPARE(window.Text4->toPlainText(), u"eins\nzwei"_s + QString(90, 'y'_L1));
    window.Command2->click();
    QCOMPARE(mask.program.header[7], u"eins  zwei"_s + QString(90, 'y'_L1));
  }

  void thePreviewPrintsNothing() {
    Printing mask;
    Drucker& window = mask.opened(Bericht::kAnalyse);
    window.Text1(2).setText(u"Neubau"_s);
    int painted = 0;
    mask.desktop.preview = [&](const PrintRequest& request, const auto& paint) {
      RealDesktop().showPreview(&window, request, [&](QPagedPaintDevice& page) {
        ++painted;
        QVERIFY(QGuiApplication::overrideCursor() != nullptr);
        paint(page);
      });
    };
    onNextModal<QPrintPreviewDialog>(this, [&](QPrintPreviewDialog& preview) {
      QTRY_VERIFY(painted > 0);
      for (const QAction* action : preview.findChild<QToolBar*>()->actions()) {
        const QString text = action->text();
        QVERIFY(!action->isVisible() || (text != "Drucken"_L1 && text != "Seite einrichten"_L1));
      }
      preview.close();
    });
    window.Command4->click();
    QVERIFY(window.isVisible() && mask.desktop.printRequests.empty());
    QCOMPARE(mask.program.header[1], u"Wohnanlage"_s);
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
  }

  void aPdfFileIsOneOfThePrinters() {
    Printing mask;
    RealDesktop desktop;
    mask.desktop.paper = [&](const auto& request) { return desktop.askPrinter(nullptr, request); };
    for (const bool confirmed : {false, true}) {
      Drucker& window = mask.opened(Bericht::kÜbersicht);
      onNextModal<QPrintDialog>(this, [confirmed](QPrintDialog& dialog) {
        auto* printers = dialog.findChild<QComboBox*>(u"printers"_s);
        printers->setCurrentIndex(printers->findText(u"PDF-Datei"_s));
        emit printers->activated(printers->currentIndex());
        auto* name = dialog.findChild<QLineEdit*>(u"filename"_s);
        QVERIFY(name->text().endsWith(u"Analysen Übersicht.pdf"_s));
        name->setText(u"kurz"_s);  // without folder and extension
        emit name->editingFinished();
        confirmed ? dialog.accept() : dialog.reject();
      });
      window.Command2->click();
      const QString pdf = mask.folder.filePath(u"kurz.pdf"_s);
      QCOMPARE(outputOf(u"pdfinfo"_s, {pdf}).contains(u"842 x 595"_s), confirmed);
    }
  }
};

CALVORA_TEST_MAIN(PrintTest)
#include "print_test.moc"
