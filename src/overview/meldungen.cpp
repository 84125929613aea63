#include "overview/meldungen.h"

#include <array>

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCentred = 0;

std::span<const CatalogueMessage> catalogue() {
  using namespace uebersicht;
  static const std::array kCatalogue{
      catalogueEntry(kAlleLöschen, u"Reset"_s, Button::kOk | Button::kAbbrechen, Symbol::kAttention,
                     {u"Alle Einträge werden gelöscht !"_s}),
      catalogueEntry(kEntfernen, u"Analysen-Übersicht"_s, Button::kJa | Button::kNein,
                     Symbol::kAttention, {u"Wasser - %1  "_s, u"entfernen ?"_s}),
      catalogueEntry(kProjektGespeichert, u"Analysen-Übersicht"_s, Button::kOk, Symbol::kDone,
                     {u"Die Dateien wurden als  "_s, u"Projekt gespeichert !"_s}),
  };
  return kCatalogue;
}

}  // namespace

Button uebersichtMeldung(Questions& questions, int code, const QString& extra) {
  Message message = catalogueMessage(catalogue(), code, extra);
  message.left = kCentred;
  message.top = kCentred;
  message.style = u"210"_s;
  return questions.ask(message);
}

}  // namespace calvora
