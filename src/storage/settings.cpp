#include "storage/settings.h"

#include <QDir>
#include <QFile>

#include "base/safe_write.h"
#include "storage/line_file.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLastStoredSlot = 12;

bool isSegment(int slot) {
  return slot >= setting::kFirstSegment && slot <= setting::kLastSegment;
}

QString settingsPath(const QString& programFolder) {
  return programFolder + u"/cvra.ini"_s;
}

/// Stands in for a company line that was never entered.
const CompanyLines& defaultSegments() {
  static const std::array kSegments{u"Calvora Wassertechnik       "_s, u"Am Beispielbach 1    "_s,
                                    u"12345 Musterstadt    "_s, u"kontakt@calvora.example"_s};
  return kSegments;
}

void readSlots(Settings& settings, LineReader reader) {
  while (!reader.atEnd()) {
    const QStringList fields = reader.fields(2);
    if (fields.isEmpty() && reader.atEnd()) return;  // a blank last line
    if (fields.size() < 2) throw RuntimeError(ErrorNumber::kEndOfFile);
    const qint64 number = readInteger(fields[0]);
    const int slot = number < 0 || number >= settings.slot.size() ? -1 : static_cast<int>(number);
    settings.slot[slot] = fields[1];
    if (isSegment(slot)) {
      settings.segments.at(static_cast<size_t>(slot - setting::kFirstSegment)) = fields[1];
    }
  }
}

void deriveCompanyLine(Settings& settings) {
  const CompanyLines& segments = settings.segments;
  const QString line = joinedSegments(segments).left(kLongestPrintLine);
  if (line.trimmed().isEmpty()) {
    settings.slot[setting::kPrintLine] = joinedSegments(defaultSegments());
    QString list = segmentList(defaultSegments());
    list.chop(1);  // no separator after the last one
    settings.slot[setting::kSegmentList] = list;
    return;
  }
  settings.slot[setting::kPrintLine] = line;
  settings.slot[setting::kSegmentList] = segmentList(segments);
}

enum class Reading { kNoFile, kInPart, kWhole };

/// Reads the file as far as it goes; only a whole one has a company line.
Reading readFile(Settings& settings, const QString& programFolder) {
  QString& dataFolder = settings.slot[setting::kDataFolder];
  try {
    readSlots(settings, LineReader::ofFile(settingsPath(programFolder)));
    deriveCompanyLine(settings);
    if (dataFolder.isEmpty()) dataFolder = defaultDataFolder(programFolder);
    return Reading::kWhole;
  } catch (const RuntimeError& error) {
    if (!error.is(ErrorNumber::kFileNotFound)) return Reading::kInPart;
    dataFolder = defaultDataFolder(programFolder);
    return Reading::kNoFile;
  }
}

/// Takes over what was found in the file, but not in place of what was changed here. The company
/// line is one setting; one that is the same keeps how it is printed here.
void takeOver(Settings& settings, const Settings& found) {
  const bool otherLine =
      !settings.unsaved.contains(setting::kFirstSegment) && found.segments != settings.segments;
  for (int slot = 1; slot <= kLastStoredSlot; ++slot) {
    const bool takes = isSegment(slot) ? otherLine : !settings.unsaved.contains(slot);
    if (takes) settings.slot[slot] = found.slot[slot];
  }
  if (otherLine) settings.segments = found.segments;
}

constexpr std::array kPadding{7, 4, 4, 0};

CompanyLines padded(const CompanyLines& lines, bool emptyToo) {
  CompanyLines segments;
  for (size_t i = 0; i < segments.size(); ++i) {
    const bool optional = i == 1 || i == 2;
    const bool pads = emptyToo || !optional || !lines.at(i).isEmpty();
    // '|' separates the segments in their list, so that no segment may contain it.
    QString line = lines.at(i);
    while (line.endsWith(' '_L1)) line.chop(1);
    segments.at(i) = line.replace('|'_L1, '/'_L1) + QString(pads ? kPadding.at(i) : 0, ' '_L1);
  }
  return segments;
}

/// Saves what the next writing would lose, beside what was saved so before.
void keepUnread(const QString& path) {
  if (!QFile::exists(path)) return;
  const auto contentOf = [](const QString& name) {
    QByteArray content = LineReader::contentOf(name);
    // What is larger than any settings are would be kept in part only.
    if (content.size() < LineReader::kLargestFile) return content;
    throw RuntimeError(ErrorNumber::kPathAccess, name);
  };
  const QByteArray content = contentOf(path);
  QString copy = path + u".alt"_s;
  for (int number = 2; QFile::exists(copy); ++number) {
    if (contentOf(copy) == content) return;
    copy = path + u".alt%1"_s.arg(number);
  }
  writeFileSafely(copy, content);
}

}  // namespace

QString defaultDataFolder(const QString& programFolder) {
  return QDir::toNativeSeparators(programFolder + u"/daten"_s);
}

QString dialogFolder(const Settings& settings, const QString& programFolder) {
  const QString& chosen = settings.slot[setting::kDataFolder];
  const bool isThere = !chosen.isEmpty() && QDir(QDir::fromNativeSeparators(chosen)).exists();
  return isThere ? chosen : defaultDataFolder(programFolder);
}

QString segmentList(const CompanyLines& segments) {
  QString list;
  for (QString segment : segments) list += segment.replace('|'_L1, '/'_L1) + '|'_L1;
  return list;
}

QString joinedSegments(const CompanyLines& segments) {
  return QStringList(segments.begin(), segments.end()).join(QString());
}

CompanyLines storedSegments(const CompanyLines& lines) {
  return padded(lines, true);
}

QString companyPreview(const CompanyLines& lines) {
  return joinedSegments(padded(lines, false)).left(kLongestPrintLine);
}

CompanyLines linesOfSegmentList(const QString& list) {
  const QStringList pieces = list.split('|'_L1);
  CompanyLines lines;
  for (qsizetype i = 0; i < pieces.size() - 1 && i < 4; ++i) {
    lines.at(static_cast<size_t>(i)) = pieces[i];
  }
  return lines;
}

void readSettings(Settings& settings, const QString& programFolder) {
  if (settings.unsaved.empty()) readFile(settings, programFolder);
}

void writeSettings(Settings& settings, const QString& programFolder, int changed) {
  settings.unsaved.insert(changed);
  Settings found = settings;  // what the file does not name stays
  const Reading reading = readFile(found, programFolder);
  if (reading == Reading::kWhole) takeOver(settings, found);
  if (reading == Reading::kInPart) keepUnread(settingsPath(programFolder));
  LineWriter writer;
  for (int slot = 1; slot <= kLastStoredSlot; ++slot) {
    QString text = isSegment(slot)
                       ? settings.segments.at(static_cast<size_t>(slot - setting::kFirstSegment))
                       : settings.slot[slot];
    // A default folder that the file cannot hold is found again without it.
    if (slot == setting::kDataFolder && !isStorable(text)) text.clear();
    writer.fields({QString::number(slot), LineWriter::quoted(text)});
  }
  writeFileSafely(settingsPath(programFolder), writer.content());
  settings.unsaved.clear();
}

}  // namespace calvora
