#include "entry/key_filter.h"

#include <QStringList>

namespace calvora {

using namespace Qt::StringLiterals;

bool isNumberKey(int code) {
  return code == key::kBackspace ||
         (code > 0 && code < 128 && "1234567890,.<"_L1.contains(QChar(code)));
}

QString filteredNumber(const QString& text, bool atStart) {
  QString kept;
  for (const QChar c : text) {
    const bool leadingMinus = atStart && c == '-'_L1 && kept.isEmpty();
    if (leadingMinus || (c.unicode() != key::kBackspace && isNumberKey(c.unicode()))) kept += c;
  }
  return kept;
}

void text_check(int& code) {
  constexpr int kCopy = 3;
  constexpr int kPaste = 22;
  constexpr int kLastPlain = 125;
  if (code == kCopy || code == kPaste || code == key::kBackspace) return;
  const bool umlaut = code > kLastPlain && code < 256 && u"ÄÖÜäöü"_s.contains(QChar(code));
  if (code < key::kSpace || code == '"' || (code > kLastPlain && !umlaut)) code = 0;
}

QString filteredText(const QString& text) {
  const QString lines = QString(text).replace("\r\n"_L1, "\n"_L1);
  QString kept;
  for (QChar c : lines) {
    const bool breaks = c == '\n'_L1 || c == '\r'_L1 || c == '\t'_L1 || c == QChar::LineSeparator ||
                        c == QChar::ParagraphSeparator;
    if (breaks) c = ' '_L1;
    int code = c.unicode() < key::kSpace ? 0 : c.unicode();
    text_check(code);
    if (code != 0) kept += c;
  }
  return kept;
}

QString filteredLines(QString text) {
  text.replace("\r\n"_L1, "\n"_L1).replace('\r'_L1, '\n'_L1);
  QStringList kept;
  for (const QString& line : text.split('\n'_L1)) kept += filteredText(line);
  return kept.join('\n'_L1);
}

}  // namespace calvora
