// Plays random user events against the windows, without a display: no crash, no report of the
// sanitizers, no runtime error, no hang, and whatever was saved reads back equal. The same seed and
// number of events play the same events.
// Usage: monkey SEED EVENTS
#include <QApplication>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>
#include <chrono>
#include <map>
#include <thread>

#include "monkey.h"
#include "platform/look.h"

using namespace Qt::StringLiterals;
using calvora::monkey::Monkey;

namespace {

constexpr std::chrono::seconds kLongestEvent{60};

/// What the toolkit complains of, and how often.
std::map<QString, int>& complaints() {
  static std::map<QString, int> texts;
  return texts;
}

void noteComplaint(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) calvora::finding("fatal", text);
  // That an event means nothing to a control, and what this platform does not have.
  const bool usual = text.endsWith("not accepted by receiving widget"_L1) ||
                     text.startsWith("This plugin does not support"_L1);
  if (!usual) ++complaints()[text];
}

/// Ends the process if nothing is played for a minute.
void watch(const std::stop_token& stop, const std::atomic<int>& played) {
  using clock = std::chrono::steady_clock;
  int seen = -1;
  for (auto since = clock::now(); !stop.stop_requested();) {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    if (played != seen) {
      seen = played;
      since = clock::now();
    }
    calvora::require(clock::now() - since < kLongestEvent, "an event does not end",
                     QString::number(seen));
  }
}

}  // namespace

int main(int argc, char* argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QTextStream out(stdout);
  if (argc != 3) {
    out << "Usage: monkey SEED EVENTS\n";
    return 2;
  }
  qInstallMessageHandler(noteComplaint);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  calvora::applyLook(application);
  QTemporaryDir folder;
  calvora::keepDialogMemoryIn(folder.path());
  out << "Trail: " << folder.path() << "/trail.txt" << Qt::endl;

  Monkey monkey(QByteArray(argv[1]).toUInt(), QByteArray(argv[2]).toInt(), folder.path());
  std::jthread watchdog([&](const std::stop_token& stop) { watch(stop, monkey.played()); });
  monkey.play();
  out << "Seed " << argv[1] << ": " << monkey.summary() << Qt::endl;
  for (const auto& [text, count] : complaints()) out << count << " x " << text << Qt::endl;
  return 0;
}
