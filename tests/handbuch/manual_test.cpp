// The manual as the build made it: whole, readable, and saying what the program says today.
#include <QDirIterator>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>

#include "support/all_windows.h"

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

/// Blanks and line breaks are not what a text says.
QString squeezed(QString text) {
  static const QRegularExpression kBlanks(u"\\s+"_s);
  return text.normalized(QString::NormalizationForm_KC).remove(kBlanks).remove('&'_L1);
}

/// Every line of the messages, and every string in the sources that may be one: what ends in an
/// exclamation or question mark or titles a message.
QStringList messageTexts() {
  static const QRegularExpression kText(u"(title = )?u\"([^\"]+)\"_s"_s);
  static const QRegularExpression kGap(uR"(%\d|\\n\\r|¶)"_s);
  static const QRegularExpression kCalls(u"[!?] *$"_s);
  QStringList texts;
  for (const QString& line : messageLines()) {
    texts += line.section('|'_L1, 5, 5).split(kGap, Qt::SkipEmptyParts);
  }
  QDirIterator sources(QStringLiteral(CALVORA_SOURCES), {u"*.cpp"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
  while (sources.hasNext()) {
    const QString source = QString::fromUtf8(bytesOf(sources.next()));
    for (auto found = kText.globalMatch(source); found.hasNext();) {
      const QRegularExpressionMatch match = found.next();
      const QString text = match.captured(2);
      if (!match.captured(1).isEmpty() || text.contains(kCalls)) {
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
    rows += field.caption.section(u"  "_s, 0, field.index == feld::kKb82 ? 0 : -1) +
            field.shortLabel + field.unit + field.range.text;
  }
  return rows;
}

/// The worked example of the manual, computed again.
QStringList exampleRows(House& house) {
  auto& [questions, desktop, folder, program, window] = house;
  window.datenkill(0);
  for (const QString& entry :
       u"1 420;2 7,5;3 10;5 2,5;6 0,25;23 60;24 10;25 20;26 0,05"_s.split(u';')) {
    program.fieldIndex = entry.section(u' ', 0, 0).toInt();
    window.takeOver(program.fieldIndex, entry.section(u' ', 1));
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
    rows += fieldOf(index).caption + record.text[index] + u"°d"_s;
  }
  return rows;
}

}  // namespace

class ManualTest : public QObject {
  Q_OBJECT

 private slots:
  void itIsASoundDocument() {
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
      for (auto found =
               kHeading.globalMatch('\n'_L1 + QString::fromUtf8(bytesOf(chapterFiles.next())));
           found.hasNext();) {
        chapters += found.next().captured(1);
      }
    }
    QVERIFY(chapters.size() > 20);
    for (const QString& chapter : chapters)
      QVERIFY2(outline.contains(chapter), qPrintable(chapter));

    const QStringList fonts = said(u"pdffonts"_s, {u"MANUAL"_s}).split('\n'_L1, Qt::SkipEmptyParts);
    for (const QString& font : fonts.mid(2)) QVERIFY2(font.contains(" yes "_L1), qPrintable(font));

    const QByteArray log = bytesOf(QStringLiteral(CALVORA_MANUAL_BUILD) + u"/hb_cvra.log"_s);
    QVERIFY(log.contains("Output written"));
    QVERIFY2(!log.contains("Overfull \\hbox"), "a line runs into the margin");
  }

  void itSaysWhatTheProgramSays_data() {
    QTest::addColumn<QString>("text");
    const auto add = [](const char* group, const QStringList& texts) {
      for (const QString& text : texts) QTest::addRow("%s %s", group, qPrintable(text)) << text;
    };
    House house;
    for (QAction* menu : house.window.menuBar()->actions()) {
      for (QAction* action : menu->menu()->actions()) {
        const QString keys = action->shortcut().toString().replace("Ctrl"_L1, "Strg"_L1);
        if (!action->isSeparator()) add("menu", {action->text() + keys});
      }
    }
    QStringList buttons;
    for (const WindowWay& way : allWindows()) {
      lookAt(way, house, [&](const QWidget& window) {
        for (const auto* button : window.findChildren<QPushButton*>()) {
          if (button->isVisible()) buttons += button->text();
        }
      });
    }
    buttons.removeDuplicates();
    buttons.removeIf([](const QString& text) { return text.front().isDigit(); });  // a value
    add("button", buttons);
    add("input", inputRows());
    add("example", exampleRows(house));
    add("message", messageTexts());
  }

  void itSaysWhatTheProgramSays() {
    QFETCH(QString, text);
    QVERIFY2(text_.contains(squeezed(text)), qPrintable(u"The manual lacks: "_s + text));
  }

 private:
  QString text_ = squeezed(said(u"pdftotext"_s, {u"-raw"_s, u"MANUAL"_s, u"-"_s}));
};

CALVORA_TEST_MAIN(ManualTest)
#include "manual_test.moc"
