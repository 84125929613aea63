#include "storage/analysis_file.h"

#include "storage/line_file.h"
#include "storage/safe_write.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHeaderSlots = 7;
constexpr int kEndRecord = 999;
constexpr int kFirstIgnoredIndex = 100;

void readHeader(Program& program, LineReader& reader) {
  for (int slot = 0; slot <= kHeaderSlots; ++slot) program.header[slot] = reader.text();
  reader.skipLine();  // the marker, whatever it says
}

void readRecords(AnalysisRecord& record, LineReader& reader) {
  while (!reader.atEnd()) {
    const QStringList fields = reader.fields(3);
    if (fields.isEmpty() && reader.atEnd()) return;
    const qint64 index = readInteger(fields.value(0));
    if (index == kEndRecord) return;
    if (index >= kFirstIgnoredIndex) continue;
    if (fields.size() < 3) throw RuntimeError(ErrorNumber::kEndOfFile);
    const int field = index < 0 ? -1 : static_cast<int>(index);
    // A field without text is empty, whatever value stands beside it.
    const FixedPoint value = readInvariantNumber(fields[1]);
    record.value[field] = fields[2].isEmpty() ? FixedPoint{} : value;
    record.text[field] = fields[2];
  }
}

}  // namespace

QString nameLine(const QString& title, const QString& extension) {
  QString name = title.trimmed();
  if (name.contains(extension, Qt::CaseInsensitive)) name.chop(extension.size());
  return name;
}

QByteArray analysisContent(const Program& program) {
  const AnalysisRecord& record = program.record;
  LineWriter writer;
  writer.text(record.flag[flag::kNameLine]);
  for (int slot = 1; slot <= kHeaderSlots; ++slot) writer.text(program.header[slot]);
  writer.text(u"ende"_s);
  for (int index = 1; index <= 26; ++index) {
    const bool stored = index <= 15 || index >= 20;
    if (!stored || record.text[index].isEmpty()) continue;
    writer.fields({QString::number(index), invariantNumber(record.value[index]),
                   LineWriter::quoted(record.text[index])});
  }
  writer.fields({QString::number(kEndRecord), u"0"_s, u"0"_s});
  return writer.content();
}

void writeAnalysis(Program& program, const QString& path, const QString& title) {
  QString& name = program.record.flag[flag::kNameLine];
  const QString before = std::exchange(name, nameLine(title, u".cva"_s));
  try {
    writeFileSafely(path, analysisContent(program));
  } catch (const RuntimeError&) {
    name = before;
    throw;
  }
}

bool readAnalysis(Program& program, const QString& path, const std::function<void()>& reset) {
  try {
    LineReader reader = LineReader::ofFile(path);
    reset();
    program.header.clear();  // no header of another analysis may stay beside this one
    readHeader(program, reader);
    readRecords(program.record, reader);
    return true;
  } catch (const RuntimeError& error) {
    const bool nothingRead = error.number() == static_cast<int>(ErrorNumber::kFileNotFound) ||
                             error.number() == static_cast<int>(ErrorNumber::kPathAccess);
    if (nothingRead) throw;
    return false;
  }
}

}  // namespace calvora
