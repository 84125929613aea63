#pragma once

#include <QFile>
#include <QTest>

namespace calvora {

/// Compares lines with those of a golden file, which is named by its path below tests/.
inline void compareWithGolden(const QStringList& lines, const QString& name) {
  QFile golden(QFINDTESTDATA(name));
  QVERIFY2(golden.open(QFile::ReadOnly), qUtf8Printable(name));
  const QStringList expected =
      QString::fromUtf8(golden.readAll()).trimmed().split(QLatin1Char('\n'));
  for (qsizetype i = 0; i < lines.size(); ++i) {
    const QString& line = lines[i];
    QVERIFY2(line == expected.value(i),
             qUtf8Printable(QStringLiteral("line %1: %2, not %3")
                                .arg(QString::number(i + 1), line, expected.value(i))));
  }
  QCOMPARE(lines.size(), expected.size());
}

}  // namespace calvora
