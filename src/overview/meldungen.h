#pragma once

#include "base/questions.h"

namespace calvora {

/// Codes of the overview's messages.
namespace uebersicht {
inline constexpr int kAlleLöschen = 1;
inline constexpr int kEntfernen = 2;
inline constexpr int kProjektGespeichert = 3;
}  // namespace uebersicht

/// Shows the overview's message of `code` and returns the pressed button. `extra` is
/// the slot that message 2 asks about.
Button uebersichtMeldung(Questions& questions, int code, const QString& extra = {});

}  // namespace calvora
