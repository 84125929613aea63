// What must outlive the program: the recovery file, and the ways in which the program ends.
#include <QApplication>
#include <QSessionManager>

#include "app/main_window.h"
#include "app/start_window.h"
#include "base/guarded.h"
#include "dialogs/meldungen.h"
#include "entry/date_text.h"
#include "model/fields.h"
#include "platform/elided_label.h"

namespace calvora {

using namespace Qt::StringLiterals;

/// The program starts: what an earlier run left behind comes before everything else.
void main::begin() {
  guarded(questions_, u" main_wiederherstellen"_s, [this] { offerRecovery(); });
  lookForOthers();
  auto* window = new start(*this, desktop_);
  showOver(*window, feld::kLeitfähigkeit);
  connect(window, &QDialog::finished, this, &main::openFilesOfStart, Qt::QueuedConnection);
}

void main::offerRecovery() {
  recovery_ = std::make_unique<Recovery>(program_.programFolder, [this] { showNotice(); });
  recovery_->offer([this](const LeftAnalysis& left) {
    const QString time = left.lastEntry.toString(kDateFormat + u" hh:mm"_s);
    Message question = katalogMeldung(
        left.complete ? meldung::kWiederherstellen : meldung::kTeilWiederherstellen, time);
    question.closing = Button::kAbbrechen;  // no answer: it is offered again
    const Button answer = questions_.ask(question);
    if (answer == Button::kJa) {
      history_.begin();
      restoreAnalysis(program_, left, [this] { datenkill(0); });
      showRead();
      history_.note(question.title);
      history_.stack.clear();  // there is nothing to go back to
    }
    return answer;
  });
}

/// Follows what changes the analysis or saves it.
void main::keepAnalysis() {
  if (recovery_ != nullptr) recovery_->keep(program_);
}

void main::lookForOthers() {
  if (recovery_ == nullptr) return;
  otherInstance_ = recovery_->otherInstance();
  showNotice();
}

void main::showNotice() {
  const QString failure = recovery_->failure();
  noticeStatus->showText(failure.isEmpty() ? otherInstance_ : failure);
  noticeStatus->setToolTip(
      noticeStatus->text() +
      (failure.isEmpty() ? u"\nBeide benutzen dieselben Einstellungen und dieselben Dateien."_s
                         : u"\nSie können weiterarbeiten, aber was nicht gespeichert ist, wäre "
                           "nach einem Absturz verloren."_s));
}

/// Asks whether to save before the program ends. False if it must go on.
bool main::mayEnd() {
  finishEntry();
  if (recovery_ != nullptr) recovery_->flush(program_);
  // Without a recovery file nothing else would keep what a saved project left unsaved.
  const bool kept = recovery_ == nullptr || recovery_->failure().isEmpty();
  if (program_.unsaved && !kept) program_.markUnsaved();
  const bool asks = program_.asksToBeSaved();
  if (datensich() == kAbbruch) return false;
  if (recovery_ != nullptr && asks) recovery_->discard(program_);
  return true;
}

/// Another analysis takes the place of this one. If nobody was asked about it, since a saved
/// project took the question away, it is offered at the next start.
void main::leaveAnalysis() {
  if (recovery_ == nullptr || !program_.unsaved || program_.asksToBeSaved()) return;
  recovery_->flush(program_);
  recovery_->leave();
}

bool main::endSession(bool mayAsk) {
  bool ends = true;
  guarded(questions_, u" main_sitzungsende"_s, [&] {
    // The question may be open already; a save that was cancelled leaves the mark.
    if (mayAsk && !asking_) ends = mayEnd() || !program_.asksToBeSaved();
    if (recovery_ != nullptr) recovery_->flush(program_);
  });
  return ends;
}

/// The session waits for this. Releasing it tells that the program may end.
void main::commitData(QSessionManager& session) {
  const bool asks = program_.entryChanged || program_.asksToBeSaved();
  if (endSession(asks && session.allowsInteraction())) return session.release();
  session.cancel();
}

/// The session's end comes as a wish to quit, which nobody waits for. The toolkit would make a
/// close of every window of it, and the program another question. What was not asked about stays in
/// the recovery file.
bool main::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::Quit || receiver != qApp) {
    return QMainWindow::eventFilter(receiver, event);
  }
  keepAnalysis();
  desktop_.endProgram();
  return true;
}

}  // namespace calvora
