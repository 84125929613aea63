#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "base/questions.h"
#include "base/runtime_error.h"
#include "model/program.h"
#include "platform/date_picker.h"
#include "platform/desktop.h"
#include "platform/remark_box.h"
#include "platform/text_box.h"
#include "storage/analysis_file.h"
#include "storage/project_file.h"

class QFormLayout;

namespace calvora {

/// The load/save window: the header of an analysis or a project, entered before saving or shown
/// after loading. `exec` returns Accepted once the file was saved, Rejected if the user left.
class Dateien : public QDialog {
  Q_OBJECT

 public:
  /// What the window is opened for. The loading modes need `dateiladen` or `projektladen` before it
  /// is shown; the window then shows what was read.
  enum class Mode { kSaveAnalysis, kSaveProject, kLoadAnalysis, kReadForOverview, kLoadProject };

  /// Works on `project` in its two modes, on the program's analysis in those of an analysis.
  Dateien(Mode mode, Program& program, Questions& questions, Desktop& desktop, QWidget* parent,
          Project* project = nullptr);

  /// Writes the current analysis to `path`; `title` is the file name that the dialog reported. Flag
  /// slot 0 gets its name line. Runtime error 75, 61 or 5, and nothing changed, if that fails.
  void dateispeichern(const QString& path, const QString& title);

  /// How the reading of a file ended.
  enum class Read { kWhole, kInPart, kUnreadable, kMissing };

  /// Lets the user choose an analysis file, again as long as the file for the main window does not
  /// exist, and reads it into the record and header of the program, or for the overview. False if
  /// nothing was read. A file that was read in part counts as read, and the user is told. With a
  /// path nothing is chosen, and a file that does not exist is told.
  bool dateiladen(const QString& path = {});

  /// Lets the user choose analyses for the overview. None if the user cancels.
  [[nodiscard]] QStringList dateienWählen();

  /// Reads a file as `dateiladen` and `projektladen` do, and tells nothing.
  Read lesen(const QString& path);

  /// What `dateiladen` has read for the overview.
  [[nodiscard]] const OverviewAnalysis& analysis() const { return analysis_; }

  /// Writes the project, as `dateispeichern` does the analysis.
  void projektspeichern(const QString& path, const QString& title);

  /// Lets the user choose a project and reads it into the one that the window works on, whose slots
  /// come empty. Returns what `dateiladen` returns.
  bool projektladen(const QString& path = {}) { return dateiladen(path); }

  /// Says in the window why the file was not saved.
  void showNotSaved(const RuntimeError& error);

  /// Reads the settings file and derives the print line and the segment list.
  static void iniladen(Settings& settings, const QString& programFolder);

  /// Writes the settings file after slot `changed` was changed, see `writeSettings`. Returns what
  /// the user is to be told if that fails, else nothing.
  static QString inispeichern(Settings& settings, const QString& programFolder,
                              Questions& questions, int changed);

  bool eventFilter(QObject* watched, QEvent* event) override;

  /// Empties the record before a file is read into it.
  std::function<void()> reset = [this] { program_.resetRecord(); };

  TextBox* Text1;
  TextBox* Text2;
  TextBox* Text3;
  TextBox* Text4;
  TextBox* Text6;
  RemarkBox* Text7;
  DatePicker* DTPicker1;
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

 private:
  void buildWindow();
  void buildFields(QFormLayout& form);
  void buildNotices(QFormLayout& form);
  void connectFields();
  void connectDateAndButtons();
  void prepareForMode(QFormLayout& form);
  [[nodiscard]] QWidget* nextField(const QWidget* field) const;
  void Form_Load();
  void showOnlyLaterDate();
  void Label8_Click();
  void Command1_Click();
  bool showReadHeader();
  void keepHeader();
  void save();
  [[nodiscard]] FileRequest saveRequest(const QString& extension) const;
  [[nodiscard]] bool mayWrite(const QString& path);
  [[nodiscard]] QStringList choose(bool several) const;
  bool readWhole(const QString& path);
  bool tell(Read ended);
  void setDate(bool given);

  Mode mode_;
  Program& program_;
  Questions& questions_;
  Desktop& desktop_;
  Project* project_;
  OverviewAnalysis analysis_;
  AnalysisHeader& header_;  ///< of the program's analysis, the project or the analysis read
  QString typed_;           ///< into the file dialog, with its folder
  QLabel* failure_;
  QLabel* projectDate_;  ///< stands for the date picker, which a project does not show
  bool dateSet_ = true;
  bool dateRefused_ = false;   ///< what was typed as a date is none, and nobody has seen that yet
  bool remarkGoesOn_ = false;  ///< Enter led from the remark to the save button
};

}  // namespace calvora
