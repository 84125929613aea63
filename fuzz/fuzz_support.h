#pragma once

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>

#include "base/questions.h"
#include "entry/decimal.h"
#include "model/fields.h"
#include "model/program.h"
#include "storage/analysis_file.h"
#include "storage/line_file.h"

namespace calvora::fuzz {

using namespace Qt::StringLiterals;

/// A finding: tells what does not hold and ends the run, so that the input is kept.
[[noreturn]] inline void finding(const char* what, const QString& details) {
  std::fprintf(stderr, "\nFinding: %s: %s\n", what, qUtf8Printable(details));
  std::abort();
}

inline void require(bool holds, const char* what, const QString& details = {}) {
  if (!holds) finding(what, details);
}

/// Answers every question and takes no runtime error.
class AnyQuestions final : public Questions {
 public:
  Button ask(const Message& message) override {
    require(!message.text.contains("%1"_L1), "a message has its place filled", message.text);
    return message.buttons & -message.buttons;
  }
  void reportError(const QString& numberAndLocation) override {
    finding("no procedure fails", numberAndLocation);
  }
};

/// A file of the run's own. It is not written safely: nothing has to survive here.
class TemporaryFile {
 public:
  explicit TemporaryFile(const QString& name) : name_(name) {}

  void put(const QByteArray& content) const {
    QFile file(path());
    require(file.open(QFile::WriteOnly) && file.write(content) == content.size(), "the disk works",
            file.errorString());
  }
  [[nodiscard]] QString folder() const { return folder_.path(); }
  [[nodiscard]] QString path() const { return folder_.filePath(name_); }

 private:
  QTemporaryDir folder_;
  QString name_;
};

inline QByteArray bytes(const uint8_t* data, size_t size) {
  return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)};
}

/// The number that a display text shows.
inline double shown(QString text) {
  return readNumber(text.replace(QLatin1Char(','), QLatin1Char('.')));
}

/// What a text is after it went through a file.
inline QString inFile(const QString& text) {
  const QString quoted = LineWriter::quoted(text);
  return quoted.mid(1, quoted.size() - 2);
}

/// The longest text that is sure to fit on a line with all that may stand beside it.
inline constexpr qsizetype kSurelyFits = LineReader::kLongestLine - 200;

/// Writes the analysis, reads it back and requires the same one, and the same bytes when it is
/// written again. A text that no line can hold may be refused instead.
inline void requireSameAfterSaving(Program& program, const TemporaryFile& file) {
  QByteArray content;
  try {
    content = analysisContent(program, program.header[0]);
  } catch (const RuntimeError&) {
    qsizetype longest = 0;
    for (int slot = 0; slot <= 7; ++slot) longest = std::max(longest, program.header[slot].size());
    for (int i = 1; i <= 26; ++i) longest = std::max(longest, program.record.text[i].size());
    require(longest > kSurelyFits, "what was read can be written", QString::number(longest));
    return;
  }
  file.put(content);
  Program again;
  require(readAnalysis(again, file.path(), [] {}), "what was written is complete");
  for (int slot = 0; slot <= 7; ++slot) {
    require(again.header[slot] == inFile(program.header[slot]), "a header comes back",
            program.header[slot]);
  }
  for (int i = 0; i <= 40; ++i) {
    const QString text = isShown(i) ? inFile(program.record.text[i]) : QString();
    const auto value = text.isEmpty() ? FixedPoint{} : program.record.value[i];
    require(again.record.text[i] == text, "a text comes back", text);
    require(again.record.value[i] == value, "a value comes back", invariantNumber(value));
  }
  require(analysisContent(again, again.header[0]) == content, "writing again gives the same bytes");
}

}  // namespace calvora::fuzz
