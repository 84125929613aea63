#include "plausi/windows/uncertainty_form.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>

#include "entry/decimal.h"
#include "entry/key_filter.h"
#include "model/fields.h"
#include "platform/form.h"
#include "platform/look.h"
#include "platform/placement.h"
#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBoxWidth = 1200;  // twips
constexpr int kBoxHeight = 375;

QString textOf(double number) {
  return Decimal(number).fullText();
}

QString unitOf(int field) {
  return field == feld::kPh ? u"pH"_s : fieldOf(field).unit;  // the mask adds when it was measured
}

/// The part of an uncertainty that the box of an odd or even place holds.
double& partOf(Uncertainty& uncertainty, qsizetype place) {
  return place % 2 == 0 ? uncertainty.absolute : uncertainty.percent;
}

QString inWords(const Uncertainty& uncertainty) {
  QStringList parts;
  if (uncertainty.absolute != 0 || uncertainty.percent == 0) {
    parts += u"%1 %2"_s.arg(textOf(uncertainty.absolute), unitOf(uncertainty.field));
  }
  if (uncertainty.percent != 0) parts += textOf(uncertainty.percent) + u" %"_s;
  return parts.join(u" und "_s).simplified();
}

QLabel* makeText(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

UncertaintyForm::UncertaintyForm(const Uncertainties& uncertainties, Questions& questions)
    : uncertainties_(uncertainties), questions_(questions) {
  auto* rows = new QWidget;
  auto* grid = new QGridLayout(rows);
  grid->setHorizontalSpacing(twips(300));
  grid->setVerticalSpacing(twips(60));
  grid->setColumnStretch(5, 1);
  addHeadings(*grid);
  for (int row = 0; row < static_cast<int>(uncertainties_.size()); ++row) addRow(*grid, row);
  showParts();

  auto* explanation = makeText(
      u"So weit können Messwerte vom wahren Wert entfernt sein (erweiterte Messunsicherheit, k = "
      u"2: "
      "in etwa 95 von 100 Fällen nicht weiter). Beide Anteile werden quadratisch addiert. Nach "
      "ihnen richtet sich, was als stimmig gilt."_s);
  explanation->setWordWrap(true);
  Command1 = makeButton(u"Vorgaben"_s, 1500);
  Command1->setToolTip(u"alle Messunsicherheiten wieder so, wie das Programm sie vorgibt"_s);
  pressOnEnter(*Command1);
  connect(Command1, &QPushButton::clicked, this, [this] {
    uncertainties_ = defaultUncertainties();
    showParts();
    changed();
  });
  auto* content = new QWidget;
  auto* layout = new QGridLayout(content);
  layout->addWidget(rows, 1, 0, 1, 2);  // first for the keyboard, too
  layout->addWidget(explanation, 0, 0);
  layout->addWidget(Command1, 0, 1, Qt::AlignTop);
  layout->setColumnStretch(0, 1);
  layout->setRowStretch(1, 1);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(new ScrollingContent(content));
}

void UncertaintyForm::addHeadings(QGridLayout& grid) {
  int column = 0;
  for (const auto& heading :
       {u"Messwert"_s, u"± absolut"_s, u"Einheit"_s, u"± in % des Werts"_s, u"Vorgabe"_s}) {
    QLabel* label = makeText(heading);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    grid.addWidget(label, 0, column++);
  }
}

void UncertaintyForm::addRow(QGridLayout& grid, int row) {
  const int field = uncertainties_[static_cast<size_t>(row)].field;
  const QString name = u"Messunsicherheit %1, "_s.arg(fullName(fieldOf(field)));
  grid.addWidget(makeText(fullName(fieldOf(field))), row + 1, 0);
  grid.addWidget(&addBox(Text1, field, name + u"absolut in "_s + unitOf(field)), row + 1, 1);
  grid.addWidget(makeText(unitOf(field)), row + 1, 2);
  grid.addWidget(&addBox(Text2, field, name + u"in Prozent des Werts"_s), row + 1, 3);
  for (const Uncertainty& usual : defaultUncertainties()) {
    if (usual.field == field) grid.addWidget(makeText(inWords(usual)), row + 1, 4);
  }
}

TextBox& UncertaintyForm::addBox(ControlArray<TextBox>& boxes, int field, const QString& name) {
  TextBox& box = boxes.add(field, new TextBox);
  const qsizetype place = order_.size();
  order_ += &box;
  box.setAccessibleName(name);
  box.setFixedWidth(twips(kBoxWidth));
  box.setMinimumHeight(twips(kBoxHeight));
  setRole(box, Role::kInput);
  box.holdsValue = true;
  box.filter = [](const QString& text) { return text.trimmed(); };
  box.accepts = [](const QString&, const QString& whole) { return isNumberText(whole); };
  box.keyPress = [](int& code) {
    if (!isNumberKey(code) || code == '<') code = 0;
  };
  connect(&box, &TextBox::keyDown, this, [this, place](int code) {
    const qsizetype step = code == key::kEnter ? 1 : code == key::kDown ? 2 : -2;
    if (code == key::kSpace) return;
    order_[(place + step + order_.size()) % order_.size()]->setFocus(Qt::TabFocusReason);
  });
  // A message that opened inside the event that moves the focus would move it again.
  connect(
      &box, &QLineEdit::editingFinished, this, [this, place] { take(place); },
      Qt::QueuedConnection);
  return box;
}

void UncertaintyForm::take(qsizetype place) {
  const auto row = static_cast<size_t>(place / 2);
  double& value = partOf(uncertainties_[row], place);
  TextBox& box = *order_[place];
  const QString typed = box.text().trimmed();
  if (typed == textOf(value) || !window()->isVisible()) return;
  Uncertainty usual = defaultUncertainties()[row];
  const auto number = typed.isEmpty() ? partOf(usual, place) : uncertaintyIn(typed);
  const double before = std::exchange(value, number.value_or(value));
  box.showText(textOf(value));
  if (value != before) changed();
  if (number) return;
  const QString largest = textOf(kLargestUncertainty);
  questions_.ask({.text = u" Bitte eine Zahl von 0 bis %1 eingeben ! "_s.arg(largest),
                  .title = u"Messunsicherheit"_s,
                  .symbol = Symbol::kWarning});
  box.setFocus(Qt::OtherFocusReason);
}

void UncertaintyForm::finishEntry() {
  for (qsizetype place = 0; place < order_.size(); ++place) take(place);
}

void UncertaintyForm::showParts() {
  for (const Uncertainty& uncertainty : uncertainties_) {
    Text1(uncertainty.field).showText(textOf(uncertainty.absolute));
    Text2(uncertainty.field).showText(textOf(uncertainty.percent));
  }
}

}  // namespace calvora
