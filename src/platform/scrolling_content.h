#pragma once

#include <QScrollArea>

namespace calvora {

/// A window's content that scrolls where the window is smaller than it, and follows the focus, so
/// that the keyboard reaches what is out of sight.
class ScrollingContent : public QScrollArea {
  Q_OBJECT

 public:
  explicit ScrollingContent(QWidget* content, QWidget* parent = nullptr);
  ScrollingContent(const ScrollingContent&) = delete;
  ScrollingContent& operator=(const ScrollingContent&) = delete;
  ~ScrollingContent() override;

  /// The room that the whole content needs, with the scroll bars beside it.
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  bool focusNextPrevChild(bool next) override;

 private:
  void follow(const QWidget* focus);
};

}  // namespace calvora
