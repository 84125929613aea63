#pragma once

#include <QCoreApplication>
#include <memory>

#include "app/main_window.h"
#include "dialogs/windows/dialog_questions.h"
#include "model/program.h"
#include "platform/desktop.h"

namespace calvora {

/// The whole program, wired together: state, doors, main window. Needs a QApplication.
class Application {
 public:
  explicit Application(std::unique_ptr<Desktop> desktop = std::make_unique<RealDesktop>())
      : desktop_(std::move(desktop)) {}

  /// Shows the main window; its first activation brings up the start window. The files are loaded
  /// when that is left.
  void show(const QStringList& files = {}) {
    window_.filesAtStart = files;
    window_.show();
    window_.activateWindow();
  }

  [[nodiscard]] Program& program() { return program_; }
  [[nodiscard]] main& mainWindow() { return window_; }

 private:
  static Program newProgram() {
    Program program;
    program.programFolder = QCoreApplication::applicationDirPath();
    return program;
  }

  std::unique_ptr<Desktop> desktop_;
  DialogQuestions questions_{*desktop_};
  Program program_ = newProgram();
  main window_{program_, questions_, *desktop_};
};

}  // namespace calvora
