#include "storage/windows/firma.h"

#include <QGridLayout>

#include "dialogs/meldungen.h"
#include "entry/key_filter.h"
#include "platform/form.h"
#include "platform/look.h"
#include "platform/twips.h"
#include "storage/windows/dateien.h"
#include "storage/windows/datenpfad.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

enum Command { kSave = 1, kCancel };

constexpr int kLines = 4;
constexpr int kPreview = 4;

}  // namespace

firma::firma(Settings& settings, const QString& programFolder, Questions& questions,
             QWidget* parent)
    : QDialog(parent), settings_(settings), programFolder_(programFolder), questions_(questions) {
  setAttribute(Qt::WA_DeleteOnClose);
  buildWindow();
  Form_Load();
}

void firma::Form_Load() {
  const QString& printLine = settings_.slot[setting::kPrintLine];
  Text1(kPreview).showText(printLine.trimmed());
  showAvailable(printLine.size());
  const CompanyLines shown = linesOfSegmentList(settings_.slot[setting::kSegmentList]);
  for (int i = 0; i < kLines; ++i) Text1(i).showText(shown.at(static_cast<size_t>(i)));
  Command1(kSave).setEnabled(false);
}

void firma::showAvailable(qsizetype length) {
  Label3(1).setText(QString::number(kLongestPrintLine - length));
}

CompanyLines firma::lines() const {
  return {Text1(0).text(), Text1(1).text(), Text1(2).text(), Text1(3).text()};
}

void firma::Text1_Change() {
  const QString preview = companyPreview(lines());
  Text1(kPreview).showText(preview);
  showAvailable(preview.size());
  Command1(kSave).setEnabled(true);
}

void firma::Command1_Click(int index) {
  if (index == kCancel) close();
  if (index == kSave) save();
}

void firma::save() {
  const CompanyLines segments = storedSegments(lines());
  const QString printLine = joinedSegments(segments);
  if (printLine.size() > kLongestPrintLine) {
    datenpfad::message(questions_, meldung::kDruckzeileZuLang);
    return;
  }
  if (!keyPressed_) return;
  settings_.segments = segments;
  const QString failure =
      Dateien::inispeichern(settings_, programFolder_, questions_, setting::kFirstSegment);
  settings_.slot[setting::kPrintLine] = printLine;
  settings_.slot[setting::kSegmentList] = segmentList(segments);
  // In the running program the first two slots of the segments hold line and list instead.
  settings_.slot[setting::kLastSegment - 1].clear();
  settings_.slot[setting::kLastSegment].clear();
  showFailure(*failure_, failure);
  if (!failure.isEmpty()) return;  // the window stays, to try again
  datenpfad::message(questions_, meldung::kDruckzeileGespeichert);
  close();
}

void firma::connectLine(int index) {
  TextBox& line = Text1(index);
  line.filter = filteredText;
  // Every key counts, also one that is swallowed or changes nothing.
  connect(&line, &TextBox::beforeKey, this, [this] { keyPressed_ = true; });
  line.keyPress = text_check;
  connect(&line, &TextBox::keyDown, this, [this, index](int code) {
    const bool forward = code == key::kEnter || code == key::kDown;
    if (!forward && code != key::kUp) return;
    Text1((index + (forward ? 1 : kLines - 1)) % kLines).setFocus(Qt::TabFocusReason);
  });
  connect(&line, &TextBox::edited, this, &firma::Text1_Change);
}

void firma::buildWindow() {
  setWindowTitle(u"Ausdruck Firmendaten"_s);
  auto* grid = new QGridLayout(this);
  setWindowMargins(*grid);
  grid->setHorizontalSpacing(14);
  grid->setVerticalSpacing(10);
  grid->setColumnStretch(1, 1);
  grid->addWidget(&Label2.add(0, new QLabel(u"Geben Sie hier den Text ein, für die Ausdrucke !"_s)),
                  0, 0, 1, 2);
  const std::array captions{u"Firmen-Name"_s, u"Zeile-2"_s, u"Zeile-3"_s, u"Zeile-4"_s};
  for (int i = 0; i <= kPreview; ++i) {
    auto& box = Text1.add(i, new TextBox);
    box.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    box.setMinimumHeight(twips(400));
    setRole(box, i == kPreview ? Role::kComputed : Role::kInput);
    if (i == kPreview) continue;
    const QString& caption = captions.at(static_cast<size_t>(i));
    box.setAccessibleName(caption);
    grid->addWidget(&Label1.add(i + 1, new QLabel(caption)), i + 1, 0);
    grid->addWidget(&box, i + 1, 1);
    connectLine(i);
  }
  grid->addWidget(&Label2.add(1, new QLabel(u"Druck-Zeile / Vorschau"_s)), 5, 0, 1, 2);
  TextBox& preview = Text1(kPreview);
  preview.setAccessibleName(u"Vorschau"_s);
  preview.setReadOnly(true);
  preview.setFocusPolicy(Qt::ClickFocus);
  grid->addWidget(&preview, 6, 0, 1, 2);

  auto* available = new QHBoxLayout;
  available->setSpacing(10);
  available->addWidget(&Label3.add(0, new QLabel(u"verfügbare Zeichen"_s)));
  available->addWidget(&Label3.add(1, new QLabel));
  addButtons(Command1, 1900, {{kSave, u"OK/speichern"_s}, {kCancel, u"abbrechen"_s}},
             [this](int index) { Command1_Click(index); });
  available->addLayout(makeButtonRow({&Command1(kSave), &Command1(kCancel)}), 1);
  failure_ = makeFailureLine();
  grid->addWidget(failure_, 7, 0, 1, 2);
  grid->addLayout(available, 8, 0, 1, 2);
  setMinimumWidth(twips(11500));
}

}  // namespace calvora
