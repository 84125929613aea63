#pragma once

#include <QString>

#include "base/checked_array.h"
#include "entry/fixed_point.h"

namespace calvora {

/// Header of an analysis or a project, by the slots of `kopf`; dates as dd.mm.yyyy.
using AnalysisHeader = CheckedArray<QString, 11>;

/// Slots of the header. A project has neither sample nor creation date.
namespace kopf {
inline constexpr int kDateiname = 0;  ///< name line of the file, its name without extension
inline constexpr int kProjekt = 1;
inline constexpr int kProjektNo = 2;
inline constexpr int kProbe = 3;
inline constexpr int kAuftraggeber = 4;
inline constexpr int kProbenahme = 5;  ///< sampling date, empty if there is none
inline constexpr int kErstellt = 6;    ///< creation date of the file
inline constexpr int kBemerkung = 7;   ///< remark
}  // namespace kopf

/// Slots of the flag array that the program uses.
namespace flag {
inline constexpr int kNameLine = 0;  ///< name line of the file written last
inline constexpr int kStatus = 1;    ///< "1": there are unsaved changes
}  // namespace flag

/// Where the text of a field comes from.
enum class Origin {
  kEmpty,
  kTyped,      ///< by the user, or read from a file
  kCompleted,  ///< an input whose value the program filled in or replaced
  kComputed,   ///< a result of the last run
  kKept,  ///< a result that the last run did not write, or wrote from one that it did not write
};

/// The one water analysis that the program holds. An input field is empty exactly when its text is;
/// its value is then 0. A result without text may keep the value it had.
struct AnalysisRecord {
  CheckedArray<FixedPoint, 41> value;
  CheckedArray<QString, 41> text;
  CheckedArray<QString, 11> flag;

  // What the last run noted, see originOf; no part of the analysis itself.
  CheckedArray<bool, 41> completed;  ///< inputs
  CheckedArray<bool, 41> computed;   ///< results

  /// Empties one field: value 0 and empty text.
  void clearField(int index) {
    value[index] = {};
    text[index].clear();
    completed[index] = false;
    computed[index] = false;
  }

  void clear() {
    value.clear();
    text.clear();
    flag.clear();
    completed.clear();
    computed.clear();
  }

  /// Whether value, text and flags are the same, wherever they come from.
  friend bool operator==(const AnalysisRecord& a, const AnalysisRecord& b) {
    return a.value == b.value && a.text == b.text && a.flag == b.flag;
  }
};

/// Where a field of the record comes from. Index 0 to 40; any other is runtime error 9.
Origin originOf(const AnalysisRecord& record, int index);

/// Captions of the two narrow displays beside the results 10 and 7.
struct NarrowTexts {
  QString leitfähigkeitAusIonen;  ///< `Label2(20)`, µS/cm
  QString phNäherung;             ///< `Label2(21)`

  // Whether the last run wrote them.
  bool leitfähigkeitComputed = false;
  bool näherungComputed = false;

  friend bool operator==(const NarrowTexts&, const NarrowTexts&) = default;

  [[nodiscard]] Origin originOfLeitfähigkeit() const;
  [[nodiscard]] Origin originOfNäherung() const;
};

}  // namespace calvora
