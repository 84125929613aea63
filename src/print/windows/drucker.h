#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "base/questions.h"
#include "model/program.h"
#include "platform/control_array.h"
#include "platform/desktop.h"
#include "platform/remark_box.h"
#include "platform/text_box.h"
#include "print/report.h"
#include "storage/project_file.h"

namespace calvora {

class ReportPrinter;

/// The print dialog: shows what heads a report, lets the user correct it, sets up the printer and
/// prints. Constructing it is loading it; the caller then sets the kind of report and shows it
/// modally.
class Drucker : public QDialog {
  Q_OBJECT

 public:
  /// `overview` is what the overview report shows, read when it is printed, and whose header it
  /// has. Without one the dialog works on the analysis' header, and that report is empty.
  Drucker(Program& program, Questions& questions, Desktop& desktop, QWidget* parent,
          Project* overview = nullptr);

  /// Prepares the dialog for a kind of report. The overview turns the printer's page to landscape.
  void druckart(Bericht kind);

  /// Prepares the dialog for the report on a plausibility check.
  void druckart(const Plausibility& found);

  QPushButton* Command1;  ///< shows the title; does nothing
  QLabel* Label1;
  QLabel* Label2;
  QLabel* Label3;
  QLabel* Label4;
  QLabel* Label6;
  ControlArray<TextBox> Text1;  ///< 1 creation date, 2 project, 3 sample designation
  RemarkBox* Text4;
  QPushButton* Command2;
  QPushButton* Command3;
  QPushButton* Command4;

 private:
  void buildWindow();
  void buildFields();
  void limitRemark();
  void Form_Load();
  void Command2_Click();
  void Command4_Click();
  void keepHeader();
  bool printOn(Paper& paper);
  void druckkopf(ReportPrinter& printer, bool landscape);
  bool papier(ReportPrinter& printer, Bericht kind);
  [[nodiscard]] Statements body(Bericht kind) const;
  [[nodiscard]] QString remark() const;
  [[nodiscard]] PrintRequest request() const;

  Program& program_;
  Questions& questions_;
  Desktop& desktop_;
  const Project* overview_;
  AnalysisHeader& header_;
  Bericht kind_ = Bericht::kAnalyse;
  Plausibility found_;  ///< what the report on a plausibility check says
};

}  // namespace calvora
