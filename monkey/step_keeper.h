#pragma once

#include <QList>
#include <QObject>
#include <tuple>
#include <utility>

#include "app/history.h"
#include "support/files.h"

namespace calvora::monkey {

/// Follows what can be undone and requires that every undo and redo leads to the analysis that was
/// there, value by value.
class StepKeeper : public QObject {
 public:
  StepKeeper(History& history, const Program& program)
      : stack_(history.stack), program_(program), states_{content()} {
    connect(&stack_, &QUndoStack::indexChanged, this, [this](int index) { follow(index); });
    history.restored = [this, show = history.restored](int field) {
      moved_ = true;
      show(field);
    };
  }

  /// Undoes everything and does it again.
  void thereAndBack() {
    const int index = stack_.index();
    undone += stack_.count();
    while (stack_.canUndo()) stack_.undo();
    while (stack_.canRedo()) stack_.redo();
    stack_.setIndex(index);
  }

  int undone = 0;  ///< steps that went there and back

 private:
  using Content = std::tuple<decltype(AnalysisRecord::value), decltype(AnalysisRecord::text),
                             AnalysisHeader, NarrowTexts>;

  [[nodiscard]] Content content() const {
    return {program_.record.value, program_.record.text, program_.header, program_.narrow};
  }

  void follow(int index) {
    if (!std::exchange(moved_, false)) {  // a new step, after which there is nothing to do again
      const bool full = index == History::kSteps && states_.size() > index;
      full ? states_.removeFirst() : states_.resize(index);
      states_ += content();
    }
    require(content() == states_.at(index), "a step leads to what was there",
            QString::number(index));
  }

  QUndoStack& stack_;
  const Program& program_;
  QList<Content> states_;  ///< before the first step and after each
  bool moved_ = false;     ///< by undo or redo
};

}  // namespace calvora::monkey
