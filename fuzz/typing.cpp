// Any sequence of entries: on each line a letter for the field and the text typed into it.
#include "chem/subcalc.h"
#include "fuzz_support.h"
#include "support/consistency.h"

using namespace calvora;

namespace {

void requireWhole(const Program& program, int entered) {
  const AnalysisRecord& record = program.record;
  const QString what = QString::number(entered) + u' ' + record.text[entered];
  for (const int index : typedFields()) {
    const bool empty = record.text[index].isEmpty();
    fuzz::require(!empty || record.value[index].isZero(), "an empty field has no value", what);
  }
  const bool both = !record.value[feld::kKs82].isZero() && record.value[feld::kKb82] > FixedPoint{};
  fuzz::require(!both, "Ks8,2 and Kb8,2 never stand together", what);
  if (const int ruledOut = ruledOutCapacity(record); ruledOut != 0) {
    fuzz::require(record.text[ruledOut].isEmpty(), "what the pH rules out is empty", what);
  }
  for (int i = 0; i <= 40; ++i) {
    fuzz::require(record.text[i].size() < 40, "a display text is short", record.text[i]);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const fuzz::TemporaryFile file(QStringLiteral("typed.cva"));
  static fuzz::AnyQuestions questions;
  Program program;
  subcalc calculation(program.record, program.fieldIndex, program.narrow, questions);
  const QList<QByteArray> lines = fuzz::bytes(data, size).split('\n');
  for (const QByteArray& line : lines.first(std::min<qsizetype>(lines.size(), 40))) {
    if (line.isEmpty()) continue;
    const auto letter = static_cast<unsigned char>(line.front());
    const int index = typedFields().at(letter % typedFields().size());
    int status = 0;
    program.fieldIndex = index;
    calculation.checkeingabe(index, QString::fromUtf8(line.mid(1)).trimmed(), status);
    fuzz::require(status == 0 || status == kFocusBack, "a check knows two results");
    calculation.clearRuledOutCapacity();
    calculation.rechenlauf();
    requireWhole(program, index);
    requireOriginsOfResults(program.record);
    requireJudgedFromInputs(program.record);
  }
  fuzz::requireSameAfterSaving(program, file);
  return 0;
}
