#include "tools/windows/dimum.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>

#include "base/guarded.h"
#include "platform/form.h"
#include "platform/look.h"
#include "platform/placement.h"
#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

// Twips.
constexpr int kUnitWidth = 1950;
constexpr int kValueWidth = 1650;
constexpr int kRowHeight = 420;
constexpr int kLeft = 1500;  // from the main window's corner
constexpr int kTop = 600;
constexpr int kInputBoxLeft = 6200;
constexpr int kInputBoxTop = 8400;

const QString kLook =
    uR"(
*[look] { border: 1px solid #728194; border-radius: 3px; padding: 2px 11px; color: #000000;
  text-align: right; }
*[look="normal"] { background: #ffff00; }
*[look="value"] { background: #ffffff; }
*[look="own"] { background: #ff0080; color: #ffffff; border-color: #a80054; font-weight: bold; }
*[look="marked"] { background: #0000c0; color: #ffffff; border-color: #00007a; }
*[look="massless"] { background: #e0e0e0; color: #4a4a4a; border-color: #c4c4c4; }
*[look="empty"] { background: transparent; border-color: #d6dde4; }
*[look]:focus { border: 2px solid #1b2430; padding: 1px 10px; outline: none; }
)"_s;

}  // namespace

dimum::dimum(const AnalysisRecord& record, int field, Questions& questions, Desktop& desktop,
             TakeOver takeOver, QWidget& mainWindow)
    : QDialog(&mainWindow),
      questions_(questions),
      desktop_(desktop),
      takeOver_(std::move(takeOver)),
      converter_(record, field) {
  setAttribute(Qt::WA_DeleteOnClose);
  setEnabled(true);  // although the window below is not
  buildWindow();
  Form_Load();
  placeOnScreen(*this, mainWindow.pos() - mainWindow.screen()->geometry().topLeft() +
                           QPoint(twips(kLeft), twips(kTop)));
}

void dimum::Form_Load() {
  Label2->setText(converter_.heading());
  Text2 = converter_.ownSlot();
  for (const auto& [index, label] : Label1) setLook(index, Look::kNormal);
  if (Text2 != 0) setLook(Text2, Look::kOwn);
  showSlots();
  if (Text2 != 0) moveFocusTo(Text2);
}

/// Shows what the converter holds.
void dimum::showSlots() {
  for (const auto& [index, unit] : Label1) {
    const UnitSlot& slot = converter_.slot(index);
    unit->setText(slot.caption);
    unit->setEnabled(slot.enabled);
    unit->setAccessibleName(slot.text + ' '_L1 + slot.caption.trimmed());
    Label3(index).setText(slot.text);
    Label3(index).setEnabled(slot.enabled);
  }
  Command1->setEnabled(converter_.canTakeOver());
  Command1->setToolTip(converter_.isRuledOut()     ? u"Der pH-Wert schließt diesen Wert aus"_s
                       : !converter_.canTakeOver() ? u"Geben Sie zuerst einen Wert ein"_s
                                                   : QString());
}

void dimum::setLook(int index, Look look) {
  const UnitSlot& slot = converter_.slot(index);
  if (slot.caption.isEmpty()) look = Look::kEmpty;
  if (slot.massless) look = Look::kMassless;
  static const std::array kNames{u"normal"_s, u"own"_s, u"marked"_s, u"massless"_s, u"empty"_s};
  const QString& name = kNames.at(static_cast<size_t>(look));
  setStyleProperty(Label1(index), "look", name);
  setStyleProperty(Label3(index), "look", look == Look::kNormal ? u"value"_s : name);
}

void dimum::Label1_MouseMove(int index) {
  if (index == Text3) return;
  if (Text3 == 0 || Text3 == Text2) {
    setLook(Text2, Look::kOwn);
  } else {
    setLook(Text3, Look::kNormal);
  }
  if (index != Text2) setLook(index, Look::kMarked);
  Text3 = index;
}

/// The slots are one stop for Tab: the one that had the focus last.
void dimum::moveFocusTo(int index) {
  for (const auto& [i, unit] : Label1) {
    unit->setFocusPolicy(i == index ? Qt::StrongFocus : Qt::ClickFocus);
  }
  Label1(index).setFocus(Qt::OtherFocusReason);
}

void dimum::labclick(int index) {
  guarded(questions_, u" dimum\\labclick"_s, [&] {
    moveFocusTo(index);
    Conversion result = Conversion::kDone;
    do {
      const auto typed = desktop_.askText(this, {.title = u"Eingabe"_s,
                                                 .prompt = converter_.prompt(index),
                                                 .left = kInputBoxLeft,
                                                 .top = kInputBoxTop});
      result = converter_.enter(index, typed.value_or(QString()));
      showSlots();
      if (result != Conversion::kDone) questions_.ask(entryNotice(result, index));
      if (result == Conversion::kTooLarge) {
        converter_.clearTexts();
        showSlots();
      }
    } while (result != Conversion::kDone);
  });
}

void dimum::Command1_Click() {
  bool again = true;
  guarded(questions_, u" dimum\\command1"_s,
          [&] { again = takeOver_(converter_.field(), converter_.ownText()); });
  if (!again) Command2_Click();
}

void dimum::Command2_Click() {
  close();
}

void dimum::mnuhelp_Click() {
  questions_.ask({.text = umrechnerHilfe(), .title = u"Hilfe"_s});
}

bool dimum::eventFilter(QObject* receiver, QEvent* event) {
  const int index = receiver->property("index").toInt();
  if (event->type() == QEvent::KeyPress) return keyOn(index, *static_cast<QKeyEvent*>(event));
  if (event->type() == QEvent::FocusIn) Label1_MouseMove(index);
  const auto& unit = *static_cast<QWidget*>(receiver);
  const bool pointedAt = event->type() == QEvent::MouseMove && unit.isEnabled() &&
                         unit.rect().contains(static_cast<QMouseEvent*>(event)->pos());
  if (pointedAt) {
    // Mouse and arrow keys move one and the same mark while the focus is on a slot.
    const bool onSlot = focusWidget() != nullptr && focusWidget()->property("index").isValid();
    if (onSlot) moveFocusTo(index);
    Label1_MouseMove(index);
  }
  return QDialog::eventFilter(receiver, event);
}

bool dimum::keyOn(int index, const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
      break;
    default:
      return false;
  }
  const bool sideways = key.key() == Qt::Key_Left || key.key() == Qt::Key_Right;
  const bool back = key.key() == Qt::Key_Left || key.key() == Qt::Key_Up;
  const int rows = sideways ? kSlotRows : 1;
  moveFocusTo(converter_.neighbour(index, back ? -rows : rows));
  return true;
}

void dimum::addSlot(QGridLayout& grid, int index) {
  const auto add = [&](ControlArray<QPushButton>& buttons, int width) -> QPushButton& {
    QPushButton& button = buttons.add(index, new QPushButton);
    button.setMinimumSize(twips(width), twips(kRowHeight));
    pressOnEnter(button);
    connect(&button, &QPushButton::clicked, this, [this, index] { labclick(index); });
    return button;
  };
  QPushButton& unit = add(Label1, kUnitWidth);
  QPushButton& value = add(Label3, kValueWidth);
  if (index <= kSlotRows) unit.setToolTip(u"Zur Wert-Eingabe anklicken"_s);
  unit.setProperty("index", index);
  unit.setMouseTracking(true);
  unit.installEventFilter(this);
  value.setFocusPolicy(Qt::NoFocus);
  const int column = index <= kSlotRows ? 0 : 3;
  const int row = (index - 1) % kSlotRows;
  grid.addWidget(&unit, row, column);
  grid.addWidget(&value, row, column + 1);
}

QWidget* dimum::buildSlots() {
  auto* area = new QWidget;
  auto* grid = new QGridLayout(area);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(7);
  grid->setColumnMinimumWidth(2, twips(240));
  for (const int column : {0, 1, 3, 4}) grid->setColumnStretch(column, 1);
  for (int index = 1; index <= kUnitSlots; ++index) addSlot(*grid, index);
  return area;
}

void dimum::buildWindow() {
  setWindowTitle(u"  Dimensions-Umrechnung"_s);
  setStyleSheet(kLook);
  auto* layout = new QVBoxLayout(this);
  setWindowMargins(*layout);
  layout->setSpacing(14);
  auto* menu = new QMenuBar;
  mnuhelp = menu->addAction(u"?"_s);
  mnuhelp->setShortcut(QKeySequence(u"F1"_s));
  layout->setMenuBar(menu);
  connect(mnuhelp, &QAction::triggered, this, &dimum::mnuhelp_Click);

  Label2 = new QLabel;
  Label2->setTextFormat(Qt::PlainText);
  setRole(*Label2, Role::kSection);
  layout->addWidget(Label2);
  layout->addWidget(buildSlots());

  Command1 = makeButton(u"Eingabe übernehmen"_s, 2400);
  Command2 = makeButton(u"abbrechen"_s, 2400);
  for (QPushButton* button : {Command1, Command2}) pressOnEnter(*button);
  connect(Command1, &QPushButton::clicked, this, &dimum::Command1_Click);
  connect(Command2, &QPushButton::clicked, this, &dimum::Command2_Click);
  layout->addLayout(makeButtonRow({Command1, Command2}));
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace calvora
