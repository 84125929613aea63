#pragma once

#include <QUndoStack>
#include <functional>
#include <memory>

#include "model/program.h"

namespace calvora {

/// The steps that led to the analysis, on the toolkit's undo stack. A step is what one entry or one
/// command changed; undo and redo exchange the whole analysis for the one before or after it.
class History {
 public:
  /// Steps that can be undone. Each keeps about 2 KB.
  static constexpr int kSteps = 500;

  explicit History(Program& program);

  /// Comes before an entry or a command: what saving did since the last step belongs to the
  /// analysis as that step left it.
  void begin();

  /// Comes after it and remembers what it changed in the analysis, named for the menu; nothing if
  /// nothing changed. `field` is the one that was entered, 0 for a command.
  void note(const QString& name, int field = 0);

  /// Gives up an entry that is still going on.
  void abandonEntry();

  /// Whether a field's text is the one that the last step left.
  [[nodiscard]] bool holds(int field, const QString& text) const {
    return current_->record.text[field] == text;
  }

  QUndoStack stack;

  /// Called after undo and redo with the step's field.
  std::function<void(int field)> restored = [](int) {};

 private:
  class Step;
  using State = std::shared_ptr<Analysis>;

  void restore(const State& to, int field);
  void noteFile();

  Program& program_;
  State current_;  ///< the analysis as the last step left it
};

}  // namespace calvora
