#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "platform/control_array.h"

namespace calvora {

/// Corrects a volume measured at the temperature of the medium to 20 °C. Not modal, deletes itself
/// on close, leaves the analysis alone.
class varios : public QDialog {
  Q_OBJECT

 public:
  explicit varios(QWidget* parent);

  QLabel* Label1;
  QComboBox* Combo1;  ///< volume
  QComboBox* Combo2;  ///< temperature of the medium
  ControlArray<QLabel> Label2;
  ControlArray<QLabel> Label3;
  QPushButton* Command1;

 protected:
  /// Enter goes on to the next control, as in the input mask.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void buildWindow();
  void Form_Load();
  void tempkorr();
};

}  // namespace calvora
