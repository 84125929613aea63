#pragma once

#include <memory>

#include "app/main_window.h"
#include "dialogs/windows/dialog_questions.h"
#include "model/program.h"
#include "platform/desktop.h"

namespace calvora {

/// The whole program, wired together: state, doors, main window. Needs a QApplication.
class Application {
 public:
  explicit Application(std::unique_ptr<Desktop> desktop = std::make_unique<RealDesktop>());

  /// Shows the main window; its first activation brings up the start window.
  void show();

  [[nodiscard]] Program& program() { return program_; }
  [[nodiscard]] main& mainWindow() { return window_; }

 private:
  std::unique_ptr<Desktop> desktop_;
  DialogQuestions questions_;
  Program program_;
  main window_;
};

}  // namespace calvora
