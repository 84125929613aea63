#include "app/application.h"

#include <QCoreApplication>

namespace calvora {

namespace {

Program newProgram() {
  Program program;
  program.programFolder = QCoreApplication::applicationDirPath();
  return program;
}

}  // namespace

Application::Application(std::unique_ptr<Desktop> desktop)
    : desktop_(std::move(desktop)),
      questions_(*desktop_),
      program_(newProgram()),
      window_(program_, questions_, *desktop_) {}

void Application::show() {
  window_.show();
  window_.activateWindow();
}

}  // namespace calvora
