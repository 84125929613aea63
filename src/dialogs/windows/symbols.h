#pragma once

#include "base/questions.h"
#include "platform/picture.h"

namespace calvora {

/// The drawing of a message's symbol, on a white disc of its own, so that it is clear on every
/// background.
Picture::Drawing symbolDrawing(Symbol symbol);

}  // namespace calvora
