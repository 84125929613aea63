#pragma once

class QPainter;

namespace calvora {

/// A drop of water with a wave in it: the program's own sign.
void drawDrop(QPainter& painter);

/// The empty place of the user's company sign.
void drawCompanySign(QPainter& painter);

}  // namespace calvora
