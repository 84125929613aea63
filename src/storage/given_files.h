#pragma once

#include <QStringList>

namespace calvora {

/// What files hold that were dropped on a window or named at the start.
enum class Given {
  kNothing,   ///< there is none
  kAnalyses,  ///< analyses only
  kProject,   ///< one project
  kOther,     ///< anything else: other kinds, folders, several projects, a mixture
};

Given kindOf(const QStringList& paths);

/// The names of files as the lines of a message, which stays within a screen.
QString namesOf(const QStringList& paths);

}  // namespace calvora
