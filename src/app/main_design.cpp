// The main window's design: menus, mask, company area.
#include <QBoxLayout>
#include <QGridLayout>
#include <QMenuBar>
#include <QShortcut>

#include "app/main_window.h"
#include "base/guarded.h"
#include "platform/enter_press.h"
#include "platform/form.h"
#include "platform/look.h"
#include "platform/pictures.h"
#include "platform/scrolling_content.h"
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

QLabel* makeLabel(const QString& text, QWidget* parent = nullptr) {
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  return label;
}

QLabel* makeDisplay(int width) {
  QLabel* label = makeLabel({});
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setMinimumWidth(twips(width));
  label->setMinimumHeight(twips(kRowHeight));
  setRole(*label, Role::kComputed);
  return label;
}

QLabel* makeUnit(const QString& unit, int width) {
  QLabel* label = makeLabel(unit);
  label->setAlignment(Qt::AlignCenter);
  label->setMinimumWidth(twips(width));
  label->setMinimumHeight(twips(kRowHeight));
  if (width > 0) setRole(*label, Role::kUnit);
  return label;
}

QLabel* makeSection(const QString& caption) {
  QLabel* label = makeLabel(caption);
  setRole(*label, Role::kSection);
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

void addGap(QGridLayout& grid, int row) {
  grid.setRowMinimumHeight(row, twips(150));
}

PictureButton* makeInfoPicture(const Picture::Drawing& drawing) {
  return new PictureButton(drawing, 840, u"Erläuterung der berechneten pH-Werte"_s);
}

/// A field's name for those who hear the mask instead of seeing it.
QString spokenName(const Field& field) {
  const QString symbol = field.shortLabel.trimmed();
  const QString caption = field.caption.simplified();
  const QString name = caption.endsWith(symbol) ? caption : caption + ' '_L1 + symbol;
  return field.unit.isEmpty() ? name : name + u" in "_s + field.unit;
}

}  // namespace

void main::buildMenus() {
  const auto add = [](QMenu* menu, const QString& caption, const QKeySequence& keys = {}) {
    QAction* action = menu->addAction(caption);
    action->setShortcut(keys);
    return action;
  };
  QMenu* mnu1 = menuBar()->addMenu(u"  &Menue"_s);
  mnu_load = add(mnu1, u"Datei &laden"_s, QKeySequence(u"Ctrl+O"_s));
  mnu_save = add(mnu1, u"Daten-&speichern"_s, QKeySequence(u"Ctrl+S"_s));
  mnu_drucken = add(mnu1, u"&Drucken"_s, QKeySequence(u"Ctrl+P"_s));
  mnu1->addSeparator()->setObjectName(u"trenn1"_s);
  mnu_neustart = add(mnu1, u"&NEUSTART"_s, QKeySequence(u"Ctrl+N"_s));
  mnu_ende = add(mnu1, u"&Beenden"_s, QKeySequence(u"Ctrl+Q"_s));

  QMenu* mnu2 = menuBar()->addMenu(u"&Extras"_s);
  mnu2_pfad = add(mnu2, u"&Speicherpfad festlegen"_s);
  mnu2_fatext = add(mnu2, u"Ausdrucke &einrichten"_s);
  mnu2_tk = add(mnu2, u"&Temperatur-Korrektion"_s);
  mnu2_plausi = add(mnu2, u"&Plausibilitäts-Prüfung"_s);
  mnu2_ana = add(mnu2, u"&Analysen Übersicht"_s);
  mnu2->addSeparator()->setObjectName(u"trenn2"_s);
  mnu2_handbuch = add(mnu2, u"&Handbuch einsehen"_s, QKeySequence(u"F1"_s));
  mnu_version = add(mnu2, u"&Version"_s);

  mnu2_plausi->setEnabled(false);  // it has no action yet
  updateManual();
  connect(mnu2, &QMenu::aboutToShow, this, &main::updateManual);

  const auto connectAction = [this](QAction* action, const QString& location,
                                    void (main::*handler)()) {
    connect(action, &QAction::triggered, this, command(location, handler));
  };
  connectAction(mnu_load, u" ps_mnudladen"_s, &main::mnu_load_Click);
  connectAction(mnu_save, u" main_save"_s, &main::mnu_save_Click);
  connectAction(mnu_drucken, u" main_drucken"_s, &main::mnu_drucken_Click);
  connectAction(mnu2_pfad, u" main_pfad"_s, &main::mnu2_pfad_Click);
  connectAction(mnu2_fatext, u" main_fatext"_s, &main::mnu2_fatext_Click);
  connectAction(mnu2_tk, u" main_tk"_s, &main::mnu2_tk_Click);
  connectAction(mnu_version, u" main_version"_s, &main::mnu_version_Click);
  connectAction(mnu2_ana, u" main_ana"_s, &main::mnu2_ana_Click);
  connectAction(mnu_neustart, u" main_neustart"_s, &main::mnu_neustart_Click);
  connectAction(mnu_ende, u" main_ende"_s, &main::Command2_Click);
  connectAction(mnu2_handbuch, u" main_handbuch"_s, &main::mnu2_handbuch_Click);
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

  // The keyboard walks the boxes in field order, then the buttons.
  const std::vector<int>& boxes = typedFields();
  for (size_t i = 1; i < boxes.size(); ++i) {
    setTabOrder(&Text1(boxes[i - 1]), &Text1(boxes[i]));
  }
  setTabOrder(&Text1(boxes.back()), Command3);
  QWidget* last = Command3;
  for (const int i : boxes) {
    setTabOrder(last, &Command1(i));
    last = &Command1(i);
  }
  setTabOrder(last, Command2);
  Text1(boxes.front()).setFocus();

  resize(twips(15000), twips(10900));
}

QWidget* main::buildInputs() {
  auto* inputs = new QWidget;
  QGridLayout& grid = *makeGrid(inputs);
  int row = 0;
  const auto addSection = [&](int index, const QString& caption) {
    grid.addWidget(&Label3.add(index, makeSection(caption)), row++, 0, 1, kColumns);
  };
  addSection(1, u"  Eingabe pH - Wert Rechner"_s);
  for (const Field& field : inputFields()) {
    if (field.index == feld::kGesamthärte) {
      addGap(grid, row++);
      addSection(3, u"  Eingabe - Wasserhärte"_s);
    }
    addInputRow(grid, row++, field);
  }
  Label7 = makeUnit({}, 1200);
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
    grid.addWidget(&Label3.add(i, makeUnit(field.unit, kUnitWidth)), row, kUnit);
    return;
  }
  setRole(box, Role::kInput);
  connectBox(i);
  auto& unit = Command1.add(i, new QPushButton(field.unit));
  unit.setMinimumWidth(twips(kUnitWidth));
  unit.setMinimumHeight(twips(kRowHeight));
  setRole(unit, Role::kUnit);
  grid.addWidget(&unit, row, kUnit);
  connectUnit(i);
}

/// A unit opens the converter; the pH has none to convert.
void main::connectUnit(int index) {
  QPushButton& unit = Command1(index);
  unit.setFocusPolicy(index == feld::kPh ? Qt::NoFocus : Qt::TabFocus);
  unit.setEnabled(index != feld::kPh);
  if (index == feld::kPh) return;
  unit.setToolTip(u"Einheit umrechnen"_s);
  unit.setAccessibleName(u"Einheit umrechnen: "_s + Text1(index).accessibleName());
  pressOnEnter(unit);
  connect(&unit, &QPushButton::clicked, this, [this, index] {
    guarded(questions_, u" main_command1"_s, [&] {
      finishEntry();
      Command1_Click(index);
    });
  });
}

void main::connectBox(int index) {
  TextBox& box = Text1(index);
  box.holdsValue = true;
  box.filter = [](const QString& text) { return text.trimmed(); };
  box.accepts = [this, index](const QString& text, const QString& whole) {
    return acceptsPasted(index, text, whole);
  };
  box.keyPress = [this](int& code) { Text1_KeyPress(code); };
  connect(&box, &TextBox::keyDown, this, [this, index](int code) { Text1_KeyDown(index, code); });
  connect(&box, &TextBox::edited, this, [this] { program_.entryChanged = true; });
  connect(&box, &TextBox::beforeKey, this, [this, index](bool edits) {
    finishLeftBoxes();
    if (edits && index == feld::kLeitfähigkeit && convertedShown_) {
      showConductivityAt25();
      Text1(index).selectAll();
    }
  });
}

QWidget* main::buildResults() {
  auto* results = new QWidget;
  QGridLayout& grid = *makeGrid(results);
  int row = 0;
  const auto addSection = [&](int index, const QString& caption) {
    grid.addWidget(&Label3.add(index, makeSection(caption)), row++, 0, 1, kToggle);
  };
  addSection(2, u"  berechnete Werte "_s);
  for (const Field& field : resultFields()) {
    if (field.index == feld::kHydrogencarbonat) {
      addGap(grid, row++);
      addSection(4, u"  korrosionsrelevante Parameter"_s);
    }
    addResultRow(grid, row++, field);
  }
  const auto addNarrow = [&](int index, int besideRow, const QString& toolTip) {
    auto& display = Label2.add(index, makeDisplay(kNarrowBoxWidth));
    display.setToolTip(toolTip);
    display.setAccessibleDescription(toolTip);
    grid.addWidget(&display, besideRow, kExtra);
  };
  addNarrow(schmal::kPhNäherung, 1, u"pH-Wert aus den Kapazitäten, Näherung"_s);
  addNarrow(schmal::kLeitfähigkeitAusIonen, 4, u"Leitfähigkeit aus den Ionen in µS/cm"_s);
  return results;
}

void main::addResultRow(QGridLayout& grid, int row, const Field& field) {
  const int i = field.index;
  auto& caption = Label5.add(i, makeLabel(field.caption));
  caption.setToolTip(field.toolTip);
  auto& display = Label2.add(i, makeDisplay(kResultBoxWidth));
  // The name stays the text shown: a screen reader reads the value, then what it is.
  display.setAccessibleDescription(spokenName(field));
  grid.addWidget(&caption, row, kCaption);
  grid.addWidget(&Label6.add(i, makeLabel(field.shortLabel)), row, kSymbol);
  grid.addWidget(&display, row, kBox);
  grid.addWidget(&Label3.add(i, makeUnit(field.unit, field.unit.isEmpty() ? 0 : kResultUnitWidth)),
                 row, kUnit);
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
  const std::array lines{u"Calvora Wassertechnik"_s, u"Am Beispielbach 1"_s, u"12345 Musterstadt"_s,
                         u"kontakt@calvora.example"_s, u"www.calvora.example"_s};
  supplier->addWidget(&Label10.add(5, makeLabel(u"Bezug über:   Fa XYZ"_s)));
  for (size_t i = 0; i < lines.size(); ++i) {
    supplier->addWidget(&Label10.add(static_cast<int>(i), makeLabel(lines.at(i))));
  }
  area->addWidget(&Image1.add(0, makeInfoPicture(drawDrop)), 3, 0, Qt::AlignCenter);
  area->addLayout(supplier, 3, 1);
  connectInfoPictures();
  area->setColumnStretch(1, 1);
  return Frame1;
}

/// Tab walks boxes and buttons only, so the keyboard opens the information with keys of its own.
void main::connectInfoPictures() {
  const QKeySequence keys(u"Ctrl+I"_s);
  const auto open = command(u" main_image1"_s, &main::Image1_Click);
  connect(new QShortcut(keys, this), &QShortcut::activated, this, open);
  for (const auto& [index, picture] : Image1) {
    picture->setToolTip(
        u"%1  (%2)"_s.arg(picture->accessibleName(), keys.toString(QKeySequence::NativeText)));
    connect(picture, &PictureButton::clicked, this, open);
  }
}

}  // namespace calvora
