#include "tools/windows/varios.h"

#include <QGridLayout>
#include <QKeyEvent>

#include "platform/form.h"
#include "platform/look.h"
#include "platform/twips.h"
#include "tools/temperaturkorrektur.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstVolume = 4;  // 50 ml

QComboBox* makeList(const QStringList& entries, const QString& name) {
  auto* list = new QComboBox;
  list->addItems(entries);
  list->setMaxVisibleItems(static_cast<int>(entries.size()));
  list->setMinimumSize(twips(1500), twips(420));
  list->setAccessibleName(name);
  return list;
}

}  // namespace

varios::varios(QWidget* parent) : QDialog(parent) {
  setAttribute(Qt::WA_DeleteOnClose);
  buildWindow();
  Form_Load();
}

/// The first result comes once both lists stand: nothing is computed while they are filled.
void varios::Form_Load() {
  Combo1->setCurrentIndex(kFirstVolume);
  Combo2->setCurrentIndex(0);
  for (QComboBox* list : {Combo1, Combo2}) {
    connect(list, &QComboBox::currentIndexChanged, this, &varios::tempkorr);
  }
  tempkorr();
}

void varios::tempkorr() {
  const auto [volume, factor] = korrigiertesVolumen(Combo1->currentText(), Combo2->currentIndex());
  Label3(1).setText(volume);
  Label3(2).setText(factor);
}

void varios::keyPressEvent(QKeyEvent* event) {
  if (isEnter(*event)) {
    focusNextChild();
  } else {
    QDialog::keyPressEvent(event);
  }
}

void varios::buildWindow() {
  setWindowTitle(u"Temperatur-Korrektion"_s);
  auto* grid = new QGridLayout(this);
  setWindowMargins(*grid);
  grid->setHorizontalSpacing(24);
  grid->setVerticalSpacing(10);
  grid->setColumnStretch(0, 1);
  grid->setSizeConstraint(QLayout::SetFixedSize);

  // The run of blanks is where the heading breaks: it is as wide as what stands before it.
  const QString heading =
      u"Temperatur Korrektur für massanalytische Arbeiten              von Tx  auf  20°C"_s;
  Label1 = new QLabel(heading, this);
  Label1->setWordWrap(true);
  QFont bold = font();
  bold.setBold(true);
  Label1->setFont(bold);
  Label1->setFixedWidth(
      QFontMetrics(bold).horizontalAdvance(heading.section(u"   "_s, 0, 0) + u"  "_s));
  grid->addWidget(Label1, 0, 0, 1, 2);
  grid->setRowMinimumHeight(1, 4);

  const std::array captions{u"Volumen  ml"_s, u"Temp. Medium °C"_s, u"korrigiertes Vol. ml"_s,
                            u"Korr-Faktor"_s};
  Combo1 = makeList(volumenListe(), captions[0]);
  Combo2 = makeList(temperaturListe(), captions[1]);
  for (const auto& [index, caption] : {std::pair{1, captions[2]}, std::pair{2, captions[3]}}) {
    auto& display = Label3.add(index, new QLabel);
    setRole(display, Role::kComputed);
    display.setStyleSheet(u"background: #e0e0e0"_s);
    display.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    display.setMinimumHeight(twips(420));
    display.setAccessibleDescription(caption);
  }
  const std::array<QWidget*, 4> fields{Combo1, Combo2, &Label3(1), &Label3(2)};
  for (int i = 0; i < 4; ++i) {
    const auto at = static_cast<size_t>(i);
    grid->addWidget(&Label2.add(i + 1, new QLabel(captions.at(at))), i + 2, 0);
    grid->addWidget(fields.at(at), i + 2, 1);
  }

  Command1 = makeButton(u"<< zurück"_s, 1500);
  pressOnEnter(*Command1);
  connect(Command1, &QPushButton::clicked, this, &QWidget::close);
  grid->setRowMinimumHeight(6, 6);
  grid->addWidget(Command1, 7, 1);
  Combo1->setFocus();
}

}  // namespace calvora
