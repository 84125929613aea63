#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QProcess>
#include <functional>

#include "base/runtime_error.h"
#include "support/finding.h"

namespace calvora {

inline QByteArray bytesOf(const QString& path) {
  QFile file(path);
  return file.open(QFile::ReadOnly) ? file.readAll() : "unreadable: " + path.toUtf8();
}

inline void put(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  file.remove();  // truncating it instead makes some file systems wait for the disk
  require(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size(), "no disk", path);
}

inline int errorOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

/// What a program of the system writes.
inline QString outputOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  if (!process.waitForFinished() || process.exitCode() != 0) return "failed: " + program;
  return QString::fromUtf8(process.readAllStandardOutput());
}

/// A process of its own that ends with the body's result, or after a minute.
inline pid_t startChild(const std::function<int()>& body) noexcept {
  const pid_t child = fork();
  if (child != 0) return child;
  alarm(60);
  _exit(body());
}

/// The result of a body that runs without the rights of the superuser.
inline int asOrdinaryUser(const std::function<int()>& body) {
  const auto ordinary = [&] { return getuid() != 0 || setuid(65534) == 0 ? body() : 255; };
  int status = -1;
  waitpid(startChild(ordinary), &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace calvora
