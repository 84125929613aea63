#include "overview/meldungen.h"

#include "dialogs/runtime_error.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCentred = 0;
constexpr int kAttention = 1;
constexpr int kDone = 4;

Message messageOf(int code, const QString& extra) {
  switch (code) {
    case uebersicht::kAlleLoeschen:
      return {.text = u"Alle Einträge werden gelöscht !"_s,
              .buttons = button::kOk + button::kAbbrechen,
              .title = u"Reset"_s,
              .symbol = kAttention};
    case uebersicht::kEntfernen:
      return {.text = joinedLines({u"Wasser - "_s + extra + u"  "_s, u"entfernen ?"_s}),
              .buttons = button::kJa + button::kNein,
              .title = u"Analysen-Übersicht"_s,
              .symbol = kAttention};
    case uebersicht::kProjektGespeichert:
      return {.text = joinedLines({u"Die Dateien wurden als  "_s, u"Projekt gespeichert !"_s}),
              .title = u"Analysen-Übersicht"_s,
              .symbol = kDone};
    default:
      throw RuntimeError(ErrorNumber::kInvalidCall, QString::number(code));
  }
}

}  // namespace

int uebersichtMeldung(Questions& questions, int code, const QString& extra) {
  Message message = messageOf(code, extra);
  message.left = kCentred;
  message.top = kCentred;
  message.style = u"210"_s;
  return questions.ask(message);
}

}  // namespace calvora
