#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QProcess>
#include <cstdio>
#include <cstdlib>
#include <functional>

#include "base/questions.h"
#include "base/runtime_error.h"

namespace calvora {

/// A finding: reports what does not hold and ends the process, so that what led to it is kept.
[[noreturn]] inline void finding(const char* what, const QString& details) {
  std::fprintf(stderr, "\nFinding: %s: %s\n", what, qUtf8Printable(details));
  std::abort();
}

inline void require(bool holds, const char* what, const QString& details = {}) {
  if (!holds) finding(what, details);
}

/// Presses the first button of every question. A runtime error is a finding.
class AnyQuestions : public Questions {
 public:
  Button ask(const Message& message) override {
    require(!message.text.contains(QLatin1String("%1")), "a place left empty", message.text);
    const int buttons = message.buttons.toInt();
    return static_cast<Button>(buttons & -buttons);
  }
  void reportError(const QString& numberAndLocation) override {
    finding("a procedure fails", numberAndLocation);
  }
};

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
