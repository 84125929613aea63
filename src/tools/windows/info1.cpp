#include "tools/windows/info1.h"

#include <QBoxLayout>

#include "dialogs/windows/symbols.h"
#include "platform/form.h"
#include "platform/look.h"
#include "platform/twips.h"
#include "tools/infotexte.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

// Twips.
constexpr int kWidth = 9200;
constexpr int kListWidth = 8900;

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
  List1->addItems(infotexte());
  List1->setMinimumHeight(List1->sizeHintForRow(0) * List1->count() + 2 * List1->frameWidth());
  List1->setVisible(true);
}

}  // namespace calvora
