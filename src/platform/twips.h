#pragma once

namespace calvora {

/// Pixels of a length in twips (1/1440 inch, 15 to a pixel at 96 dpi) on the primary screen.
int twips(int length);

}  // namespace calvora
