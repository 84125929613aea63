#pragma once

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
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
  QString askOpenFile(QWidget*, const FileRequest& request) override { return nextPath(request); }
  QString askSaveFile(QWidget*, const FileRequest& request) override { return nextPath(request); }

  /// The paper of the next printer set-up, which is cancelled without one.
  std::unique_ptr<Paper> askPrinter(QWidget*, const PrintRequest& request) override {
    printRequests.push_back(request);
    if (!paper) throw RuntimeError(ErrorNumber::kDialogCancelled);
    return paper(request);
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
  std::vector<PrintRequest> printRequests;
  std::function<std::unique_ptr<Paper>(const PrintRequest&)> paper;
  std::function<void(const PrintRequest&, const std::function<void(QPagedPaintDevice&)>&)> preview;

 private:
  QString nextPath(const FileRequest& request) {
    requests.push_back(request);
    if (paths.isEmpty()) throw RuntimeError(ErrorNumber::kDialogCancelled);
    return paths.takeFirst();
  }
};

/// What is to happen to the next modal window of a kind, once it is shown. The test fails if none
/// comes.
template <class Window>
void onNextModal(QObject* context, std::function<void(Window&)> act, int triesLeft = 100) {
  QTimer::singleShot(20, context, [context, act = std::move(act), triesLeft] {
    if (auto* window = dynamic_cast<Window*>(QApplication::activeModalWidget())) {
      act(*window);
    } else if (triesLeft > 0) {
      onNextModal<Window>(context, act, triesLeft - 1);
    } else {
      QFAIL("the modal window did not come");
    }
  });
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
  Program program;
  main window{program, questions, desktop};
};

}  // namespace calvora

/// As QTEST_MAIN, with the program's own look.
#define CALVORA_TEST_MAIN(TestClass)        \
  int main(int argc, char* argv[]) {        \
    QApplication application(argc, argv);   \
    calvora::applyLook(application);        \
    TestClass test;                         \
    return QTest::qExec(&test, argc, argv); \
  }
