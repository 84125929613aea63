#pragma once

#include <QMap>
#include <QStringList>
#include <functional>

#include "model/window_place.h"

namespace calvora {

inline constexpr qsizetype kRecentAnalyses = 8;

/// What one session leaves to the next beside the settings. It is kept in `cvra_zuletzt.json` in
/// the program folder and worth nothing: what cannot be read is as if it had never been there.
struct SessionMemory {
  QStringList analyses;                ///< absolute paths, the one used last first
  QMap<QString, WindowPlace> windows;  ///< by the window's name

  /// Puts an analysis in front; the oldest one falls out.
  void noteAnalysis(const QString& path);

  friend bool operator==(const SessionMemory&, const SessionMemory&) = default;
};

/// What is kept; empty if nothing is, or nothing that makes sense.
SessionMemory readMemory(const QString& programFolder);

/// Reads what is kept, which another instance may have written meanwhile, changes and writes it. A
/// failure is nobody's concern.
void changeMemory(const QString& programFolder, const std::function<void(SessionMemory&)>& change);

}  // namespace calvora
