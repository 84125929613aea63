#pragma once

#include <QTemporaryDir>
#include <optional>

#include "entry/decimal.h"
#include "model/fields.h"
#include "model/program.h"
#include "read_back.h"

namespace calvora::fuzz {

using namespace Qt::StringLiterals;
using calvora::AnyQuestions;
using calvora::require;

/// A file of the run's own. It is not written safely: nothing has to survive here.
class TemporaryFile {
 public:
  explicit TemporaryFile(const QString& name) : name_(name) {}

  void put(const QByteArray& content) const { calvora::put(path(), content); }
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

/// What `write` returns; nothing if it refuses, for which one of the texts must be too long for a
/// line with all that may stand beside it.
template <class Write, class Texts>
auto written(const Write& write, const Texts& texts) -> std::optional<decltype(write())> {
  try {
    return write();
  } catch (const RuntimeError&) {
    qsizetype longest = 0;
    for (const QString& text : texts()) longest = std::max(longest, text.size());
    require(longest > LineReader::kLongestLine - 200, "what was read can be written",
            QString::number(longest));
    return std::nullopt;
  }
}

/// Writes the analysis and requires that it reads back the same, or that it is refused for a text
/// that no line can hold.
inline void requireSameAfterSaving(const Program& program, const TemporaryFile& file) {
  const auto content = written([&] { return analysisContent(program, program.header[0]); },
                               [&] {
                                 QStringList texts;
                                 for (int i = 0; i <= 7; ++i) texts += program.header[i];
                                 for (int i = 1; i <= 26; ++i) texts += program.record.text[i];
                                 return texts;
                               });
  if (!content) return;
  file.put(*content);
  requireReadsBack(program, program.header[0], file.path());
}

}  // namespace calvora::fuzz
