// Plays random user events against the windows, without a display: no crash, no report of the
// sanitizers, no runtime error, no hang, and whatever was saved reads back equal. The same seed and
// number of events play the same events.
// Usage: monkey SEED EVENTS
#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QObject>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>
#include <QTimer>
#include <QTimerEvent>
#include <QUrl>
#include <QWheelEvent>
#include <atomic>
#include <chrono>
#include <map>
#include <thread>

#include "app/main_window.h"
#include "dialogs/windows/dialog_questions.h"
#include "monkey_desktop.h"
#include "platform/look.h"
#include "step_keeper.h"
#include "storage/settings.h"
#include "support/consistency.h"
#include "support/files.h"

using namespace calvora;
using namespace calvora::monkey;

namespace {

constexpr int kDeepest = 12;

/// What is on a keyboard and has a text; what users type more often stands there more often.
const QString kCharacters = u"0123456789,,.-<aZßä\"| "_s;

/// What has none; the first ones are pressed more often.
constexpr Qt::Key kKeys[]{Qt::Key_Enter, Qt::Key_Enter,     Qt::Key_Enter,  Qt::Key_Return,
                          Qt::Key_Tab,   Qt::Key_Tab,       Qt::Key_Down,   Qt::Key_Down,
                          Qt::Key_Up,    Qt::Key_Backtab,   Qt::Key_Left,   Qt::Key_Right,
                          Qt::Key_Home,  Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_End,
                          Qt::Key_F1,    Qt::Key_PageDown,  Qt::Key_F4,     Qt::Key_PageUp,
                          Qt::Key_F10,   Qt::Key_Insert,    Qt::Key_Escape};

constexpr Qt::Key kShortcuts[]{Qt::Key_S, Qt::Key_S, Qt::Key_O, Qt::Key_P, Qt::Key_N,   Qt::Key_A,
                               Qt::Key_C, Qt::Key_X, Qt::Key_V, Qt::Key_Z, Qt::Key_Z,   Qt::Key_Z,
                               Qt::Key_Y, Qt::Key_Y, Qt::Key_Q, Qt::Key_L, Qt::Key_Home};

QPoint anyPlace(Dice& dice, const QWidget& widget) {
  return {dice.below(std::max(1, widget.width())), dice.below(std::max(1, widget.height()))};
}

/// The program's own messages, answered like every other window. A runtime error is a finding: the
/// monkey's folders can be read and written.
class MonkeyQuestions final : public AnyQuestions {
 public:
  explicit MonkeyQuestions(Desktop& desktop) : dialogs_(desktop) {}
  Button ask(const Message& message) override { return dialogs_.ask(message); }

 private:
  DialogQuestions dialogs_;
};

/// Plays random user events against the program's windows. The next event is due before the one
/// that is being played has ended: that may be inside the event loop of a modal window, which lasts
/// until an event closes it.
class Monkey : public QObject {
 public:
  Monkey(unsigned seed, int events, const QString& folder)
      : dice_(seed),
        events_(events),
        folder_(folder),
        desktop_(dice_, folder + u"/daten"_s),
        trail_(folder + u"/trail.txt"_s) {
    require(trail_.open(QFile::WriteOnly | QFile::Unbuffered), "the trail can be written");
    prepareFolder();
  }

  /// Runs the program until all events are played, starting it again whenever they ended it.
  void play() {
    while (played_ < events_) runProgram();
  }

  /// What was played, in words.
  QString summary() const {
    QString text =
        u"%1 events, %2 starts, %3 files loaded, %4 saved and read back, %5 printed, %6 deep, "
        "%7 steps undone and done again"_s.arg(played_)
            .arg(starts_)
            .arg(desktop_.loads)
            .arg(desktop_.saves)
            .arg(desktop_.prints)
            .arg(deepest_)
            .arg(undone_);
    for (const auto& [window, count] : windows_) text += u"\n%1 in %2"_s.arg(count, 7).arg(window);
    return text;
  }

  /// How many events were played; a watchdog sees that there are more and more.
  [[nodiscard]] const std::atomic<int>& played() const { return played_; }

 protected:
  void timerEvent(QTimerEvent* event) override {
    if (event->timerId() != timer_) return;
    // The same timer would not fire inside what is played now.
    killTimer(timer_);
    timer_ = 0;
    if (desktop_.ended > 0) return;
    if (played_ >= events_) {
      QCoreApplication::exit(0);
      return;
    }
    timer_ = startTimer(0);
    QWidget* window = chooseWindow();
    if (window == nullptr) return;
    ++played_;
    const Program& program = *desktop_.program;
    const bool between = depth_ == 0 && QApplication::activeModalWidget() == nullptr;
    if (between && !program.entryChanged) requireConsistent(program.record);
    if (between && !program.entryChanged && dice_.below(200) == 0) keeper_->thereAndBack();
    deepest_ = std::max(deepest_, ++depth_);
    const auto done = qScopeGuard([this] { --depth_; });
    require(depth_ <= kDeepest, "windows do not pile up");
    ++windows_[QLatin1String(window->metaObject()->className()) + ' '_L1 +
               window->windowTitle().simplified()];
    playOn(*window);
  }

 private:
  /// One run of the program, wired as the program itself is, but with its folder elsewhere.
  void runProgram() {
    ++starts_;
    desktop_.ended = 0;
    Program program;
    program.programFolder = folder_;
    desktop_.program = &program;
    const qsizetype leftBefore = filesOf(u"*.rec"_s);
    playUntilItEnds(program);
    checkSettings(program);
    require(filesOf(u"*.lock"_s) == 0, "the slot is given back");
    require(filesOf(u"*.rec"_s) <= leftBefore + (program.unsaved ? 1 : 0),
            "what is saved is not kept");
  }

  void playUntilItEnds(Program& program) {
    MonkeyQuestions questions(desktop_);
    main window(program, questions, desktop_);
    StepKeeper keeper(window.history(), program);
    keeper_ = &keeper;
    window.show();
    window.activateWindow();
    timer_ = startTimer(0);
    QApplication::exec();
    undone_ += keeper.undone;
    if (timer_ != 0) killTimer(timer_);
  }

  [[nodiscard]] qsizetype filesOf(const QString& kind) const {
    return QDir(folder_).entryList({kind}).size();
  }

  /// Between two events: while one is played, or a message is open that a finished entry asked for,
  /// a check may stand in the middle. Nor while one is typed: Space empties the field at once, and
  /// the run follows when it is left.
  static void requireConsistent(const AnalysisRecord& record) {
    requireOriginsOfResults(record);
    requireJudgedFromInputs(record);
  }

  /// What was chosen is found again at the next start.
  void checkSettings(const Program& program) {
    const Settings& settings = program.settings;
    if (!settings.unsaved.empty()) return;
    Settings again;
    readSettings(again, program.programFolder);
    require(again.segments == settings.segments, "the company line comes back");
    const QString& folder = settings.slot[setting::kDataFolder];
    require(again.slot[setting::kDataFolder] == folder, "the data folder comes back", folder);
  }

  void prepareFolder() {
    const QDir examples(QCoreApplication::applicationDirPath() + u"/daten"_s);
    const QDir data(folder_ + u"/daten"_s);
    require(data.mkpath(u"."_s), "no folder", data.path());
    for (const QString& name : examples.entryList({u"*.cva"_s}, QDir::Files)) {
      require(QFile::copy(examples.filePath(name), data.filePath(name)), "no example", name);
    }
    put(folder_ + u"/hb_cvra.pdf"_s, {});
  }

  // What to do, and to which window.
  /// The one that a user can reach: an open menu or list, a modal window, or one of those that lie
  /// side by side.
  QWidget* chooseWindow() {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    QWidget* active = QApplication::activeWindow();
    if (active != nullptr && active->isVisible() && dice_.percent(95)) return active;
    QList<QWidget*> windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      const bool window = widget->windowType() == Qt::Window || widget->windowType() == Qt::Dialog;
      if (window && widget->isVisible()) windows += widget;
    }
    if (windows.isEmpty()) return nullptr;
    // The toolkit lists them by address, which no seed repeats.
    std::ranges::sort(windows, {},
                      [](const QWidget* w) { return w->windowTitle() + w->objectName(); });
    QWidget* chosen = dice_.oneOf(windows);
    chosen->activateWindow();
    return chosen;
  }

  void playOn(QWidget& window) {
    const int what = dice_.below(100);
    if (what < 43) return typeInto(window);
    if (what < 67) return clickIn(window);
    if (what < 80) return chooseAction(window);
    if (what < 87) return shortcut(window);
    if (what < 90) return paste(window);
    if (what < 92) return drop(window);
    if (what < 95) return turnWheel(window);
    if (what < 97) return resize(window);
    if (what < 99) return key(window, Qt::Key_Escape, {}, Qt::NoModifier);
    note("close", window);
    window.close();
  }

  void typeInto(QWidget& window) {
    const auto shift = dice_.percent(8) ? Qt::ShiftModifier : Qt::NoModifier;
    if (dice_.percent(50)) return key(window, dice_.oneOf(kKeys), {}, shift);
    const QChar character = kCharacters[dice_.below(kCharacters.size())];
    key(window, static_cast<Qt::Key>(character.toUpper().unicode()), character, shift);
  }

  void shortcut(QWidget& window) {
    if (dice_.percent(30)) {
      const auto letter = static_cast<Qt::Key>(Qt::Key_A + dice_.below(26));
      return key(window, letter, QString(QChar(letter)).toLower(), Qt::AltModifier);
    }
    const auto shift = dice_.percent(10) ? Qt::ShiftModifier : Qt::NoModifier;
    key(window, dice_.oneOf(kShortcuts), {}, Qt::ControlModifier | shift);
  }

  void clickIn(QWidget& window) {
    QWidget* child = anyChild(window);
    const QPoint place = anyPlace(dice_, *child);
    if (dice_.percent(5)) {
      note("context menu", *child);
      QContextMenuEvent event(QContextMenuEvent::Mouse, place, child->mapToGlobal(place));
      QCoreApplication::sendEvent(child, &event);
      return;
    }
    click(*child, place, dice_.percent(95) ? Qt::LeftButton : Qt::RightButton, dice_.percent(5));
  }

  /// Opens a menu, chooses from the one that is open, or presses a button.
  void chooseAction(QWidget& window) {
    if (auto* menu = qobject_cast<QMenu*>(&window); menu != nullptr && !menu->isEmpty()) {
      const QRect entry = menu->actionGeometry(dice_.oneOf(menu->actions()));
      return click(*menu, entry.center(), Qt::LeftButton, false);
    }
    auto* bar = window.findChild<QMenuBar*>();
    if (bar != nullptr && bar->isVisible() && !bar->actions().isEmpty()) {
      const QRect entry = bar->actionGeometry(dice_.oneOf(bar->actions()));
      return click(*bar, entry.center(), Qt::LeftButton, false);
    }
    QList<QAbstractButton*> buttons;
    for (auto* button : window.findChildren<QAbstractButton*>()) {
      if (button->isVisible() && button->window() == &window) buttons += button;
    }
    if (buttons.isEmpty()) return clickIn(window);
    QAbstractButton* button = dice_.oneOf(buttons);
    click(*button, button->rect().center(), Qt::LeftButton, false);
  }

  void paste(QWidget& window) {
    QApplication::clipboard()->setText(desktop_.anyText());
    key(window, Qt::Key_V, {}, Qt::ControlModifier);
  }

  QList<QUrl> anyUrls() {
    QList<QUrl> urls;
    do {
      const QString path = desktop_.anyFile(dice_.percent(80) ? u"cva"_s : u"cvp"_s);
      urls += QUrl::fromLocalFile(path);
    } while (dice_.percent(40));
    return urls;
  }

  void drop(QWidget& window) {
    const QPointer<QWidget> child(anyChild(window));
    if (!child->isEnabled()) return;
    QMimeData data;
    const bool files = dice_.percent(50);
    data.setText(files ? folder_ : desktop_.anyText());
    if (files) data.setUrls(anyUrls());
    note("drop", *child, files ? u"files"_s : u"text"_s);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(child, &enter);
    if (!child || !enter.isAccepted()) return;
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(child, &event);
  }

  void turnWheel(QWidget& window) {
    QWidget* child = anyChild(window);
    const QPoint place = anyPlace(dice_, *child);
    note("wheel", *child);
    const QPoint turn(0, dice_.percent(50) ? 120 : -120);
    QWheelEvent event(place, child->mapToGlobal(place), {}, turn, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(child, &event);
  }

  void resize(QWidget& window) {
    if (window.windowType() == Qt::Popup) return;
    note("resize", window);
    window.resize(100 + dice_.below(1400), 100 + dice_.below(1000));
  }

  // How a user does it.
  void key(QWidget& window, Qt::Key code, const QString& text, Qt::KeyboardModifiers modifiers) {
    QWidget* focus = window.focusWidget();
    QWidget& target = focus != nullptr && focus->isVisible() ? *focus : window;
    note("key", target, QString::number(code, 16) + ' '_L1 + text.simplified());
    QTest::sendKeyEvent(QTest::Click, &target, code, text, modifiers);
  }

  /// Any event may close the window, and delete it.
  void click(QWidget& widget, QPoint place, Qt::MouseButton button, bool twice) {
    note("click", widget, u"%1,%2"_s.arg(place.x()).arg(place.y()));
    const QPointer<QWidget> there(&widget);
    QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &move);
    const auto reachable = [&] { return there && there->isVisible(); };
    if (reachable()) QTest::mousePress(there, button, {}, place);
    if (reachable()) QTest::mouseRelease(there, button, {}, place);
    if (twice && reachable()) QTest::mouseDClick(there, button, {}, place);
  }

  /// A control in the window, or the window itself.
  QWidget* anyChild(QWidget& window) {
    QList<QWidget*> children{&window};
    for (QWidget* child : window.findChildren<QWidget*>()) {
      if (child->isVisible() && child->window() == &window) children += child;
    }
    return dice_.oneOf(children);
  }

  void note(const char* what, const QWidget& on, const QString& details = {}) {
    const QString line = u"%1 %2 %3 %4 \"%5\" %6\n"_s.arg(played_).arg(depth_).arg(
        QLatin1String(what), QLatin1String(on.metaObject()->className()),
        on.window()->windowTitle().trimmed(), details);
    trail_.write(line.toUtf8());
  }

  Dice dice_;
  const int events_;
  QString folder_;
  MonkeyDesktop desktop_;
  QFile trail_;  ///< every event, so that the one that led to a finding can be seen
  std::atomic<int> played_ = 0;
  int timer_ = 0;
  StepKeeper* keeper_ = nullptr;  ///< of the running program
  int depth_ = 0;                 ///< events that are being played, one inside the other
  int deepest_ = 0;
  int undone_ = 0;
  int starts_ = 0;
  std::map<QString, int> windows_;  ///< events by the window they went to
};

constexpr std::chrono::seconds kLongestEvent{60};

/// What the toolkit complains of, and how often.
std::map<QString, int>& complaints() {
  static std::map<QString, int> texts;
  return texts;
}

void noteComplaint(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) finding("fatal", text);
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
    require(clock::now() - since < kLongestEvent, "an event does not end", QString::number(seen));
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
  applyLook(application);
  QTemporaryDir folder;
  keepDialogMemoryIn(folder.path());
  out << "Trail: " << folder.path() << "/trail.txt" << Qt::endl;

  Monkey monkey(QByteArray(argv[1]).toUInt(), QByteArray(argv[2]).toInt(), folder.path());
  std::jthread watchdog([&](const std::stop_token& stop) { watch(stop, monkey.played()); });
  monkey.play();
  out << "Seed " << argv[1] << ": " << monkey.summary() << Qt::endl;
  for (const auto& [text, count] : complaints()) out << count << " x " << text << Qt::endl;
  return 0;
}
