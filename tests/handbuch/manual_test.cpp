// The manual as the build made it: whole, readable, and saying what the program says today.
#include <QDirIterator>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>

#include "app/start_window.h"
#include "chem/subcalc.h"
#include "dialogs/windows/bb_msg.h"
#include "storage/windows/dateien.h"
#include "storage/windows/datenpfad.h"
#include "storage/windows/firma.h"
#include "support/window_support.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

const QString kManual = QStringLiteral(CALVORA_MANUAL);

/// What a tool of the PDF library says about the manual.
QString said(const QString& tool, QStringList arguments) {
  QProcess process;
  process.start(tool, arguments.replaceInStrings(u"MANUAL"_s, kManual));
  if (!process.waitForFinished() || process.exitCode() != 0) return {};
  return QString::fromUtf8(process.readAllStandardOutput());
}

QString content(const QString& path) {
  QFile file(path);
  return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Blanks and line breaks are not what a text says.
QString squeezed(QString text) {
  static const QRegularExpression kBlanks(u"\\s+"_s);
  return text.normalized(QString::NormalizationForm_KC).remove(kBlanks).remove('&'_L1);
}

/// Every string in the sources that is, or is part of, a message: all of the catalogues, and
/// elsewhere what ends in an exclamation or question mark or titles a message.
QStringList messageTexts() {
  static const QRegularExpression kText(u"(title = )?u\"([^\"]+)\"_s"_s);
  static const QRegularExpression kGap(uR"(%\d|\\n\\r)"_s);
  static const QRegularExpression kCalls(u"[!?] *$"_s);
  QStringList texts;
  QDirIterator sources(QStringLiteral(CALVORA_SOURCES), {u"*.cpp"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
  while (sources.hasNext()) {
    const QString path = sources.next();
    const bool catalogue = path.endsWith("meldungen.cpp"_L1);
    for (auto found = kText.globalMatch(content(path)); found.hasNext();) {
      const QRegularExpressionMatch match = found.next();
      const QString text = match.captured(2);
      if (catalogue || !match.captured(1).isEmpty() || text.contains(kCalls)) {
        texts += text.split(kGap, Qt::SkipEmptyParts);
      }
    }
  }
  return texts;
}

/// A field's row in the table of inputs: caption, symbol, unit, range.
QStringList inputRows() {
  QStringList rows;
  for (const Field& field : inputFields()) {
    if (!field.isTyped()) continue;
    Program program;
    ScriptedQuestions questions;
    int status = 0;
    subcalc(program.record, program.fieldIndex, program.narrow, questions)
        .checkeingabe(field.index, u"99999"_s, status);
    const QString range = questions.asked.front().text.section(u"Eingabe-Bereich: "_s, 1);
    rows += field.caption.section(u"  "_s, 0, field.index == feld::kKb82 ? 0 : -1) +
            field.shortLabel + field.unit + range.section('\n'_L1, 0, 0);
  }
  return rows;
}

/// The worked example of the manual, computed again.
QStringList exampleRows() {
  Program program;
  ScriptedQuestions questions;
  subcalc chemistry(program.record, program.fieldIndex, program.narrow, questions);
  const std::pair<int, QString> inputs[] = {{1, u"420"_s}, {2, u"7,5"_s},  {3, u"10"_s},
                                            {5, u"2,5"_s}, {6, u"0,25"_s}, {23, u"60"_s},
                                            {24, u"10"_s}, {25, u"20"_s},  {26, u"0,05"_s}};
  for (const auto& [field, text] : inputs) {
    int status = 0;
    program.fieldIndex = field;
    chemistry.checkeingabe(field, text, status);
    chemistry.rechenlauf();
  }
  const AnalysisRecord& record = program.record;
  QStringList rows{u"Näherung daneben"_s + program.narrow.phNäherung,
                   u"Leitfähigkeit aus den Ionen"_s + program.narrow.leitfähigkeitAusIonen};
  for (const Field& result : resultFields()) {
    if (record.text[result.index].isEmpty()) continue;
    rows +=
        result.caption + record.text[result.index] + result.unit.chopped(result.index < 11 ? 2 : 0);
  }
  for (const int index : {20, 21, 22}) {
    rows += inputFields()[static_cast<size_t>(index - 14)].caption + record.text[index] + u"°d"_s;
  }
  return rows;
}

}  // namespace

class ManualTest : public QObject {
  Q_OBJECT

 private slots:
  void itIsASoundDocument();
  void itSaysWhatTheProgramSays_data();
  void itSaysWhatTheProgramSays();

 private:
  QString text_ = squeezed(said(u"pdftotext"_s, {u"-raw"_s, u"MANUAL"_s, u"-"_s}));
};

void ManualTest::itIsASoundDocument() {
  const int pages =
      said(u"pdfinfo"_s, {u"MANUAL"_s}).section(u"Pages:"_s, 1).section('\n'_L1, 0, 0).toInt();
  QVERIFY2(pages >= 12 && pages <= 20, qPrintable(QString::number(pages)));

  // Every chapter of the text is a bookmark.
  const QString outline = said(u"pdftohtml"_s, {u"-xml"_s, u"-i"_s, u"-stdout"_s, u"MANUAL"_s})
                              .section(u"<outline>"_s, 1);
  QStringList chapters;
  QDirIterator chapterFiles(QStringLiteral(CALVORA_MANUAL_TEXT), {u"*.tex"_s});
  while (chapterFiles.hasNext()) {
    static const QRegularExpression kHeading(uR"(\n\\(?:sub)?section\{([^}]+)\})"_s);
    for (auto found = kHeading.globalMatch('\n'_L1 + content(chapterFiles.next()));
         found.hasNext();) {
      chapters += found.next().captured(1);
    }
  }
  QVERIFY(chapters.size() > 20);
  for (const QString& chapter : chapters) QVERIFY2(outline.contains(chapter), qPrintable(chapter));

  const QStringList fonts = said(u"pdffonts"_s, {u"MANUAL"_s}).split('\n'_L1, Qt::SkipEmptyParts);
  for (const QString& font : fonts.mid(2)) QVERIFY2(font.contains(" yes "_L1), qPrintable(font));

  const QString log = content(QStringLiteral(CALVORA_MANUAL_BUILD) + u"/hb_cvra.log"_s);
  QVERIFY2(!log.isEmpty() && !log.contains("Overfull \\hbox"_L1), "a line runs into the margin");
}

void ManualTest::itSaysWhatTheProgramSays_data() {
  QTest::addColumn<QString>("text");
  const auto add = [](const char* group, const QStringList& texts) {
    for (const QString& text : texts) QTest::addRow("%s %s", group, qPrintable(text)) << text;
  };
  Mask mask;
  auto& [questions, desktop, folder, program, window] = mask;
  for (QAction* menu : window.menuBar()->actions()) {
    for (QAction* action : menu->menu()->actions()) {
      const QString keys = action->shortcut().toString().replace("Ctrl"_L1, "Strg"_L1);
      if (!action->isSeparator()) add("menu", {action->text() + keys});
    }
  }
  start startWindow(window, desktop);
  bb_msg report(desktop);
  Dateien files(Dateien::Mode::kSaveAnalysis, program, questions, desktop, nullptr);
  datenpfad path(program, questions, nullptr);
  firma company(program, questions, nullptr);
  for (const QWidget* w :
       std::initializer_list<QWidget*>{&startWindow, &report, &files, &path, &company}) {
    for (const auto* button : w->findChildren<QPushButton*>()) add("button", {button->text()});
  }
  add("input", inputRows());
  add("example", exampleRows());
  add("message", messageTexts());
}

void ManualTest::itSaysWhatTheProgramSays() {
  QFETCH(QString, text);
  QVERIFY2(text_.contains(squeezed(text)), qPrintable(u"The manual lacks: "_s + text));
}

QTEST_MAIN(ManualTest)
#include "manual_test.moc"
