#pragma once

class QFileDevice;
class QString;

namespace calvora {

/// Waits until what was written to an open file has reached the disk. False if it did not get
/// there; true where the file system knows no such thing.
bool syncFile(QFileDevice& file);

/// Asks for the same for a folder, whose entries changed.
void syncFolder(const QString& path);

}  // namespace calvora
