#pragma once

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "app/main_window.h"
#include "platform/look.h"
#include "platform/paper.h"
#include "support/scripted_questions.h"

namespace calvora {

/// A desktop that only records what it was asked for. Its file dialogs answer with the paths that
/// the test lined up, and are cancelled when there is none left.
class RecordingDesktop : public Desktop {
 public:
  std::optional<QString> askOpenFile(QWidget*, const FileRequest& request) override {
    return nextPath(request);
  }
  std::optional<QString> askSaveFile(QWidget*, const FileRequest& request) override {
    return nextPath(request);
  }

  std::optional<QString> askText(QWidget*, const TextRequest& request) override {
    textRequests.push_back(request);
    return takeNext(texts);
  }

  /// The paper of the next printer set-up, which is cancelled without one.
  std::unique_ptr<Paper> askPrinter(QWidget*, const PrintRequest& request) override {
    printRequests.push_back(request);
    return paper ? paper(request) : nullptr;
  }
  void showPreview(QWidget*, const PrintRequest& request,
                   const std::function<void(QPagedPaintDevice&)>& paint) override {
    preview(request, paint);
  }

  void endProgram() override { ++ended; }
  bool openDocument(const QString& path) override {
    opened += path;
    return true;
  }

  int ended = 0;
  QStringList opened;
  QStringList paths;
  std::vector<FileRequest> requests;
  QStringList texts;  ///< answers of the input box, which is cancelled when there is none left
  std::vector<TextRequest> textRequests;
  std::vector<PrintRequest> printRequests;
  std::function<std::unique_ptr<Paper>(const PrintRequest&)> paper;
  std::function<void(const PrintRequest&, const std::function<void(QPagedPaintDevice&)>&)> preview;

 private:
  static std::optional<QString> takeNext(QStringList& answers) {
    if (answers.isEmpty()) return std::nullopt;
    return answers.takeFirst();
  }
  std::optional<QString> nextPath(const FileRequest& request) {
    requests.push_back(request);
    return takeNext(paths);
  }
};

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
    const int width =
        control->sizeHint().width() - control->fontMetrics().horizontalAdvance(text.right(blanks));
    const QRect place(control->mapTo(&window, QPoint()), control->size());
    bool fits = (wraps || control->width() >= width) && control->height() >= height &&
                window.rect().contains(place);
    for (const QWidget* other : seen) {
      fits = fits && !place.intersects({other->mapTo(&window, QPoint()), other->size()});
    }
    if (!fits) cut += text;
    seen += control;
  }
  return cut;
}

/// The real main window over a fresh state, with a script for its questions and the start window
/// already gone.
struct Mask {
  Mask() {
    program.fieldIndex = 0;
    window.show();
    activate();
    window.Text1(1).setFocus();
    settle();
  }

  static Program programIn(const QTemporaryDir& folder) {
    Program program;
    program.programFolder = folder.path();
    return program;
  }

  /// A test that minds what was asked or reported looks itself and empties the script's record.
  ~Mask() { QCOMPARE(questions.complaints(), QString()); }
  Mask(const Mask&) = delete;
  Mask& operator=(const Mask&) = delete;

  /// Finishes what the last event left queued.
  static void settle() { QCoreApplication::processEvents(); }

  void activate() {
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
  }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* target = window.focusWidget();
    QTest::keyClick(target == nullptr ? &window : target, key, modifiers);
    settle();
  }

  /// Types characters into the box that has the focus.
  void keys(const QString& text) {
    for (const QChar c : text) {
      QTest::keyClick(window.focusWidget(), c.toLatin1());
    }
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
    if (text.isEmpty()) {
      press(Qt::Key_Backspace);
    } else {
      keys(text);
    }
    press(Qt::Key_Enter);
  }

  /// Drops a text on a box, which need not have the focus.
  void drop(int box, const QString& text) {
    QMimeData data;
    data.setText(text);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window.Text1(box), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window.Text1(box), &event);
    settle();
  }

  [[nodiscard]] int focusedBox() const {
    for (const auto& [index, box] : window.Text1) {
      if (box == window.focusWidget()) return index;
    }
    return 0;
  }

  ScriptedQuestions questions;
  RecordingDesktop desktop;
  QTemporaryDir folder;  ///< the program's own, empty
  Program program = programIn(folder);
  main window{program, questions, desktop};
};

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
