#pragma once

#include <QStringList>

namespace calvora {

/// The rows that explain the computed pH values, in their order. Names and explanations line up in
/// a font of fixed width; a row of one blank parts the blocks.
QStringList infotexte();

}  // namespace calvora
