// The main window's design: menus, mask, company area.
#include <QBoxLayout>
#include <QGridLayout>
#include <QMenuBar>
#include <QShortcut>
#include <QStatusBar>
#include <functional>

#include "app/main_window.h"
#include "base/guarded.h"
#include "platform/elided_label.h"
#include "platform/form.h"
#include "platform/look.h"
#include "platform/picture.h"
#include "platform/placement.h"
#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

// Columns of a section: caption, symbol, box, unit, and what stands to the right of it.
enum Column { kCaption, kSymbol, kBox, kUnit, kExtra, kToggle, kColumns };

// Twips.
constexpr int kInputBoxWidth = 1290;
constexpr int kResultBoxWidth = 1200;
constexpr int kNarrowBoxWidth = 700;
constexpr int kUnitWidth = 880;
constexpr int kResultUnitWidth = 660;
constexpr int kRowHeight = 465;
constexpr int kStatusHeight = 450;

QLabel* makeLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  return label;
}

/// A label of at least that width in twips, as high as a box; of no width it has no colours.
QLabel* makeCell(const QString& text, int width, Role role) {
  QLabel* label = makeLabel(text);
  label->setAlignment(role == Role::kUnit ? Qt::AlignCenter : Qt::AlignRight | Qt::AlignVCenter);
  label->setMinimumSize(twips(width), twips(kRowHeight));
  if (width > 0) setRole(*label, role);
  return label;
}

QGridLayout* makeGrid(QWidget* parent) {
  auto* grid = new QGridLayout(parent);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(twips(105));
  grid->setColumnStretch(kCaption, 1);
  return grid;
}

/// A picture whose click shows the information texts. It never takes the focus.
PictureButton* makeInfoPicture(const Picture::Drawing& drawing) {
  auto* picture = new PictureButton(drawing, 840);
  picture->setFocusPolicy(Qt::NoFocus);
  picture->setCursor(Qt::PointingHandCursor);
  picture->setAccessibleName(u"Erläuterung der berechneten pH-Werte"_s);
  return picture;
}

}  // namespace

void main::buildMenus() {
  QMenu* menu = nullptr;
  const auto add = [&](const QString& caption, const QString& location, void (main::*handler)(),
                       const QString& keys = {}) {
    QAction* action = menu->addAction(caption);
    action->setShortcut(QKeySequence(keys));
    const bool replaces = handler == &main::mnu_load_Click || handler == &main::mnu_neustart_Click;
    const QString step = replaces ? QString(caption).remove('&'_L1) : u"Kopfdaten"_s;
    connect(action, &QAction::triggered, this, command(location, handler, step));
    return action;
  };
  menu = menuBar()->addMenu(u"  &Menue"_s);
  mnu_load = add(u"Datei &laden"_s, u" ps_mnudladen"_s, &main::mnu_load_Click, u"Ctrl+O"_s);
  mnu_recent = menu->addMenu(u"&Zuletzt verwendet"_s);
  mnu_recent->setToolTipsVisible(true);
  connect(mnu_recent, &QMenu::aboutToShow, this, &main::listRecent);
  mnu_save = add(u"Daten-&speichern"_s, u" main_save"_s, &main::mnu_save_Click, u"Ctrl+S"_s);
  mnu_drucken = add(u"&Drucken"_s, u" main_drucken"_s, &main::mnu_drucken_Click, u"Ctrl+P"_s);
  menu->addSeparator()->setObjectName(u"trenn1"_s);
  mnu_neustart = add(u"&NEUSTART"_s, u" main_neustart"_s, &main::mnu_neustart_Click, u"Ctrl+N"_s);
  mnu_ende = add(u"&Beenden"_s, u" main_ende"_s, &main::Command2_Click, u"Ctrl+Q"_s);

  menu = menuBar()->addMenu(u"&Extras"_s);
  mnu2_pfad = add(u"&Speicherpfad festlegen"_s, u" main_pfad"_s, &main::mnu2_pfad_Click);
  mnu2_fatext = add(u"Ausdrucke &einrichten"_s, u" main_fatext"_s, &main::mnu2_fatext_Click);
  mnu2_tk = add(u"&Temperatur-Korrektion"_s, u" main_tk"_s, &main::mnu2_tk_Click);
  mnu2_plausi =
      add(u"&Plausibilitäts-Prüfung"_s, u" main_plausi"_s, &main::mnu2_plausi_Click, u"Ctrl+L"_s);
  mnu2_ana = add(u"&Analysen Übersicht"_s, u" main_ana"_s, &main::mnu2_ana_Click);
  menu->addSeparator()->setObjectName(u"trenn2"_s);
  mnu2_handbuch =
      add(u"&Handbuch einsehen"_s, u" main_handbuch"_s, &main::mnu2_handbuch_Click, u"F1"_s);
  mnu_version = add(u"&Version"_s, u" main_version"_s, &main::mnu_version_Click);
  connect(menu, &QMenu::aboutToShow, this, &main::updateManual);
  updateManual();

  menu = menuBar()->addMenu(u"&Bearbeiten"_s);
  // These two do not finish the entry that is going on: they take it back.
  const auto addUndo = [&](const QString& keys, void (main::*handler)()) {
    auto* action = new QAction(menu);
    menu->addAction(action);
    action->setShortcuts(QKeySequence::listFromString(keys));
    connect(action, &QAction::triggered, this,
            [this, handler] { guarded(questions_, u" main_undo"_s, [&] { (this->*handler)(); }); });
    return action;
  };
  mnu3_undo = addUndo(u"Ctrl+Z"_s, &main::mnu3_undo_Click);
  mnu3_redo = addUndo(u"Ctrl+Y; Ctrl+Shift+Z"_s, &main::mnu3_redo_Click);
  connect(&history_.stack, &QUndoStack::indexChanged, this, &main::nameUndo);
  nameUndo();
  menu->addSeparator();
  mnu3_save = add(u"S&peichern"_s, u" main_save"_s, &main::mnu3_save_Click, u"Ctrl+Shift+S"_s);
}

/// The menu says what would be undone, and what would be done again.
void main::nameUndo() {
  const QUndoStack& stack = history_.stack;
  const auto name = [](QAction& action, const QString& caption, const QString& step) {
    action.setText(step.isEmpty() ? caption : caption + u": "_s + step);
    action.setEnabled(!step.isEmpty());
  };
  name(*mnu3_undo, u"&Rückgängig"_s, stack.undoText());
  name(*mnu3_redo, u"&Wiederholen"_s, stack.redoText());
}

void main::buildMask() {
  setWindowTitle(u"CALVORA  –  pH-Wert-Rechner für Heiz- und Kühlkreisläufe"_s);
  auto* mask = new QWidget(this);
  auto* columns = new QHBoxLayout(mask);
  columns->setContentsMargins(12, 12, 12, 14);
  columns->setSpacing(14);

  auto* right = new QVBoxLayout;
  right->setSpacing(14);
  QWidget* inputs = buildInputs();
  right->addWidget(buildResults());
  right->addWidget(buildCompanyArea(), 1);
  Command2 = makeButton(u"beenden"_s, 1800);
  Command2->setFocusPolicy(Qt::TabFocus);
  connect(Command2, &QPushButton::clicked, this,
          command(u" main_command2"_s, &main::Command2_Click));
  right->addWidget(Command2, 0, Qt::AlignRight);

  columns->addWidget(inputs, 0, Qt::AlignTop);
  columns->addLayout(right, 1);
  setCentralWidget(new ScrollingContent(mask));
  buildStatusBar();
  buildVerdict();

  // The keyboard walks the boxes in field order, then the buttons.
  QWidget* last = nullptr;
  const auto walk = [&last](QWidget& control) {
    if (last != nullptr) setTabOrder(last, &control);
    last = &control;
  };
  for (const int i : typedFields()) walk(Text1(i));
  walk(*Command3);
  for (const int i : typedFields()) walk(Command1(i));
  walk(*Command2);
  walk(*Command5);
  walk(*Command4);
  Text1(typedFields().front()).setFocus();

  resize(twips(15000), twips(10900 + kStatusHeight));
}

/// What stands further right was more lately added; what is permanent stands at the right end.
void main::buildStatusBar() {
  const auto add = [this](int stretch) {
    auto* label = new ElidedLabel;
    statusBar()->addWidget(label, stretch);
    return label;
  };
  fieldStatus = add(0);
  actionStatus = add(1);
  keptStatus = add(0);
  setRole(*keptStatus, Role::kKept);
  noticeStatus = add(0);
  noticeStatus->setStyleSheet(u"color: #a01010; font-weight: bold"_s);
  Command5 = makeLink();
  statusBar()->addWidget(Command5);
  connect(Command5, &QPushButton::clicked, this, command(u" main_drucken"_s, &main::openPrinted));
  fileStatus = new ElidedLabel;
  statusBar()->addPermanentWidget(fileStatus);
  statusBar()->setContentsMargins(8, 0, 8, 0);
  statusBar()->setMinimumHeight(twips(kStatusHeight));
}

QWidget* main::buildInputs() {
  auto* inputs = new QWidget;
  QGridLayout& grid = *makeGrid(inputs);
  int row = 0;
  addSection(grid, row, 1, u"  Eingabe pH - Wert Rechner"_s);
  for (const Field& field : inputFields()) {
    if (field.index == feld::kGesamthärte) {
      addSection(grid, row, 3, u"  Eingabe - Wasserhärte"_s);
    }
    addInputRow(grid, row++, field);
  }
  Label7 = makeCell({}, 1200, Role::kUnit);
  Command3 = new QPushButton;
  Command3->setFocusPolicy(Qt::TabFocus);
  Command3->setToolTip(
      u"Leitfähigkeit auf die gemessene Temperatur umgerechnet anzeigen und zurück"_s);
  Command3->setMinimumSize(twips(1750), twips(kRowHeight));
  connect(Command3, &QPushButton::clicked, this,
          [this] { guarded(questions_, u" main_command3"_s, [this] { Command3_Click(); }); });
  grid.addWidget(Label7, 1, kExtra);
  grid.addWidget(Command3, 1, kToggle);
  return inputs;
}

/// A header over its fields, with a gap to what stands above it.
void main::addSection(QGridLayout& grid, int& row, int index, const QString& caption) {
  if (row > 0) grid.setRowMinimumHeight(row++, twips(150));
  QLabel& label = Label3.add(index, makeLabel(caption));
  setRole(label, Role::kSection);
  grid.addWidget(&label, row++, 0, 1, -1);
}

void main::addInputRow(QGridLayout& grid, int row, const Field& field) {
  const int i = field.index;
  auto& box = Text1.add(i, new TextBox);
  box.setAccessibleName(spokenName(field));
  box.setFixedWidth(twips(kInputBoxWidth));
  box.setMinimumHeight(twips(kRowHeight));
  auto& caption = Label5.add(i, makeLabel(field.caption));
  grid.addWidget(&caption, row, kCaption);
  grid.addWidget(&Label6.add(i, makeLabel(field.shortLabel)), row, kSymbol);
  grid.addWidget(&box, row, kBox);
  if (!field.isTyped()) {
    setRole(box, Role::kComputed);
    box.setReadOnly(true);
    box.setFocusPolicy(Qt::NoFocus);
    grid.addWidget(&Label3.add(i, makeCell(field.unit, kUnitWidth, Role::kUnit)), row, kUnit);
    return;
  }
  setRole(box, Role::kInput);
  connectBox(i);
  auto& unit = Command1.add(i, new QPushButton(field.unit));
  unit.setMinimumSize(twips(kUnitWidth), twips(kRowHeight));
  setRole(unit, Role::kUnit);
  grid.addWidget(&unit, row, kUnit);
  unit.setFocusPolicy(Qt::TabFocus);
  if (i == feld::kPh) return unit.setEnabled(false);  // there is nothing to convert
  unit.setToolTip(u"Einheit umrechnen"_s);
  unit.setAccessibleName(u"Einheit umrechnen: "_s + box.accessibleName());
  pressOnEnter(unit);
  connect(&unit, &QPushButton::clicked, this, [this, i] {
    guarded(questions_, u" main_command1"_s, [&] {
      finishEntry();
      Command1_Click(i);
    });
  });
}

void main::connectBox(int index) {
  TextBox& box = Text1(index);
  box.holdsValue = true;
  box.filter = [](const QString& text) { return text.trimmed(); };
  box.accepts = std::bind_front(&main::acceptsPasted, this, index);
  box.keyPress = [this](int& code) { Text1_KeyPress(code); };
  connect(&box, &TextBox::keyDown, this, [this, index](int code) { Text1_KeyDown(index, code); });
  connect(&box, &TextBox::edited, this, [this, index] {
    const TextBox& edited = Text1(index);  // all typing undone is no entry
    program_.entryChanged = edited.isUndoAvailable() || !history_.holds(index, edited.text());
  });
  connect(&box, &TextBox::beforeKey, this, [this, index](bool edits) {
    finishLeftBoxes();
    if (edits && index == feld::kLeitfähigkeit && convertedShown_) {
      showConductivity(false);
      Text1(index).selectAll();
    }
  });
}

QWidget* main::buildResults() {
  auto* results = new QWidget;
  QGridLayout& grid = *makeGrid(results);
  int row = 0;
  addSection(grid, row, 2, u"  berechnete Werte "_s);
  for (const Field& field : resultFields()) {
    if (field.index == feld::kHydrogencarbonat) {
      addSection(grid, row, 4, u"  korrosionsrelevante Parameter"_s);
    }
    addResultRow(grid, row++, field);
  }
  const auto addNarrow = [&](int index, int besideRow) {
    auto& display = Label2.add(index, makeCell({}, kNarrowBoxWidth, Role::kComputed));
    grid.addWidget(&display, besideRow, kExtra);
  };
  addNarrow(schmal::kPhNäherung, 1);
  addNarrow(schmal::kLeitfähigkeitAusIonen, 4);
  return results;
}

void main::addResultRow(QGridLayout& grid, int row, const Field& field) {
  const int i = field.index;
  auto& caption = Label5.add(i, makeLabel(field.caption));
  caption.setToolTip(field.toolTip);
  auto& display = Label2.add(i, makeCell({}, kResultBoxWidth, Role::kComputed));
  grid.addWidget(&caption, row, kCaption);
  grid.addWidget(&Label6.add(i, makeLabel(field.shortLabel)), row, kSymbol);
  grid.addWidget(&display, row, kBox);
  const int width = field.unit.isEmpty() ? 0 : kResultUnitWidth;
  grid.addWidget(&Label3.add(i, makeCell(field.unit, width, Role::kUnit)), row, kUnit);
}

/// The verdict at the right end of the status bar; a click opens its window.
void main::buildVerdict() {
  Command4 = new QPushButton;
  Command4->setFlat(true);
  Command4->setFocusPolicy(Qt::TabFocus);
  pressOnEnter(*Command4);
  connect(Command4, &QPushButton::clicked, this,
          command(u" main_plausi"_s, &main::mnu2_plausi_Click));
  statusBar()->addPermanentWidget(Command4);
  // Large enough for every verdict, so that none of them lays the window out anew.
  Command4->ensurePolished();
  QSize size;
  for (const Verdict verdict : {Verdict::kStimmig, Verdict::kPrüfen, Verdict::kWiderspruch,
                                Verdict::kHinweis, Verdict::kNichtPrüfbar}) {
    Command4->setText(verdictSymbol(verdict) + ' '_L1 + verdictWord(verdict));
    size = size.expandedTo(Command4->sizeHint());
  }
  Command4->setFixedSize(size);
}

QWidget* main::buildCompanyArea() {
  Frame1 = new QFrame;
  Frame1->setObjectName(u"Frame1"_s);
  Frame1->setFrameShape(QFrame::StyledPanel);
  auto* area = new QGridLayout(Frame1);
  area->setContentsMargins(18, 12, 18, 12);
  area->setHorizontalSpacing(18);
  area->setVerticalSpacing(8);
  Label4 = makeLabel(u"<<< Ihr Firmen-Logo"_s);
  Label1 = makeLabel(u"   Ihre Firmen-Anschrift"_s);
  area->addWidget(&Image1.add(7, makeInfoPicture(drawCompanySign)), 0, 0, 2, 1);
  area->addWidget(Label4, 0, 1, Qt::AlignBottom);
  area->addWidget(Label1, 1, 1, Qt::AlignTop);

  auto* line = new QFrame;
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  area->addWidget(line, 2, 0, 1, 2);

  auto* supplier = new QVBoxLayout;
  supplier->setSpacing(1);
  supplier->addWidget(&Label10.add(5, makeLabel(u"Bezug über:   Fa XYZ"_s)));
  int index = 0;
  for (const auto& text :
       {u"Calvora Wassertechnik"_s, u"Am Beispielbach 1"_s, u"12345 Musterstadt"_s,
        u"kontakt@calvora.example"_s, u"www.calvora.example"_s}) {
    supplier->addWidget(&Label10.add(index++, makeLabel(text)));
  }
  area->addWidget(&Image1.add(0, makeInfoPicture(drawDrop)), 3, 0, Qt::AlignCenter);
  area->addLayout(supplier, 3, 1);
  // Tab walks boxes and buttons only, so the keyboard opens the information with keys of its own.
  const QKeySequence keys(u"Ctrl+I"_s);
  const auto open = command(u" main_image1"_s, &main::Image1_Click);
  connect(new QShortcut(keys, this), &QShortcut::activated, this, open);
  for (const auto& [picture, control] : Image1) {
    control->setToolTip(
        u"%1  (%2)"_s.arg(control->accessibleName(), keys.toString(QKeySequence::NativeText)));
    connect(control, &PictureButton::clicked, this, open);
  }
  area->setColumnStretch(1, 1);
  return Frame1;
}

}  // namespace calvora
