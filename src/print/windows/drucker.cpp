#include "print/windows/drucker.h"

#include <QDir>

#include "base/guarded.h"
#include "entry/date_text.h"
#include "entry/key_filter.h"
#include "platform/form.h"
#include "platform/look.h"
#include "platform/paper.h"
#include "platform/twips.h"
#include "plausi/origin.h"
#include "plausi/windows/ph_scale.h"
#include "print/windows/report_printer.h"
#include "storage/settings.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLongestText = 99;

enum Box { kCreationDate = 1, kProject, kSample };  // in Text1

}  // namespace

Drucker::Drucker(Program& program, Questions& questions, Desktop& desktop, QWidget* parent,
                 Project* overview)
    : QDialog(parent),
      program_(program),
      questions_(questions),
      desktop_(desktop),
      overview_(overview),
      header_(overview == nullptr ? program.header : overview->header) {
  buildWindow();
  guarded(questions_, u" drucker\\form_load"_s, [this] { Form_Load(); });
}

void Drucker::Form_Load() {
  const auto show = [this](int box, const QString& text) {
    // What came with a file stays whole, however long it is.
    Text1(box).setMaxLength(std::max(kLongestText, static_cast<int>(text.size())));
    Text1(box).showText(text);
  };
  Text1(kCreationDate).showText(dateText(program_.today()));
  show(kProject, header_[kopf::kProjekt]);
  show(kSample, header_[kopf::kProbe]);
  Text4->setPlainText(header_[kopf::kBemerkung]);
}

void Drucker::druckart(Bericht kind) {
  kind_ = kind;
  if (kind == Bericht::kÜbersicht) {
    Text1(kSample).hide();
    Label3->hide();
    program_.landscape = true;
  }
  const bool analysis = kind == Bericht::kAnalyse;
  Label6->setText(analysis ? keptSummary(program_.record) : QString());
  Label6->setToolTip(analysis ? keptLine(program_.record) : QString());
  Command1->setText(reportTitle(kind));
}

void Drucker::druckart(const Plausibility& found) {
  found_ = found;
  druckart(Bericht::kPlausi);
}

QString Drucker::remark() const {
  return onOneLine(Text4->document()->toRawText());
}

void Drucker::keepHeader() {
  header_[kopf::kProjekt] = Text1(kProject).text();
  header_[kopf::kProbe] = Text1(kSample).text();
  header_[kopf::kBemerkung] = remark();
}

PrintRequest Drucker::request() const {
  const QString& name = header_[kopf::kDateiname];
  QString title = reportTitle(kind_);
  if (kind_ != Bericht::kÜbersicht && !name.trimmed().isEmpty()) title += u" - "_s + name.trimmed();
  const QString folder = dialogFolder(program_.settings, program_.programFolder);
  return {
      .title = title,
      .pdfFile =
          QDir(QDir::fromNativeSeparators(folder)).absoluteFilePath(proposedPdfName(kind_, name)),
      .landscape = program_.landscape};
}

void Drucker::Command2_Click() {
  bool printed = false;
  guarded(questions_, u" drucker\\command2"_s, [&] {
    keepHeader();
    program_.printedFile.clear();
    try {
      const std::unique_ptr<Paper> paper = desktop_.askPrinter(this, request());
      printed = paper == nullptr || printOn(*paper);
    } catch (const RuntimeError&) {
      printed = false;
    }
  });
  accept();
  if (printed) return;
  questions_.ask({.text = u" Der Ausdruck konnte nicht erstellt werden ! "_s,
                  .title = u"Drucken"_s,
                  .symbol = Symbol::kStop});
}

/// Prints head and body. A fault in either leaves out what it hit, and the rest is sent. False if
/// something is missing in the body.
bool Drucker::printOn(Paper& paper) {
  const BusyCursor busy;
  program_.landscape = paper.landscape();
  ReportPrinter printer(paper.device());
  druckkopf(printer, paper.landscape());
  const bool whole = papier(printer, kind_);
  paper.deliver();
  program_.printedFile = paper.file();
  return whole;
}

void Drucker::druckkopf(ReportPrinter& printer, bool landscape) {
  guarded(questions_, u" drucker\\druckkopf"_s, [&] {
    const ReportHead head{.kind = kind_,
                          .companyLine = program_.settings.slot[setting::kPrintLine],
                          .today = program_.today(),
                          .project = Text1(kProject).text(),
                          .fileName = header_[kopf::kDateiname],
                          .sample = Text1(kSample).text(),
                          .samplingDate = header_[kopf::kProbenahme],
                          .remark = remark()};
    for (const Statement& statement : headStatements(head, landscape)) printer.print(statement);
  });
}

Statements Drucker::body(Bericht kind) const {
  switch (kind) {
    case Bericht::kÜbersicht:
      return overviewStatements(overview_ == nullptr ? OverviewGrid{} : overview_->grid);
    case Bericht::kPlausi:
      return plausibilityStatements(found_);
    case Bericht::kAnalyse:
      break;
  }
  return analysisStatements(program_.record);
}

/// Prints the body and ends the document. False if a statement had to be left out.
bool Drucker::papier(ReportPrinter& printer, Bericht kind) {
  bool whole = true;
  printer.picture = [this](QPainter& painter, const QRectF& area) {
    paintPhScale(painter, area, found_.marks);
  };
  for (const Statement& statement : body(kind)) {
    try {
      printer.print(statement);
    } catch (const RuntimeError&) {
      whole = false;
    }
  }
  printer.end();
  return whole;
}

/// Nothing is written back, and nothing is printed.
void Drucker::Command4_Click() {
  guarded(questions_, u" drucker\\vorschau"_s, [this] {
    desktop_.showPreview(this, request(), [this](QPagedPaintDevice& page) {
      guarded(questions_, u" drucker\\vorschau"_s, [&] {
        ReportPrinter printer(page);
        druckkopf(printer, page.pageLayout().orientation() == QPageLayout::Landscape);
        papier(printer, kind_);
      });
    });
  });
}

// ---- Design ----

void Drucker::buildWindow() {
  setWindowTitle(u"   Drucker"_s);
  const auto place = [](QWidget& control, int left, int top, int width, int height) {
    control.setGeometry(twips(left), twips(top), twips(width), twips(height));
  };
  buildFields();
  Command1 = new QPushButton(this);
  Command1->setFocusPolicy(Qt::NoFocus);
  Command1->setAutoDefault(false);
  Command1->setStyleSheet(
      u"background: #c0ffc0; color: #000000; border: 1px solid #728194; border-radius: 3px; "
      "font-weight: bold"_s);
  Label6 = new QLabel(this);
  Label6->setStyleSheet(u"color: #5a3000; font-style: italic"_s);
  Label6->setWordWrap(true);
  place(*Command1, 390, 420, 5475, 465);
  place(*Label6, 400, 1050, 5400, 525);
  int row = 0;
  for (QLabel* label : {Label1, Label2, Label3, Label4}) {
    place(*label, 240, 1740 + 600 * row++, 1815, 315);
  }
  place(Text1(kCreationDate), 2100, 1725, 1600, 345);
  place(Text1(kProject), 2100, 2325, 3800, 345);
  place(Text1(kSample), 2100, 2925, 3800, 345);
  place(*Text4, 2100, 3525, 3800, 720);
  place(*Command2, 1170, 4575, 1650, 390);
  place(*Command3, 3375, 4575, 1650, 390);
  place(*Command4, 1170, 5100, 3855, 390);
  setFixedSize(twips(6255), twips(5760));

  QWidget* order[] = {&Text1(kProject), &Text1(kSample), Text4, Command2, Command3, Command4};
  for (size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);
  Command2->setFocus();
}

void Drucker::buildFields() {
  const auto label = [this](const QString& caption, QWidget* field) {
    auto* made = new QLabel(caption, this);
    made->setBuddy(field);
    field->setAccessibleName(caption.trimmed());
    return made;
  };
  for (const int index : {kCreationDate, kProject, kSample}) {
    TextBox& box = Text1.add(index, new TextBox(this));
    box.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setRole(box, Role::kInput);
    box.filter = filteredText;
    box.keyPress = [](int& code) { text_check(code); };
  }
  TextBox& today = Text1(kCreationDate);
  today.setReadOnly(true);  // the report always says when it was printed
  today.setFocusPolicy(Qt::NoFocus);
  today.setStyleSheet(u"background: #c0ffc0"_s);
  Text4 = new RemarkBox(this);
  Label1 = label(u" Erstell-Datum  "_s, &Text1(kCreationDate));
  Label2 = label(u" Projekt  "_s, &Text1(kProject));
  Label3 = label(u" Bezeichnung Probe  "_s, &Text1(kSample));
  Label4 = label(u" Bemerkung  "_s, Text4);
  limitRemark();

  const auto button = [this](const QString& caption, void (Drucker::*click)()) {
    auto* made = new QPushButton(caption, this);
    pressOnEnter(*made);
    connect(made, &QPushButton::clicked, this, click);
    return made;
  };
  Command2 = button(u"drucken"_s, &Drucker::Command2_Click);
  Command3 = button(u"abbrechen"_s, &Drucker::reject);
  Command4 = button(u"Vorschau"_s, &Drucker::Command4_Click);
}

void Drucker::limitRemark() {
  const auto room = [this] {
    const qsizetype selected = Text4->textCursor().selectedText().size();
    return std::max<qsizetype>(0, kLongestText - Text4->toPlainText().size() + selected);
  };
  Text4->filter = [room](const QString& text) { return filteredLines(text).left(room()); };
  Text4->keyPress = [room](int& code) {
    text_check(code);
    if (code >= key::kSpace && room() == 0) code = 0;
  };
}

}  // namespace calvora
