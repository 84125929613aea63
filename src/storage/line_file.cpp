#include "storage/line_file.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "base/runtime_error.h"
#include "base/windows1252.h"
#include "entry/decimal.h"

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
  QString safe = text;
  safe.replace("\r\n"_L1, " "_L1).replace('"'_L1, '\''_L1);
  for (QChar& c : safe) {
    const bool breaks = c == '\r'_L1 || c == '\n'_L1 || c == QChar::LineSeparator ||
                        c == QChar::ParagraphSeparator || c.isNull();
    if (breaks) c = ' '_L1;
  }
  return '"'_L1 + safe + '"'_L1;
}

LineReader LineReader::ofFile(const QString& path) {
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
  return LineReader(content);
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
  QString text = QString::number(raw / FixedPoint::kScale);
  if (const quint64 decimals = raw % FixedPoint::kScale; decimals != 0) {
    QString digits = QString::number(decimals).rightJustified(4, '0'_L1);
    while (digits.endsWith('0'_L1)) digits.chop(1);
    text += '.'_L1 + digits;
  }
  return value.raw() < 0 ? '-'_L1 + text : text;
}

FixedPoint readInvariantNumber(const QString& text) {
  if (!isNumberText(text) || text.contains(','_L1)) throw RuntimeError(ErrorNumber::kType, text);
  // The digits before and after the point, read as one integer, are exact up to the last value
  // that fits; further decimals only round.
  const bool negative = text.startsWith('-'_L1);
  const QString magnitude = negative ? text.mid(1) : text;
  const qsizetype point = magnitude.indexOf('.'_L1);
  const QString decimals = point < 0 ? QString() : magnitude.mid(point + 1);
  const QString digits =
      (point < 0 ? magnitude : magnitude.left(point)) + decimals.left(4).leftJustified(4, '0'_L1);
  bool fits = false;
  qint64 raw = (negative ? '-'_L1 + digits : digits).toLongLong(&fits);
  if (!fits) throw RuntimeError(ErrorNumber::kOverflow, text);
  if (decimals.size() > 4) {
    const QString rest = u"0."_s + decimals.mid(4);
    const double fraction = readNumber(rest);
    const bool up = fraction > 0.5 || (fraction == 0.5 && raw % 2 != 0);
    const qint64 end = negative ? FixedPoint::lowest().raw() : FixedPoint::highest().raw();
    if (up && raw == end) throw RuntimeError(ErrorNumber::kOverflow, text);
    if (up) raw += negative ? -1 : 1;
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
