#include "base/safe_write.h"

#include <QFileInfo>
#include <QSaveFile>

#include "base/runtime_error.h"

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace calvora {

namespace {

#ifdef Q_OS_WIN

bool syncFile(QFileDevice& file) {
  return FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()))) != 0;
}

/// Renaming is journalled there; a folder cannot be flushed.
void syncFolder(const QString&) {}

#else

/// Waits until an open file's content has reached the disk. True where the file system cannot wait.
bool syncFile(QFileDevice& file) {
  const bool done = fsync(file.handle()) == 0;
  return done || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
}

void syncFolder(const QString& path) {
  const int handle = open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return;  // a folder that may be written but not listed
  fsync(handle);
  close(handle);
}

#endif

}  // namespace

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
