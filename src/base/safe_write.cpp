#include "base/safe_write.h"

#include <QFileInfo>
#include <QSaveFile>

#include "base/file_sync.h"
#include "base/runtime_error.h"

namespace calvora {

void writeFileSafely(const QString& path, const QByteArray& content) {
  QSaveFile file(path);
  if (!file.open(QFile::WriteOnly)) {
    throw RuntimeError(ErrorNumber::kPathAccess, file.errorString());
  }
  // commit() alone does not notice a disk that fills up while the buffer is written: it would
  // replace the old file by an empty one.
  const bool written = file.write(content) == content.size() && file.flush() && syncFile(file);
  if (!written) {
    file.cancelWriting();
    file.commit();
    throw RuntimeError(ErrorNumber::kDiskFull, file.errorString());
  }
  if (!file.commit()) throw RuntimeError(ErrorNumber::kPathAccess, file.errorString());
  // The new file is there and whole, whatever becomes of its entry if the power fails now.
  syncFolder(QFileInfo(path).absolutePath());
}

}  // namespace calvora
