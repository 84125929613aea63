#pragma once

#include <QLabel>
#include <QPushButton>
#include <functional>

#include "base/questions.h"
#include "model/program.h"
#include "overview/windows/overview_table.h"
#include "overview/windows/slot_label.h"
#include "platform/control_array.h"
#include "platform/desktop.h"
#include "storage/analysis_file.h"
#include "storage/project_file.h"

namespace calvora {

/// Up to eight saved analyses side by side. Not modal, deletes itself on close. What it shows lives
/// as long as the window; the analysis of the main window stays as it is.
class analysen : public QWidget {
  Q_OBJECT

 public:
  analysen(Program& program, Questions& questions, Desktop& desktop);

  /// Enters an analysis into a column, 2 to 9.
  void flex_ein(int column, const OverviewAnalysis& analysis);

  /// Counts the filled slots and enables the buttons that need one.
  void countdat(int& count);

  /// Shows the overview's message of `code`; `extra` is the slot that message 2 asks about. Returns
  /// the value of the pressed button in `code`.
  void message(int& code, const QString& extra = {});

  /// Takes files as if they were dropped here: analyses into the free slots, or one project. What
  /// is neither is told.
  void openFiles(const QStringList& paths);

  /// The overview was printed.
  std::function<void()> printed = [] {};

  /// What is shown, and the header that describes it.
  [[nodiscard]] const Project& project() const { return project_; }

  OverviewTable* MSFlexGrid1;
  ControlArray<SlotLabel> Label1;
  QLabel* Label4;
  ControlArray<QPushButton> Command1;

 protected:
  bool event(QEvent* event) override;

 private:
  void buildWindow();
  QWidget* buildHead();
  QLayout* buildButtons();
  void arrangeHead();
  void darstellen();
  void updateButtons();
  void Label1_Click(int slot);
  void loadAnalysis(const QString& path, int slot);
  void loadAnalyses(const QStringList& paths, int firstSlot);
  void tellFiles(int code, const QStringList& paths);
  void removeAnalysis(int slot);
  void Command1_Click(int index);
  void print();
  bool emptyGrid();
  void saveProject();
  void loadProject(const QString& path);
  void copy();

  Program& program_;
  Questions& questions_;
  Desktop& desktop_;
  Project project_;  ///< what is shown, and a header of its own that starts as the analysis'
  OverviewGrid& grid_ = project_.grid;
  QWidget* head_;        ///< heading and slot labels
  QWidget* slotLabels_;  ///< clips the labels to the columns that scroll
};

}  // namespace calvora
