#include "storage/analysis_file.h"

#include <QFileInfo>

#include "base/safe_write.h"
#include "model/fields.h"
#include "storage/line_file.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLastHeaderSlot = kopf::kBemerkung;
constexpr int kEndRecord = 999;
constexpr int kFirstIgnoredIndex = 100;

void readHeader(AnalysisHeader& header, LineReader& reader) {
  for (int slot = 0; slot <= kLastHeaderSlot; ++slot) header[slot] = reader.text();
  reader.skipLine();  // the marker, whatever it says
}

/// Hands every record to `store`, which checks its index.
void readRecords(LineReader& reader,
                 const std::function<void(int, FixedPoint, const QString&)>& store) {
  while (!reader.atEnd()) {
    const QStringList fields = reader.fields(3);
    if (fields.isEmpty() && reader.atEnd()) return;
    const qint64 index = readInteger(fields.value(0));
    if (index == kEndRecord) return;
    if (index >= kFirstIgnoredIndex) continue;
    if (fields.size() < 3) throw RuntimeError(ErrorNumber::kEndOfFile);
    store(index < 0 ? -1 : static_cast<int>(index), readInvariantNumber(fields[1]), fields[2]);
  }
}

}  // namespace

QByteArray analysisContent(const Program& program, const QString& name) {
  const AnalysisRecord& record = program.record;
  LineWriter writer;
  writer.text(name);
  for (int slot = 1; slot <= kLastHeaderSlot; ++slot) writer.text(program.header[slot]);
  writer.text(u"ende"_s);
  for (int index = 1; index < record.text.size(); ++index) {
    if (!isShown(index) || record.text[index].isEmpty()) continue;
    writer.fields({QString::number(index), invariantNumber(record.value[index]),
                   LineWriter::quoted(record.text[index])});
  }
  writer.fields({QString::number(kEndRecord), u"0"_s, u"0"_s});
  return writer.content();
}

bool readAnalysis(Program& program, const QString& path, const std::function<void()>& reset) {
  KnownFile file{QFileInfo(path).absoluteFilePath(), {}};
  const bool complete = LineReader::readFile(path, [&](LineReader& reader) {
    file.hash = reader.hash();
    reset();
    program.header.clear();  // no header of another analysis may stay beside this one
    readHeader(program.header, reader);
    readRecords(reader, [&](int field, FixedPoint value, const QString& text) {
      // A field without text is empty, whatever value stands beside it.
      program.record.value[field] = text.isEmpty() ? FixedPoint{} : value;
      program.record.text[field] = text;
    });
  });
  if (complete) program.file = file;
  return complete;
}

void saveAnalysis(Program& program, const QString& path, const QString& title) {
  const QString name = nameLine(title, kAnalysisFile);
  const QByteArray content = analysisContent(program, name);
  writeFileSafely(path, content);
  program.file = {QFileInfo(path).absoluteFilePath(), hashOf(content)};
  program.unsaved = false;
  program.dataPresent = false;
  program.record.flag[flag::kNameLine] = name;
  program.record.flag[flag::kStatus].clear();
}

void saveToOwnFile(Program& program) {
  const QString path = program.file.path;
  if (path.isEmpty()) throw RuntimeError(ErrorNumber::kFileNotFound);
  saveAnalysis(program, path, QFileInfo(path).fileName());
}

OverviewAnalysis readForOverview(const QString& path) {
  OverviewAnalysis analysis;
  analysis.complete = LineReader::readFile(path, [&](LineReader& reader) {
    readHeader(analysis.header, reader);
    readRecords(reader,
                [&](int field, FixedPoint, const QString& text) { analysis.text[field] = text; });
  });
  return analysis;
}

}  // namespace calvora
