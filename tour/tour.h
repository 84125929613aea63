#pragma once

#include <QApplication>
#include <QTest>
#include <QTimer>

#include "app/application.h"
#include "support/one_file_desktop.h"

/// A walk through the program with real events. Its stops press what a user presses, require what
/// must be seen, and leave a picture of each window.
class Tour {
 public:
  explicit Tour(const QString& folder);

  /// Walks the whole way. False if a window did not come or a picture could not be written.
  bool walk();

  void require(bool holds, const QString& what);
  void picture(QWidget& window, const QString& name);

  /// A file in the tour's folder.
  [[nodiscard]] QString file(const QString& name) const {
    return folder_ + QLatin1Char('/') + name;
  }

  /// Types into the box that has the focus and leaves it with Enter.
  void type(const QString& text);
  void press(Qt::Key key);
  void shortcut(Qt::Key key);
  /// Makes the main window active again after another one was open over it.
  void activate();

  /// What is to happen to the next modal window.
  template <class Window>
  void expectModal(const QString& name, const std::function<void(Window&)>& act) {
    QTimer::singleShot(50, qApp, [this, name, act] {
      auto* modal = dynamic_cast<Window*>(QApplication::activeModalWidget());
      require(modal != nullptr, name);
      if (modal == nullptr) return;
      act(*modal);
    });
  }

  calvora::main& window() { return application_.mainWindow(); }
  calvora::Program& program() { return application_.program(); }
  calvora::OneFileDesktop& desktop() { return *desktop_; }

 private:
  void passStartWindow();
  void typeAnalysis();
  void printTable();
  void showConvertedConductivity();
  QStringList shownTexts();
  void saveStartOverAndLoad();
  void showSettings();
  void pictureOfActive(const QString& name);
  void showMessages();
  void showRuntimeError();

  QString folder_;
  calvora::OneFileDesktop* desktop_ = new calvora::OneFileDesktop;  // the application owns it
  calvora::Application application_;
  bool complete_ = true;
};
