#include "storage/analysis_file.h"

#include <QFileInfo>
#include <cmath>

#include "entry/decimal.h"
#include "entry/key_filter.h"
#include "entry/number_text.h"
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

/// Whether a record's text shows another number than its value. The program shows a value rounded
/// to the decimals of its text, and itself rounds what was computed or typed to four; as a bound
/// with "<" or ">"; or in words, which are not compared and neither are powers of ten, of which 15
/// digits count. Ks8,2 shows zero for 0.001, which stands for what no titration resolves.
bool contradict(int field, FixedPoint value, const QString& text) {
  QString number = onOneLine(text).trimmed();  // as the next file will hold it
  const QChar bound = number.isEmpty() ? QChar() : number.front();
  const bool below = bound == '<'_L1;
  const bool above = bound == '>'_L1;
  if (below || above) number = number.mid(1).trimmed();
  if (!isNumberText(number) || number.contains('.'_L1)) return false;
  const double shown = numberIn(number);
  const auto decimals = static_cast<double>(number.section(','_L1, 1).size());
  const auto agrees = [&](FixedPoint other) {
    const double kept = other.toDouble();
    const double tolerance =
        (std::pow(10.0, -decimals) + 1.0 / FixedPoint::kScale) / 2 + 1e-12 * std::abs(kept);
    return (below || kept >= shown - tolerance) && (above || kept <= shown + tolerance);
  };
  const bool trace = field == feld::kKs82 && value == 0.001_fp;
  return !agrees(value) && !(trace && agrees({}));
}

/// Hands every record to `store`, which checks its index, but none that contradicts itself.
/// Runtime error 13 if there was one, 62 if the end record is missing.
void readRecords(LineReader& reader,
                 const std::function<void(int, FixedPoint, const QString&)>& store) {
  bool contradicted = false;
  for (;;) {
    const QStringList fields = reader.fields(3);
    const qint64 index = readInteger(fields.value(0));
    if (index == kEndRecord) break;
    if (index >= kFirstIgnoredIndex) continue;
    if (fields.size() < 3) throw RuntimeError(ErrorNumber::kEndOfFile);
    const int field = index < 0 ? -1 : static_cast<int>(index);
    const FixedPoint value = readInvariantNumber(fields[1]);
    if (contradict(field, value, fields[2])) {
      contradicted = true;
    } else {
      store(field, value, fields[2]);
    }
  }
  if (contradicted) throw RuntimeError(ErrorNumber::kType, u"a record contradicts itself"_s);
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
  program.file = writeKnownFile(path, analysisContent(program, name));
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
