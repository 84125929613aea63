#include "storage/project_file.h"

#include <QFileInfo>

#include "storage/line_file.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kHeaderSlots{kopf::kProjekt, kopf::kProjektNo, kopf::kAuftraggeber,
                                  kopf::kProbenahme, kopf::kBemerkung};
const auto kBlockEnd = u"enddat"_s;
const auto kFileEnd = u"endread"_s;

/// A text that could be taken for a marker is told apart from it by a blank.
QString notMarker(const QString& text, const QString& marker) {
  return text == marker ? text + ' '_L1 : text;
}

void readBlock(OverviewGrid::Slot& slot, LineReader& reader) {
  for (int row = 0;; ++row) {
    const QString cell = reader.text();
    if (cell == kBlockEnd) break;
    slot.cells[row] = cell;  // a cell too many is runtime error 9
  }
  slot.filled = true;
}

}  // namespace

QByteArray projectContent(const Project& project, const QString& name) {
  LineWriter writer;
  writer.text(name);
  for (const int slot : kHeaderSlots) writer.text(project.header[slot]);
  writer.text(u"ende"_s);
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
    const OverviewGrid::Slot& slot = project.grid.slot[k];
    if (!slot.filled) continue;
    writer.text(notMarker(slot.caption, kFileEnd));
    for (int row = 0; row < OverviewGrid::kRows; ++row) {
      writer.text(notMarker(slot.cells[row], kBlockEnd));
    }
    writer.text(kBlockEnd);
  }
  writer.text(kFileEnd);
  return writer.content();
}

bool readProject(Project& project, const QString& path) {
  KnownFile file{QFileInfo(path).absoluteFilePath(), {}};
  const bool complete = LineReader::readFile(path, [&](LineReader& reader) {
    file.hash = reader.hash();
    project.file = {};
    AnalysisHeader& header = project.header;
    header.clear();  // nothing of what the overview opened with may stay beside this one
    header[kopf::kDateiname] = reader.text();
    for (const int slot : kHeaderSlots) header[slot] = reader.text();
    reader.skipLine();  // the marker, whatever it says
    for (int k = 1;; ++k) {
      const QString caption = reader.text();
      if (caption == kFileEnd) return;
      OverviewGrid::Slot& slot = project.grid.slot[k];  // a ninth block is runtime error 9
      slot.caption = caption;
      readBlock(slot, reader);
    }
  });
  if (complete) project.file = file;
  return complete;
}

}  // namespace calvora
