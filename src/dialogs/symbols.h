#pragma once

#include "platform/picture.h"

namespace calvora {

/// The drawing of a message symbol: 1 attention, 2 warning, 3 stop, 4 done, 5 question. Drawn on a
/// white disc of its own, so that it is clear on every background.
Picture::Drawing symbolDrawing(int symbol);

}  // namespace calvora
