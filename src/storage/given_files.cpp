#include "storage/given_files.h"

#include <QFileInfo>
#include <algorithm>

#include "storage/analysis_file.h"
#include "storage/project_file.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostNames = 8;
constexpr qsizetype kLongestName = 50;

}  // namespace

Given kindOf(const QStringList& paths) {
  const auto all = [&](const QString& extension) {
    return std::ranges::all_of(paths, [&](const QString& path) {
      const QFileInfo file(path);
      return file.suffix().compare(extension, Qt::CaseInsensitive) == 0 && !file.isDir();
    });
  };
  if (all(kAnalysisFile)) return Given::kAnalyses;
  return paths.size() == 1 && all(kProjectFile) ? Given::kProject : Given::kOther;
}

QString shortened(const QString& name) {
  if (name.size() <= kLongestName) return name;
  return name.left(kLongestName / 2) + u" … "_s + name.right(kLongestName / 2);
}

QString namesOf(const QStringList& paths) {
  QStringList lines;
  for (const QString& path : paths.first(std::min(paths.size(), kMostNames))) {
    const QString name = QFileInfo(path).fileName();
    lines += u" "_s + shortened(name.isEmpty() ? path : name);
  }
  if (paths.size() > kMostNames) lines += u" und %1 weitere"_s.arg(paths.size() - kMostNames);
  return lines.join(u"\n\r"_s);
}

}  // namespace calvora
