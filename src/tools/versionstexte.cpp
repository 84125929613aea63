#include "tools/versionstexte.h"

#include <QDateTime>
#include <QFileInfo>
#include <algorithm>
#include <cmath>

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr long kBrightest = 255;

int component(int start, int end, int line, int width) {
  const float step = static_cast<float>(end - start) / static_cast<float>(width);
  const float reached = static_cast<float>(start) + static_cast<float>(line) * step;
  return static_cast<int>(std::min(kBrightest, std::lrint(reached)));
}

}  // namespace

QString versionsnummer(int major, int minor, int revision) {
  return u"%1.%2 /%3"_s.arg(major).arg(minor).arg(revision);
}

QString vdate(const QString& programFile) {
  return QFileInfo(programFile).lastModified().toString(u"MM-yyyy"_s);
}

QString jahre(QDate today) {
  return u"2017/%1"_s.arg(today.year());
}

Rgb Farbverlauf::colour(int line, int width) const {
  return {.red = component(start.red, end.red, line, width),
          .green = component(start.green, end.green, line, width),
          .blue = component(start.blue, end.blue, line, width)};
}

}  // namespace calvora
