// The manual as the build made it: whole, readable, and saying what the program says today.
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>

#include "entry/decimal.h"
#include "support/all_windows.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

const QString kManual = QStringLiteral(CALVORA_MANUAL);

/// Blanks and line breaks are not what a text says.
QString squeezed(QString text) {
  static const QRegularExpression kBlanks(u"\\s+"_s);
  return text.normalized(QString::NormalizationForm_KC).remove(kBlanks).remove('&'_L1);
}

/// The title and every line of the messages.
QStringList messageTexts() {
  static const QRegularExpression kGap(u"%1|¶"_s);
  QStringList texts;
  for (const QString& line : messageLines()) {
    texts += line.section('|'_L1, 3, 3);
    texts += line.section('|'_L1, 5, 5).split(kGap, Qt::SkipEmptyParts);
  }
  texts.removeDuplicates();
  return texts;
}

/// What the plausibility check compares, and the uncertainties that it assumes.
QStringList checkRows() {
  QStringList rows;
  for (const Comparison& row : checkPlausibility({}, {}).rows) {
    rows += row.first + u"–"_s + row.second;
  }
  for (const Uncertainty& row : defaultUncertainties()) {
    const Field& field = fieldOf(row.field);
    const QString unit = field.index == feld::kPh ? QString() : field.unit;
    const QString absolute = Decimal(row.absolute).fullText() + unit;
    rows += field.shortLabel + absolute + Decimal(row.percent).fullText() + '%'_L1;
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
  QStringList rows{u"Näherung daneben"_s + program.narrow.phNäherung,
                   u"Leitfähigkeit aus den Ionen"_s + program.narrow.leitfähigkeitAusIonen};
  const auto add = [&](const Field& field, const QString& unit) {
    const QString& text = program.record.text[field.index];
    if (!text.isEmpty()) rows += field.caption + text + unit;
  };
  for (const Field& f : resultFields()) add(f, f.unit.chopped(f.index < 11 ? 2 : 0));
  for (const int index : {20, 21, 22}) add(fieldOf(index), u"°d"_s);
  return rows;
}

}  // namespace

class ManualTest : public QObject {
  Q_OBJECT

 private slots:
  void itIsASoundDocument() {
    const int pages =
        outputOf(u"pdfinfo"_s, {kManual}).section(u"Pages:"_s, 1).section('\n'_L1, 0, 0).toInt();
    QVERIFY(pages >= 12 && pages <= 32);

    // Every chapter of the text is a bookmark.
    const QString outline = outputOf(u"pdftohtml"_s, {u"-xml"_s, u"-i"_s, u"-stdout"_s, kManual})
                                .section(u"<outline>"_s, 1);
    static const QRegularExpression kHeading(uR"(^\\(?:sub)?section\{([^}]+)\})"_s,
                                             QRegularExpression::MultilineOption);
    int chapters = 0;
    for (const QFileInfo& file :
         QDir(QStringLiteral(CALVORA_MANUAL_TEXT)).entryInfoList({u"*.tex"_s})) {
      const QString text = QString::fromUtf8(bytesOf(file.filePath()));
      for (const QRegularExpressionMatch& heading : kHeading.globalMatch(text)) {
        QVERIFY2(outline.contains(heading.captured(1)), qPrintable(heading.captured(1)));
        ++chapters;
      }
    }
    QVERIFY(chapters > 20);

    const QStringList fonts = outputOf(u"pdffonts"_s, {kManual}).split('\n'_L1, Qt::SkipEmptyParts);
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
        const QString keys = action->shortcut()
                                 .toString()
                                 .replace("Ctrl"_L1, "Strg"_L1)
                                 .replace("Shift"_L1, "Umschalt"_L1);
        const QString text = action->text().section(':'_L1, 0, 0);  // without the step it names
        if (!action->isSeparator()) add("menu", {text + keys});
      }
    }
    QStringList buttons;
    for (const WindowWay& way : allWindows()) {
      lookAt(way, house, [&](const QWidget& window) {
        for (const auto* button : window.findChildren<QPushButton*>()) {
          const bool isValue = button->text().front().isDigit();
          if (button->isVisible() && !isValue) buttons += button->text();
        }
      });
    }
    buttons.removeDuplicates();
    add("button", buttons);
    for (const Field& f : inputFields()) {  // caption, symbol, unit, range
      const QString caption = f.caption.section(u"  "_s, 0, f.index == feld::kKb82 ? 0 : -1);
      if (f.isTyped()) add("input", {caption + f.shortLabel + f.unit + f.range.text});
    }
    add("check", checkRows());
    add("example", exampleRows(house));
    add("message", messageTexts());
  }

  void itSaysWhatTheProgramSays() {
    QFETCH(QString, text);
    QVERIFY2(text_.contains(squeezed(text)), qPrintable(u"The manual lacks: "_s + text));
  }

 private:
  QString text_ = squeezed(outputOf(u"pdftotext"_s, {u"-raw"_s, kManual, u"-"_s}));
};

CALVORA_TEST_MAIN(ManualTest)
#include "manual_test.moc"
