#include "model/record.h"

#include "model/fields.h"

namespace calvora {

namespace {

Origin originOfResult(const QString& text, bool computed) {
  if (text.isEmpty()) return Origin::kEmpty;
  return computed ? Origin::kComputed : Origin::kKept;
}

}  // namespace

Origin originOf(const AnalysisRecord& record, int index) {
  const QString& text = record.text[index];
  if (!fieldOf(index).isTyped()) return originOfResult(text, record.computed[index]);
  if (text.isEmpty()) return Origin::kEmpty;
  return record.completed[index] ? Origin::kCompleted : Origin::kTyped;
}

Origin NarrowTexts::originOfLeitfähigkeit() const {
  return originOfResult(leitfähigkeitAusIonen, leitfähigkeitComputed);
}

Origin NarrowTexts::originOfNäherung() const {
  return originOfResult(phNäherung, näherungComputed);
}

}  // namespace calvora
