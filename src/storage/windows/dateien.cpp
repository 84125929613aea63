#include "storage/windows/dateien.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QKeyEvent>
#include <algorithm>
#include <array>

#include "base/guarded.h"
#include "dialogs/meldungen.h"
#include "entry/date_text.h"
#include "entry/key_filter.h"
#include "platform/form.h"
#include "platform/look.h"
#include "platform/twips.h"
#include "storage/line_file.h"
#include "storage/settings.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// Whether a header was saved or loaded before: it then has a creation date or the name of a file.
bool wasKept(const AnalysisHeader& header) {
  return !header[kopf::kErstellt].isEmpty() || !header[kopf::kDateiname].isEmpty();
}

}  // namespace

Dateien::Dateien(Mode mode, Program& program, Questions& questions, Desktop& desktop,
                 QWidget* parent, Project* project)
    : QDialog(parent),
      mode_(mode),
      program_(program),
      questions_(questions),
      desktop_(desktop),
      project_(project),
      header_(mode == Mode::kReadForOverview ? analysis_.header
              : project != nullptr           ? project->header
                                             : program.header) {
  buildWindow();
  guarded(questions_, u" dateien\\ps_formload"_s, [this] { Form_Load(); });
}

void Dateien::Form_Load() {
  const bool saves = mode_ == Mode::kSaveAnalysis || mode_ == Mode::kSaveProject;
  Text1->showText(header_[kopf::kProjekt]);
  Text2->showText(header_[kopf::kProjektNo]);
  Text3->showText(header_[kopf::kProbe]);
  Text4->showText(header_[kopf::kAuftraggeber]);
  Text6->showText(saves ? dateText(program_.today()) : header_[kopf::kErstellt]);
  Text7->setPlainText(header_[kopf::kBemerkung]);
  const QDate today = program_.today();
  const QDate date = dateOf(header_[kopf::kProbenahme]);
  // A later date can come with a file. It is kept or removed, but never entered.
  DTPicker1->setDateRange(kFirstDate, std::max(today, date));
  DTPicker1->setDate(date.isValid() ? date : today);
  DTPicker1->setEnabled(saves && date <= today);
  setDate(date.isValid() || (saves && !wasKept(header_)));
  showOnlyLaterDate();
}

/// Takes the red line away, but not where it says why the date is locked.
void Dateien::showOnlyLaterDate() {
  const bool saves = mode_ == Mode::kSaveAnalysis || mode_ == Mode::kSaveProject;
  failure_->setText(
      u"Das gespeicherte Datum liegt in der Zukunft. Es bleibt, bis Sie es löschen."_s);
  failure_->setVisible(saves && dateSet_ && !DTPicker1->isEnabled());
}

/// Shows the header that was read, without a sampling date that is none. False if there was one.
bool Dateien::showReadHeader() {
  QString& date = header_[kopf::kProbenahme];
  const QString read = std::exchange(date, dateText(dateOf(date)));
  Form_Load();
  return !date.isEmpty() || read.trimmed().isEmpty();
}

/// Shows the date picker exactly when a sampling date is given.
void Dateien::setDate(bool given) {
  dateSet_ = given;
  dateRefused_ = false;
  Label8->setText(given ? u"löschen"_s : u"setzen"_s);
  DTPicker1->setVisible(given && mode_ != Mode::kSaveProject);
  projectDate_->setText(given ? u"Datum "_s + dateText(DTPicker1->date()) : u"ohne Datum"_s);
}

void Dateien::Label8_Click() {
  guarded(questions_, u" dateien\\ps_L8"_s, [this] {
    DTPicker1->setMaximumDate(program_.today());
    DTPicker1->setEnabled(true);
    setDate(!dateSet_);
    showOnlyLaterDate();
  });
}

void Dateien::keepHeader() {
  header_[kopf::kProjekt] = Text1->text().trimmed();
  header_[kopf::kProjektNo] = Text2->text().trimmed();
  header_[kopf::kProbe] = Text3->text().trimmed();
  header_[kopf::kAuftraggeber] = Text4->text().trimmed();
  header_[kopf::kProbenahme] = dateSet_ ? dateText(DTPicker1->date()) : QString();
  header_[kopf::kErstellt] = Text6->text();
  header_[kopf::kBemerkung] = onOneLine(Text7->document()->toRawText()).trimmed();
}

// ---- Saving ----

/// Cancelling and every fault leave the window open and nothing marked as saved; a fault is told in
/// the window itself.
void Dateien::Command1_Click() {
  if (std::exchange(dateRefused_, false)) {  // the user must first see which date is left
    DTPicker1->setFocus(Qt::OtherFocusReason);
    return;
  }
  showOnlyLaterDate();
  guarded(questions_, u" dateien\\ps_speichern"_s, [this] {
    try {
      save();
    } catch (const RuntimeError& error) {
      showNotSaved(error);
    }
  });
}

void Dateien::showNotSaved(const RuntimeError& error) {
  showFailure(*failure_, u"Die Datei wurde nicht gespeichert. "_s + reasonOf(error));
}

void Dateien::save() {
  keepHeader();
  const QString& extension = project_ == nullptr ? kAnalysisFile : kProjectFile;
  const auto answer = desktop_.askSaveFile(this, saveRequest(extension));
  if (!answer) return;
  typed_ = answer->trimmed();
  // A file that is there and differs in capital letters only is the one that was meant.
  const bool isThere =
      QFileInfo(typed_).isFile() && typed_.endsWith('.'_L1 + extension, Qt::CaseInsensitive);
  const QString path = isThere ? typed_ : withExtension(typed_, extension);
  if (!mayWrite(path)) return;
  const QString title = QFileInfo(typed_).fileName();
  if (project_ == nullptr) {
    dateispeichern(path, title);
  } else {
    projektspeichern(path, title);
  }
  program_.dataPresent = false;
  program_.record.flag[flag::kStatus].clear();
  accept();
}

/// Proposes the name of the file that the header came with; to whom typed one and came back, that.
FileRequest Dateien::saveRequest(const QString& extension) const {
  const QFileInfo typed(typed_);
  if (!typed_.isEmpty()) return {typed.path(), extension, typed.fileName()};
  QString proposed = asFileName(header_[kopf::kDateiname]);
  if (!proposed.isEmpty()) proposed = withExtension(proposed, extension);
  return {dialogFolder(program_.settings, program_.programFolder), extension, proposed};
}

/// Asks once before a file is written under another name than the one typed, in place of one that
/// is there, or of one that was changed since it was loaded or saved here.
bool Dateien::mayWrite(const QString& path) {
  const QFileInfo file(path);
  const bool isThere = file.isFile();
  const QString complete = typed_ + path.mid(path.lastIndexOf('.'_L1));
  const bool cut = path.compare(typed_, Qt::CaseInsensitive) != 0 && path != complete;
  if (!isThere && !cut) return true;
  const KnownFile& own = project_ == nullptr ? program_.file : project_->file;
  const bool changed = isThere && QFileInfo(own.path) == file && !isUnchanged(own);
  const QString reason =
      changed
          ? u" wurde anderswo geändert, seit sie hier geladen \n\r oder gespeichert wurde. Soll sie ersetzt werden ? "_s
      : isThere ? u" ist schon vorhanden. Soll sie ersetzt werden ? "_s
                : u" wird angelegt. Soll sie so heißen ? "_s;
  const QString start =
      cut ? u" Der Name reicht nur bis zum ersten Punkt. Die Datei \n\r "_s : u" Die Datei \n\r "_s;
  return questions_.ask({.text = start + file.fileName() + u"\n\r"_s + reason,
                         .buttons = Button::kJa | Button::kNein,
                         .title = u"Datei"_s,
                         .symbol = Symbol::kQuestion,
                         .defaultButton = isThere ? Button::kNein : Button::kJa}) == Button::kJa;
}

void Dateien::dateispeichern(const QString& path, const QString& title) {
  saveAnalysis(program_, path, title);
}

void Dateien::projektspeichern(const QString& path, const QString& title) {
  const QString name = nameLine(title, kProjectFile);
  project_->file = writeKnownFile(path, projectContent(*project_, name));
  program_.record.flag[flag::kNameLine] = name;
}

// ---- Loading ----

bool Dateien::dateiladen(const QString& path) {
  if (!path.isEmpty()) {
    const Read ended = lesen(path);
    if (ended != Read::kMissing) return tell(ended);
    questions_.ask(katalogMeldung(meldung::kDateiFehlt, QDir::toNativeSeparators(path)));
    return false;
  }
  for (QStringList chosen = choose(false); !chosen.isEmpty(); chosen = choose(false)) {
    const Read ended = lesen(chosen.front());
    if (ended != Read::kMissing) return tell(ended);
    if (mode_ != Mode::kLoadAnalysis) return false;
  }
  return false;
}

QStringList Dateien::dateienWählen() {
  return choose(true);
}

QStringList Dateien::choose(bool several) const {
  QStringList chosen = desktop_.askOpenFile(
      parentWidget(), {.folder = dialogFolder(program_.settings, program_.programFolder),
                       .extension = mode_ == Mode::kLoadProject ? kProjectFile : kAnalysisFile,
                       .proposed = {},
                       .several = several});
  for (QString& path : chosen) path = path.trimmed();
  return chosen;
}

Dateien::Read Dateien::lesen(const QString& path) {
  try {
    const bool whole = readWhole(path);
    const bool dateFits = showReadHeader();
    return whole && dateFits ? Read::kWhole : Read::kInPart;
  } catch (const RuntimeError& error) {
    return error.is(ErrorNumber::kFileNotFound) ? Read::kMissing : Read::kUnreadable;
  }
}

/// Reads a file to where the window's mode wants it. False if reading ended early.
bool Dateien::readWhole(const QString& path) {
  if (mode_ == Mode::kLoadProject) return readProject(*project_, path);
  if (mode_ == Mode::kLoadAnalysis) return readAnalysis(program_, path, reset);
  analysis_ = readForOverview(path);
  return analysis_.complete;
}

/// Tells the user what is missing of a file that is there. False if nothing was read.
bool Dateien::tell(Read ended) {
  if (ended != Read::kWhole) {
    questions_.ask({.text = u" Die Datei konnte nicht vollständig gelesen werden ! "_s,
                    .title = u"Datei"_s,
                    .symbol = Symbol::kWarning});
  }
  return ended == Read::kWhole || ended == Read::kInPart;
}

// ---- Settings ----

void Dateien::iniladen(Settings& settings, const QString& programFolder) {
  readSettings(settings, programFolder);
}

QString Dateien::inispeichern(Settings& settings, const QString& programFolder,
                              Questions& questions, int changed) {
  QString failure = u"Die Einstellungen wurden nicht gespeichert. "_s;
  guarded(questions, u" dateien\\inispeichern"_s, [&] {
    try {
      writeSettings(settings, programFolder, changed);
      failure.clear();
    } catch (const RuntimeError& error) {
      failure += reasonOf(error);
    }
  });
  return failure;
}

// ---- Design ----

void Dateien::buildWindow() {
  setWindowTitle(u"  Daten - laden / speichern"_s);
  auto* form = new QFormLayout(this);
  setWindowMargins(*form);
  form->setHorizontalSpacing(14);
  form->setVerticalSpacing(10);
  form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  buildFields(*form);
  buildNotices(*form);
  Command1 = makeButton(u"speichern"_s, 2100);
  Command2 = makeButton(u"zur Eingabemaske"_s, 2100);
  form->addRow(makeButtonRow({Command1, Command2}));
  setMinimumWidth(twips(9000));
  connectFields();
  connectDateAndButtons();
  prepareForMode(*form);
}

void Dateien::buildFields(QFormLayout& form) {
  const auto add = [&](QLabel*& label, const QString& caption, QWidget* field,
                       QLayout* row = nullptr) {
    label = new QLabel(caption, this);
    label->setBuddy(field);
    field->setAccessibleName(caption.trimmed());
    if (row == nullptr) {
      form.addRow(label, field);
    } else {
      form.addRow(label, row);
    }
  };
  for (TextBox** field : {&Text1, &Text2, &Text3, &Text4, &Text6}) {
    *field = new TextBox(this);
    (*field)->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    (*field)->setMinimumHeight(twips(400));
    setRole(**field, Role::kInput);
  }
  add(Label1, u"Projekt "_s, Text1);
  add(Label2, u"ProjektNo "_s, Text2);
  add(Label3, u"Bezeich. Probe"_s, Text3);
  add(Label4, u" Auftraggeber"_s, Text4);
  DTPicker1 = new DatePicker(this);
  keepReadable(*DTPicker1);
  DTPicker1->setMinimumHeight(twips(400));
  projectDate_ = new QLabel(this);
  Label8 = makeLink();
  auto* date = new QHBoxLayout;
  for (QWidget* part : std::initializer_list<QWidget*>{DTPicker1, projectDate_, Label8}) {
    date->addWidget(part);
  }
  date->addStretch();
  add(Label5, u"Probenahme Datum"_s, DTPicker1, date);
  add(Label6, u"Erstell Datum"_s, Text6);
  Text6->setReadOnly(true);
  setRole(*Text6, Role::kComputed);
  Text6->setFocusPolicy(Qt::NoFocus);
  for (QWidget* shown : std::initializer_list<QWidget*>{DTPicker1, projectDate_, Text6}) {
    shown->setFixedWidth(twips(2400));
  }
  Text7 = new RemarkBox(this);
  Text7->setFixedHeight(twips(1500));
  add(Label7, u"Freie Text-Eingabe/Bemerkung"_s, Text7);
}

/// The note on a project, and the place for what went wrong.
void Dateien::buildNotices(QFormLayout& form) {
  Label9 = new QLabel(
      u"  Die Daten des Projekts entsprechen dem Zeitpunkt   des  Er-        stelldatum. Wurden "
      "Datei/en des Projekts  seither  geändert,         sollte die Übersicht  neu  angelegt  "
      "werden !"_s,
      this);
  Label9->setWordWrap(true);
  failure_ = makeFailureLine();
  for (QLabel* notice : {Label9, failure_}) form.addRow(notice);
}

void Dateien::prepareForMode(QFormLayout& form) {
  const bool saves = mode_ == Mode::kSaveAnalysis || mode_ == Mode::kSaveProject;
  const bool edits = saves || mode_ == Mode::kLoadAnalysis;
  for (QWidget* field : std::initializer_list<QWidget*>{Text1, Text2, Text3, Text4, Text7}) {
    field->setEnabled(edits);
  }
  for (TextBox* field : {Text1, Text2, Text3, Text4}) {
    setRole(*field, edits ? Role::kInput : Role::kComputed);
  }
  form.setRowVisible(Text3, mode_ != Mode::kSaveProject);
  if (!edits) DTPicker1->setToolTip(Label5->text());
  Label5->setVisible(edits && mode_ != Mode::kSaveProject);
  projectDate_->setVisible(mode_ == Mode::kSaveProject);
  Label8->setVisible(saves);
  Label9->setVisible(mode_ == Mode::kLoadProject);
  Command1->setVisible(edits);
}

/// The text field after one, over those that are hidden.
QWidget* Dateien::nextField(const QWidget* field) const {
  const std::array<QWidget*, 5> fields{Text1, Text2, Text3, Text4, Text7};
  const auto* next = std::ranges::find(fields, field) + 1;
  while ((*next)->isHidden()) ++next;  // the remark never is
  return *next;
}

void Dateien::connectFields() {
  const auto checkKey = [this](const QString& location) {
    return [this, location](int& code) {
      guarded(questions_, location, [&code] { text_check(code); });
    };
  };
  // Enter goes to the next field that is there: a project has no sample.
  const auto connectField = [&](TextBox* field, const QString& location) {
    field->filter = filteredText;
    field->setMaxLength(static_cast<int>(LineReader::kLongestLine));
    connect(field, &TextBox::keyDown, this, [this, field](int code) {
      if (code == key::kEnter) nextField(field)->setFocus(Qt::TabFocusReason);
    });
    field->keyPress = checkKey(location);
  };
  connectField(Text1, u" dateien\\ps_text1_keypress"_s);
  connectField(Text2, u" dateien\\ps_t2_keypress"_s);
  connectField(Text3, u" dateien\\ps_t3_keypress"_s);
  connectField(Text4, u" dateien\\ps_t4_keypress"_s);
  Text7->filter = filteredText;
  Text7->keyPress = checkKey(u" dateien\\ps_t7_keypress"_s);
  connect(Text7, &RemarkBox::enterPressed, this, [this] {
    Command1->setFocus(Qt::TabFocusReason);
    remarkGoesOn_ = true;
  });
}

void Dateien::connectDateAndButtons() {
  connect(DTPicker1, &QDateEdit::dateChanged, this, [this] {
    dateRefused_ = false;
    failure_->hide();  // it may tell of the refused one
  });
  connect(DTPicker1, &DatePicker::refused, this, [this](const QString& text) {
    dateRefused_ = true;
    const bool later = QDate::fromString(text, u"d.M.yyyy"_s) > program_.today();
    showFailure(*failure_,
                u"„%1“ %2. Es bleibt beim %3."_s.arg(
                    text, later ? u"liegt in der Zukunft"_s : u"ist kein Datum wie 05.03.2026"_s,
                    dateText(DTPicker1->date())));
  });
  // Enter walks through the fields; it must not press a button on its way.
  for (QPushButton* button : {Command1, Command2}) pressOnEnter(*button);
  connect(Label8, &QPushButton::clicked, this, &Dateien::Label8_Click);
  connect(Command1, &QPushButton::clicked, this, &Dateien::Command1_Click);
  connect(Command2, &QPushButton::clicked, this, &Dateien::reject);
  Command1->installEventFilter(this);
  QWidget* order[] = {Text1, Text2, Text3, Text4, DTPicker1, Label8, Text7, Command1, Command2};
  for (size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);
}

/// Who pressed Enter at the end of a line goes on typing: that belongs to the remark, and a blank
/// must not press the button.
bool Dateien::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut) {
    // Another program or a menu only interrupts.
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    remarkGoesOn_ =
        remarkGoesOn_ && (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason);
  }
  if (event->type() != QEvent::KeyPress || !remarkGoesOn_) {
    return QDialog::eventFilter(watched, event);
  }
  const QString typed = static_cast<QKeyEvent*>(event)->text();
  if (typed.isEmpty() || !typed.front().isPrint()) return false;
  Text7->setFocus(Qt::OtherFocusReason);
  Text7->moveCursor(QTextCursor::End);
  QCoreApplication::sendEvent(Text7, event);
  return true;
}

}  // namespace calvora
