#include "overview/overview_content.h"

#include <QRegularExpression>
#include <algorithm>
#include <set>

#include "model/fields.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// A text as one field of tab-separated text.
QString asField(QString text) {
  for (QChar& c : text) {
    if (c.isSpace()) c = ' '_L1;
  }
  return text.trimmed();
}

}  // namespace

Button uebersichtMeldung(Questions& questions, int code, const QString& extra) {
  using namespace uebersicht;
  static const std::array kCatalogue{
      catalogueEntry(kAlleLöschen, u"Reset"_s, Button::kOk | Button::kAbbrechen, Symbol::kAttention,
                     {u"Alle Einträge werden gelöscht !"_s}),
      catalogueEntry(kEntfernen, u"Analysen-Übersicht"_s, Button::kJa | Button::kNein,
                     Symbol::kAttention, {u"Wasser - %1  "_s, u"entfernen ?"_s}),
      catalogueEntry(kProjektGespeichert, u"Analysen-Übersicht"_s, Button::kOk, Symbol::kDone,
                     {u"Die Dateien wurden als  "_s, u"Projekt gespeichert !"_s}),
      catalogueEntry(kNichtVollständig, u"Analysen-Übersicht"_s, Button::kOk, Symbol::kWarning,
                     {u" Diese Dateien wurden nicht vollständig gelesen :"_s, u"%1"_s}),
      catalogueEntry(kKeinPlatz, u"Analysen-Übersicht"_s, Button::kOk, Symbol::kWarning,
                     {u" Die Übersicht ist voll. Kein Platz war für :"_s, u"%1"_s}),
  };
  Message message = catalogueMessage(kCatalogue, code, extra);
  message.left = message.top = 0;
  message.style = u"210"_s;
  return questions.ask(message);
}

bool isSeparatorRow(int row) {
  return row != 0 && fieldOfRow(row).index == 0;
}

QString symbolOfRow(int row) {
  const Field& field = fieldOfRow(row);
  static const QRegularExpression kBetweenWords(u"[ -]+"_s);
  const bool said = field.caption.split(kBetweenWords).contains(field.shortLabel);
  return said ? QString() : field.shortLabel;
}

void enterNames(OverviewGrid& grid) {
  for (int row = 0; row < OverviewGrid::kRows; ++row) {
    grid.names[row] = row == 0 ? u"Probe-Datum"_s : fieldOfRow(row).caption;
    grid.units[row] = fieldOfRow(row).unit;
  }
}

void enterAnalysis(OverviewGrid& grid, int slot, const OverviewAnalysis& analysis) {
  OverviewGrid::Slot& entered = grid.slot[slot] = {};
  entered.cells[0] = analysis.header[kopf::kErstellt];
  for (int row = 1; row < OverviewGrid::kRows; ++row) {
    if (isSeparatorRow(row)) continue;
    const QString& text = analysis.text[fieldOfRow(row).index];
    entered.cells[row] = slot == OverviewGrid::kSlots ? ' '_L1 + text : text;
  }
  entered.caption = analysis.header[kopf::kDateiname];
  entered.filled = true;
}

int filledSlots(const OverviewGrid& grid) {
  int count = 0;
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) count += grid.slot[k].filled ? 1 : 0;
  return count;
}

QList<int> freeSlots(const OverviewGrid& grid, int first) {
  QList<int> free;
  for (int i = 0; i < OverviewGrid::kSlots; ++i) {
    const int k = (first - 1 + i) % OverviewGrid::kSlots + 1;
    if (!grid.slot[k].filled) free += k;
  }
  return free;
}

QString cellText(const OverviewGrid& grid, int row, int column) {
  if (column == 0) return grid.names[row];
  if (column == 1) return grid.units[row];
  return grid.slot[column - 1].cells[row];
}

QString copyText(const OverviewGrid& grid, std::span<const std::pair<int, int>> cells) {
  std::set<std::pair<int, int>> chosen(cells.begin(), cells.end());
  const size_t all = size_t{OverviewGrid::kRows} * OverviewGrid::kColumns;
  const bool whole = chosen.empty() || chosen.size() == all;
  std::set<int> rows;
  std::set<int> columns;
  for (int row = 0; row < OverviewGrid::kRows; ++row) {
    for (int column = 0; column < OverviewGrid::kColumns; ++column) {
      if (whole) chosen.insert({row, column});
      if (!chosen.contains({row, column})) continue;
      rows.insert(row);
      columns.insert(column);
    }
  }
  QString text;
  if (whole) {
    QStringList captions{{}, {}};
    for (int k = 1; k <= OverviewGrid::kSlots; ++k) captions += asField(grid.slot[k].caption);
    text = captions.join('\t'_L1) + '\n'_L1;
  }
  for (const int row : rows) {
    QStringList fields;
    for (const int column : columns) {
      const bool copied = chosen.contains({row, column});
      if (!copied) {
        fields += QString();
      } else if (column == 0) {  // two rows differ by their symbol alone
        fields += asField(asField(grid.names[row]) + ' '_L1 + symbolOfRow(row));
      } else {
        fields += asField(cellText(grid, row, column));
      }
    }
    text += fields.join('\t'_L1) + '\n'_L1;
  }
  return text;
}

}  // namespace calvora
