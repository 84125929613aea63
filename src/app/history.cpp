#include "app/history.h"

#include <QFileInfo>
#include <tuple>
#include <utility>

namespace calvora {

namespace {

/// Characters; a file can bring texts of any length, and a step beyond that would not be worth its
/// memory.
constexpr qsizetype kLargestAnalysis = 100'000;

qsizetype sizeOf(const Analysis& analysis) {
  qsizetype size = 0;
  for (int i = 0; i < analysis.record.text.size(); ++i) size += analysis.record.text[i].size();
  for (int i = 0; i < analysis.header.size(); ++i) size += analysis.header[i].size();
  return size;
}

/// Whether nothing differs but what saving sets.
bool sameContent(const Analysis& a, const Analysis& b) {
  const auto content = [](const Analysis& x) {
    return std::tie(x.record.value, x.record.text, x.record.completed, x.record.computed, x.header,
                    x.narrow);
  };
  return content(a) == content(b);
}

}  // namespace

/// What one entry or command changed.
class History::Step : public QUndoCommand {
 public:
  struct Change {
    State before;
    State after;
    int field = 0;  ///< that was entered
  };

  Step(History& history, const QString& name, Change made)
      : QUndoCommand(name), change(std::move(made)), history_(history) {}

  void undo() override { history_.restore(change.before, change.field); }

  /// The stack also calls it for a new step, when everything is done.
  void redo() override {
    if (std::exchange(done_, true)) history_.restore(change.after, change.field);
  }

  const Change change;

 private:
  History& history_;
  bool done_ = false;
};

History::History(Program& program)
    : program_(program), current_(std::make_shared<Analysis>(program)) {
  stack.setUndoLimit(kSteps);
}

void History::begin() {
  current_->record.flag = program_.record.flag;
  current_->dataPresent = program_.dataPresent;
  current_->unsaved = program_.unsaved;
  if (std::exchange(current_->file, program_.file) != program_.file) noteFile();
}

void History::note(const QString& name, int field) {
  if (sameContent(*current_, program_)) return begin();
  auto after = std::make_shared<Analysis>(program_);
  const auto before = std::exchange(current_, after);
  if (sizeOf(*after) > kLargestAnalysis) return stack.clear();
  stack.push(new Step(*this, name, {before, after, field}));
  if (before->file != after->file) noteFile();
}

void History::abandonEntry() {
  begin();
  program_.entryChanged = false;
  static_cast<Analysis&>(program_) = *current_;
}

void History::restore(const State& to, int field) {
  begin();
  program_.entryChanged = false;
  program_.fieldIndex = 0;  // no entry of the analysis that is left decides how this one goes on
  static_cast<Analysis&>(program_) = *to;
  current_ = to;
  restored(field);
}

/// A file holds only the analysis that was written to it last, or read: whatever else was saved in
/// it before is not any more, and what the program wrote itself is no change from elsewhere.
void History::noteFile() {
  const KnownFile& file = program_.file;
  const auto outdate = [&](Analysis& analysis) {
    if (analysis.file.hash == file.hash) return;
    const QString& path = analysis.file.path;
    if (path != file.path && QFileInfo(path) != QFileInfo(file.path)) return;
    analysis.file.hash = file.hash;
    analysis.markUnsaved();
  };
  for (int i = 0; i < stack.count(); ++i) {
    const Step::Change& change = static_cast<const Step*>(stack.command(i))->change;
    outdate(*change.before);
    outdate(*change.after);
  }
}

}  // namespace calvora
