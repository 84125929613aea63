#pragma once

#include <QFile>
#include <QObject>
#include <atomic>
#include <map>

#include "app/main_window.h"
#include "dialogs/windows/dialog_questions.h"
#include "monkey_desktop.h"
#include "support/finding.h"

namespace calvora::monkey {

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
  Monkey(unsigned seed, int events, const QString& folder);

  /// Runs the program until all events are played, starting it again whenever they ended it.
  void play();

  /// What was played, in words.
  [[nodiscard]] QString summary() const;

  /// How many events were played; a watchdog sees that there are more and more.
  [[nodiscard]] const std::atomic<int>& played() const { return played_; }

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void runProgram();
  void checkSettings(const Program& program);
  void prepareFolder();

  // What to do, and to which window.
  QWidget* chooseWindow();
  void playOn(QWidget& window);
  void typeInto(QWidget& window);
  void shortcut(QWidget& window);
  void clickIn(QWidget& window);
  void chooseAction(QWidget& menu);
  void paste(QWidget& window);
  void drop(QWidget& window);
  void turnWheel(QWidget& window);
  void resize(QWidget& window);

  // How a user does it.
  void key(QWidget& window, Qt::Key code, const QString& text, Qt::KeyboardModifiers modifiers);
  void click(QWidget& widget, QPoint place, Qt::MouseButton button, bool twice);
  QWidget* anyChild(QWidget& window);
  void note(const char* what, const QWidget& on, const QString& details = {});

  Dice dice_;
  const int events_;
  QString folder_;
  MonkeyDesktop desktop_;
  QFile trail_;  ///< every event, so that the one that led to a finding can be seen
  std::atomic<int> played_ = 0;
  int timer_ = 0;
  int depth_ = 0;  ///< events that are being played, one inside the other
  int deepest_ = 0;
  int starts_ = 0;
  std::map<QString, int> windows_;  ///< events by the window they went to
};

}  // namespace calvora::monkey
