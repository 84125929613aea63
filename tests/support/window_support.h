#pragma once

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>

#include "app/main_window.h"
#include "platform/elided_label.h"
#include "platform/look.h"
#include "support/recording_desktop.h"
#include "support/scripted_questions.h"

namespace calvora {

/// The window of a kind that is shown, or nothing.
template <class Window>
Window* shownWindow() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* window = dynamic_cast<Window*>(widget);
    if (window != nullptr && window->isVisible()) return window;
  }
  return nullptr;
}

/// What is to happen to the next modal window of a kind, once it is shown and active. The test
/// fails if none comes; a window in which something failed is closed, so that the test ends.
template <class Window>
void onNextModal(QObject* context, std::function<void(Window&)> act, int triesLeft = 100) {
  QTimer::singleShot(20, context, [context, act = std::move(act), triesLeft] {
    auto* window = dynamic_cast<Window*>(QApplication::activeModalWidget());
    if (window != nullptr && (window->isActiveWindow() || triesLeft < 50)) {
      const QPointer<QWidget> shown(window);
      act(*window);
      if (QTest::currentTestFailed() && shown != nullptr) shown->close();
    } else if (triesLeft > 0) {
      onNextModal<Window>(context, act, triesLeft - 1);
    } else {
      QFAIL("the modal window did not come");
    }
  });
}

/// What a window cannot show whole: texts that need more room than their control has, and controls
/// that leave the window or lie upon each other.
inline QStringList cutTexts(const QWidget& window) {
  QStringList cut;
  QList<const QWidget*> seen;
  for (const QWidget* control : window.findChildren<QWidget*>()) {
    const auto* label = qobject_cast<const QLabel*>(control);
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    if (!control->isVisibleTo(&window) || (label == nullptr && button == nullptr)) continue;
    const QString text = label != nullptr ? label->text() : button->text();
    if (text.trimmed().isEmpty()) continue;
    const bool wraps = label != nullptr && label->wordWrap();
    const int height = wraps ? label->heightForWidth(label->width()) : control->sizeHint().height();
    qsizetype blanks = 0;  // at its end, where nobody misses them
    while (text[text.size() - 1 - blanks] == QChar::Space) ++blanks;
    const bool elides = dynamic_cast<const ElidedLabel*>(control) != nullptr;  // and has a tool tip
    const int width =
        control->sizeHint().width() - control->fontMetrics().horizontalAdvance(text.right(blanks));
    const QRect place(control->mapTo(&window, QPoint()), control->size());
    bool fits = (wraps || elides || control->width() >= width) && control->height() >= height &&
                window.rect().contains(place);
    for (const QWidget* other : seen) {
      fits = fits && !place.intersects({other->mapTo(&window, QPoint()), other->size()});
    }
    if (!fits) cut += text;
    seen += control;
  }
  return cut;
}

/// The real main window on a given day over a fresh state, with the start window already gone. Its
/// questions are answered by a script or, for those who ask for it, otherwise.
template <class Answers>
struct BasicMask {
  BasicMask() {
    program.fieldIndex = 0;
    program.today = [] { return QDate(2026, 11, 22); };
    window.show();
    activate();
    window.Text1(1).setFocus();
    settle();
  }

  /// A test that minds what was asked or reported looks itself and empties the script's record.
  ~BasicMask() {
    if constexpr (requires { questions.complaints(); }) QCOMPARE(questions.complaints(), QString());
  }
  BasicMask(const BasicMask&) = delete;
  BasicMask& operator=(const BasicMask&) = delete;

  /// The path of a file in the program's folder, or what is a path already.
  [[nodiscard]] QString at(const QString& name) const {
    return QDir(folder.path()).absoluteFilePath(name);
  }

  /// Finishes what the last event left queued, and what that queues.
  static void settle() { QCoreApplication::processEvents(QEventLoop::AllEvents, 1000); }

  static void activate(QWidget& other) {
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
  }
  void activate() { activate(window); }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* target = window.focusWidget();
    QTest::keyClick(target == nullptr ? &window : target, key, modifiers);
    settle();
  }

  /// Types characters into the box that has the focus.
  void keys(const QString& text) {
    for (const QChar c : text) QTest::keyClick(window.focusWidget(), c.toLatin1());
    settle();
  }

  void focus(int box) {
    window.Text1(box).setFocus(Qt::MouseFocusReason);
    settle();
  }

  /// Replaces the text of a box and leaves it with Enter.
  void enter(int box, const QString& text) {
    focus(box);
    window.Text1(box).selectAll();
    text.isEmpty() ? press(Qt::Key_Backspace) : keys(text);
    press(Qt::Key_Enter);
  }

  /// Drops something on a control, which need not have the focus. False if it is not taken.
  static bool dropOn(QWidget& control, const QMimeData& data) {
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&control, &enter);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    if (enter.isAccepted()) QCoreApplication::sendEvent(&control, &event);
    return enter.isAccepted();
  }

  /// Drops a text on a box.
  void drop(int box, const QString& text) {
    QMimeData data;
    data.setText(text);
    QVERIFY(dropOn(window.Text1(box), data));
    settle();
  }

  [[nodiscard]] int focusedBox() const {
    for (const auto& [index, box] : window.Text1) {
      if (box == window.focusWidget()) return index;
    }
    return 0;
  }

  Answers questions = [&] {
    if constexpr (std::is_default_constructible_v<Answers>)
      return Answers();
    else
      return Answers(desktop);
  }();
  RecordingDesktop desktop;
  QTemporaryDir folder;  ///< the program's own, empty
  Program program = [this] {
    Program made;
    made.programFolder = folder.path();
    return made;
  }();
  main window{program, questions, desktop};
};

using Mask = BasicMask<ScriptedQuestions>;

}  // namespace calvora

/// As QTEST_MAIN, with the program's own look. What the toolkit's dialogs remember is not the
/// developer's.
#define CALVORA_TEST_MAIN(TestClass)            \
  int main(int argc, char* argv[]) {            \
    QApplication application(argc, argv);       \
    calvora::applyLook(application);            \
    const QTemporaryDir memory;                 \
    calvora::keepDialogMemoryIn(memory.path()); \
    TestClass test;                             \
    return QTest::qExec(&test, argc, argv);     \
  }
