#pragma once

#include <QPushButton>
#include <QWidget>
#include <functional>

#include "base/questions.h"
#include "platform/control_array.h"
#include "platform/text_box.h"
#include "plausi/uncertainty.h"

class QGridLayout;

namespace calvora {

/// Edits the measurement uncertainties: a row for each field, with its absolute part and its part
/// in percent. Enter and the arrow keys walk the boxes. What is no uncertainty is told and
/// replaced by what stood there; an emptied box is the default again.
class UncertaintyForm : public QWidget {
  Q_OBJECT

 public:
  UncertaintyForm(const Uncertainties& uncertainties, Questions& questions);

  [[nodiscard]] const Uncertainties& uncertainties() const { return uncertainties_; }

  /// Takes what was typed but not left yet.
  void finishEntry();

  /// Called with every change that the user makes.
  std::function<void()> changed = [] {};

  ControlArray<TextBox> Text1;  ///< the absolute parts, by field
  ControlArray<TextBox> Text2;  ///< the parts in percent, by field
  QPushButton* Command1;        ///< back to the defaults

 private:
  void addHeadings(QGridLayout& grid);
  void addRow(QGridLayout& grid, int row);
  TextBox& addBox(ControlArray<TextBox>& boxes, int field, const QString& name);
  void take(qsizetype place);
  void showParts();

  Uncertainties uncertainties_;
  Questions& questions_;
  QList<TextBox*> order_;  ///< the absolute part and the percent of each row in turn
};

}  // namespace calvora
