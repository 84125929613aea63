// Opens and closes every window again and again and tells how much more memory stays resident
// afterwards. Fails if that is more than a megabyte.
// Usage: bench_memory [ROUNDS] (default 1000)
#include <malloc.h>
#include <unistd.h>
#ifdef __SANITIZE_ADDRESS__
extern "C" size_t __sanitizer_get_current_allocated_bytes();
#endif

#include <QPixmapCache>
#include <QTextStream>

#include "support/all_windows.h"

using namespace calvora;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostGrowth = 1024;  // KiB

/// Resident memory in KiB. What the allocator only keeps for later is given back before. The
/// sanitizers keep what was freed, so that with them it is the memory in use.
qint64 residentMemory() {
#ifdef __SANITIZE_ADDRESS__
  return static_cast<qint64>(__sanitizer_get_current_allocated_bytes() / 1024);
#endif
  malloc_trim(0);
  QFile file(u"/proc/self/statm"_s);
  if (!file.open(QFile::ReadOnly)) return 0;
  return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1024;
}

/// Opens a window and closes whatever is open then but the main window.
void openAndClose(const WindowWay& way, House& house) {
  way.open(house);
  House::settle();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window != &house.window) window->close();
  }
  House::settle();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  house.window.setEnabled(true);
  house.desktop.requests.clear();
}

qint64 measure(int rounds) {
  House house;
  std::vector<WindowWay> ways = allWindows();
  const FileRequest request{house.folder.path(), u"cva"_s, u"a"_s};
  ways.push_back({"main", [](House&) { House(); }});
  ways.push_back({"input box", [](House& h) { h.desktop.real.askText(&h.window, {}); }});
  ways.push_back({"open", [&](House& h) { h.desktop.real.askOpenFile(&h.window, request); }});
  ways.push_back({"save", [&](House& h) { h.desktop.real.askSaveFile(&h.window, request); }});
  ways.push_back({"preview", [](House& h) {
                    h.desktop.real.showPreview(&h.window, {}, [](QPagedPaintDevice&) {});
                  }});
  QTextStream out(stdout);
  qint64 sum = 0;
  for (const WindowWay& way : ways) {
    for (int i = 0; i < 5 + rounds / 5; ++i) openAndClose(way, house);  // makes what is made once
    const qint64 before = residentMemory();
    for (int i = 0; i < rounds; ++i) openAndClose(way, house);
    const qint64 growth = residentMemory() - before;
    sum += growth;
    out << qSetFieldWidth(24) << Qt::left << way.name << qSetFieldWidth(8) << Qt::right << growth
        << qSetFieldWidth(0) << " KiB" << Qt::endl;
  }
  out << "all windows opened and closed " << rounds << " times: " << sum << " KiB more, "
      << residentMemory() << " KiB in all" << Qt::endl;
  return sum;
}

}  // namespace

int main(int argc, char* argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtFatalMsg) QTextStream(stderr) << text << Qt::endl;
  });
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  applyLook(application);
  QPixmapCache::setCacheLimit(0);  // up to 10 MB of drawn controls would hide what grows
  const QTemporaryDir folder;
  keepDialogMemoryIn(folder.path());
  QTimer closing;  // a modal window blocks the way that opened it
  QObject::connect(&closing, &QTimer::timeout, [] {
    if (QWidget* modal = QApplication::activeModalWidget()) modal->close();
  });
  closing.start(1);
  return measure(argc > 1 ? QByteArray(argv[1]).toInt() : 1000) <= kMostGrowth ? 0 : 1;
}
