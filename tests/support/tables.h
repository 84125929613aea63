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

/// Compares lines with those of a golden file, which is named by its path below tests/.
inline void compareWithGolden(const QStringList& lines, const QString& name) {
  const QStringList golden =
      QString::fromUtf8(bytesOf(QFINDTESTDATA(name))).trimmed().split(QLatin1Char('\n'));
  for (qsizetype i = 0; i < std::max(lines.size(), golden.size()); ++i) {
    const QString number = QString::number(i + 1) + u": "_s;
    QCOMPARE(number + lines.value(i), number + golden.value(i));
  }
}

}  // namespace calvora
