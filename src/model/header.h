#pragma once

#include <QString>

#include "base/checked_array.h"

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

}  // namespace calvora
