#include "base/safe_write.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRandomGenerator>

#include "base/runtime_error.h"

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#endif

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_WIN

bool syncFile(QFileDevice& file) {
  return FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()))) != 0;
}

/// Renaming is journalled there; a folder cannot be flushed.
void syncFolder(const QString&) {}

bool replaceFile(const QString& from, const QString& to) {
  const auto native = [](const QString& path) {  // also one longer than 260 characters
    const QString name = QDir::toNativeSeparators(QDir::cleanPath(path));
    return (name.startsWith("\\\\"_L1) ? name : u"\\\\?\\"_s + name).toStdWString();
  };
  return MoveFileExW(native(from).c_str(), native(to).c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

void keepAccess(QFile& file, const QFileInfo& old) {
  file.setPermissions(old.permissions());
}

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

bool replaceFile(const QString& from, const QString& to) {
  return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

/// Lets a new file be read and written by whom the old one is, as far as its writer may say so.
/// Where it cannot have that one's group, its own may do what everybody may.
void keepAccess(const QFile& file, const QFileInfo& old) {
  struct stat status {};
  if (stat(QFile::encodeName(old.filePath()).constData(), &status) != 0) return;
  constexpr auto kSameOwner = static_cast<uid_t>(-1);
  const bool grouped = fchown(file.handle(), status.st_uid, status.st_gid) == 0 ||
                       fchown(file.handle(), kSameOwner, status.st_gid) == 0;
  const mode_t mode = status.st_mode & 0777;
  fchmod(file.handle(), grouped ? mode : (mode & 0707) | (mode & 07) << 3);
}

#endif

/// What a path names at the end of its symbolic links; it need not exist.
QFileInfo targetOf(const QString& path) {
  constexpr int kMostLinks = 40;
  QFileInfo target(path);
  for (int links = 0; target.isSymbolicLink(); ++links) {
    if (links == kMostLinks) throw RuntimeError(ErrorNumber::kPathAccess, path);
    target.setFile(target.symLinkTarget());
  }
  return target;
}

/// How the temporaries for a file begin: short, however long its name is, and not to be taken for
/// a copy that the user made of it.
QString temporaryStem(const QFileInfo& target) {
  const QByteArray name = target.fileName().toUtf8();
  const QByteArray hash = QCryptographicHash::hash(name, QCryptographicHash::Sha256).toHex();
  return u".calvora-"_s + QString::fromLatin1(hash.first(8)) + '-'_L1;
}

/// Writes an open file to the disk and closes it. Some file systems tell only then what they could
/// not write.
bool writeToDisk(QFile& file, const QByteArray& content) {
  const bool written = file.write(content) == content.size() && syncFile(file);
  file.close();
  return written && file.error() == QFile::NoError;
}

}  // namespace

void removeLeftovers(const QString& path, std::chrono::seconds age) {
  const QFileInfo target = targetOf(path);
  const QDateTime youngest = QDateTime::currentDateTime().addSecs(-age.count());
  QDirIterator leftovers(target.absolutePath(), {temporaryStem(target) + u"????????"_s},
                         QDir::Files | QDir::Hidden);
  while (leftovers.hasNext()) {
    const QFileInfo leftover(leftovers.next());
    const bool old = age.count() == 0 || leftover.lastModified() < youngest;
    if (old) QFile::remove(leftover.filePath());
  }
}

void writeFileSafely(const QString& path, const QByteArray& content) {
  const QFileInfo target = targetOf(path);
  const bool replaces = target.exists();
  if (replaces && !(target.isFile() && target.isWritable())) {
    throw RuntimeError(ErrorNumber::kPathAccess, path);
  }
  removeLeftovers(path, std::chrono::hours(1));  // before writing: a full disk needs their room
  const auto number = u"%1"_s.arg(QRandomGenerator::system()->generate(), 8, 16, '0'_L1);
  QFile file(target.absolutePath() + '/'_L1 + temporaryStem(target) + number);
  const QFile::OpenMode mode = QFile::WriteOnly | QFile::NewOnly | QFile::Unbuffered;
  // What was not for everybody's eyes is not either while it is written.
  const bool open =
      replaces ? file.open(mode, QFile::ReadOwner | QFile::WriteOwner) : file.open(mode);
  if (!open) throw RuntimeError(ErrorNumber::kPathAccess, file.errorString());
  if (replaces) keepAccess(file, target);
  const bool written = writeToDisk(file, content);
  if (!written || !replaceFile(file.fileName(), target.absoluteFilePath())) {
    QFile::remove(file.fileName());
    throw RuntimeError(written ? ErrorNumber::kPathAccess : ErrorNumber::kDiskFull, path);
  }
  // The new file is there and whole, whatever becomes of its entry if the power fails now.
  syncFolder(target.absolutePath());
}

}  // namespace calvora
