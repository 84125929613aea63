#pragma once

#include <QByteArray>
#include <QString>

namespace calvora {

/// Writes a whole file, complete and durable, or leaves the old one untouched and no other file
/// behind. Runtime error 75 if the file or its folder cannot be written, 61 if the disk is full.
void writeFileSafely(const QString& path, const QByteArray& content);

}  // namespace calvora
