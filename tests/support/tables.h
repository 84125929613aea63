#pragma once

#include <QStringList>
#include <QTest>

namespace calvora {

using namespace Qt::StringLiterals;

/// Messages 1 to 13 as symbol|text|, a line break as ¶, the text built in as %1.
inline const QString kCatalogue =
    uR"(
3|LF- und pH- Wert passen nicht zusammen !¶Bei dem eingegebenen pH-Wert muss    ¶
 LF  mind. %1 µS/cm  sein !|
3| Der eingegebene Wert muss    ¶ größer als Null sein !¶¶%1 >0 |
1|Die Eingabe überschreitet die  ¶die zulässige Eingabegrenze !  ¶¶Eingabe-Bereich: %1|
3| Der Ks8,2 - Wert  muss  kleiner sein¶¶ als 0,5 x  Ks4,3 - Wert ! |
3| Der Ks4,3-Wert muss größer sein¶ wie der Ks8,2-Wert. ¶¶ mind: %1|
1|Die Eingabe überschreitet die  ¶die zulässige Eingabegrenze !  ¶¶Eingabe-Bereich: %1¶
 negative Ks8,2 Werte als Kb8,2 eingeben !|
2| Der Wert für Gesamthärte / SE ist kleiner ¶ als der vorhandene Wert  > Calcium <  !!!  |
2| Der Wert für Gesamthärte / SE ist kleiner ¶ als der vorhandene Wert  > Magnesium <  !!!|
2| Der eingegebene Wert für Calcium / Ca ist größer ¶
 als der vorhandene Wert  > Gesamthärte <  !!! |
2| Der eingegebene Wert für Magnesium / Mg ist größer ¶
 als der vorhandene Wert  > Gesamthärte <  !!!|
2| Bei vorgegebenem KS8,2  muss der    ¶ pH-Wert niedriger sein !!!¶¶ pH <%1|
2| Bei vorgegebenem pH-Wert muss der   ¶ Wert für  Ks8,2  größer sein !!!¶¶  Ks8,2 >=%1|
3| Kb8,2  und  Ks8,2  können nicht¶ zusammen  vorliegen !¶¶
 zuletzt eingegebener Wert wird gelöscht !|
)"_s;

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
