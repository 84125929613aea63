#pragma once

#include <QScrollArea>
#include <functional>
#include <optional>

#include "model/window_place.h"

class QApplication;

namespace calvora {

/// Moves a window, before it is shown, to a place on its screen (pixels from the screen's corner),
/// or as near to it as the whole window with its frame can be seen.
void placeOnScreen(QWidget& window, QPoint wanted);

/// From now on every window opens where it can be seen whole. One that needs more room than its
/// screen has becomes as large as the screen, and its content scrolls.
void keepWindowsOnScreen(QApplication& application);

/// How a window's place is found again the next time.
struct PlaceMemory {
  std::function<std::optional<WindowPlace>()> recall;
  std::function<void(const WindowPlace&)> keep;
};

/// Lets a window, whenever it is shown, lie where it was left, if a screen shows that place whole;
/// else, and if nobody ever moved it, it opens as without a memory.
void rememberPlace(QWidget& window, const PlaceMemory& memory);

/// A window's content that scrolls where the window is smaller than it, and follows the focus, so
/// that the keyboard reaches what is out of sight.
class ScrollingContent : public QScrollArea {
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
