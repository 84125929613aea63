#include "dialogs/questions.h"

namespace calvora {

QString joinedLines(std::initializer_list<QString> lines) {
  static const QString lineBreak = QStringLiteral("\n\r");
  QString text;
  for (const QString& line : lines) {
    if (&line != lines.begin()) text += lineBreak;
    text += line;
  }
  while (text.endsWith(lineBreak)) text.chop(lineBreak.size());
  return text;
}

}  // namespace calvora
