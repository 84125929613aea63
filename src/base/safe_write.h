#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>

namespace calvora {

/// Writes a whole file, complete and durable, or leaves the old one untouched and no other file
/// behind. A symbolic link is followed, and what is replaced keeps its permissions. Runtime error
/// 75 if the file or its folder cannot be written or the path names something else than a regular
/// file, 61 if the disk is full.
///
/// A process that is killed meanwhile may leave a hidden file of its own beside the old one. The
/// next call for that file removes it once it is an hour old: a younger one may be what another
/// instance is just writing, and none writes for that long.
void writeFileSafely(const QString& path, const QByteArray& content);

/// Removes what killed calls of `writeFileSafely` for this file left in its folder, if it was
/// written at least that long ago. Age 0 is for a file that nobody else writes.
void removeLeftovers(const QString& path, std::chrono::seconds age);

}  // namespace calvora
