// What the main window does with files besides loading and saving: those that were used last, that
// are dropped, that were printed, and the memory of where the windows lay.
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <utility>

#include "app/main_window.h"
#include "base/guarded.h"
#include "dialogs/meldungen.h"
#include "overview/windows/analysen.h"
#include "platform/placement.h"
#include "storage/given_files.h"
#include "storage/session_memory.h"
#include "storage/windows/datenpfad.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// A file's name in a menu or on a button, where "&" would mark a key.
QString captionOf(const QString& name) {
  return shortened(name).replace('&'_L1, u"&&"_s);
}

}  // namespace

// ---- Files that are given ----

void main::openFiles(const QStringList& paths) {
  const Given given = kindOf(paths);
  if (given == Given::kAnalyses && paths.size() == 1) return loadGiven(paths.front());
  guarded(questions_, u" ps_mnudladen"_s, [&] {
    if (given == Given::kProject) {
      mnu2_ana_Click();
      overview_->openFiles(paths);
    } else {
      datenpfad::message(questions_, meldung::kNichtGeladen, namesOf(paths));
    }
  });
}

void main::loadGiven(const QString& path) {
  perform(
      u" ps_mnudladen"_s, [&] { load(path); }, u"Datei laden"_s);
}

void main::openFilesOfStart() {
  if (!filesAtStart.isEmpty()) openFiles(std::exchange(filesAtStart, {}));
}

// ---- Analyses that were used last ----

/// Lists those that are still there.
void main::listRecent() {
  mnu_recent->clear();
  for (const QString& path : readMemory(program_.programFolder).analyses) {
    if (!QFileInfo(path).isFile()) continue;
    const qsizetype number = mnu_recent->actions().size() + 1;
    const QString name = captionOf(QFileInfo(path).completeBaseName());
    QAction* action = mnu_recent->addAction(u"&%1  %2"_s.arg(number).arg(name));
    action->setToolTip(QDir::toNativeSeparators(path));
    action->setStatusTip(action->toolTip());
    connect(action, &QAction::triggered, this, [this, path] { loadGiven(path); });
  }
  if (mnu_recent->isEmpty()) mnu_recent->addAction(u"(keine)"_s)->setEnabled(false);
}

/// Remembers the file that the analysis was read from or saved as, once there is nothing more
/// urgent to do.
void main::noteAnalysis() {
  const QString path = program_.file.path;
  if (path.isEmpty()) return;
  const auto note = [folder = program_.programFolder, path] {
    changeMemory(folder, [&](SessionMemory& memory) { memory.noteAnalysis(path); });
  };
  QMetaObject::invokeMethod(this, note, Qt::QueuedConnection);
}

// ---- The PDF file that was printed last ----

/// What the status bar tells of is over with the next entry and the next analysis.
void main::forgetNotes() {
  ownAction_.clear();
  program_.printedFile.clear();
}

void main::showPrinted() {
  const QString& path = program_.printedFile;
  Command5->setVisible(!path.isEmpty());
  if (path.isEmpty()) return;
  const QString name = QFileInfo(path).fileName();
  Command5->setText(u"PDF: "_s + captionOf(name));
  Command5->setToolTip(QDir::toNativeSeparators(path));
  Command5->setAccessibleName(name + u" öffnen"_s);
}

void main::openPrinted() {
  const QString path = program_.printedFile;
  if (QFileInfo::exists(path) && desktop_.openDocument(path)) return;
  datenpfad::message(questions_, meldung::kNichtGeöffnet, QDir::toNativeSeparators(path));
}

// ---- Places of windows ----

void main::bringUp(QWidget& window) {
  if (!window.isVisible()) rememberPlaceOf(window);
  window.show();
  window.raise();
  window.activateWindow();
}

void main::rememberPlaceOf(QWidget& window) {
  const QString name = QString::fromLatin1(window.metaObject()->className()).section(':'_L1, -1);
  const QString& folder = program_.programFolder;
  rememberPlace(window, {.recall = [&folder, name]() -> std::optional<WindowPlace> {
                           const auto places = readMemory(folder).windows;
                           const auto place = places.find(name);
                           return place == places.end() ? std::nullopt : std::optional(*place);
                         },
                         .keep =
                             [&folder, name](const WindowPlace& place) {
                               changeMemory(folder, [&](SessionMemory& memory) {
                                 memory.windows[name] = place;
                               });
                             }});
}

}  // namespace calvora
