#include "storage/line_file.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

#include "base/runtime_error.h"
#include "base/safe_write.h"
#include "base/windows1252.h"
#include "entry/decimal.h"
#include "entry/key_filter.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

bool isBlank(QChar c) {
  return c == ' '_L1 || c == '\t'_L1;
}

/// Takes the field that starts at `position` and leaves the position behind its comma, or -1 behind
/// the last one.
QString takeField(const QString& line, qsizetype& position) {
  while (position < line.size() && isBlank(line[position])) ++position;
  qsizetype end = position;
  QString field;
  if (position < line.size() && line[position] == '"'_L1) {
    end = line.indexOf('"'_L1, position + 1);
    if (end < 0) throw RuntimeError(ErrorNumber::kType, u"a quoted text does not end"_s);
    field = line.mid(position + 1, end - position - 1);
  }
  const qsizetype comma = line.indexOf(','_L1, end);
  if (end == position) field = line.mid(position, comma < 0 ? -1 : comma - position).trimmed();
  position = comma < 0 ? -1 : comma + 1;
  return field;
}

}  // namespace

QString asFileName(QString name) {
  static const QRegularExpression kNotAllowed(u"[\\x00-\\x1f\\\\/:*?\"<>|]"_s);
  return name.replace(kNotAllowed, u"-"_s);
}

QString withExtension(const QString& path, const QString& extension) {
  const qsizetype name = path.lastIndexOf('/'_L1) + 1;
  const qsizetype point = path.indexOf('.'_L1, name + 1);
  return path.left(point) + '.'_L1 + extension;
}

QString nameLine(const QString& title, const QString& extension) {
  QString name = title.trimmed();
  if (name.contains('.'_L1 + extension, Qt::CaseInsensitive)) name.chop(extension.size() + 1);
  return name;
}

QByteArray hashOf(const QByteArray& content) {
  return QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

KnownFile writeKnownFile(const QString& path, const QByteArray& content) {
  writeFileSafely(path, content);
  return {QFileInfo(path).absoluteFilePath(), hashOf(content)};
}

QString reasonOf(const RuntimeError& error) {
  switch (static_cast<ErrorNumber>(error.number())) {
    case ErrorNumber::kDiskFull:
      return u"Der Datenträger ist voll oder gestört."_s;
    case ErrorNumber::kPathAccess:
      return u"Ordner oder Datei lassen sich nicht beschreiben."_s;
    case ErrorNumber::kInvalidCall:
      return u"Ein Text ist zu lang."_s;
    default:
      return u"Fehler %1."_s.arg(error.number());
  }
}

bool isUnchanged(const KnownFile& file) {
  try {
    return !file.path.isEmpty() && LineReader::ofFile(file.path).hash() == file.hash;
  } catch (const RuntimeError&) {
    return false;
  }
}

bool isStorable(const QString& text) {
  return text.size() < LineReader::kLongestLine / 2 &&
         LineWriter::quoted(fromWindows1252(toWindows1252(text))) == '"'_L1 + text + '"'_L1;
}

void LineWriter::text(const QString& text) {
  fields({quoted(text)});
}

void LineWriter::fields(const QStringList& fields) {
  const QByteArray line = toWindows1252(fields.join(','_L1)) + "\r\n";
  if (line.size() > LineReader::kLongestLine) {
    throw RuntimeError(ErrorNumber::kInvalidCall, u"a text is too long"_s);
  }
  content_ += line;
}

QString LineWriter::quoted(const QString& text) {
  return '"'_L1 + onOneLine(text).replace('"'_L1, '\''_L1) + '"'_L1;
}

QByteArray LineReader::contentOf(const QString& path) {
  const QFileInfo info(path);
  if (!info.exists()) throw RuntimeError(ErrorNumber::kFileNotFound, path);
  // Only a plain file has an end: opening a pipe could wait for ever.
  QFile file(path);
  if (!info.isFile() || !file.open(QFile::ReadOnly)) {
    throw RuntimeError(ErrorNumber::kPathAccess, path);
  }
  // Room for what the file says to hold, and more only where it holds more: the files that the
  // system makes up say nothing.
  const qint64 expected = std::clamp<qint64>(info.size(), 0, kLargestFile);
  QByteArray content = file.read(expected + 1);
  if (content.size() > expected) content += file.read(kLargestFile - expected);
  if (file.error() != QFile::NoError) throw RuntimeError(ErrorNumber::kPathAccess, path);
  return content;
}

bool LineReader::readFile(const QString& path, const std::function<void(LineReader&)>& read) {
  LineReader reader = ofFile(path);
  try {
    read(reader);
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

QString LineReader::nextLine() {
  if (atEnd()) throw RuntimeError(ErrorNumber::kEndOfFile);
  qsizetype end = content_.indexOf('\n', position_);
  if (end < 0) end = content_.size();
  if (end - position_ > kLongestLine || end >= kLargestFile) {
    throw RuntimeError(ErrorNumber::kType, u"a line or the file is too long"_s);
  }
  QByteArray line = content_.mid(position_, end - position_);
  if (line.endsWith('\r')) line.chop(1);
  position_ = end + 1;
  return fromWindows1252(line);
}

QStringList LineReader::fields(int count) {
  const QString line = nextLine();
  QStringList fields;
  qsizetype position = line.trimmed().isEmpty() ? -1 : 0;
  while (position >= 0 && fields.size() < count) fields += takeField(line, position);
  return fields;
}

QString invariantNumber(FixedPoint value) {
  const quint64 raw = value.magnitude();
  QString text =
      u"%1.%2"_s.arg(raw / FixedPoint::kScale).arg(raw % FixedPoint::kScale, 4, 10, '0'_L1);
  while (text.endsWith('0'_L1)) text.chop(1);
  if (text.endsWith('.'_L1)) text.chop(1);
  return value.raw() < 0 ? '-'_L1 + text : text;
}

FixedPoint readInvariantNumber(const QString& text) {
  if (!isNumberText(text) || text.contains(','_L1)) throw RuntimeError(ErrorNumber::kType, text);
  // The digits before the point and four behind it, read as one integer, are exact up to the last
  // value that fits; further decimals only round.
  const QString decimals = text.section('.'_L1, 1);
  const QString digits = text.section('.'_L1, 0, 0) + decimals.left(4).leftJustified(4, '0'_L1);
  bool fits = false;
  qint64 raw = digits.toLongLong(&fits);
  QString rest = decimals.mid(4);
  while (rest.endsWith('0'_L1)) rest.chop(1);
  const bool up = rest > "5"_L1 || (rest == "5"_L1 && raw % 2 != 0);
  const qint64 step = text.startsWith('-'_L1) ? -1 : 1;
  if (!fits || (up && qAddOverflow(raw, step, &raw))) {
    throw RuntimeError(ErrorNumber::kOverflow, text);
  }
  return FixedPoint::fromRaw(raw);
}

qint64 readInteger(const QString& text) {
  bool valid = false;
  const qint64 number = text.toLongLong(&valid);
  if (!valid) throw RuntimeError(ErrorNumber::kType, text);
  return number;
}

}  // namespace calvora
