#pragma once

#include <QStringList>

namespace calvora {

/// What files hold that were dropped on a window or named at the start.
enum class Given {
  kAnalyses,  ///< analyses only
  kProject,   ///< one project
  kOther,     ///< anything else: other kinds, folders, several projects, a mixture
};

/// Of at least one file.
Given kindOf(const QStringList& paths);

/// A file's name without its middle, where it is longer than a menu or a message should be wide.
QString shortened(const QString& name);

/// The names of files as the lines of a message, which stays within a screen.
QString namesOf(const QStringList& paths);

}  // namespace calvora
