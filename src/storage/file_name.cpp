#include "storage/file_name.h"

namespace calvora {

using namespace Qt::StringLiterals;

QString asFileName(QString name) {
  for (QChar& c : name) {
    if (c < ' '_L1 || u"\\/:*?\"<>|"_s.contains(c)) c = '-'_L1;
  }
  return name;
}

QString withExtension(const QString& path, const QString& extension) {
  const qsizetype name = path.lastIndexOf('/'_L1) + 1;
  const qsizetype point = path.indexOf('.'_L1, name + 1);
  return path.left(point) + '.'_L1 + extension;
}

}  // namespace calvora
