#include "monkey_desktop.h"

#include <QDialog>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <cstdlib>

#include "base/runtime_error.h"
#include "model/fields.h"
#include "overview/windows/analysen.h"
#include "storage/analysis_file.h"
#include "storage/line_file.h"
#include "support/files.h"

namespace calvora::monkey {

using namespace Qt::StringLiterals;

namespace {

/// Where the program puts a file that the dialog answered with.
QString savedPath(const QString& answer, const QString& extension) {
  const QString path = answer.trimmed();
  const qsizetype name = path.lastIndexOf('/'_L1) + 1;
  return path.left(path.indexOf('.'_L1, name + 1)) + '.'_L1 + extension;
}

bool sameInFile(const QString& text, const QString& again) {
  return LineWriter::quoted(text) == LineWriter::quoted(again);
}

}  // namespace

void require(bool holds, const QString& what) {
  if (holds) return;
  std::fprintf(stderr, "\nFinding: %s\n", qUtf8Printable(what));
  std::abort();
}

MonkeyDesktop::MonkeyDesktop(Dice& dice, const QString& folder) : dice_(dice), folder_(folder) {}

void MonkeyDesktop::endProgram() {
  ended = true;
  real_.endProgram();
}

bool MonkeyDesktop::openDocument(const QString& path) {
  require(QFileInfo::exists(path), u"only what is there is opened: "_s + path);
  return dice_.percent(50);
}

QString MonkeyDesktop::anyText() {
  static const QStringList kTexts{u"7,5"_s,
                                  u"420"_s,
                                  u"-0,25"_s,
                                  u"0"_s,
                                  u"99999999999999999999"_s,
                                  u"0,00001"_s,
                                  u"1.234,5"_s,
                                  u"<0,01"_s,
                                  u"Größe & Söhne \"Süd\""_s,
                                  u"zwei\r\nZeilen\nund\tmehr"_s,
                                  u"💧 Ω \u2028 \u202e ﷽"_s,
                                  u"enddat"_s,
                                  u"endread"_s,
                                  u"999,0,0"_s,
                                  u"a|b|c"_s,
                                  u"%1 %2 &x"_s,
                                  u"<b>fett</b>"_s,
                                  QString(QChar(0)) + u"x"_s,
                                  QString(300, 'W'_L1),
                                  QString(9000, ' '_L1) + '7'_L1,
                                  {}};
  return dice_.oneOf(kTexts);
}

/// Few names, so that files are found again and replaced.
QString MonkeyDesktop::anyName(const QString& extension) {
  static const QStringList kNames{u"probe"_s,     u"Größe 2"_s, u"a.b.c"_s, u".versteckt"_s,
                                  u"PROBE.TXT"_s, u"x "_s,      u"7"_s,     QString(200, 'n'_L1)};
  const QString name = dice_.oneOf(kNames);
  return dice_.percent(60) ? name + '.'_L1 + extension : name;
}

/// Leaves a file that is like one of those that are there, but not sound.
void MonkeyDesktop::damageOne(const QString& extension) {
  const QStringList sound = folder_.entryList({u"*."_s + extension}, QDir::Files, QDir::Name);
  if (sound.isEmpty()) return;
  QByteArray content = bytesOf(folder_.filePath(dice_.oneOf(sound)));
  for (int count = dice_.below(5); count >= 0 && !content.isEmpty(); --count) {
    const int at = dice_.below(content.size());
    switch (dice_.below(4)) {
      case 0:
        content.truncate(at);
        break;
      case 1:
        content[at] = static_cast<char>(dice_.below(256));
        break;
      case 2:
        content.insert(at, content.mid(dice_.below(content.size()), dice_.below(40)));
        break;
      default:
        content.remove(at, dice_.below(20));
    }
  }
  QFile file(folder_.filePath(u"kaputt%1."_s.arg(dice_.below(5)) + extension));
  require(file.open(QFile::WriteOnly) && file.write(content) == content.size(),
          u"the folder can be written"_s);
}

std::optional<QString> MonkeyDesktop::askOpenFile(QWidget*, const FileRequest& request) {
  if (dice_.percent(15)) return std::nullopt;
  if (dice_.percent(3)) return folder_.filePath(u"gibt/es nicht."_s + request.extension);
  if (dice_.percent(3)) return folder_.path();
  if (dice_.percent(2)) return QString();
  if (dice_.percent(30)) damageOne(request.extension);
  ++loads;
  const QString kind = dice_.percent(97) ? u"*."_s + request.extension : u"*"_s;
  const QStringList files = folder_.entryList({kind}, QDir::Files | QDir::Hidden, QDir::Name);
  return folder_.filePath(files.isEmpty() ? anyName(request.extension) : dice_.oneOf(files));
}

/// The window says that it saved by accepting; that very moment its program holds what it wrote.
std::optional<QString> MonkeyDesktop::askSaveFile(QWidget* parent, const FileRequest& request) {
  if (dice_.percent(15)) return std::nullopt;
  if (dice_.percent(3)) return folder_.filePath(u"gibt/es nicht"_s);
  QString answer = folder_.filePath(anyName(request.extension));
  const QString path = savedPath(answer, request.extension);
  auto* window = qobject_cast<QDialog*>(parent);
  require(window != nullptr, u"a window asks where to save"_s);
  const auto* overview = dynamic_cast<analysen*>(window->parentWidget());
  delete check_;  // of a try that came to nothing
  check_ = new QObject(window);
  QObject::connect(window, &QDialog::accepted, check_, [this, path, overview] {
    ++saves;
    if (overview == nullptr) {
      checkAnalysis(path);
    } else {
      checkProject(path, overview->project());
    }
  });
  return answer;
}

void MonkeyDesktop::checkAnalysis(const QString& path) {
  Program again;
  require(readAnalysis(again, path, [] {}), u"what was saved is whole: "_s + path);
  require(bytesOf(path) == analysisContent(*program, program->record.flag[flag::kNameLine]),
          u"the file holds this analysis: "_s + path);
  for (int slot = 1; slot <= 7; ++slot) {
    require(sameInFile(again.header[slot], program->header[slot]),
            u"header %1 comes back: "_s.arg(slot) + program->header[slot]);
  }
  for (int i = 1; i <= 26; ++i) {
    if (!isShown(i)) continue;
    const QString& text = program->record.text[i];
    require(sameInFile(again.record.text[i], text), u"text %1 comes back: "_s.arg(i) + text);
    require(text.isEmpty() || again.record.value[i] == program->record.value[i],
            u"value %1 comes back: "_s.arg(i) + text);
  }
}

void MonkeyDesktop::checkProject(const QString& path, const Project& project) {
  Project read;
  require(readProject(read, path), u"what was saved is whole: "_s + path);
  require(bytesOf(path) == projectContent(project, program->record.flag[flag::kNameLine]),
          u"the file holds this project"_s);
  int next = 1;
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
    const OverviewGrid::Slot& slot = project.grid.slot[k];
    if (!slot.filled) continue;
    const OverviewGrid::Slot& found = read.grid.slot[next++];
    require(found.filled && sameInFile(found.caption.trimmed(), slot.caption.trimmed()),
            u"slot %1 comes back: "_s.arg(k) + slot.caption);
    for (int row = 0; row < OverviewGrid::kRows; ++row) {
      require(sameInFile(found.cells[row].trimmed(), slot.cells[row].trimmed()),
              u"cell %1 of slot %2 comes back: "_s.arg(row).arg(k) + slot.cells[row]);
    }
  }
}

std::optional<QString> MonkeyDesktop::askText(QWidget* parent, const TextRequest& request) {
  return dice_.percent(20) ? real_.askText(parent, request) : anyText();
}

std::unique_ptr<Paper> MonkeyDesktop::askPrinter(QWidget*, const PrintRequest& request) {
  if (dice_.percent(20)) return nullptr;
  ++prints;
  const QString name = dice_.percent(10) ? u"gibt/es nicht.pdf"_s : u"bericht.pdf"_s;
  const bool landscape = dice_.percent(10) ? !request.landscape : request.landscape;
  return std::make_unique<PdfPaper>(folder_.filePath(name), request.title, reportPage(landscape));
}

void MonkeyDesktop::showPreview(QWidget* parent, const PrintRequest& request,
                                const std::function<void(QPagedPaintDevice&)>& paint) {
  real_.showPreview(parent, request, paint);
}

}  // namespace calvora::monkey
