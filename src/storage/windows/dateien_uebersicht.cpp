// What the load/save window does for the overview: analyses read into it, projects.
#include <QGridLayout>

#include "platform/look.h"
#include "storage/analysis_file.h"
#include "storage/project_file.h"
#include "storage/windows/dateien.h"

namespace calvora {

using namespace Qt::StringLiterals;

void Dateien::dateiladenForOverview(int& mode) {
  mode = readChosenFile(u"cva"_s, [this](const QString& path) {
    AnalysisHeader header;
    const bool complete = readForOverview(program_, path, header);
    Text1->showText(header[kopf::kProjekt]);
    Text2->showText(header[kopf::kProjektNo]);
    Text3->showText(header[kopf::kProbe]);
    Text4->showText(header[kopf::kAuftraggeber]);
    const bool dateFits = showDate(header[kopf::kProbenahme]);
    Text6->showText(header[kopf::kErstellt]);
    Text7->setPlainText(header[kopf::kBemerkung]);
    return complete && dateFits;
  });
}

void Dateien::projektladen(int& result, OverviewGrid& grid) {
  const int code = readChosenFile(u"cvp"_s, [&](const QString& path) {
    auto& header = program_.header;
    const bool complete = readProject(program_, grid, path);
    Label8->hide();
    Text1->showText(header[kopf::kProjekt]);
    Text2->showText(header[kopf::kProjektNo]);
    Text4->showText(header[kopf::kAuftraggeber]);
    Text7->setPlainText(header[kopf::kBemerkung]);
    // A project has neither; what stands there is the main window's.
    Text3->showText({});
    Text6->showText({});
    const bool dateFits = showDate(header[kopf::kProbenahme]);
    if (DTPicker1->isHidden()) header[kopf::kProbenahme].clear();
    return complete && dateFits;
  });
  if (code != 0) result = code;
}

void Dateien::projektspeichern(const QString& path, const QString& title) {
  if (project_ == nullptr) throw RuntimeError(ErrorNumber::kInvalidCall, u"no project"_s);
  writeProject(program_, *project_, path, title);
}

void Dateien::saveAsProject(const OverviewGrid& grid) {
  project_ = &grid;
  program_.record.flag[flag::kStatus] = flag::kProjekt;
  for (QWidget* unused : std::initializer_list<QWidget*>{Text3, Label3, DTPicker1, Label5}) {
    unused->hide();
  }
  // The link to remove the date stays, and tells in the date picker's place what it is about.
  auto* fields = static_cast<QGridLayout*>(layout());
  int row = 0;
  int column = 0;
  int span = 0;
  fields->getItemPosition(fields->indexOf(DTPicker1), &row, &column, &span, &span);
  auto* date = new QLabel(this);
  const auto showProjectDate = [this, date] {
    date->setVisible(DTPicker1->isHidden());
    date->setText(dateSet_ ? u"Datum "_s + DTPicker1->text() : u"ohne Datum"_s);
  };
  fields->addWidget(date, row, column);
  connect(Label8, &QPushButton::clicked, date, showProjectDate);
  showProjectDate();
}

void Dateien::showAsRead() {
  DTPicker1->setEnabled(false);
  DTPicker1->setToolTip(Label5->text());
  for (QWidget* unused : std::initializer_list<QWidget*>{Command1, Label5, Label8}) unused->hide();
  for (TextBox* field : {Text1, Text2, Text3, Text4}) setRole(*field, Role::kComputed);
}

void Dateien::showProjectAsRead() {
  showAsRead();
  Label9->show();
}

/// Escape and the close box come here, too.
void Dateien::reject() {
  if (project_ != nullptr) program_.record.flag[flag::kStatus] = kAbbruch;
  QDialog::reject();
}

}  // namespace calvora
