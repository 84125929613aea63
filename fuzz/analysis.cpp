// Any bytes as an analysis file: read, computed, written and read back.
#include "chem/subcalc.h"
#include "fuzz_support.h"

using namespace calvora;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const fuzz::TemporaryFile file(QStringLiteral("any.cva"));
  static fuzz::AnyQuestions questions;
  file.put(fuzz::bytes(data, size));

  Program program;
  program.header[7] = QStringLiteral("of another analysis");
  program.record.text[40] = QStringLiteral("of another analysis");
  readAnalysis(program, file.path(), [&] { program.resetRecord(); });
  require(program.record.text[40] != QStringLiteral("of another analysis") &&
              program.header[7] != QStringLiteral("of another analysis"),
          "nothing stays of the analysis before");
  for (int i = 0; i <= 40; ++i) {
    const bool empty = program.record.text[i].isEmpty();
    require(!empty || program.record.value[i].isZero(), "a field without text is empty");
  }
  requireSameAfterSaving(program, file);

  subcalc calculation(program.record, program.fieldIndex, program.narrow, questions);
  calculation.clearRuledOutCapacity();
  calculation.rechenlauf();
  requireSameAfterSaving(program, file);
  return 0;
}
