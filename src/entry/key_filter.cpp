#include "entry/key_filter.h"

namespace calvora {

using namespace Qt::StringLiterals;

bool isNumberKey(int code) {
  return code == key::kBackspace ||
         (code > 0 && code < 128 && "1234567890,.<"_L1.contains(QChar(code)));
}

QString filteredNumber(const QString& text) {
  QString kept;
  for (const QChar c : text) {
    const bool leadingMinus = c == '-'_L1 && kept.isEmpty();
    if (leadingMinus || (c.unicode() != key::kBackspace && isNumberKey(c.unicode()))) kept += c;
  }
  return kept;
}

}  // namespace calvora
