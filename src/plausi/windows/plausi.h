#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "base/questions.h"
#include "model/settings.h"
#include "platform/control_array.h"
#include "plausi/plausibility.h"

class QTabWidget;

namespace calvora {

class ComparisonTable;
class PhScale;
class UncertaintyForm;

/// Shows what the plausibility check says of the analysis in the mask, and lets the user change the
/// uncertainties that it rests on. Not modal, deletes itself on close.
class plausi : public QDialog {
  Q_OBJECT

 public:
  plausi(const Plausibility& found, Settings& settings, const QString& programFolder,
         Questions& questions);

  void darstellen(const Plausibility& found);

  void done(int result) override;

  /// The uncertainties are others now: the caller checks anew.
  std::function<void()> changed = [] {};

  /// Prints what is shown.
  std::function<void()> print = [] {};

  QLabel* Label1;  ///< the overall verdict, with the worst comparison
  PhScale* Picture1;
  QTabWidget* SSTab1;
  ComparisonTable* MSFlexGrid1;
  UncertaintyForm* Form1;
  ControlArray<QPushButton> Command1;  ///< 1 copy, 2 print, 3 close

 private:
  void buildWindow();
  void buildForm();
  void Command1_Click(int index);
  void keepUncertainties();

  Settings& settings_;
  QLabel* failure_;
  const QString& programFolder_;
  Questions& questions_;
};

}  // namespace calvora
