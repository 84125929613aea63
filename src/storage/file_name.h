#pragma once

#include <QString>

namespace calvora {

/// A name as a file name: "-" for what would lead into another folder, part the name into several,
/// or is not allowed in a name everywhere.
QString asFileName(QString name);

/// The path with the extension that belongs to it: its file name is cut at the first point behind
/// its first character.
QString withExtension(const QString& path, const QString& extension);

}  // namespace calvora
