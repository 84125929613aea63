#pragma once

#include <QStringList>
#include <QTest>

#include "support/messages.h"

namespace calvora {

using namespace Qt::StringLiterals;

/// One test row per line, cells separated by "|". A line without one names the group of the next.
inline void addRows(const QString& table) {
  QTest::addColumn<QString>("group");
  QTest::addColumn<QStringList>("row");
  QString group;
  for (const QString& line : table.split('\n', Qt::SkipEmptyParts)) {
    QStringList row = line.split('|');
    for (QString& cell : row) cell = cell.trimmed();
    if (row.size() == 1) {
      group = row[0];
    } else {
      QTest::newRow(qPrintable((group + ' ' + row[0]).trimmed())) << group << row;
    }
  }
}

/// Rows written as what goes in, "=>" and what comes out; " | " stands between the rows and ¶ for a
/// line end. What goes in is one text, or its parts separated by semicolons.
template <class Given = QStringList>
void rows(const char* table) {
  QTest::addColumn<Given>("given");
  QTest::addColumn<QString>("expected");
  for (const QString& row : QString::fromUtf8(table).split(u" | "_s)) {
    const QStringList sides = QString(row).replace(u"¶"_s, u"\r\n"_s).split(u"=>"_s);
    auto& added = QTest::newRow(qUtf8Printable(row));
    if constexpr (std::is_same_v<Given, QStringList>) {
      added << sides.at(0).split(u';') << sides.at(1);
    } else {
      added << sides.at(0) << sides.at(1);
    }
  }
}

}  // namespace calvora
