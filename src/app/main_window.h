#pragma once

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>

#include "app/history.h"
#include "chem/subcalc.h"
#include "model/program.h"
#include "platform/control_array.h"
#include "platform/desktop.h"
#include "platform/picture.h"
#include "platform/text_box.h"
#include "plausi/plausibility.h"
#include "storage/recovery.h"

class QGridLayout;
class QSessionManager;

namespace calvora {

class analysen;
class Dateien;
class plausi;
class ElidedLabel;
struct Field;
enum class Role;

/// Indices of the two narrow displays in `Label2`.
namespace schmal {
inline constexpr int kLeitfähigkeitAusIonen = 20;
inline constexpr int kPhNäherung = 21;
}  // namespace schmal

/// The hub of the program: the input mask of one water analysis, its results, and the menus. Every
/// finished entry is checked, stored, followed by a full calculation run and a redisplay.
class main : public QMainWindow {
  Q_OBJECT

 public:
  main(Program& program, Questions& questions, Desktop& desktop);
  main(const main&) = delete;
  main& operator=(const main&) = delete;
  ~main() override;

  /// Runs the calculation and redisplays the mask.
  void berechnen();

  /// Shows the record in the mask, locks the capacity that the pH rules out, and shows the
  /// conductivity at 25 °C.
  void darstellen();

  /// Empties record and flags; with a number of 0 or less it redisplays the mask.
  void datenkill(int number);

  /// Asks whether unsaved changes are to be saved. Returns "abbruch" unless the caller may go on
  /// and drop them.
  QString datensich();

  /// Whether there is anything to print: a text in the fields 2 to 7 or 20 to 26.
  [[nodiscard]] bool eincheck() const;

  /// Takes a text (trimmed) as the finished entry of a field: checks and stores it, recalculates
  /// and redisplays. Returns whether the check wants the field to be entered again.
  bool takeOver(int index, const QString& text);

  /// Finishes what was typed but not left yet, as if its box had lost the focus. Comes before every
  /// command.
  void finishEntry();

  /// What can be undone.
  [[nodiscard]] History& history() { return history_; }

  /// What the end of the desktop's session means: asks whether to save if that may be asked, keeps
  /// the rest in the recovery file. False if the user wants the session to go on.
  bool endSession(bool mayAsk);

  /// Takes files as if they were dropped here: one analysis, or one project, which the overview
  /// shows. Anything else is told.
  void openFiles(const QStringList& paths);

  /// Shows a window beside the mask, where it lay the last time, or brings it to the front.
  void bringUp(QWidget& window);

  /// What `openFiles` is to take as soon as the start window is left.
  QStringList filesAtStart;

  ControlArray<TextBox> Text1;
  ControlArray<QLabel> Label5;
  ControlArray<QLabel> Label6;
  ControlArray<QPushButton> Command1;
  ControlArray<QLabel> Label2;
  ControlArray<QLabel> Label3;
  ControlArray<QLabel> Label10;
  ControlArray<PictureButton> Image1;
  QPushButton* Command2;
  QPushButton* Command3;
  QLabel* Label1;
  QLabel* Label4;
  QLabel* Label7;
  QFrame* Frame1;
  QPushButton* Command5;  ///< in the status bar: the PDF file that was printed last
  QPushButton* Command4;  ///< in the status bar: the overall verdict of the plausibility check

  // The status bar.
  ElidedLabel* fieldStatus;   ///< meaning, range and unit of the field that has the focus
  ElidedLabel* actionStatus;  ///< what the program did by itself with the last entry
  ElidedLabel* keptStatus;    ///< how many results are kept, and what is missing
  ElidedLabel* fileStatus;    ///< the file's name, and whether it is saved
  ElidedLabel* noticeStatus;  ///< that nothing can be kept for recovery, or another instance runs

  QAction* mnu_load;
  QMenu* mnu_recent;
  QAction* mnu_save;
  QAction* mnu_drucken;
  QAction* mnu_neustart;
  QAction* mnu_ende;
  QAction* mnu2_pfad;
  QAction* mnu2_fatext;
  QAction* mnu2_tk;
  QAction* mnu2_plausi;
  QAction* mnu2_ana;
  QAction* mnu2_handbuch;
  QAction* mnu_version;
  QAction* mnu3_undo;
  QAction* mnu3_redo;
  QAction* mnu3_save;

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  // What the user does.
  void Form_Load();
  void Form_Activate();
  void Text1_KeyPress(int& code);
  void Text1_KeyDown(int index, int code);
  void Text1_LostFocus(int index);
  void Command1_Click(int index);
  void Command2_Click();
  void Command3_Click();
  void mnu_load_Click();
  void mnu_save_Click();
  void mnu_drucken_Click();
  void mnu_neustart_Click();
  void mnu2_pfad_Click();
  void mnu2_fatext_Click();
  void mnu2_tk_Click();
  void mnu2_plausi_Click();
  void mnu2_ana_Click();
  void mnu2_handbuch_Click();
  void mnu_version_Click();
  void mnu3_undo_Click();
  void mnu3_redo_Click();
  void mnu3_save_Click();
  void Image1_Click();

  // Files (main_files.cpp).
  void load(const QString& path);
  void loadGiven(const QString& path);
  void openFilesOfStart();
  void listRecent();
  void noteAnalysis();
  void forgetNotes();
  void showPrinted();
  void openPrinted();
  void rememberPlaceOf(QWidget& window);

  // The way of an entry through the mask.
  void focusMoved(QWidget* now);
  void finishLeftBoxes();
  void restored(int field);
  void showHeader(Dateien& window);
  void showSaveWindow(const RuntimeError* failure = nullptr);
  void showRead();
  void showOver(QDialog& window, int index);
  void moveFocus(int index, int step);
  bool acceptsPasted(int index, const QString& text, const QString& whole);
  [[nodiscard]] bool hasRoom(int index, const QStringList& numbers) const;
  void fillFrom(int index, const QStringList& numbers);
  bool enterText(int index, const QString& text);
  void setLocked(int index, bool locked);
  [[nodiscard]] Role inputRole(int index) const;
  void showOrigins();
  void describeOrigins();
  void showStatus();
  [[nodiscard]] bool isLocked(int index) const;
  void showConductivity(bool converted);
  void checkSoon();
  void showPlausibility();
  void printPlausibility();
  void updateManual();
  [[nodiscard]] int boxIndex(const QWidget* control) const;
  [[nodiscard]] bool holdsText(std::span<const Field> fields) const;
  [[nodiscard]] QString manualPath() const;

  // What must outlive the program (main_recovery.cpp).
  void begin();
  void offerRecovery();
  void keepAnalysis();
  void leaveAnalysis();
  void lookForOthers();
  void showNotice();
  [[nodiscard]] bool mayEnd();
  void commitData(QSessionManager& session);

  // The window's design (main_design.cpp).
  void buildMenus();
  void nameUndo();
  void buildMask();
  QWidget* buildInputs();
  QWidget* buildResults();
  QWidget* buildCompanyArea();
  void buildVerdict();
  void buildStatusBar();
  void addSection(QGridLayout& grid, int& row, int index, const QString& caption);
  void addInputRow(QGridLayout& grid, int row, const Field& field);
  void addResultRow(QGridLayout& grid, int row, const Field& field);
  void connectBox(int index);
  /// What a command does: what was typed is finished first, a fault is reported with the command's
  /// location text, and what it changed can be undone under the name `step`.
  [[nodiscard]] std::function<void()> command(const QString& location, void (main::*handler)(),
                                              const QString& step = QStringLiteral("Kopfdaten"));
  void perform(const QString& location, const std::function<void()>& action, const QString& step);

  Program& program_;
  Questions& questions_;
  Desktop& desktop_;
  subcalc subcalc_;
  History history_{program_};
  QPointer<analysen> overview_;  ///< empty while it is closed
  QPointer<plausi> check_;       ///< empty while it is closed
  Plausibility plausibility_;    ///< of the record as the mask shows it, unless a check is due
  bool checkDue_ = false;        ///< the check's event is on its way

  int focusedBox_ = 0;    ///< the box that had the focus last in this window; 0: none
  QList<int> leftBoxes_;  ///< boxes that were left and are still to be finished, in their order
  bool finishing_ = false;
  QString ownAction_;            ///< what the program did by itself with the last entry
  bool convertedShown_ = false;  ///< box 1 shows the conductivity at the measuring temperature

  std::unique_ptr<Recovery> recovery_;  ///< from the first activation on
  QString otherInstance_;               ///< that another one runs on this folder
  bool asking_ = false;                 ///< whether to save
};

}  // namespace calvora
