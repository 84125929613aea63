#pragma once

#include <QPoint>

class QWidget;

namespace calvora {

/// Moves a window, before it is shown, to a place on its screen (pixels from the screen's corner),
/// or as near to it as the whole window with its frame can be seen.
void placeOnScreen(QWidget& window, QPoint wanted);

}  // namespace calvora
