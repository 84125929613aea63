#pragma once

#include <QStringList>
#include <QTest>

#include "support/files.h"

namespace calvora {

using namespace Qt::StringLiterals;

/// Messages 1 to 13 as symbol|text|, a line break as ¶, the text built in as %1.
inline const QString kCatalogue =
    QString::fromUtf8(bytesOf(QFINDTESTDATA("support/messages.txt"))).prepend('\n');

/// The text of a message, given as its number and the text built in, ␣ a blank at its end.
inline QString says(const QString& message) {
  const int number = message.section(' ', 0, 0).toInt();
  const QString built = message.section(' ', 1).replace(u"␣"_s, u" "_s);
  QString text = kCatalogue.section(u"|\n"_s, number - 1, number - 1).section('|', 1);
  return text.remove('\n').replace(u"¶"_s, u"\n\r"_s).replace(u"%1"_s, built);
}

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
