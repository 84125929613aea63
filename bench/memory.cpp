// Opens and closes every window again and again and tells how much more memory stays resident
// afterwards. Fails if that is more than a megabyte.
// Usage: bench_memory [ROUNDS] (default 1000)
#include <malloc.h>
#include <unistd.h>
#ifdef __SANITIZE_ADDRESS__
extern "C" size_t __sanitizer_get_current_allocated_bytes();
#endif

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPixmapCache>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>
#include <functional>

#include "app/main_window.h"
#include "dialogs/windows/dialog_questions.h"
#include "overview/windows/analysen.h"
#include "platform/look.h"
#include "support/one_file_desktop.h"
#include "support/shown_window.h"

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

/// The program with its folder elsewhere.
struct House {
  explicit House(const QString& folder) {
    desktop.file = folder + u"/a"_s;
    program.programFolder = folder;
    window.show();
    window.activateWindow();
    settle();
  }

  /// Lets the windows be painted, and those that were closed be deleted.
  static void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  OneFileDesktop desktop;
  DialogQuestions questions{desktop};
  Program program;
  main window{program, questions, desktop};
};

/// Closes every window but the main one and the one given.
void closeOthers(const QWidget& house, const QWidget* kept = nullptr) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window != &house && window != kept) window->close();
  }
  House::settle();
}

analysen* openOverview(House& house) {
  house.window.mnu2_ana->trigger();
  return shownWindow<analysen>();
}

struct Way {
  const char* name;
  std::function<void()> open;
};

/// The way to every window. A modal one returns when the timer has closed it.
std::vector<Way> waysIn(House& house) {
  main& window = house.window;
  RealDesktop& real = house.desktop.real;
  const FileRequest request{house.program.programFolder, u"cva"_s, u"a"_s};
  const auto inOverview = [&house](int button) {
    return [&house, button] {
      analysen* overview = openOverview(house);
      overview->Label1(1).click();
      overview->Command1(button).click();
    };
  };
  return {
      {"main and start window", [&] { House(house.program.programFolder); }},
      {"save", [&] { window.mnu_save->trigger(); }},
      {"load",
       [&] {
         house.program.record.flag[flag::kStatus].clear();  // nothing to ask about
         window.mnu_load->trigger();
       }},
      {"print", [&] { window.mnu_drucken->trigger(); }},
      {"data folder", [&] { window.mnu2_pfad->trigger(); }},
      {"company line", [&] { window.mnu2_fatext->trigger(); }},
      {"volume correction", [&] { window.mnu2_tk->trigger(); }},
      {"converter", [&] { window.Command1(20).click(); }},
      {"information", [&] { window.Image1(0).click(); }},
      {"version", [&] { window.mnu_version->trigger(); }},
      {"overview, analysis", [&] { openOverview(house)->Label1(1).click(); }},
      {"overview, print", inOverview(3)},
      {"overview, save", inOverview(4)},
      {"overview, load", inOverview(5)},
      {"message",
       [&] { house.questions.ask({.text = u"?"_s, .title = u"?"_s, .symbol = Symbol::kWarning}); }},
      {"runtime error", [&] { house.questions.reportError(u"13 hier"_s); }},
      {"input box",
       [&] {
         real.askText(&window, {u"a"_s, u"b"_s});
       }},
      {"open a file", [&, request] { real.askOpenFile(&window, request); }},
      {"save a file", [&, request] { real.askSaveFile(&window, request); }},
      {"preview", [&] { real.showPreview(&window, {}, [](QPagedPaintDevice&) {}); }},
  };
}

qint64 measure(House& house, int rounds) {
  QTextStream out(stdout);
  qint64 sum = 0;
  for (const Way& way : waysIn(house)) {
    const auto go = [&](int times) {
      for (int round = 0; round < times; ++round) {
        way.open();
        House::settle();
        closeOthers(house.window);
        house.window.setEnabled(true);
      }
    };
    go(5 + rounds / 5);  // what is made once is made now
    const qint64 before = residentMemory();
    go(rounds);
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
  const QDir examples(QCoreApplication::applicationDirPath() + u"/daten"_s);
  if (!QFile::copy(examples.filePath(u"leitungswasser-fuellung.cva"_s),
                   folder.filePath(u"a.cva"_s))) {
    return 1;
  }

  House house(folder.path());
  closeOthers(house.window);
  house.window.setEnabled(true);
  QTimer closing;
  QObject::connect(&closing, &QTimer::timeout, [] {
    if (QWidget* modal = QApplication::activeModalWidget()) modal->close();
  });
  closing.start(1);
  house.window.takeOver(1, u"420"_s);
  return measure(house, argc > 1 ? QByteArray(argv[1]).toInt() : 1000) <= kMostGrowth ? 0 : 1;
}
