#include "storage/session_memory.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "base/runtime_error.h"
#include "base/safe_write.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLargestFile = qint64{64} * 1024;
constexpr int kFarthestPixel = 100'000;
constexpr qsizetype kMostWindows = 32;

const auto kAnalyses = u"analysen"_s;
const auto kWindows = u"fenster"_s;
const auto kFrame = u"rahmen"_s;
const auto kSize = u"groesse"_s;
const auto kMaximised = u"maximiert"_s;

QString memoryPath(const QString& programFolder) {
  return programFolder + u"/cvra_zuletzt.json"_s;
}

/// The numbers of an array, 0 for whatever is none or out of every screen.
QList<int> numbersOf(const QJsonValue& value) {
  QList<int> numbers;
  for (const auto& number : value.toArray()) {
    const int pixels = number.toInt();
    numbers += qAbs(pixels) > kFarthestPixel ? 0 : pixels;
  }
  return numbers;
}

WindowPlace placeOf(const QJsonObject& object) {
  const QList<int> frame = numbersOf(object[kFrame]);
  const QList<int> size = numbersOf(object[kSize]);
  return {.frame = {frame.value(0), frame.value(1), frame.value(2), frame.value(3)},
          .size = {size.value(0), size.value(1)},
          .maximised = object[kMaximised].toBool()};
}

bool isSensible(const WindowPlace& place) {
  return !place.size.isEmpty() && place.size.boundedTo(place.frame.size()) == place.size;
}

QJsonObject objectOf(const WindowPlace& place) {
  const QRect& frame = place.frame;
  return {{kFrame, QJsonArray{frame.x(), frame.y(), frame.width(), frame.height()}},
          {kSize, QJsonArray{place.size.width(), place.size.height()}},
          {kMaximised, place.maximised}};
}

/// What lies in the program folder moves with it.
QString portablePath(const QDir& programFolder, const QString& path) {
  const QString relative = programFolder.relativeFilePath(path);
  return relative.startsWith(".."_L1) ? path : relative;
}

QByteArray contentOf(const SessionMemory& memory, const QDir& programFolder) {
  QJsonArray analyses;
  for (const QString& path : memory.analyses) analyses += portablePath(programFolder, path);
  QJsonObject windows;
  for (const auto& [name, place] : memory.windows.asKeyValueRange())
    windows[name] = objectOf(place);
  return QJsonDocument(QJsonObject{{kAnalyses, analyses}, {kWindows, windows}}).toJson();
}

}  // namespace

void SessionMemory::noteAnalysis(const QString& path) {
  const QString clean = QDir::cleanPath(path);
  analyses.removeAll(clean);
  analyses.prepend(clean);
  if (analyses.size() > kRecentAnalyses) analyses.resize(kRecentAnalyses);
}

SessionMemory readMemory(const QString& programFolder) {
  QFile file(memoryPath(programFolder));
  // Only a plain file has an end: opening a pipe could wait for ever.
  if (!QFileInfo(file).isFile() || !file.open(QFile::ReadOnly)) return {};
  const QJsonObject kept = QJsonDocument::fromJson(file.read(kLargestFile)).object();
  SessionMemory memory;
  const QDir folder(programFolder);
  const QJsonArray analyses = kept[kAnalyses].toArray();
  for (qsizetype i = analyses.size() - 1; i >= 0; --i) {  // the newest one is noted last
    const QString path = analyses[i].toString();
    if (!path.isEmpty()) memory.noteAnalysis(folder.absoluteFilePath(path));
  }
  const QJsonObject windows = kept[kWindows].toObject();
  for (auto window = windows.begin(); window != windows.end(); ++window) {
    const WindowPlace place = placeOf(window.value().toObject());
    if (isSensible(place) && memory.windows.size() < kMostWindows) {
      memory.windows[window.key()] = place;
    }
  }
  return memory;
}

void changeMemory(const QString& programFolder, const std::function<void(SessionMemory&)>& change) {
  const SessionMemory before = readMemory(programFolder);
  SessionMemory memory = before;
  change(memory);
  if (memory == before) return;
  try {
    writeFileSafely(memoryPath(programFolder), contentOf(memory, QDir(programFolder)));
  } catch (const RuntimeError&) {
    return;  // the next session starts without it
  }
}

}  // namespace calvora
