#pragma once

#include <span>
#include <utility>

#include "base/questions.h"
#include "model/overview_grid.h"
#include "storage/analysis_file.h"

namespace calvora {

/// Codes of the overview's messages.
namespace uebersicht {
inline constexpr int kAlleLöschen = 1;
inline constexpr int kEntfernen = 2;
inline constexpr int kProjektGespeichert = 3;
inline constexpr int kNichtVollständig = 4;
inline constexpr int kKeinPlatz = 5;
}  // namespace uebersicht

/// Shows the overview's message of `code`, centred, and returns the pressed button. `extra` is the
/// slot that message 2 asks about, or the names of files.
Button uebersichtMeldung(Questions& questions, int code, const QString& extra = {});

/// Whether a row is empty in every column and only parts two groups of fields.
bool isSeparatorRow(int row);

/// The short symbol of the field in a row, where its name does not say it already; else empty.
QString symbolOfRow(int row);

/// Writes the columns 0 and 1: the fields' names and units.
void enterNames(OverviewGrid& grid);

/// Enters an analysis that was read for the overview: display texts, name line and creation date.
/// Slot 8 gets its cells with a leading blank.
void enterAnalysis(OverviewGrid& grid, int slot, const OverviewAnalysis& analysis);

/// How many slots are filled.
int filledSlots(const OverviewGrid& grid);

/// The slots that are not filled, from one on and then those before it.
QList<int> freeSlots(const OverviewGrid& grid, int first);

/// The text of a cell; columns 0 to 9.
QString cellText(const OverviewGrid& grid, int row, int column);

/// Cells as tab-separated text, one line for each row and one field for each column that holds at
/// least one of the cells given as row and column. No cells, or all, are the whole grid with the
/// captions of its slots in a line above it.
QString copyText(const OverviewGrid& grid, std::span<const std::pair<int, int>> cells);

}  // namespace calvora
