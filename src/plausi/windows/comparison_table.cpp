#include "plausi/windows/comparison_table.h"

#include <QHeaderView>
#include <QPainter>
#include <QResizeEvent>
#include <QStyledItemDelegate>
#include <array>
#include <numeric>
#include <utility>

#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

// Columns, in the order of `cellsOf`.
enum Column {
  kVerdict,
  kFirst,
  kSecond,
  kA,
  kB,
  kDifference,
  kUncertainty,
  kUnit,
  kNote,
  kColumns
};

// Twips. The texts wrap: they share what the others leave, down to their least widths.
constexpr std::array kWidths{1560, 2250, 2850, 870, 870, 1000, 1250, 850, 4200};
constexpr std::array kLeastWidths{1560, 1350, 1650, 870, 870, 1000, 1250, 850, 1950};
constexpr int kHeight = 6600;
constexpr int kRowGap = 75;
constexpr int kScrollBar = 300;

constexpr int kStartsGroup = Qt::UserRole;

const QColor kGroupLine(0x72, 0x81, 0x94);

QColor tintOf(Verdict verdict) {
  switch (verdict) {
    case Verdict::kStimmig:
      return {0xdd, 0xf2, 0xdf};
    case Verdict::kPrüfen:
      return {0xff, 0xf1, 0xc2};
    case Verdict::kWiderspruch:
      return {0xfb, 0xd9, 0xd3};
    case Verdict::kHinweis:
      return {0xdc, 0xe6, 0xf4};
    case Verdict::kNichtPrüfbar:
      break;
  }
  return {0xee, 0xf2, 0xf6};
}

/// Separates a group of comparisons from the one above it.
class GroupDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    if (!index.siblingAtColumn(kVerdict).data(kStartsGroup).toBool()) return;
    painter->fillRect(option.rect.x(), option.rect.y(), option.rect.width(), 2, kGroupLine);
  }
};

/// Pixels of all columns.
int totalWidth(const std::array<int, kColumns>& widths) {
  return twips(std::accumulate(widths.begin(), widths.end(), 0));
}

Qt::Alignment alignmentOf(int column) {
  if (column == kUnit) return Qt::AlignCenter;
  if (column >= kA && column <= kUncertainty) return Qt::AlignRight | Qt::AlignVCenter;
  return Qt::AlignLeft | Qt::AlignVCenter;
}

}  // namespace

ComparisonTable::ComparisonTable(QWidget* parent) : QTableWidget(0, kColumns, parent) {
  setAccessibleName(u"Vergleiche"_s);
  setHorizontalHeaderLabels(cellHeadings());
  setItemDelegate(new GroupDelegate(this));
  setStyleSheet(u"QTableView { gridline-color: #d3dae2; }"_s);
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setTabKeyNavigation(false);
  setWordWrap(true);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(1);
  QHeaderView& header = *horizontalHeader();
  header.setSectionsClickable(false);
  header.setHighlightSections(false);
  for (int column = 0; column < kColumns; ++column) {
    horizontalHeaderItem(column)->setTextAlignment(alignmentOf(column));
  }
  connect(&header, &QHeaderView::sectionResized, this, [this] {
    if (!sharing_) fitRows();
  });
}

void ComparisonTable::showRows(const std::vector<Comparison>& rows) {
  setRowCount(static_cast<int>(rows.size()));
  int group = rows.empty() ? 0 : rows.front().group;
  for (int row = 0; row < rowCount(); ++row) {
    const Comparison& comparison = rows[static_cast<size_t>(row)];
    showRow(row, comparison, std::exchange(group, comparison.group) != comparison.group);
  }
}

/// Only what is new costs time: this runs after every entry.
void ComparisonTable::showRow(int row, const Comparison& comparison, bool startsGroup) {
  const QStringList cells = cellsOf(comparison);
  bool newLines = false;
  for (int column = 0; column < kColumns; ++column) {
    if (item(row, column) == nullptr) {
      auto* made = new QTableWidgetItem;
      made->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
      made->setTextAlignment(alignmentOf(column));
      setItem(row, column, made);
      newLines = true;
    }
    QTableWidgetItem& cell = *item(row, column);
    const QString text = cells.value(column);
    if (cell.text() == text) continue;
    cell.setText(text);
    newLines |= column == kFirst || column == kSecond || column == kNote;
  }
  QTableWidgetItem& verdict = *item(row, kVerdict);
  verdict.setBackground(tintOf(comparison.verdict));
  verdict.setData(kStartsGroup, startsGroup);
  QFont font = this->font();
  font.setBold(comparison.verdict == Verdict::kPrüfen ||
               comparison.verdict == Verdict::kWiderspruch);
  if (verdict.font() != font) verdict.setFont(font);
  if (newLines) fitRow(row);
}

/// The texts of two rows must not touch. A new height paints all rows below it anew, so that it is
/// set once.
void ComparisonTable::fitRow(int row) {
  const int content = std::max(sizeHintForRow(row), verticalHeader()->sectionSizeHint(row));
  setRowHeight(row, content + twips(kRowGap));
}

void ComparisonTable::fitRows() {
  for (int row = 0; row < rowCount(); ++row) fitRow(row);
}

QString ComparisonTable::textOf(const QList<int>& rows) const {
  QStringList lines{cellHeadings().join('\t'_L1)};
  for (const int row : rows) {
    QStringList cells;
    for (int column = 0; column < kColumns; ++column) {
      cells += item(row, column)->text().simplified();
    }
    lines += cells.join('\t'_L1);
  }
  return lines.join('\n'_L1) + '\n'_L1;
}

QList<int> ComparisonTable::allRows() const {
  QList<int> rows(rowCount());
  std::iota(rows.begin(), rows.end(), 0);
  return rows;
}

QString ComparisonTable::wholeText() const {
  return textOf(allRows());
}

QString ComparisonTable::selectedText() const {
  QList<int> rows = allRows();
  rows.removeIf([this](int row) { return !selectionModel()->isRowSelected(row); });
  return rows.isEmpty() ? wholeText() : textOf(rows);
}

QSize ComparisonTable::sizeHint() const {
  return {totalWidth(kWidths) + twips(kScrollBar), twips(kHeight)};
}

void ComparisonTable::resizeEvent(QResizeEvent* event) {
  QTableWidget::resizeEvent(event);
  if (event->size().width() == event->oldSize().width()) return;
  sharing_ = true;
  shareWidth();
  sharing_ = false;
  fitRows();
}

void ComparisonTable::shareWidth() {
  const int room = std::max(0, viewport()->width() - totalWidth(kLeastWidths));
  const int wanted = totalWidth(kWidths) - totalWidth(kLeastWidths);
  for (int column = 0; column < kColumns; ++column) {
    const auto at = static_cast<size_t>(column);
    const int least = twips(kLeastWidths.at(at));
    const int more = twips(kWidths.at(at)) - least;
    setColumnWidth(column, least + static_cast<int>(qint64{room} * more / wanted));
  }
}

}  // namespace calvora
