// From process start to the start window shown, and the memory that this takes. Run with an
// argument it is the process that is measured; without one it runs itself repeatedly and prints the
// median.
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QProcess>
#include <QTextStream>
#include <QTimer>
#include <algorithm>
#include <chrono>

#include "app/application.h"
#include "platform/look.h"

using namespace Qt::StringLiterals;

namespace {

qint64 nowInMicroseconds() {
  using namespace std::chrono;
  return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
}

/// Peak resident memory in KiB, as the kernel counts it.
qint64 peakMemory() {
  QFile status(u"/proc/self/status"_s);
  if (!status.open(QFile::ReadOnly)) return -1;
  const QList<QByteArray> lines = status.readAll().split('\n');
  for (const QByteArray& line : lines) {
    if (line.startsWith("VmHWM:")) return line.mid(6).trimmed().split(' ').front().toLongLong();
  }
  return -1;
}

/// Starts the program as program_start does and prints what it took since `started`.
int measuredProcess(int argc, char* argv[], qint64 started) {
  QApplication application(argc, argv);
  calvora::applyLook(application);
  calvora::Application program;
  program.show();
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    const auto* startWindow = program.mainWindow().findChild<QDialog*>();
    if (startWindow == nullptr || !startWindow->isVisible()) return;
    QTextStream(stdout) << nowInMicroseconds() - started << ' ' << peakMemory() << '\n';
    QApplication::exit(0);
  });
  poll.start(0);
  return QApplication::exec();
}

int measure(const QString& self) {
  constexpr int kRuns = 15;
  QList<qint64> times;
  qint64 memory = 0;
  for (int run = 0; run < kRuns; ++run) {
    QProcess process;
    process.start(self, {QString::number(nowInMicroseconds())});
    if (!process.waitForFinished() || process.exitCode() != 0) return 1;
    const QList<QByteArray> numbers = process.readAllStandardOutput().trimmed().split(' ');
    if (numbers.size() != 2) return 1;
    times += numbers[0].toLongLong();
    memory = std::max(memory, numbers[1].toLongLong());
  }
  std::ranges::sort(times);
  QTextStream(stdout) << "start window shown after (median of " << kRuns
                      << "): " << static_cast<double>(times[kRuns / 2]) / 1000
                      << " ms\npeak memory: " << memory / 1024 << " MB\n";
  return 0;
}

}  // namespace

int main(int argc, char* argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  if (argc > 1) return measuredProcess(argc, argv, QByteArray(argv[1]).toLongLong());
  QCoreApplication application(argc, argv);
  return measure(QCoreApplication::applicationFilePath());
}
