#include "storage/given_files.h"

#include <QFileInfo>
#include <algorithm>

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostNames = 8;
constexpr qsizetype kLongestName = 60;

QString shortened(const QString& name) {
  if (name.size() <= kLongestName) return name;
  return name.left(kLongestName / 2) + u" … "_s + name.right(kLongestName / 2);
}

}  // namespace

Given kindOf(const QStringList& paths) {
  const auto all = [&](const QString& extension) {
    return std::ranges::all_of(paths, [&](const QString& path) {
      const QFileInfo file(path);
      return file.suffix().compare(extension, Qt::CaseInsensitive) == 0 && !file.isDir();
    });
  };
  if (paths.isEmpty()) return Given::kNothing;
  if (all(u"cva"_s)) return Given::kAnalyses;
  return paths.size() == 1 && all(u"cvp"_s) ? Given::kProject : Given::kOther;
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
