#include "base/file_sync.h"

#include <QFile>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace calvora {

#ifdef Q_OS_WIN

bool syncFile(QFileDevice& file) {
  return FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()))) != 0;
}

/// Renaming is journalled there; a folder cannot be flushed.
void syncFolder(const QString&) {}

#else

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

}  // namespace calvora
