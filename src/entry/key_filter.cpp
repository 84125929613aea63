#include "entry/key_filter.h"

#include <QRegularExpression>

#include "base/windows1252.h"
#include "entry/decimal.h"

namespace calvora {

using namespace Qt::StringLiterals;

bool isNumberKey(int code) {
  return code == key::kBackspace ||
         (code > 0 && code < 128 && "1234567890,.<"_L1.contains(QChar(code)));
}

QStringList pastedNumbers(const QString& text) {
  static const QRegularExpression kCellEnd(u"\r\n|[\r\n\t\u2028\u2029]"_s);
  QStringList cells = text.trimmed().split(kCellEnd);
  for (QString& cell : cells) {
    cell = cell.trimmed();
    if (!isNumberText(cell)) return {};
  }
  return cells;
}

void text_check(int& code) {
  constexpr int kCopy = 3;
  constexpr int kPaste = 22;
  constexpr int kLastPlain = 125;
  if (code == kCopy || code == kPaste || code == key::kBackspace) return;
  const bool umlaut = code > kLastPlain && code < 256 && u"ÄÖÜäöü"_s.contains(QChar(code));
  if (code < key::kSpace || code == '"' || (code > kLastPlain && !umlaut)) code = 0;
}

QString onOneLine(QString text) {
  static const QRegularExpression kBreak(u"[\\r\\n\\x{2028}\\x{0}]"_s);
  return text.replace(QChar::ParagraphSeparator, u"  "_s).replace(kBreak, u" "_s);
}

QString filteredText(const QString& text) {
  QString kept;
  // A letter and its accent may come as two characters; the set knows only the composed one.
  const QString composed = onOneLine(text).normalized(QString::NormalizationForm_C);
  for (const QChar c : composed) {
    const bool invisible = c.category() == QChar::Other_Control ||
                           (c.category() == QChar::Other_Format && c != QChar::SoftHyphen);
    if (c.isSpace() && c != QChar::Nbsp) {
      kept += ' '_L1;
    } else if (c != '"'_L1 && !invisible) {
      kept += c;
    }
  }
  return fromWindows1252(toWindows1252(kept));
}

QString filteredLines(QString text) {
  text.replace("\r\n"_L1, "\n"_L1).replace('\r'_L1, '\n'_L1);
  QStringList kept;
  for (const QString& line : text.split('\n'_L1)) kept += filteredText(line);
  return kept.join('\n'_L1);
}

}  // namespace calvora
