#pragma once

#include <QLabel>

namespace calvora {

/// A line of text that gives way: where there is no room for it, its end is left out and its tool
/// tip says it whole. Without text it takes no room.
class ElidedLabel : public QLabel {
 public:
  explicit ElidedLabel(QWidget* parent = nullptr);

  void showText(const QString& text);

  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace calvora
