#pragma once

#include <QDateEdit>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "base/questions.h"
#include "model/overview_grid.h"
#include "model/program.h"
#include "platform/desktop.h"
#include "platform/remark_box.h"
#include "platform/text_box.h"

class QGridLayout;

namespace calvora {

/// Mode of `dateiladen` that reads for the overview instead of the main window.
inline constexpr int kOverviewMode = 9;

/// The load/save window: the header of an analysis or a project, entered before saving or shown
/// after loading. Constructing it is loading it; the caller then sets its mode and shows it
/// modally.
class Dateien : public QDialog {
  Q_OBJECT

 public:
  Dateien(Program& program, Questions& questions, Desktop& desktop, QWidget* parent);

  /// Writes the current analysis to `path`; `title` is the file name that the dialog reported.
  /// Runtime error 75 or 61 if that fails.
  void dateispeichern(const QString& path, const QString& title);

  /// Lets the user choose an analysis file, reads it into the record and shows its header in the
  /// fields. Returns in `mode`: unchanged when read (also in part; then the user is told), 1 when
  /// the dialog was cancelled, 53 when the file does not exist. With `kOverviewMode` the file is
  /// read for the overview, record and header array stay, and the mode becomes 0 when read.
  void dateiladen(int& mode);

  /// Writes the overview that `saveAsProject` was called with. Runtime error 75 or 61 if that
  /// fails.
  void projektspeichern(const QString& path, const QString& title);

  /// Lets the user choose a project and reads it into the grid, which comes empty, into the header
  /// array and the fields. Returns in `result` what `dateiladen` returns.
  void projektladen(int& result, OverviewGrid& grid);

  /// The window saves this overview as a project. Flag slot 1 is then "projekt", empty once saved
  /// and "abbruch" if the user left without saving.
  void saveAsProject(const OverviewGrid& grid);

  /// The window only shows the header of what was read for the overview.
  void showAsRead();

  /// The window only shows the header of a project, and what to mind about it.
  void showProjectAsRead();

  void reject() override;

  /// Empties the record before a file is read into it.
  std::function<void()> reset = [this] { program_.resetRecord(); };

  TextBox* Text1;
  TextBox* Text2;
  TextBox* Text3;
  TextBox* Text4;
  TextBox* Text6;
  RemarkBox* Text7;
  QDateEdit* DTPicker1;
  QLabel* Label1;
  QLabel* Label2;
  QLabel* Label3;
  QLabel* Label4;
  QLabel* Label5;
  QLabel* Label6;
  QLabel* Label7;
  QPushButton* Label8;  ///< a link beside the date picker: "löschen" or "setzen"
  QLabel* Label9;
  QPushButton* Command1;
  QPushButton* Command2;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void buildWindow();
  void buildFields(QGridLayout& grid);
  void buildNotices(QGridLayout& grid);
  [[nodiscard]] QWidget* nextField(const QWidget* field) const;
  void connectDate();
  void connectFields();
  void Form_Load();
  void Label8_Click();
  void Command1_Click();
  void Command2_Click();
  void keepHeader();
  void save();
  void showLoadedHeader();
  int readChosenFile(const QString& extension, const std::function<bool(const QString&)>& read);
  void dateiladenForOverview(int& mode);
  bool showDate(const QString& text);
  void tellIncomplete();
  void fitHeight();
  void setDate(bool given);

  Program& program_;
  Questions& questions_;
  Desktop& desktop_;
  QLabel* failure_;
  const OverviewGrid* project_ = nullptr;  ///< what is saved instead of the analysis
  bool dateSet_ = true;
};

}  // namespace calvora
