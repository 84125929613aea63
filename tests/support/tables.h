#pragma once

#include <QTest>

#include "support/files.h"

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

/// The content of a file. Apostrophes are double quotes, which are hard to read, and ¶ is a line
/// end.
inline QByteArray fileOf(QByteArray text) {
  return text.replace('\'', '"').replace("¶", "\r\n");
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

/// The same rows, all compared at once with what comes out of each; a row may also end at a line
/// end.
inline void compare(const char* table, const std::function<QString(QStringList)>& result) {
  const QStringList expected = QString::fromUtf8(table).replace(u"\n"_s, u" | "_s).split(u" | "_s);
  QStringList actual;
  for (const QString& row : expected) {
    const QString given = row.section(u"=>"_s, 0, 0);
    actual += given + u"=>"_s + result(QString(given).replace(u"¶"_s, u"\r\n"_s).split(u';'));
  }
  QCOMPARE(actual, expected);
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
