#include "platform/file_sync.h"

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
bool syncFolder(const QString&) {
  return true;
}

#else

namespace {

bool sync(int handle) {
  return fsync(handle) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
}

}  // namespace

bool syncFile(QFileDevice& file) {
  return sync(file.handle());
}

bool syncFolder(const QString& path) {
  const int handle = open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return true;  // a folder that may be written but not listed
  const bool done = sync(handle);
  close(handle);
  return done;
}

#endif

}  // namespace calvora
