// What happens in the main window: what it shows, the toggle, the commands.
#include "app/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "app/start_window.h"
#include "base/guarded.h"
#include "dialogs/meldungen.h"
#include "overview/windows/analysen.h"
#include "platform/elided_label.h"
#include "platform/file_drop.h"
#include "platform/look.h"
#include "platform/placement.h"
#include "plausi/origin.h"
#include "plausi/windows/plausi.h"
#include "print/windows/drucker.h"
#include "storage/line_file.h"
#include "storage/windows/dateien.h"
#include "storage/windows/datenpfad.h"
#include "storage/windows/firma.h"
#include "tools/windows/dimum.h"
#include "tools/windows/info1.h"
#include "tools/windows/varios.h"
#include "tools/windows/version_window.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// Shows the window of a kind that is open, or a new one: two of them would overwrite each other.
template <class Window, class... Arguments>
void showOnce(main& parent, Arguments&... arguments) {
  for (QObject* child : parent.children()) {
    auto* open = dynamic_cast<Window*>(child);
    if (open != nullptr && open->isVisible()) return parent.bringUp(*open);
  }
  parent.bringUp(*new Window(arguments..., &parent));
}

/// A control's tool tip, which is also told to those who hear the mask.
void describe(QWidget& control, const QString& text, const QString& name = {}) {
  if (control.toolTip() != text) control.setToolTip(text);
  const QString spoken = name.isEmpty() ? text : name + u". "_s + text;
  if (control.accessibleDescription() != spoken) control.setAccessibleDescription(spoken);
}

QEvent::Type checkEvent() {
  static const auto kType = static_cast<QEvent::Type>(QEvent::registerEventType());
  return kType;
}

Role resultRole(Origin origin) {
  return origin == Origin::kKept ? Role::kKept : Role::kComputed;
}

}  // namespace

main::main(Program& program, Questions& questions, Desktop& desktop)
    : program_(program),
      questions_(questions),
      desktop_(desktop),
      subcalc_(program.record, program.fieldIndex, program.narrow, questions) {
  buildMenus();
  buildMask();
  Form_Load();
  history_.restored = [this](int field) { restored(field); };
  rememberPlaceOf(*this);
  takeFiles(*this, [this](const QStringList& paths) { openFiles(paths); });
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { focusMoved(now); });
  connect(qApp, &QGuiApplication::commitDataRequest, this, &main::commitData);
  qApp->installEventFilter(this);
}

// The boxes lose their focus while they are taken down, when there is no mask left to tell.
main::~main() {
  disconnect(qApp, nullptr, this, nullptr);
  delete overview_;
  delete check_;
}

bool main::event(QEvent* event) {
  if (event->type() == checkEvent()) {
    if (checkDue_) guarded(questions_, u" main_plausi"_s, [this] { showPlausibility(); });
    keepAnalysis();
    return true;
  }
  if (event->type() == QEvent::WindowActivate) {
    updateManual();
    if (program_.fieldIndex == kFirstActivationPending) Form_Activate();
    showStatus();  // another window may have saved, or renamed
    keepAnalysis();
    lookForOthers();
  }
  return QMainWindow::event(event);
}

void main::Form_Load() {
  program_.fieldIndex = kFirstActivationPending;
  Dateien::iniladen(program_.settings, program_.programFolder);
  darstellen();
}

void main::Form_Activate() {
  program_.fieldIndex = 0;
  // A question must not open inside the event that activates this window.
  QMetaObject::invokeMethod(this, &main::begin, Qt::QueuedConnection);
}

/// Shows a window that deletes itself on close. The mask is disabled until then; the focus goes
/// back to a box, or behind it if the box was locked meanwhile.
void main::showOver(QDialog& window, int index) {
  setEnabled(false);
  window.setEnabled(true);  // although the mask below it is not
  connect(&window, &QDialog::finished, this, [this, index] {
    setEnabled(true);
    activateWindow();
    if (isLocked(index)) return moveFocus(index, +1);
    Text1(index).setFocus(Qt::OtherFocusReason);
  });
  window.show();
  window.activateWindow();
}

// ---- Display ----

void main::berechnen() {
  subcalc_.clearRuledOutCapacity();
  subcalc_.rechenlauf();
  darstellen();
}

void main::darstellen() {
  const AnalysisRecord& record = program_.record;
  for (const auto& [index, box] : Text1) box->showText(record.text[index]);
  for (const Field& field : resultFields()) {
    Label2(field.index).setText(record.text[field.index]);
  }

  const int ruledOut = ruledOutCapacity(record);
  for (const int capacity : {feld::kKs82, feld::kKb82}) setLocked(capacity, capacity == ruledOut);

  Label2(schmal::kLeitfähigkeitAusIonen).setText(program_.narrow.leitfähigkeitAusIonen);
  Label2(schmal::kPhNäherung).setText(program_.narrow.phNäherung);
  showConductivity(false);
  checkSoon();
  showOrigins();
  showStatus();
}

/// Every field's form tells where it comes from.
void main::showOrigins() {
  const AnalysisRecord& record = program_.record;
  const NarrowTexts& narrow = program_.narrow;
  for (const Field& field : inputFields()) setRole(Text1(field.index), inputRole(field.index));
  for (const Field& field : resultFields()) {
    setRole(Label2(field.index), resultRole(originOf(record, field.index)));
  }
  setRole(Label2(schmal::kLeitfähigkeitAusIonen), resultRole(narrow.originOfLeitfähigkeit()));
  setRole(Label2(schmal::kPhNäherung), resultRole(narrow.originOfNäherung()));
}

/// The same in words, which nobody can read before the mask is painted.
void main::describeOrigins() {
  const AnalysisRecord& record = program_.record;
  for (const Field& field : inputFields())
    describe(Text1(field.index), explain(record, field.index));
  for (const Field& field : resultFields()) {
    describe(Label2(field.index), explain(record, field.index), spokenName(field));
  }
  describe(Label2(schmal::kLeitfähigkeitAusIonen), explainConductivity(record, program_.narrow));
  describe(Label2(schmal::kPhNäherung), explainApproximation(record, program_.narrow));
}

Role main::inputRole(int index) const {
  if (!fieldOf(index).isTyped()) return resultRole(originOf(program_.record, index));
  if (isLocked(index)) return Role::kLocked;
  if (index == feld::kLeitfähigkeit && convertedShown_) return Role::kComputed;
  return originOf(program_.record, index) == Origin::kCompleted ? Role::kCompleted : Role::kInput;
}

void main::showStatus() {
  const AnalysisRecord& record = program_.record;
  fieldStatus->showText(focusedBox_ == 0 ? QString() : rangeOfInput(focusedBox_));
  actionStatus->showText(ownAction_);
  showPrinted();
  keptStatus->showText(keptSummary(record, program_.narrow));
  keptStatus->setToolTip(u"%1\n%2"_s.arg(keptStatus->text(), keptLine(record)).trimmed());
  const QString name = QFileInfo(program_.file.path).completeBaseName();
  const QString state = program_.unsaved ? u"nicht gespeichert"_s : u"gespeichert"_s;
  // The name comes last: it may be long, and give way.
  if (!name.isEmpty()) return fileStatus->showText(state + u": "_s + name);
  fileStatus->showText(program_.unsaved ? state : QString());
}

/// Shows box 1 as it is stored, at 25 °C, and offers the conversion where both values for it are
/// there; or shows what the toggle computes. Typing over that would store it as if it were measured
/// at 25 °C.
void main::showConductivity(bool converted) {
  const AnalysisRecord& record = program_.record;
  const FixedPoint conductivity = record.value[feld::kLeitfähigkeit];
  const FixedPoint temperature = record.value[feld::kTemperatur];
  const QString degrees = record.text[feld::kTemperatur] + u" °C"_s;
  TextBox& box = Text1(feld::kLeitfähigkeit);
  const double shown = conductivityAt(temperature.toDouble(), conductivity.toDouble());
  box.showText(converted ? numberText(shown, Format::kWhole) : record.text[feld::kLeitfähigkeit]);
  box.setReadOnly(converted);
  const bool convertible = conductivity > 0_fp && temperature > 0_fp;
  const QString there = convertible ? u"bei "_s + degrees + u" ?"_s : u"bei Temp."_s;
  Command3->setText(converted ? u"bei 25 °C ?"_s : there);
  Command3->setEnabled(convertible);
  Label7->setText(converted ? degrees : u"25 °C"_s);
  convertedShown_ = converted;
  setRole(box, inputRole(feld::kLeitfähigkeit));
}

/// A capacity that the pH rules out cannot be entered.
void main::setLocked(int index, bool locked) {
  TextBox& box = Text1(index);
  const bool leaves = locked && !isLocked(index) && focusWidget() == &box;
  box.setReadOnly(locked);
  // A click goes in: what is then typed must not land in the box that had the focus before.
  box.setFocusPolicy(locked ? Qt::ClickFocus : Qt::StrongFocus);
  if (leaves) moveFocus(index, +1);
}

bool main::isLocked(int index) const {
  return Text1(index).focusPolicy() == Qt::ClickFocus;
}

/// An entry that was still going on may have changed what can be converted, but not what the user
/// saw when clicking.
void main::Command3_Click() {
  const bool back = convertedShown_;
  finishEntry();
  showConductivity(!back && Command3->isEnabled());
}

// ---- The plausibility check ----

/// What follows right behind the mask: the event comes after the one that paints it. Several
/// entries in a row are checked once.
void main::checkSoon() {
  if (std::exchange(checkDue_, true)) return;
  QCoreApplication::postEvent(this, new QEvent(checkEvent()), Qt::LowEventPriority - 1);
}

/// Judges the record and shows the verdict in the status bar and, while it is open, in its window.
void main::showPlausibility() {
  if (std::exchange(checkDue_, false)) describeOrigins();
  const QString& uncertainties = program_.settings.slot[setting::kUncertainties];
  plausibility_ = checkPlausibility(program_.record, uncertaintiesOf(uncertainties));
  const Verdict overall = plausibility_.overall();
  Command4->setText(verdictSymbol(overall) + ' '_L1 + verdictWord(overall));
  Command4->setAccessibleName(u"Plausibilitäts-Prüfung: "_s + verdictWord(overall));
  Command4->setToolTip(plausibility_.summary());
  if (check_ != nullptr) check_->darstellen(plausibility_);
}

void main::mnu2_plausi_Click() {
  showPlausibility();
  if (check_ == nullptr || !check_->isVisible()) {
    check_ = new plausi(plausibility_, program_.settings, program_.programFolder, questions_);
    check_->changed = [this] { showPlausibility(); };
    check_->print = command(u" main_plausi"_s, &main::printPlausibility);
    placeOnScreen(*check_, frameGeometry().topRight() - screen()->geometry().topLeft());
  }
  check_->setWindowState(check_->windowState() & ~Qt::WindowMinimized);
  bringUp(*check_);
}

void main::printPlausibility() {
  showPlausibility();
  Drucker window(program_, questions_, desktop_, check_);
  window.druckart(plausibility_);
  window.exec();
}

// ---- The unit converter ----

void main::Command1_Click(int index) {
  if (!isLocked(index)) Text1(index).setFocus(Qt::OtherFocusReason);
  finishLeftBoxes();
  program_.fieldIndex = index;
  const auto take = [this](int field, const QString& text) { return takeOver(field, text); };
  showOver(*new dimum(program_.record, index, questions_, desktop_, take, *this), index);
}

// ---- Commands ----

std::function<void()> main::command(const QString& location, void (main::*handler)(),
                                    const QString& step) {
  return [=, this] {
    perform(
        location, [=, this] { (this->*handler)(); }, step);
  };
}

void main::perform(const QString& location, const std::function<void()>& action,
                   const QString& step) {
  guarded(questions_, location, [&] {
    finishEntry();
    history_.begin();
    action();
  });
  history_.note(step);
  showStatus();
  keepAnalysis();
}

void main::datenkill(int number) {
  program_.resetRecord();
  forgetNotes();
  if (number <= 0) darstellen();
}

QString main::datensich() {
  if (!program_.asksToBeSaved()) return {};
  const QScopedValueRollback asking(asking_, true);
  const Button answer = datenpfad::message(questions_, meldung::kVorherSpeichern);
  if (answer == Button::kJa) showSaveWindow();
  return answer == Button::kNein ? QString() : kAbbruch;
}

/// What is changed in the header is a step of its own, whatever command it belongs to.
void main::showSaveWindow(const RuntimeError* failure) {
  Dateien window(Dateien::Mode::kSaveAnalysis, program_, questions_, desktop_, this);
  if (failure != nullptr) window.showNotSaved(*failure);
  showHeader(window);
  history_.note(u"Kopfdaten"_s);
}

/// Shows the header until it is saved or the window left; what was changed in it without that is to
/// be saved like an entry.
void main::showHeader(Dateien& window) {
  const AnalysisHeader header = program_.header;
  const KnownFile file = program_.file;
  window.exec();
  if (program_.file != file) return noteAnalysis();
  if (program_.header != header) program_.markUnsaved();
}

void main::mnu_load_Click() {
  load({});
}

/// Loads the analysis that is given, or that the user chooses.
void main::load(const QString& path) {
  if (datensich() == kAbbruch) return;
  Dateien window(Dateien::Mode::kLoadAnalysis, program_, questions_, desktop_, this);
  window.reset = [this] {
    leaveAnalysis();
    datenkill(0);
  };
  if (!window.dateiladen(path)) return;
  showRead();
  noteAnalysis();
  showHeader(window);
}

/// Computes and shows an analysis that was read from a file.
void main::showRead() {
  // No entry of the analysis that was there before may decide how this one is completed.
  program_.fieldIndex = 0;
  // Nor may its temperature: where a step does not compute the constants, the next ones read them.
  subcalc_.konst_k();
  const AnalysisRecord read = program_.record;
  berechnen();
  ownAction_ = whatChanged(read, program_.record, 0, {});
  showStatus();
}

void main::mnu_save_Click() {
  program_.dataPresent |= holdsText(inputFields()) || holdsText(resultFields());
  if (program_.dataPresent) {
    showSaveWindow();
  } else {
    datenpfad::message(questions_, meldung::kNichtsZuSpeichern);
  }
}

/// Without a word where nothing can get lost, else with the window, which also says what failed.
void main::mnu3_save_Click() {
  const bool empty = !holdsText(inputFields()) && !holdsText(resultFields());
  if (empty || !isUnchanged(program_.file)) return mnu_save_Click();
  try {
    saveToOwnFile(program_);
    noteAnalysis();
  } catch (const RuntimeError& error) {
    showSaveWindow(&error);
  }
}

void main::mnu_drucken_Click() {
  if (!eincheck()) {
    datenpfad::message(questions_, meldung::kNichtsZuDrucken);
    return;
  }
  Drucker window(program_, questions_, desktop_, this);
  window.druckart(Bericht::kAnalyse);
  window.exec();
}

void main::mnu2_pfad_Click() {
  showOnce<datenpfad>(*this, program_.settings, program_.programFolder, questions_);
}

void main::mnu2_fatext_Click() {
  showOnce<firma>(*this, program_.settings, program_.programFolder, questions_);
}

void main::mnu2_tk_Click() {
  showOnce<varios>(*this);
}

void main::mnu_version_Click() {
  Version window(program_.today(), this);
  window.exec();
}

void main::Image1_Click() {
  info1 window(this);
  window.infotxt1();
  window.exec();
}

void main::mnu2_ana_Click() {
  if (overview_ == nullptr || !overview_->isVisible()) {
    overview_ = new analysen(program_, questions_, desktop_);
    overview_->printed = [this] { showStatus(); };
  }
  overview_->setWindowState(overview_->windowState() & ~Qt::WindowMinimized);
  bringUp(*overview_);
}

bool main::holdsText(std::span<const Field> fields) const {
  return std::ranges::any_of(
      fields, [this](const Field& field) { return !program_.record.text[field.index].isEmpty(); });
}

bool main::eincheck() const {
  // The conductivity, which stands first, does not count by itself, and of the results only one.
  return holdsText(inputFields().subspan(1)) ||
         !program_.record.text[feld::kPhAusKapazitäten].isEmpty();
}

void main::mnu_neustart_Click() {
  if (datensich() == kAbbruch) return;
  Text1(feld::kLeitfähigkeit).setFocus(Qt::OtherFocusReason);
  finishLeftBoxes();  // leaving the old box must not count for the new analysis
  leaveAnalysis();
  program_.restart();
  forgetNotes();
  darstellen();
  Dateien::iniladen(program_.settings, program_.programFolder);
}

void main::Command2_Click() {
  close();
}

void main::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!isEnabled()) return;  // the start window or the converter lies over it
  guarded(questions_, u" main_unload"_s, [&] {
    if (!mayEnd()) return;
    event->accept();
    desktop_.endProgram();
  });
}

QString main::manualPath() const {
  return program_.programFolder + u"/hb_cvra.pdf"_s;
}

void main::updateManual() {
  mnu2_handbuch->setEnabled(QFileInfo::exists(manualPath()));
}

void main::mnu2_handbuch_Click() {
  const QString path = QDir::toNativeSeparators(manualPath());
  if (!QFileInfo::exists(path)) return;
  if (!desktop_.openDocument(path)) {
    datenpfad::message(questions_, meldung::kHandbuch, path);
    return;
  }
  ownAction_ = u"Handbuch: "_s + path;  // the system may have nothing that shows it
}

}  // namespace calvora
