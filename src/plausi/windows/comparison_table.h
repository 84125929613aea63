#pragma once

#include <QTableWidget>
#include <vector>

#include "plausi/plausibility.h"

namespace calvora {

/// The comparisons as a table to read and to copy from. The verdict is a symbol and a word, and a
/// tint besides; a line separates the groups.
class ComparisonTable : public QTableWidget {
  Q_OBJECT

 public:
  explicit ComparisonTable(QWidget* parent = nullptr);

  /// Shows these comparisons; what is selected stays selected.
  void showRows(const std::vector<Comparison>& rows);

  /// The whole table as tab-separated text, under its headings.
  [[nodiscard]] QString wholeText() const;

  /// The same of the selected rows; of all where none is.
  [[nodiscard]] QString selectedText() const;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] QString textOf(const QList<int>& rows) const;
  [[nodiscard]] QList<int> allRows() const;
  void showRow(int row, const Comparison& comparison, bool startsGroup);
  void fitRow(int row);
  void fitRows();
  void shareWidth();

  bool sharing_ = false;  ///< several columns change together
};

}  // namespace calvora
