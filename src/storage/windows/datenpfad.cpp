#include "storage/windows/datenpfad.h"

#include <QDir>
#include <QEvent>
#include <QGridLayout>
#include <QStorageInfo>

#include "dialogs/meldungen.h"
#include "platform/form.h"
#include "platform/twips.h"
#include "storage/line_file.h"
#include "storage/settings.h"
#include "storage/windows/dateien.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

enum Command { kSave = 1, kCancel };

constexpr int kPathRole = Qt::UserRole;
constexpr int kLongestBareDrive = 3;

/// The folder that the window proposes: the chosen one, unless it is a bare drive.
QString proposedFolder(const Settings& settings, const QString& programFolder) {
  const QString& chosen = settings.slot[setting::kDataFolder];
  return chosen.size() > kLongestBareDrive ? chosen : defaultDataFolder(programFolder);
}

}  // namespace

datenpfad::datenpfad(Settings& settings, const QString& programFolder, Questions& questions,
                     QWidget* parent)
    : QDialog(parent), settings_(settings), programFolder_(programFolder), questions_(questions) {
  setAttribute(Qt::WA_DeleteOnClose);
  buildWindow();
  listDrives();
  connect(Drive1, &QComboBox::activated, this, &datenpfad::Drive1_Change);
  Label3(1).setText(proposedFolder(settings_, programFolder_));
}

/// The root comes first whatever the system tells: not every one lists it as mounted.
void datenpfad::listDrives() {
  QStringList drives{QDir::rootPath()};
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    const bool holdsFiles = volume.isValid() && volume.isReady() && volume.bytesTotal() > 0;
    if (holdsFiles && !drives.contains(volume.rootPath())) drives += volume.rootPath();
  }
  for (const QString& drive : drives) Drive1->addItem(QDir::toNativeSeparators(drive), drive);
}

/// The proposed folder becomes the current one once the window can be seen, so that the notice that
/// it does not exist comes over it.
void datenpfad::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (std::exchange(shown_, true)) return;
  const bool exists = QDir::setCurrent(QDir::fromNativeSeparators(Label3(1).text()));
  const QString current = QDir::currentPath();
  openFolder(QDir(current).exists() ? current : QDir::homePath());
  if (exists) return;
  QMetaObject::invokeMethod(
      this, [this] { message(questions_, meldung::kPfadFehlt); }, Qt::QueuedConnection);
}

Button datenpfad::message(Questions& questions, int code, const QString& extra) {
  return questions.ask(katalogMeldung(code, extra));
}

/// Lists the way down to a folder and the folders in it.
void datenpfad::openFolder(const QString& folder) {
  Dir1->clear();
  QStringList way;
  for (QDir above(folder);;) {
    way.prepend(above.absolutePath());
    if (!above.cdUp()) break;
  }
  QListWidgetItem* current = nullptr;
  const auto add = [this](const QString& path, const QString& name, qsizetype depth) {
    auto* entry = new QListWidgetItem(QString(3 * depth, ' '_L1) + name, Dir1);
    entry->setData(kPathRole, path);
    return entry;
  };
  for (qsizetype depth = 0; depth < way.size(); ++depth) {
    const QString name = QDir(way[depth]).dirName();
    current = add(way[depth], name.isEmpty() ? QDir::toNativeSeparators(way[depth]) : name, depth);
  }
  if (current == nullptr) return;
  QFont font = current->font();
  font.setBold(true);
  current->setFont(font);
  const QDir here(folder);
  for (const QString& name : here.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
    add(here.absoluteFilePath(name), name, way.size());
  }
  Dir1->setCurrentItem(current);
  const QString drive = QStorageInfo(here).rootPath();
  Drive1->setCurrentIndex(std::max(0, Drive1->findData(drive)));  // the root, if it is not listed
}

void datenpfad::choose(const QString& folder) {
  if (!QDir(folder).exists()) {
    message(questions_, meldung::kPfadFehlt);
    return;
  }
  openFolder(folder);
  Label3(2).setText(QDir::toNativeSeparators(folder));
  Command1(kSave).setEnabled(true);
}

void datenpfad::Drive1_Change(int index) {
  choose(Drive1->itemData(index).toString());
}

void datenpfad::Dir1_Click(QListWidgetItem* entry) {
  choose(entry->data(kPathRole).toString());
}

/// A folder that is gone by now, or whose name the settings file would change, is refused.
bool datenpfad::canBeKept(const QString& folder) {
  if (!QDir(QDir::fromNativeSeparators(folder)).exists()) {
    message(questions_, meldung::kPfadFehlt);
    return false;
  }
  if (isStorable(folder)) return true;
  questions_.ask(
      {.text = joinedLines({u" Der Name dieses Ordners enthält Zeichen, die nicht "_s,
                            u" gespeichert werden können. Wählen Sie einen anderen ! "_s}),
       .title = u"Datenpfad"_s,
       .symbol = Symbol::kWarning});
  return false;
}

/// The second click of a double click would open an entry of the list that the first one built.
bool datenpfad::eventFilter(QObject* watched, QEvent* event) {
  return event->type() == QEvent::MouseButtonDblClick || QDialog::eventFilter(watched, event);
}

void datenpfad::Command1_Click(int index) {
  if (index == kCancel) {
    close();
    return;
  }
  const QString folder = Label3(2).text().trimmed();
  if (folder.isEmpty() || !canBeKept(folder)) return;
  if (message(questions_, meldung::kPfadBestätigen, folder) == Button::kAbbrechen) return;
  Label3(1).setText(folder);
  settings_.slot[setting::kDataFolder] = folder;
  const QString failure =
      Dateien::inispeichern(settings_, programFolder_, questions_, setting::kDataFolder);
  showFailure(*failure_, failure);
  if (!failure.isEmpty()) return;  // the window stays, to try again
  message(questions_, meldung::kPfadGespeichert);
  close();
}

void datenpfad::buildWindow() {
  setWindowTitle(u"    Vorgabe des Speicherpfads für Analysen-Daten"_s);
  auto* layout = new QVBoxLayout(this);
  setWindowMargins(*layout);
  layout->setSpacing(10);
  Label1 = new QLabel(
      u"Geben Sie hier den Pfad vor, in dem Ihre Analysen abgespeichert werden sollen :"_s);
  Drive1 = new QComboBox;
  Drive1->setAccessibleName(u"Laufwerk"_s);
  Dir1 = new QListWidget;
  Dir1->setAccessibleName(u"Ordner"_s);
  Dir1->setMinimumSize(twips(7500), twips(4200));
  Label2 = new QLabel(u"voreingestellter Pfad :"_s);
  for (const int index : {1, 2}) {
    auto& label = Label3.add(index, new QLabel);
    label.setTextFormat(Qt::PlainText);
    label.setWordWrap(true);
    label.setMinimumHeight(twips(300));
  }
  failure_ = makeFailureLine();
  QFont bold = font();
  bold.setBold(true);
  Label3(2).setFont(bold);

  addButtons(Command1, 1900, {{kSave, u"OK/speichern"_s}, {kCancel, u"abbrechen"_s}},
             [this](int index) { Command1_Click(index); });
  Command1(kSave).setEnabled(false);

  layout->addWidget(Label1);
  layout->addWidget(Drive1);
  layout->addWidget(Dir1, 1);
  layout->addWidget(&Label3(2));
  layout->addWidget(Label2);
  layout->addWidget(&Label3(1));
  layout->addWidget(failure_);
  layout->addLayout(makeButtonRow({&Command1(kSave), &Command1(kCancel)}));
  Dir1->viewport()->installEventFilter(this);
  // One click opens a folder, and so does Enter.
  connect(Dir1, &QListWidget::itemClicked, this, &datenpfad::Dir1_Click);
  connect(Dir1, &QListWidget::itemActivated, this, &datenpfad::Dir1_Click);
}

}  // namespace calvora
