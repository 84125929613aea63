#include "tools/windows/info1.h"

#include <QBoxLayout>

#include "dialogs/windows/symbols.h"
#include "platform/form.h"
#include "platform/look.h"
#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

// Twips.
constexpr int kWidth = 9200;
constexpr int kListWidth = 8900;

/// Names and explanations line up in a font of fixed width; a row of one blank separates blocks.
const QStringList kRows{
    u"pH aus Ks-Wert      pH-Wert wird aus Kb- bzw. den Ks-Werten berechnet"_s,
    u" "_s,
    u"pH-Wert aus Ks8,2   pH-Wert der aus dem Ks8,2  berechnet werden kann. "_s,
    u"                    Bedingung: salzarme Matrix (VE-Wasser, Natronlauge)"_s,
    u" "_s,
    u"pH bei 25°C         Umrechnung des gemessenen pH-Wertes auf Std.-Temp."_s,
    u"                    25 °C  nach DIN 38404"_s,
    u" "_s,
    u"pH aus LF / VE      pH-Wert der nur aus der Leitfähigkeit berechnet  "_s,
    u"                    wird. für Wässer mit pH >8,2. und salzarmer Matrix"_s,
    u" "_s,
    QString(),
};

}  // namespace

info1::info1(QWidget* parent)
    : QDialog(parent),
      List1(new QListWidget),
      Command1(makeButton(u"schliessen"_s, 1800)),
      Label1(new QLabel(u" "_s)),
      Image4(new Picture(symbolDrawing(Symbol::kAttention), 480)) {
  setWindowTitle(u"  info"_s);
  setFixedWidth(twips(kWidth));
  List1->setFont(monospacedFont());
  List1->setFixedWidth(twips(kListWidth));
  List1->setAccessibleName(u"Erläuterung der berechneten pH-Werte"_s);
  List1->setVisible(false);
  Command1->setDefault(true);
  connect(Command1, &QPushButton::clicked, this, &QWidget::close);

  auto* foot = new QHBoxLayout;
  foot->addWidget(Image4);
  foot->addWidget(Label1, 1);
  foot->addWidget(Command1);
  auto* layout = new QVBoxLayout(this);
  const int margin = twips(kWidth - kListWidth) / 2;
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin);
  layout->addWidget(List1, 1);
  layout->addLayout(foot);
  Command1->setFocus();
}

void info1::infotxt1() {
  List1->clear();
  List1->addItems(kRows);
  List1->setMinimumHeight(List1->sizeHintForRow(0) * List1->count() + 2 * List1->frameWidth());
  List1->setVisible(true);
}

}  // namespace calvora
