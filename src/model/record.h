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

/// The one water analysis that the program holds. An input field is empty exactly when its text is;
/// its value is then 0. A result without text may keep the value it had.
struct AnalysisRecord {
  CheckedArray<FixedPoint, 41> value;
  CheckedArray<QString, 41> text;
  CheckedArray<QString, 11> flag;

  /// Empties one field: value 0 and empty text.
  void clearField(int index) {
    value[index] = {};
    text[index].clear();
  }

  void clear() {
    value.clear();
    text.clear();
    flag.clear();
  }

  friend bool operator==(const AnalysisRecord&, const AnalysisRecord&) = default;
};

/// Captions of the two narrow displays beside the results 10 and 7.
struct NarrowTexts {
  QString leitfähigkeitAusIonen;  ///< `Label2(20)`, µS/cm
  QString phNäherung;             ///< `Label2(21)`
};

}  // namespace calvora
