#include "base/questions.h"

#include <algorithm>

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

CatalogueMessage catalogueEntry(int code, const QString& title, Buttons buttons, Symbol symbol,
                                std::initializer_list<QString> lines) {
  return {code, {.text = joinedLines(lines), .buttons = buttons, .title = title, .symbol = symbol}};
}

Message catalogueMessage(std::span<const CatalogueMessage> catalogue, int code,
                         const QString& extra) {
  const auto found = std::ranges::find(catalogue, code, &CatalogueMessage::code);
  if (found == catalogue.end()) return {};
  Message message = found->message;
  message.text.replace(QStringLiteral("%1"), extra);
  return message;
}

}  // namespace calvora
