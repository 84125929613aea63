#pragma once

#include <QDateTime>
#include <QLockFile>
#include <QMutex>
#include <QObject>
#include <QThreadPool>
#include <functional>
#include <memory>
#include <optional>

#include "base/questions.h"
#include "base/runtime_error.h"
#include "model/program.h"

namespace calvora {

/// The unsaved analysis of a run that ended before anyone was asked about it.
struct LeftAnalysis {
  QString path;         ///< of the recovery file
  QDateTime lastEntry;  ///< of the file itself where it does not tell
  KnownFile file;       ///< the analysis' own
  bool complete = false;
};

/// Reads a left analysis as loading does, `reset` first, as far as it can be read. It counts as
/// unsaved and knows its own file. Runtime error 53 or 75, and nothing changed, if it cannot be
/// opened.
void restoreAnalysis(Program& program, const LeftAnalysis& left,
                     const std::function<void()>& reset);

/// Keeps the unsaved analysis in a recovery file in the program folder, written by a thread of its
/// own so that no disk holds up who types. Each running instance has a slot: its file `cvra1.rec`
/// and the lock `cvra1.lock`, or the next number. A file whose lock can be had was left behind.
class Recovery {
 public:
  /// `changed` is called in this thread, through its event loop, when `failure` has changed.
  Recovery(QString folder, std::function<void()> changed);
  Recovery(const Recovery&) = delete;
  Recovery& operator=(const Recovery&) = delete;

  /// Waits for the thread and gives the slot back. A file that is still there is offered next time.
  ~Recovery();

  /// Hands what was left behind to `ask`, one after the other. "Ja" takes its file over as this
  /// instance's own and ends the offers, "Nein" removes it, anything else leaves it. Called once,
  /// before anything is kept.
  void offer(const std::function<Button(const LeftAnalysis&)>& ask);

  /// Lets the thread write the analysis if it is unsaved and differs from what was kept last, or
  /// remove the file if it is saved. Of several that wait only the newest is written. One that
  /// cannot be written is tried again with the next change.
  void keep(const Program& program);

  /// Removes the file of an analysis that the user does not want saved; it is gone on return. The
  /// next change is kept again.
  void discard(const Program& program);

  /// Keeps the analysis, once more if that failed before, and waits until it is on the disk.
  void flush(const Program& program);

  /// Leaves what is kept to the next start; what is kept from now on has a slot of its own.
  void leave();

  /// Why what was kept last is not on the disk, in the user's words; empty if it is.
  [[nodiscard]] QString failure() const;

  /// That another instance runs on this folder, in the user's words; empty if none does.
  [[nodiscard]] QString otherInstance() const;

 private:
  [[nodiscard]] QString pathOf(int slot, const QString& extension) const;
  [[nodiscard]] QList<int> slotsWith(const QString& extension) const;
  [[nodiscard]] std::unique_ptr<QLockFile> tryLock(int slot) const;
  void hand(const QByteArray& content);
  void setFailure(const RuntimeError* error);
  void work();
  void store(const QByteArray& content);
  void lockFreeSlot();
  void takeSlot(int slot, std::unique_ptr<QLockFile> lock);

  QString folder_;
  std::function<void()> changed_;
  QObject context_;   ///< of this thread
  QByteArray kept_;   ///< what was kept last, written or not; empty: nothing
  QThreadPool pool_;  ///< of one thread, which alone has what follows while it runs
  std::unique_ptr<QLockFile> lock_;
  int slot_ = 0;  ///< 0: none yet

  mutable QMutex mutex_;               ///< of what follows
  std::optional<QByteArray> waiting_;  ///< to be written; empty: the file is to go
  QString failure_;
};

}  // namespace calvora
