#pragma once

#include <QAbstractButton>

namespace calvora {

/// The clickable head of one analysis column. Its caption runs over up to three lines; what does
/// not fit is cut with an ellipsis and whole in the tooltip.
class SlotLabel : public QAbstractButton {
  Q_OBJECT

 public:
  explicit SlotLabel(QWidget* parent = nullptr);

  /// Shows the caption, on green if the slot is filled, else on grey.
  void showSlot(const QString& caption, bool filled);

  [[nodiscard]] QString caption() const { return caption_; }
  [[nodiscard]] QColor backColour() const;

  [[nodiscard]] QSize sizeHint() const override;

 signals:
  /// The keyboard reached the label.
  void entered();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] QStringList shownLines() const;
  [[nodiscard]] QRect textArea() const { return rect().adjusted(4, 2, -4, -2); }
  void updateToolTip();

  QString caption_;
  bool filled_ = false;
};

}  // namespace calvora
