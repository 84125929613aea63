#include "storage/windows/dateien.h"
#include "storage/settings.h"

#include <QCalendarWidget>
#include <QFileInfo>
#include <QGridLayout>
#include <QLineEdit>
#include <algorithm>
#include <array>

#include "base/guarded.h"
#include "entry/date_text.h"
#include "entry/key_filter.h"
#include "platform/date_picker.h"
#include "platform/form.h"
#include "platform/look.h"
#include "platform/twips.h"
#include "storage/analysis_file.h"
#include "storage/file_name.h"
#include "storage/line_file.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFileNotFound = static_cast<int>(ErrorNumber::kFileNotFound);
constexpr int kCancelled = 1;
const auto kRemove = u"löschen"_s;
const auto kSet = u"setzen"_s;

/// Why a file was not written, in the user's words.
QString reasonOf(const RuntimeError& error) {
  switch (static_cast<ErrorNumber>(error.number())) {
    case ErrorNumber::kDiskFull:
      return u"Der Datenträger ist voll oder gestört."_s;
    case ErrorNumber::kPathAccess:
      return u"Ordner oder Datei lassen sich nicht beschreiben."_s;
    case ErrorNumber::kInvalidCall:
      return u"Ein Text ist zu lang."_s;
    default:
      return u"Fehler %1."_s.arg(error.number());
  }
}

}  // namespace

Dateien::Dateien(Program& program, Questions& questions, Desktop& desktop, QWidget* parent)
    : QDialog(parent), program_(program), questions_(questions), desktop_(desktop) {
  buildWindow();
  guarded(questions_, u" dateien\\ps_formload"_s, [this] { Form_Load(); });
}

void Dateien::Form_Load() {
  const auto& header = program_.header;
  Text6->showText(dateText(program_.today()));
  Text1->showText(header[kopf::kProjekt]);
  Text2->showText(header[kopf::kProjektNo]);
  Text3->showText(header[kopf::kProbe]);
  Text4->showText(header[kopf::kAuftraggeber]);
  Text7->setPlainText(header[kopf::kBemerkung]);
  const QDate date = dateOf(header[kopf::kProbenahme]);
  DTPicker1->setDateRange(kFirstDate, std::max(program_.today(), date));
  DTPicker1->setDate(date.isValid() ? date : program_.today());
  setDate(true);
}

void Dateien::showEvent(QShowEvent* event) {
  const bool editable = !Command1->isHidden();
  for (QWidget* field : std::initializer_list<QWidget*>{Text1, Text2, Text3, Text4, Text7}) {
    field->setEnabled(editable);
  }
  QDialog::showEvent(event);
}

/// Shows the date picker exactly when a sampling date is given.
void Dateien::setDate(bool given) {
  dateSet_ = given;
  DTPicker1->setVisible(given);
}

/// Shows the date that came with a file. False if the text is neither a date nor blank.
bool Dateien::showDate(const QString& text) {
  const QDate date = dateOf(text);
  if (date.isValid()) {
    DTPicker1->setMaximumDate(std::max(program_.today(), date));
    DTPicker1->setDate(date);
  }
  setDate(date.isValid());
  return date.isValid() || text.trimmed().isEmpty();
}

void Dateien::Label8_Click() {
  guarded(questions_, u" dateien\\ps_L8"_s, [this] {
    const bool removes = Label8->text().trimmed() == kRemove;
    Label8->setText(removes ? kSet : kRemove);
    setDate(!removes);
  });
}

void Dateien::keepHeader() {
  auto& header = program_.header;
  header[kopf::kProjekt] = Text1->text().trimmed();
  header[kopf::kProjektNo] = Text2->text().trimmed();
  header[kopf::kProbe] = Text3->text().trimmed();
  header[kopf::kAuftraggeber] = Text4->text().trimmed();
  header[kopf::kProbenahme] = dateSet_ ? dateText(DTPicker1->date()) : QString();
  header[kopf::kErstellt] = Text6->text();
  header[kopf::kBemerkung] = Text7->document()->toRawText().trimmed();
}

/// Cancelling and every fault leave the window open and nothing marked as saved; a fault is told in
/// the window itself.
void Dateien::Command1_Click() {
  failure_->hide();
  guarded(questions_, u" dateien\\ps_speichern"_s, [this] {
    try {
      save();
    } catch (const RuntimeError& error) {
      failure_->setText(u"Die Datei wurde nicht gespeichert. "_s + reasonOf(error));
      failure_->show();
      fitHeight();
    }
  });
}

void Dateien::save() {
  keepHeader();
  const QString extension = project_ == nullptr ? u"cva"_s : u"cvp"_s;
  const QString folder = dialogFolder(program_.settings, program_.programFolder);
  const auto answer = desktop_.askSaveFile(
      this, {folder, extension, asFileName(program_.header[kopf::kDateiname])});
  if (!answer) return;
  const QString chosen = answer->trimmed();
  // A file that is there and differs in capital letters only is the one that was meant.
  const bool isThere =
      QFileInfo(chosen).isFile() && chosen.endsWith('.'_L1 + extension, Qt::CaseInsensitive);
  const QString path = isThere ? chosen : withExtension(chosen, extension);
  // The dialog asked about the name as it was typed.
  if (path != *answer && QFileInfo::exists(path)) {
    const Button replace =
        questions_.ask({.text = u" Die Datei \n\r "_s + QFileInfo(path).fileName() +
                                u"\n\r ist schon vorhanden. Soll sie ersetzt werden ? "_s,
                        .buttons = Button::kJa | Button::kNein,
                        .title = u"Datei"_s,
                        .symbol = Symbol::kQuestion});
    if (replace != Button::kJa) return;
  }
  const QString title = QFileInfo(chosen).fileName();
  if (project_ == nullptr) {
    dateispeichern(path, title);
  } else {
    projektspeichern(path, title);
  }
  program_.dataPresent = false;
  program_.record.flag[flag::kStatus].clear();
  accept();
}

/// Escape and the close box are the same as "zur Eingabemaske".
void Dateien::Command2_Click() {
  reject();
}

void Dateien::dateispeichern(const QString& path, const QString& title) {
  writeAnalysis(program_, path, title);
}

void Dateien::dateiladen(int& mode) {
  if (mode == kOverviewMode) {
    dateiladenForOverview(mode);
    return;
  }
  const int result = readChosenFile(u"cva"_s, [this](const QString& path) {
    const bool complete = readAnalysis(program_, path, reset);
    const QString& date = program_.header[kopf::kProbenahme];
    const bool dateFits = date.trimmed().isEmpty() || dateOf(date).isValid();
    showLoadedHeader();
    return complete && dateFits;
  });
  if (result != 0) mode = result;
}

/// Lets the user choose a file and has it read. `read` returns whether it was read completely; if
/// not, the user is told. Returns 0, 1 when nothing was read or 53 when the file does not exist.
int Dateien::readChosenFile(const QString& extension,
                            const std::function<bool(const QString&)>& read) {
  const QString folder = dialogFolder(program_.settings, program_.programFolder);
  const auto path = desktop_.askOpenFile(parentWidget(), {folder, extension, {}});
  if (!path) return kCancelled;
  try {
    if (!read(path->trimmed())) tellIncomplete();
  } catch (const RuntimeError& error) {
    if (error.is(ErrorNumber::kFileNotFound)) return kFileNotFound;
    tellIncomplete();
    return kCancelled;  // nothing was read: what is there stays
  }
  return 0;
}

void Dateien::tellIncomplete() {
  questions_.ask({.text = u" Die Datei konnte nicht vollständig gelesen werden ! "_s,
                  .title = u"Datei"_s,
                  .symbol = Symbol::kWarning});
}

/// Makes room for a text that has just come in.
void Dateien::fitHeight() {
  layout()->activate();
  resize(width(), std::max(height(), layout()->totalHeightForWidth(width())));
}

void Dateien::showLoadedHeader() {
  Form_Load();
  Label8->hide();
  Text6->showText(program_.header[kopf::kErstellt]);
  DTPicker1->setEnabled(false);
  if (!dateOf(program_.header[kopf::kProbenahme]).isValid()) {
    program_.header[kopf::kProbenahme].clear();
    setDate(false);
  } else {
    program_.header[kopf::kProbenahme] = dateText(DTPicker1->date());
  }
}

// ---- Design ----

void Dateien::buildWindow() {
  setWindowTitle(u"  Daten - laden / speichern"_s);
  auto* grid = new QGridLayout(this);
  setWindowMargins(*grid);
  grid->setHorizontalSpacing(14);
  grid->setVerticalSpacing(10);
  grid->setColumnStretch(2, 1);
  buildFields(*grid);
  buildNotices(*grid);
  Command1 = makeButton(u"speichern"_s, 2100);
  Command2 = makeButton(u"zur Eingabemaske"_s, 2100);
  const int row = grid->rowCount();
  grid->setRowMinimumHeight(row, twips(60));
  grid->addLayout(makeButtonRow({Command1, Command2}), row + 1, 0, 1, 3);
  setMinimumWidth(twips(9000));
  connectDate();
  connectFields();
}

void Dateien::buildFields(QGridLayout& grid) {
  int row = 0;
  const auto add = [&](QLabel*& label, const QString& caption, QWidget* field, int columns) {
    label = new QLabel(caption, this);
    label->setBuddy(field);
    field->setAccessibleName(caption.trimmed());
    grid.addWidget(label, row, 0, columns == 0 ? Qt::AlignTop : Qt::AlignVCenter);
    grid.addWidget(field, row++, 1, 1, columns == 1 ? 1 : 2);
  };
  const auto makeField = [this](TextBox*& field) {
    field = new TextBox(this);
    field->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    field->setMinimumHeight(twips(400));
    setRole(*field, Role::kInput);
    return field;
  };
  add(Label1, u"Projekt "_s, makeField(Text1), 2);
  add(Label2, u"ProjektNo "_s, makeField(Text2), 2);
  add(Label3, u"Bezeich. Probe"_s, makeField(Text3), 2);
  add(Label4, u" Auftraggeber"_s, makeField(Text4), 2);
  DTPicker1 = new DatePicker(this);
  keepReadable(*DTPicker1);
  DTPicker1->setMinimumHeight(twips(400));
  add(Label5, u"Probenahme Datum"_s, DTPicker1, 1);
  Label8 = new QPushButton(kRemove, this);
  grid.addWidget(Label8, row - 1, 2, Qt::AlignLeft);
  add(Label6, u"Erstell Datum"_s, makeField(Text6), 1);
  Text6->setReadOnly(true);
  setRole(*Text6, Role::kComputed);
  Text6->setFocusPolicy(Qt::NoFocus);
  for (QWidget* date : std::initializer_list<QWidget*>{DTPicker1, Text6}) {
    date->setFixedWidth(twips(2400));
  }
  Text7 = new RemarkBox(this);
  Text7->setFixedHeight(twips(1500));
  add(Label7, u"Freie Text-Eingabe/Bemerkung"_s, Text7, 0);
}

/// The note on a project, and the place for what went wrong.
void Dateien::buildNotices(QGridLayout& grid) {
  Label9 = new QLabel(
      u"  Die Daten des Projekts entsprechen dem Zeitpunkt   des  Er-        stelldatum. Wurden "
      "Datei/en des Projekts  seither  geändert,         sollte die Übersicht  neu  angelegt  "
      "werden !"_s,
      this);
  Label9->setWordWrap(true);
  Label9->hide();
  const int row = grid.rowCount();
  grid.addWidget(Label9, row, 1, 1, 2);
  failure_ = new QLabel(this);
  failure_->setObjectName(u"failure"_s);
  failure_->setWordWrap(true);
  failure_->setStyleSheet(u"color: #a01010; font-weight: bold"_s);
  failure_->hide();
  grid.addWidget(failure_, row + 1, 0, 1, 3);
}

void Dateien::connectDate() {
  DTPicker1->setDisplayFormat(kDateFormat);
  DTPicker1->setCalendarPopup(true);
  // Picked in the calendar or stepped with the arrow keys. Typed digits would run from one section
  // into the next as soon as a date on the way is impossible, and end in another date unseen.
  DTPicker1->findChild<QLineEdit*>()->setReadOnly(true);
  DTPicker1->setLocale(QLocale(QLocale::German));
  DTPicker1->calendarWidget()->setFirstDayOfWeek(Qt::Monday);
  DTPicker1->calendarWidget()->setDateEditEnabled(false);
  // The toolkit never forgets what it works out for a line inside another control, unless that has
  // a style of its own.
  for (auto* line : DTPicker1->findChildren<QLineEdit*>()) line->setStyleSheet(u" "_s);
}

/// The text field after one, over those that are hidden.
QWidget* Dateien::nextField(const QWidget* field) const {
  const std::array<QWidget*, 5> fields{Text1, Text2, Text3, Text4, Text7};
  const auto* next = std::ranges::find(fields, field) + 1;
  while ((*next)->isHidden()) ++next;  // the remark never is
  return *next;
}

void Dateien::connectFields() {
  // Enter goes to the next field that is there: a project has no sample.
  const auto connectField = [this](TextBox* field, const QString& location) {
    field->filter = filteredText;
    field->setMaxLength(static_cast<int>(LineReader::kLongestLine));
    connect(field, &TextBox::keyDown, this, [this, field](int code) {
      if (code == key::kEnter) nextField(field)->setFocus(Qt::TabFocusReason);
    });
    field->keyPress = [this, location](int& code) {
      guarded(questions_, location, [&code] { text_check(code); });
    };
  };
  connectField(Text1, u" dateien\\ps_text1_keypress"_s);
  connectField(Text2, u" dateien\\ps_t2_keypress"_s);
  connectField(Text3, u" dateien\\ps_t3_keypress"_s);
  connectField(Text4, u" dateien\\ps_t4_keypress"_s);
  Text7->filter = filteredText;
  Text7->enter = [this] { Command1->setFocus(Qt::TabFocusReason); };
  Text7->keyPress = [this](int& code) {
    guarded(questions_, u" dateien\\ps_t7_keypress"_s, [&code] { text_check(code); });
  };

  // Enter walks through the fields; it must not press a button on its way.
  for (QPushButton* button : {Label8, Command1, Command2}) pressOnEnter(*button);
  Label8->setFlat(true);
  Label8->setCursor(Qt::PointingHandCursor);
  Label8->setStyleSheet(u"color: #0b57d0; text-decoration: underline; padding: 2px 6px"_s);
  connect(Label8, &QPushButton::clicked, this, &Dateien::Label8_Click);
  connect(Command1, &QPushButton::clicked, this, &Dateien::Command1_Click);
  connect(Command2, &QPushButton::clicked, this, &Dateien::Command2_Click);
  QWidget* order[] = {Text1, Text2, Text3, Text4, DTPicker1, Label8, Text7, Command1, Command2};
  for (size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);
}

}  // namespace calvora
