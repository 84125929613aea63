#pragma once

#include <QPlainTextEdit>
#include <functional>

namespace calvora {

/// A text of one line shown over several: it wraps, but holds no line break. Enter and Tab move on.
class RemarkBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit RemarkBox(QWidget* parent = nullptr);

  std::function<void(int& code)> keyPress = [](int&) {};
  std::function<QString(const QString&)> filter = [](const QString& text) { return text; };

 signals:
  void enterPressed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
};

}  // namespace calvora
