#pragma once

#include <QTableView>
#include <QTableWidget>

namespace calvora {

/// The overview's grid: 25 rows, 10 columns, read-only. The columns 0 and 1 stay where they are
/// when the others scroll; those share what room there is.
class OverviewTable : public QTableWidget {
  Q_OBJECT

 public:
  explicit OverviewTable(QWidget* parent = nullptr);

  /// Pixels of the columns 0 and 1.
  [[nodiscard]] int fixedWidth() const { return columnWidth(0) + columnWidth(1); }

  [[nodiscard]] QModelIndex indexAt(const QPoint& place) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
  [[nodiscard]] QSize sizeHint() const override;

 signals:
  /// Columns have moved or changed their width.
  void arranged();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void updateGeometries() override;

 private:
  void makeCells();
  void makeFixedColumns();
  void snap(int value);

  int snapped_ = 0;    ///< where the columns were last moved to
  QTableView* fixed_;  ///< lies over the columns 0 and 1, which scroll away beneath it
};

}  // namespace calvora
