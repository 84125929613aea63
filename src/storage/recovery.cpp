#include "storage/recovery.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSysInfo>
#include <QUrl>
#include <algorithm>

#include "base/safe_write.h"
#include "entry/date_text.h"
#include "storage/analysis_file.h"
#include "storage/line_file.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

const auto kFile = u"rec"_s;
const auto kLock = u"lock"_s;
const auto kMark = u"Sicherung"_s;
const auto kEnd = u"ende"_s;      // nothing is missing
const QByteArray kNotKept = "?";  // equal to no content
constexpr int kMostSlots = 99;

/// What a recovery file has behind the end record, where readers of an analysis stop. The path may
/// have characters that files do not know.
QByteArray lastLine(const KnownFile& file) {
  LineWriter line;
  line.fields({LineWriter::quoted(kMark),
               LineWriter::quoted(QDateTime::currentDateTime().toString(Qt::ISODate)),
               LineWriter::quoted(QString::fromLatin1(QUrl::toPercentEncoding(file.path, "/ "))),
               LineWriter::quoted(QString::fromLatin1(file.hash.toHex())),
               LineWriter::quoted(kEnd)});
  return line.content();
}

/// What is known of a recovery file; nothing if it is not there or cannot be opened.
std::optional<LeftAnalysis> lookAt(const QString& path) {
  try {
    LeftAnalysis left{path, QFileInfo(path).lastModified(), {}, readForOverview(path).complete};
    QStringList last;
    left.complete &= LineReader::readFile(path, [&last](LineReader& reader) {
      while (!reader.atEnd()) last = reader.fields(5);
    });
    const QDateTime time = QDateTime::fromString(last.value(1), Qt::ISODate);
    left.complete &= last.value(0) == kMark && last.value(4) == kEnd && time.isValid();
    if (!left.complete) return left;
    left.lastEntry = time;
    left.file = {QUrl::fromPercentEncoding(last[2].toLatin1()),
                 QByteArray::fromHex(last[3].toLatin1())};
    return left;
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

}  // namespace

void restoreAnalysis(Program& program, const LeftAnalysis& left,
                     const std::function<void()>& reset) {
  readAnalysis(program, left.path, reset);
  QString& sampled = program.header[kopf::kProbenahme];
  sampled = dateText(dateOf(sampled));
  program.file = left.file;
  program.markUnsaved();
}

Recovery::Recovery(QString folder, std::function<void()> changed)
    : folder_(std::move(folder)), changed_(std::move(changed)) {
  pool_.setMaxThreadCount(1);
}

Recovery::~Recovery() {
  pool_.waitForDone();
}

QString Recovery::pathOf(int slot, const QString& extension) const {
  return folder_ + u"/cvra%1."_s.arg(slot) + extension;
}

QList<int> Recovery::slotsWith(const QString& extension) const {
  QList<int> found;
  for (const QString& name : QDir(folder_).entryList({u"cvra*."_s + extension}, QDir::Files)) {
    const int slot = name.mid(4, name.size() - 5 - extension.size()).toInt();
    if (slot >= 1 && slot <= kMostSlots) found += slot;
  }
  std::ranges::sort(found);
  return found;
}

/// A lock that is held if the slot could be had: that of a process of this computer that has ended
/// is broken, however old it is, and never that of one that runs, or of another computer, where
/// nobody can see. A lock file without content was left while it was made.
std::unique_ptr<QLockFile> Recovery::tryLock(int slot) const {
  auto lock = std::make_unique<QLockFile>(pathOf(slot, kLock));
  qint64 process = 0;
  QString host;
  QString name;
  constexpr int kLongestMaking = 60'000;  // ms
  lock->setStaleLockTime(lock->getLockInfo(&process, &host, &name) ? 0 : kLongestMaking);
  // Nobody else writes in a slot that is locked here.
  if (lock->tryLock(0)) removeLeftovers(pathOf(slot, kFile), std::chrono::seconds(0));
  return lock;
}

void Recovery::offer(const std::function<Button(const LeftAnalysis&)>& ask) {
  for (const int slot : slotsWith(kFile)) {
    auto lock = tryLock(slot);
    if (!lock->isLocked()) continue;
    const std::optional<LeftAnalysis> left = lookAt(pathOf(slot, kFile));
    if (!left) continue;
    const Button answer = ask(*left);
    if (answer == Button::kNein) QFile::remove(left->path);
    if (answer != Button::kJa) continue;
    return takeSlot(slot, std::move(lock));
  }
  hand({});  // takes a slot, so that other instances see this one
}

void Recovery::keep(const Program& program) {
  try {
    QByteArray content;
    QByteArray state;
    if (program.unsaved) {
      content = analysisContent(program, program.header[kopf::kDateiname]);
      state = content + program.file.path.toUtf8() + program.file.hash;
      content += lastLine(program.file);
    }
    if (state == kept_) return;
    kept_ = state;
    hand(content);
  } catch (const RuntimeError& error) {
    kept_ = kNotKept;
    setFailure(&error);
  }
}

void Recovery::discard(const Program& program) {
  keep(program);  // from now on equal to what is kept
  hand({});
  pool_.waitForDone();
}

void Recovery::flush(const Program& program) {
  if (!failure().isEmpty()) kept_ = kNotKept;
  keep(program);
  pool_.waitForDone();
}

void Recovery::leave() {
  lock_.reset();
  slot_ = 0;
}

QString Recovery::failure() const {
  const QMutexLocker guard(&mutex_);
  return failure_;
}

void Recovery::setFailure(const RuntimeError* error) {
  {
    const QString failure = error == nullptr
                                ? QString()
                                : u"Automatische Sicherung nicht möglich: "_s + reasonOf(*error);
    const QMutexLocker guard(&mutex_);
    if (failure == failure_) return;
    failure_ = failure;
  }
  QMetaObject::invokeMethod(&context_, changed_, Qt::QueuedConnection);
}

QString Recovery::otherInstance() const {
  for (const int slot : slotsWith(kLock)) {
    qint64 process = 0;
    QString host;
    QString name;
    if (!QLockFile(pathOf(slot, kLock)).getLockInfo(&process, &host, &name)) continue;
    const bool here = host == QSysInfo::machineHostName();
    if (here && process == QCoreApplication::applicationPid()) continue;
    const auto lock = tryLock(slot);
    if (lock->isLocked() || lock->error() == QLockFile::PermissionError) continue;  // it has ended
    const QString text = u"Calvora läuft auf diesem Ordner bereits"_s;
    return here ? text : text + u" (Rechner %1)"_s.arg(host);
  }
  return {};
}

// ---- The thread ----

void Recovery::hand(const QByteArray& content) {
  const QMutexLocker guard(&mutex_);
  waiting_ = content;
  pool_.start([this] { work(); });
}

void Recovery::work() {
  std::optional<QByteArray> content;
  {
    const QMutexLocker guard(&mutex_);
    content.swap(waiting_);
  }
  if (!content) return;  // an earlier turn found it
  try {
    store(*content);
    setFailure(nullptr);
  } catch (const RuntimeError& error) {
    // Where nothing is to be kept nothing is amiss.
    const bool nothing = content->isEmpty() && slot_ == 0;
    setFailure(nothing ? nullptr : &error);
  }
}

void Recovery::store(const QByteArray& content) {
  if (slot_ == 0) lockFreeSlot();
  const QString path = pathOf(slot_, kFile);
  if (!content.isEmpty()) return writeFileSafely(path, content);
  if (!QFile::remove(path) && QFileInfo::exists(path)) throw RuntimeError(ErrorNumber::kPathAccess);
}

/// A slot with a file still waits for its answer.
void Recovery::lockFreeSlot() {
  for (int slot = 1; slot <= kMostSlots; ++slot) {
    if (QFileInfo::exists(pathOf(slot, kFile))) continue;
    auto lock = tryLock(slot);
    if (lock->error() == QLockFile::PermissionError) throw RuntimeError(ErrorNumber::kPathAccess);
    if (lock->error() == QLockFile::UnknownError) throw RuntimeError(ErrorNumber::kDiskFull);
    // Whoever had the slot until now may have left a file.
    if (!lock->isLocked() || QFileInfo::exists(pathOf(slot, kFile))) continue;
    return takeSlot(slot, std::move(lock));
  }
  throw RuntimeError(ErrorNumber::kPathAccess);
}

void Recovery::takeSlot(int slot, std::unique_ptr<QLockFile> lock) {
  lock_ = std::move(lock);
  slot_ = slot;
}

}  // namespace calvora
