#include "plausi/windows/plausi.h"

#include <QAction>
#include <QBoxLayout>
#include <QClipboard>
#include <QGuiApplication>
#include <QScreen>
#include <QTabWidget>

#include "base/guarded.h"
#include "platform/form.h"
#include "platform/look.h"
#include "platform/twips.h"
#include "plausi/windows/comparison_table.h"
#include "plausi/windows/ph_scale.h"
#include "plausi/windows/uncertainty_form.h"
#include "storage/windows/dateien.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

enum Command { kCopy = 1, kPrint, kClose };

QString verdictName(Verdict verdict) {
  switch (verdict) {
    case Verdict::kStimmig:
      return u"good"_s;
    case Verdict::kPrüfen:
      return u"doubtful"_s;
    case Verdict::kWiderspruch:
      return u"bad"_s;
    case Verdict::kHinweis:
    case Verdict::kNichtPrüfbar:
      break;
  }
  return u"none"_s;
}

}  // namespace

// No parent: it would always lie over the main window, which stays in use beside it.
plausi::plausi(const Plausibility& found, Settings& settings, const QString& programFolder,
               Questions& questions)
    : QDialog(nullptr, Qt::Window),
      settings_(settings),
      programFolder_(programFolder),
      questions_(questions) {
  setAttribute(Qt::WA_DeleteOnClose);
  buildWindow();
  darstellen(found);
}

void plausi::darstellen(const Plausibility& found) {
  Label1->setText(verdictSymbol(found.overall()) + ' '_L1 + found.summary());
  setStyleProperty(*Label1, "verdict", verdictName(found.overall()));
  Picture1->showMarks(found.marks);
  MSFlexGrid1->showRows(found.rows);
}

void plausi::Command1_Click(int index) {
  guarded(questions_, u" plausi\\C1_click"_s, [this, index] {
    Form1->finishEntry();
    if (index == kCopy) QGuiApplication::clipboard()->setText(MSFlexGrid1->wholeText());
    if (index == kPrint) print();
    if (index == kClose) close();
  });
}

/// An uncertainty that is still being typed is finished, as it is when its box is left.
void plausi::done(int result) {
  setFocus();
  QDialog::done(result);
}

/// A failure to write is told; the running program goes on with what was entered.
void plausi::keepUncertainties() {
  settings_.slot[setting::kUncertainties] = settingOf(Form1->uncertainties());
  changed();
  showFailure(*failure_, Dateien::inispeichern(settings_, programFolder_, questions_,
                                               setting::kUncertainties));
}

// ---- Design ----

void plausi::buildWindow() {
  setWindowTitle(u"Plausibilitäts-Prüfung"_s);
  setStyleSheet(
      uR"(
QLabel[verdict] { border: 1px solid #728194; border-radius: 3px;
  color: #1b2430; background: #ffffff; font-weight: bold; }
QLabel[verdict="good"] { background: #ddf2df; }
QLabel[verdict="doubtful"] { background: #fff1c2; }
QLabel[verdict="bad"] { background: #fbd9d3; })"_s);
  Label1 = new QLabel;
  Label1->setTextFormat(Qt::PlainText);
  Label1->setWordWrap(true);
  Label1->setMargin(twips(110));
  // The symbols come from fonts of other heights; what is below the line must not move with them.
  Label1->setMinimumHeight(2 * Label1->fontMetrics().height());
  Label1->setAccessibleDescription(u"Ergebnis der Plausibilitäts-Prüfung"_s);
  Picture1 = new PhScale;
  MSFlexGrid1 = new ComparisonTable;
  buildForm();
  SSTab1 = new QTabWidget;
  SSTab1->addTab(MSFlexGrid1, u"&Vergleiche"_s);
  SSTab1->addTab(Form1, u"&Messunsicherheiten"_s);
  addButtons(Command1, 1800,
             {{kCopy, u"Tabelle kopieren"_s}, {kPrint, u"drucken"_s}, {kClose, u"schließen"_s}},
             [this](int index) { Command1_Click(index); });
  auto* layout = new QVBoxLayout(this);
  setWindowMargins(*layout);
  layout->addWidget(Label1);
  layout->addWidget(Picture1);
  layout->addWidget(SSTab1, 1);
  failure_ = makeFailureLine();
  layout->addWidget(failure_);
  layout->addLayout(makeButtonRow({&Command1(kCopy), &Command1(kPrint), &Command1(kClose)}));
  Command1(kCopy).setToolTip(
      u"für eine Tabellenkalkulation; Strg+C kopiert nur die markierten "
      "Zeilen, wenn welche markiert sind"_s);
  auto* copyRows = new QAction(u"&Kopieren"_s, this);
  copyRows->setShortcut(QKeySequence::Copy);
  connect(copyRows, &QAction::triggered, this,
          [this] { QGuiApplication::clipboard()->setText(MSFlexGrid1->selectedText()); });
  addAction(copyRows);
  MSFlexGrid1->addAction(copyRows);
  MSFlexGrid1->setContextMenuPolicy(Qt::ActionsContextMenu);
  MSFlexGrid1->setFocus();

  const QScreen* screen = QGuiApplication::primaryScreen();
  if (screen != nullptr) resize(sizeHint().boundedTo(screen->availableSize()));
}

void plausi::buildForm() {
  Form1 = new UncertaintyForm(uncertaintiesOf(settings_.slot[setting::kUncertainties]), questions_);
  Form1->changed = [this] { keepUncertainties(); };
}

}  // namespace calvora
