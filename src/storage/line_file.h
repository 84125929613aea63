#pragma once

#include <QByteArray>
#include <QStringList>
#include <functional>

#include "base/runtime_error.h"
#include "entry/fixed_point.h"
#include "model/program.h"

namespace calvora {

/// A name as a file name: "-" for what would lead into another folder, split the name into several,
/// or is not allowed in a name everywhere.
QString asFileName(QString name);

/// The path with the extension that belongs to it: its file name is cut at the first point behind
/// its first character.
QString withExtension(const QString& path, const QString& extension);

/// Name line of a file: its title without blanks at the ends and without the extension.
QString nameLine(const QString& title, const QString& extension);

/// The hash of a file's content.
QByteArray hashOf(const QByteArray& content);

/// Writes a file as `writeFileSafely` does and returns it as it is known from now on.
KnownFile writeKnownFile(const QString& path, const QByteArray& content);

/// Why a file was not written, in the user's words.
QString reasonOf(const RuntimeError& error);

/// Whether a file is still there as it was read or written here. Never throws, and never waits for
/// what is no regular file.
bool isUnchanged(const KnownFile& file);

/// Whether a text can be written to a file and read back as it is.
bool isStorable(const QString& text);

/// Builds the content of a file: lines of comma-separated fields, CR LF, Windows-1252.
class LineWriter {
 public:
  /// A line of one quoted text.
  void text(const QString& text);

  /// A line of fields that are written as they stand. Runtime error 5 for a line that is too long
  /// to be read back.
  void fields(const QStringList& fields);

  /// A text between double quotes. A double quote in it becomes an apostrophe and a line break a
  /// blank, so that no text can break the file.
  static QString quoted(const QString& text);

  [[nodiscard]] const QByteArray& content() const { return content_; }

 private:
  QByteArray content_;
};

/// Reads the lines of a file. A line is at most 64 KiB and a file at most 4 MiB; what lies beyond
/// is an unreadable line. Lines end with LF or CR LF.
class LineReader {
 public:
  static constexpr qsizetype kLongestLine = qsizetype{64} * 1024;
  static constexpr qsizetype kLargestFile = qsizetype{4} * 1024 * 1024;

  /// The content of a regular file, or of a larger one what goes a byte beyond the limit. Runtime
  /// error 53 if it does not exist, 75 if it cannot be read or is something else.
  static QByteArray contentOf(const QString& path);

  /// The reader of a file's content. Throws as `contentOf`.
  static LineReader ofFile(const QString& path) { return LineReader(contentOf(path)); }

  /// Opens a file as `ofFile` does and lets `read` read it. False if a runtime error ended reading
  /// early; what was read up to there stays.
  static bool readFile(const QString& path, const std::function<void(LineReader&)>& read);

  /// The hash of the whole content, by which a file that was changed is known.
  [[nodiscard]] QByteArray hash() const { return hashOf(content_); }

  explicit LineReader(QByteArray content) : content_(std::move(content)) {}

  [[nodiscard]] bool atEnd() const { return position_ >= content_.size(); }

  /// The first fields of the next line, at most `count`; none of a blank line. Runtime error 62 at
  /// the end of the file, 13 if the line is unreadable.
  QStringList fields(int count);

  /// The first field of the next line, empty for a blank line.
  QString text() { return fields(1).value(0); }

  /// Passes over a line, whatever it holds.
  void skipLine() { nextLine(); }

 private:
  QString nextLine();

  QByteArray content_;
  qsizetype position_ = 0;
};

/// A value as files hold it: invariant notation, exact, at most four decimals, a leading zero.
QString invariantNumber(FixedPoint value);

/// Reads a value: digits with at most one point and an optional minus, rounded to four decimals.
/// Runtime error 13 for any other text, 6 for a number that does not fit.
FixedPoint readInvariantNumber(const QString& text);

/// Reads an integer. Runtime error 13 for any other text.
qint64 readInteger(const QString& text);

}  // namespace calvora
