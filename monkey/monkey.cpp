#include "monkey.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QDropEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScopeGuard>
#include <QTest>
#include <QTimerEvent>
#include <QWheelEvent>

#include "storage/settings.h"
#include "support/files.h"

namespace calvora::monkey {

using namespace Qt::StringLiterals;

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

constexpr Qt::Key kShortcuts[]{Qt::Key_S, Qt::Key_S, Qt::Key_O, Qt::Key_P, Qt::Key_N, Qt::Key_A,
                               Qt::Key_C, Qt::Key_X, Qt::Key_V, Qt::Key_Z, Qt::Key_Q, Qt::Key_Home};

QPoint anyPlace(Dice& dice, const QWidget& widget) {
  return {dice.below(std::max(1, widget.width())), dice.below(std::max(1, widget.height()))};
}

}  // namespace

Monkey::Monkey(unsigned seed, int events, const QString& folder)
    : dice_(seed),
      events_(events),
      folder_(folder),
      desktop_(dice_, folder + u"/daten"_s),
      trail_(folder + u"/trail.txt"_s) {
  require(trail_.open(QFile::WriteOnly | QFile::Unbuffered), "the trail can be written");
  prepareFolder();
}

void Monkey::prepareFolder() {
  const QDir examples(QCoreApplication::applicationDirPath() + u"/daten"_s);
  const QDir data(folder_ + u"/daten"_s);
  require(data.mkpath(u"."_s), "no folder", data.path());
  for (const QString& name : examples.entryList({u"*.cva"_s}, QDir::Files)) {
    require(QFile::copy(examples.filePath(name), data.filePath(name)), "no example", name);
  }
  put(folder_ + u"/hb_cvra.pdf"_s, {});
}

void Monkey::play() {
  while (played_ < events_) runProgram();
}

/// One run of the program, wired as the program itself is, but with its folder elsewhere.
void Monkey::runProgram() {
  ++starts_;
  desktop_.ended = 0;
  Program program;
  program.programFolder = folder_;
  desktop_.program = &program;
  MonkeyQuestions questions(desktop_);
  main window(program, questions, desktop_);
  window.show();
  window.activateWindow();
  timer_ = startTimer(0);
  QApplication::exec();
  if (timer_ != 0) killTimer(timer_);
  checkSettings(program);
}

/// What was chosen is found again at the next start.
void Monkey::checkSettings(const Program& program) {
  const Settings& settings = program.settings;
  if (settings.unsaved) return;
  Settings again;
  readSettings(again, program.programFolder);
  require(again.segments == settings.segments, "the company line comes back");
  const QString& folder = settings.slot[setting::kDataFolder];
  require(again.slot[setting::kDataFolder] == folder, "the data folder comes back", folder);
}

QString Monkey::summary() const {
  QString text =
      u"%1 events, %2 starts, %3 files loaded, %4 saved and read back, %5 printed, %6 deep"_s
          .arg(played_)
          .arg(starts_)
          .arg(desktop_.loads)
          .arg(desktop_.saves)
          .arg(desktop_.prints)
          .arg(deepest_);
  for (const auto& [window, count] : windows_) text += u"\n%1 in %2"_s.arg(count, 7).arg(window);
  return text;
}

void Monkey::timerEvent(QTimerEvent* event) {
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
  deepest_ = std::max(deepest_, ++depth_);
  const auto done = qScopeGuard([this] { --depth_; });
  require(depth_ <= kDeepest, "windows do not pile up");
  ++windows_[QLatin1String(window->metaObject()->className()) + ' '_L1 +
             window->windowTitle().simplified()];
  playOn(*window);
}

/// The one that a user can reach: an open menu or list, a modal window, or one of those that lie
/// side by side.
QWidget* Monkey::chooseWindow() {
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

void Monkey::playOn(QWidget& window) {
  const int what = dice_.below(100);
  if (what < 43) return typeInto(window);
  if (what < 67) return clickIn(window);
  if (what < 80) return chooseAction(window);
  if (what < 87) return shortcut(window);
  if (what < 91) return paste(window);
  if (what < 92) return drop(window);
  if (what < 95) return turnWheel(window);
  if (what < 97) return resize(window);
  if (what < 99) return key(window, Qt::Key_Escape, {}, Qt::NoModifier);
  note("close", window);
  window.close();
}

void Monkey::note(const char* what, const QWidget& on, const QString& details) {
  const QString line = u"%1 %2 %3 %4 \"%5\" %6\n"_s.arg(played_).arg(depth_).arg(
      QLatin1String(what), QLatin1String(on.metaObject()->className()),
      on.window()->windowTitle().trimmed(), details);
  trail_.write(line.toUtf8());
}

// ---- Keyboard ----

void Monkey::key(QWidget& window, Qt::Key code, const QString& text,
                 Qt::KeyboardModifiers modifiers) {
  QWidget* focus = window.focusWidget();
  QWidget& target = focus != nullptr && focus->isVisible() ? *focus : window;
  note("key", target, QString::number(code, 16) + ' '_L1 + text.simplified());
  QTest::sendKeyEvent(QTest::Click, &target, code, text, modifiers);
}

void Monkey::typeInto(QWidget& window) {
  const auto shift = dice_.percent(8) ? Qt::ShiftModifier : Qt::NoModifier;
  if (dice_.percent(50)) return key(window, dice_.oneOf(kKeys), {}, shift);
  const QChar character = kCharacters[dice_.below(kCharacters.size())];
  key(window, static_cast<Qt::Key>(character.toUpper().unicode()), character, shift);
}

void Monkey::shortcut(QWidget& window) {
  if (dice_.percent(30)) {
    const auto letter = static_cast<Qt::Key>(Qt::Key_A + dice_.below(26));
    return key(window, letter, QString(QChar(letter)).toLower(), Qt::AltModifier);
  }
  key(window, dice_.oneOf(kShortcuts), {}, Qt::ControlModifier);
}

void Monkey::paste(QWidget& window) {
  QApplication::clipboard()->setText(desktop_.anyText());
  key(window, Qt::Key_V, {}, Qt::ControlModifier);
}

// ---- Mouse ----

/// A control in the window, or the window itself.
QWidget* Monkey::anyChild(QWidget& window) {
  QList<QWidget*> children{&window};
  for (QWidget* child : window.findChildren<QWidget*>()) {
    if (child->isVisible() && child->window() == &window) children += child;
  }
  return dice_.oneOf(children);
}

void Monkey::clickIn(QWidget& window) {
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

/// Any event may close the window, and delete it.
void Monkey::click(QWidget& widget, QPoint place, Qt::MouseButton button, bool twice) {
  note("click", widget, u"%1,%2"_s.arg(place.x()).arg(place.y()));
  const QPointer<QWidget> there(&widget);
  QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &move);
  const auto reachable = [&] { return there && there->isVisible(); };
  if (reachable()) QTest::mousePress(there, button, {}, place);
  if (reachable()) QTest::mouseRelease(there, button, {}, place);
  if (twice && reachable()) QTest::mouseDClick(there, button, {}, place);
}

/// Opens a menu, chooses from the one that is open, or presses a button.
void Monkey::chooseAction(QWidget& window) {
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

void Monkey::turnWheel(QWidget& window) {
  QWidget* child = anyChild(window);
  const QPoint place = anyPlace(dice_, *child);
  note("wheel", *child);
  const QPoint turn(0, dice_.percent(50) ? 120 : -120);
  QWheelEvent event(place, child->mapToGlobal(place), {}, turn, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(child, &event);
}

void Monkey::drop(QWidget& window) {
  const QPointer<QWidget> child(anyChild(window));
  if (!child->acceptDrops() || !child->isEnabled()) return;
  note("drop", *child);
  QMimeData data;
  data.setText(desktop_.anyText());
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(child, &enter);
  if (!child || !enter.isAccepted()) return;
  QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(child, &event);
}

void Monkey::resize(QWidget& window) {
  if (window.windowType() == Qt::Popup) return;
  note("resize", window);
  window.resize(100 + dice_.below(1400), 100 + dice_.below(1000));
}

}  // namespace calvora::monkey
