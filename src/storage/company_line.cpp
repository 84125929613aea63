#include "storage/company_line.h"

#include <QStringList>

#include "storage/settings.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kPadding{7, 4, 4, 0};

QString withoutTrailingBlanks(QString text) {
  while (text.endsWith(' '_L1)) text.chop(1);
  return text;
}

CompanyLines padded(const CompanyLines& lines, bool emptyToo) {
  CompanyLines segments;
  for (size_t i = 0; i < segments.size(); ++i) {
    const bool optional = i == 1 || i == 2;
    const bool pads = emptyToo || !optional || !lines.at(i).isEmpty();
    // The bar parts the segments where they are listed, so none of them may hold one.
    segments.at(i) = withoutTrailingBlanks(QString(lines.at(i)).replace('|'_L1, '/'_L1)) +
                     QString(pads ? kPadding.at(i) : 0, ' '_L1);
  }
  return segments;
}

}  // namespace

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

}  // namespace calvora
