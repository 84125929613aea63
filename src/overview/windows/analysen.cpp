#include "overview/windows/analysen.h"

#include <QAction>
#include <QBoxLayout>
#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>

#include "base/guarded.h"
#include "dialogs/meldungen.h"
#include "overview/overview_content.h"
#include "platform/file_drop.h"
#include "platform/form.h"
#include "print/windows/drucker.h"
#include "storage/given_files.h"
#include "storage/windows/dateien.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

enum Command { kClose = 1, kReset, kPrint, kSaveProject, kLoadProject };

const auto kEmptyCaption = u"   Analyse   laden"_s;

}  // namespace

// No parent: it would always lie over the main window, which stays in use beside it.
analysen::analysen(Program& program, Questions& questions, Desktop& desktop)
    : program_(program), questions_(questions), desktop_(desktop), project_{program.header, {}} {
  setAttribute(Qt::WA_DeleteOnClose);
  buildWindow();
  takeFiles(*this, [this](const QStringList& paths) { openFiles(paths); });
  enterNames(grid_);
  darstellen();
  updateButtons();
}

bool analysen::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) {
    enterNames(grid_);
    darstellen();
  }
  return QWidget::event(event);
}

// ---- Rules of the window ----

void analysen::flex_ein(int column, const OverviewAnalysis& analysis) {
  enterAnalysis(grid_, column - 1, analysis);
  darstellen();
}

void analysen::countdat(int& count) {
  count = filledSlots(grid_);
  for (const int index : {kReset, kPrint, kSaveProject}) {
    Command1(index).setEnabled(count >= 1);
  }
}

void analysen::updateButtons() {
  int count = 0;
  countdat(count);
}

void analysen::message(int& code, const QString& extra) {
  code = static_cast<int>(uebersichtMeldung(questions_, code, extra));
}

void analysen::darstellen() {
  for (int row = 0; row < OverviewGrid::kRows; ++row) {
    for (int column = 0; column < MSFlexGrid1->columnCount(); ++column) {
      MSFlexGrid1->item(row, column)->setText(cellText(grid_, row, column));
    }
  }
  for (const auto& [k, label] : Label1) {
    const OverviewGrid::Slot& slot = grid_.slot[k];
    const bool empty = !slot.filled && slot.caption.isEmpty();
    label->showSlot(empty ? kEmptyCaption : slot.caption, slot.filled);
  }
}

// ---- Analyses ----

void analysen::Label1_Click(int slot) {
  guarded(questions_, u" analysen\\L1_click"_s, [this, slot] {
    if (grid_.slot[slot].filled) return removeAnalysis(slot);
    Dateien dialog(Dateien::Mode::kReadForOverview, program_, questions_, desktop_, this);
    loadAnalyses(dialog.dateienWählen(), slot);
  });
}

void analysen::openFiles(const QStringList& paths) {
  guarded(questions_, u" analysen\\L1_click"_s, [&] {
    switch (kindOf(paths)) {
      case Given::kAnalyses:
        return loadAnalyses(paths, 1);
      case Given::kProject:
        return loadProject(paths.front());
      case Given::kOther:
        questions_.ask(katalogMeldung(meldung::kNichtGeladen, namesOf(paths)));
    }
  });
}

/// Enters a single analysis, whose header the user reads before.
void analysen::loadAnalysis(const QString& path, int slot) {
  Dateien window(Dateien::Mode::kReadForOverview, program_, questions_, desktop_, this);
  if (!window.dateiladen(path)) return;
  window.exec();
  flex_ein(slot + 1, window.analysis());
  updateButtons();
}

/// Enters analyses into the free slots from one on, then into those before it. What went wrong is
/// told once for all of them.
void analysen::loadAnalyses(const QStringList& paths, int firstSlot) {
  QList<int> open = freeSlots(grid_, firstSlot);
  if (paths.size() == 1 && !open.isEmpty()) return loadAnalysis(paths.front(), open.front());
  QStringList damaged;
  QStringList left;
  for (const QString& path : paths) {
    if (open.isEmpty()) {
      left += path;
      continue;
    }
    Dateien reader(Dateien::Mode::kReadForOverview, program_, questions_, desktop_, this);
    const Dateien::Read ended = reader.lesen(path);
    if (ended != Dateien::Read::kWhole) damaged += path;
    const bool isRead = ended == Dateien::Read::kWhole || ended == Dateien::Read::kInPart;
    if (isRead) flex_ein(open.takeFirst() + 1, reader.analysis());
  }
  updateButtons();
  tellFiles(uebersicht::kNichtVollständig, damaged);
  tellFiles(uebersicht::kKeinPlatz, left);
}

void analysen::tellFiles(int code, const QStringList& paths) {
  if (!paths.isEmpty()) message(code, namesOf(paths));
}

void analysen::removeAnalysis(int slot) {
  int answer = uebersicht::kEntfernen;
  message(answer, QString::number(slot));
  if (static_cast<Button>(answer) == Button::kJa) grid_.slot[slot] = {};
  darstellen();
  updateButtons();
}

// ---- Buttons ----

void analysen::Command1_Click(int index) {
  guarded(questions_, u" analysen\\C1_click"_s, [this, index] {
    if (index == kClose) close();
    if (index == kReset) emptyGrid();
    if (index == kPrint) print();
    if (index == kSaveProject) saveProject();
    if (index == kLoadProject) loadProject({});
  });
}

void analysen::print() {
  Drucker window(program_, questions_, desktop_, this, &project_);
  window.druckart(Bericht::kÜbersicht);
  window.exec();
  printed();
}

/// Empties the overview; a project that goes with it takes its header along. False, and nothing
/// happened, if the user does not want that.
bool analysen::emptyGrid() {
  if (filledSlots(grid_) >= 1) {
    int answer = uebersicht::kAlleLöschen;
    message(answer);
    if (static_cast<Button>(answer) == Button::kAbbrechen) return false;
    project_.header = program_.header;
  }
  for (const int index : {kPrint, kSaveProject}) Command1(index).setEnabled(false);
  project_.file = {};
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) grid_.slot[k] = {};
  darstellen();
  return true;
}

void analysen::saveProject() {
  Dateien window(Dateien::Mode::kSaveProject, program_, questions_, desktop_, this, &project_);
  const bool saved = window.exec() == QDialog::Accepted;
  program_.record.flag[flag::kStatus].clear();  // even if the user left without saving
  if (!saved) return;
  int code = uebersicht::kProjektGespeichert;
  message(code);
}

/// Loads a project that the user chooses, or the one that is given and there.
void analysen::loadProject(const QString& path) {
  const bool isThere = path.isEmpty() || QFileInfo::exists(path);
  if (isThere && !emptyGrid()) return;
  Dateien window(Dateien::Mode::kLoadProject, program_, questions_, desktop_, this, &project_);
  if (!window.projektladen(path)) return;
  darstellen();
  window.exec();
  updateButtons();
  Command1(kReset).setEnabled(true);  // a slot that was read in part can be emptied, too
}

void analysen::copy() {
  QList<std::pair<int, int>> cells;
  for (const QModelIndex& cell : MSFlexGrid1->selectionModel()->selectedIndexes()) {
    cells += {cell.row(), cell.column()};
  }
  QGuiApplication::clipboard()->setText(copyText(grid_, cells));
}

// ---- Design ----

void analysen::buildWindow() {
  setWindowTitle(u"      Analysen-Übersicht     "_s);
  MSFlexGrid1 = new OverviewTable;
  MSFlexGrid1->setAccessibleName(u"Analysen-Übersicht"_s);
  auto* layout = new QVBoxLayout(this);
  setWindowMargins(*layout);
  layout->setSpacing(4);
  layout->addWidget(buildHead());
  layout->addWidget(MSFlexGrid1, 1);
  layout->addSpacing(10);
  layout->addLayout(buildButtons());
  connect(MSFlexGrid1, &OverviewTable::arranged, this, &analysen::arrangeHead);

  auto* copyCells = new QAction(u"&Kopieren"_s, this);
  copyCells->setShortcut(QKeySequence::Copy);
  connect(copyCells, &QAction::triggered, this, &analysen::copy);
  addAction(copyCells);
  MSFlexGrid1->addAction(copyCells);
  MSFlexGrid1->setContextMenuPolicy(Qt::ActionsContextMenu);

  const QScreen* screen = QGuiApplication::primaryScreen();
  resize(screen == nullptr ? sizeHint() : sizeHint().boundedTo(screen->availableSize()));
}

QWidget* analysen::buildHead() {
  head_ = new QWidget;
  Label4 = new QLabel(u"Analysen-Übersicht"_s, head_);
  QFont heading = font();
  heading.setPointSize(14);
  heading.setBold(true);
  Label4->setFont(heading);
  slotLabels_ = new QWidget(head_);
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
    auto& label = Label1.add(k, new SlotLabel(slotLabels_));
    connect(&label, &SlotLabel::clicked, this, [this, k] { Label1_Click(k); });
    connect(&label, &SlotLabel::entered, this,
            [this, k] { MSFlexGrid1->scrollTo(MSFlexGrid1->model()->index(0, k + 1)); });
  }
  head_->setFixedHeight(Label1(1).sizeHint().height());
  return head_;
}

/// Puts every label over its column.
void analysen::arrangeHead() {
  const int height = head_->height();
  const int fixed = MSFlexGrid1->fixedWidth();
  const QWidget* viewport = MSFlexGrid1->viewport();
  Label4->setGeometry(0, 0, fixed, height);
  slotLabels_->setGeometry(viewport->x() + fixed, 0, viewport->width() - fixed, height);
  for (const auto& [k, label] : Label1) {
    const int left = MSFlexGrid1->columnViewportPosition(k + 1) - fixed;
    label->setGeometry(left + 1, 0, MSFlexGrid1->columnWidth(k + 1) - 3, height);
  }
}

QLayout* analysen::buildButtons() {
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(10);
  addButtons(Command1, 2250,
             {{kClose, u" << schliessen"_s},
              {kReset, u"alle Einträge  löschen"_s},
              {kPrint, u"ausdrucken "_s},
              {kSaveProject, u"speichern als Projekt"_s},
              {kLoadProject, u"Projekt laden"_s}},
             [this](int index) { Command1_Click(index); });
  for (const auto& [index, button] : Command1) {
    buttons->addWidget(button);
    if (index == kClose) buttons->addStretch();
  }
  return buttons;
}

}  // namespace calvora
