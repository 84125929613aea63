#include "overview/windows/overview_table.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "overview/overview_content.h"
#include "platform/twips.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kColumns = OverviewGrid::kColumns;

// Twips.
constexpr int kNameWidth = 2900;
constexpr int kUnitWidth = 900;
constexpr int kSlotWidth = 1000;
constexpr int kRowHeight = 300;
constexpr int kSeparatorHeight = 100;

const QColor kBlue(0, 0, 0xc0);
const QColor kFixedColour(0xe8, 0xed, 0xf2);
const QColor kSeparatorColour(0xc9, 0xd3, 0xde);

/// Paints a row's symbol at the right of its name: two names are the same without it.
class NameDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const auto role = option.state.testFlag(QStyle::State_Selected) ? QPalette::HighlightedText
                                                                    : QPalette::WindowText;
    painter->setFont(option.font);
    painter->setPen(option.palette.color(QPalette::Active, role));
    painter->drawText(option.rect.adjusted(0, 0, -6, 0), Qt::AlignRight | Qt::AlignVCenter,
                      symbolOfRow(index.row()));
  }
};

int rowHeightOf(int row) {
  return twips(isSeparatorRow(row) ? kSeparatorHeight : kRowHeight);
}

QTableWidgetItem* makeCell(int row, int column, const QFont& font) {
  auto* cell = new QTableWidgetItem;
  cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  Qt::Alignment alignment = Qt::AlignLeft;
  if (column == 1) alignment = Qt::AlignHCenter;
  if (column >= 2 && row > 0) alignment = Qt::AlignRight;
  cell->setTextAlignment(alignment | Qt::AlignVCenter);
  if (row == 0) {
    cell->setForeground(kBlue);
    QFont small = font;
    small.setPointSize(7);
    if (column > 0) cell->setFont(small);
  }
  if (isSeparatorRow(row)) {
    cell->setBackground(kSeparatorColour);
  } else if (row == 0 || column < 2) {
    cell->setBackground(kFixedColour);
  }
  return cell;
}

void hideHeaders(QTableView& table) {
  for (QHeaderView* header : {table.horizontalHeader(), table.verticalHeader()}) {
    header->setMinimumSectionSize(1);
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->hide();
  }
}

/// Drops the blank in front of a value that only fits without it.
class ValueDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    constexpr int kMargins = 6;
    const int room = option->rect.width() - kMargins;
    const bool fits = option->fontMetrics.horizontalAdvance(option->text) <= room;
    if (!fits && option->text.startsWith(' '_L1)) option->text.remove(0, 1);
  }
};

}  // namespace

OverviewTable::OverviewTable(QWidget* parent)
    : QTableWidget(OverviewGrid::kRows, kColumns, parent) {
  QFont cells = font();
  cells.setPointSize(9);
  setFont(cells);
  setStyleSheet(u"QTableView { gridline-color: #d3dae2; }"_s);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollMode(ScrollPerPixel);
  hideHeaders(*this);
  makeCells();
  makeFixedColumns();
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &OverviewTable::snap);
}

void OverviewTable::makeCells() {
  for (int row = 0; row < rowCount(); ++row) {
    setRowHeight(row, rowHeightOf(row));
    for (int column = 0; column < kColumns; ++column) {
      setItem(row, column, makeCell(row, column, font()));
    }
  }
  setColumnWidth(0, twips(kNameWidth));
  setColumnWidth(1, twips(kUnitWidth));
  for (int column = 2; column < kColumns; ++column) {
    setColumnWidth(column, twips(kSlotWidth));
    setItemDelegateForColumn(column, new ValueDelegate(this));
  }
}

void OverviewTable::makeFixedColumns() {
  fixed_ = new QTableView(this);
  fixed_->setModel(model());
  fixed_->setSelectionModel(selectionModel());
  hideHeaders(*fixed_);
  for (int row = 0; row < rowCount(); ++row) fixed_->setRowHeight(row, rowHeightOf(row));
  for (int column = 2; column < kColumns; ++column) fixed_->hideColumn(column);
  for (const int column : {0, 1}) fixed_->setColumnWidth(column, columnWidth(column));
  setItemDelegateForColumn(0, new NameDelegate(this));
  fixed_->setItemDelegateForColumn(0, itemDelegateForColumn(0));
  fixed_->setFont(font());
  fixed_->setWordWrap(false);
  fixed_->setFrameShape(NoFrame);
  fixed_->setFocusPolicy(Qt::NoFocus);
  fixed_->setAttribute(Qt::WA_TransparentForMouseEvents);
  fixed_->setVerticalScrollMode(ScrollPerPixel);
  fixed_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  fixed_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, fixed_->verticalScrollBar(),
          &QScrollBar::setValue);
}

/// The mouse reaches what lies beneath the fixed columns, and means them.
QModelIndex OverviewTable::indexAt(const QPoint& place) const {
  if (place.x() >= fixedWidth() || place.x() < 0) return QTableWidget::indexAt(place);
  return model()->index(rowAt(place.y()), place.x() < columnWidth(0) ? 0 : 1);
}

void OverviewTable::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QScrollBar& bar = *horizontalScrollBar();
  const int before = bar.value();
  QTableWidget::scrollTo(index, hint);
  if (index.column() < 2) {
    bar.setValue(before);
  } else {
    const int hidden = fixedWidth() - columnViewportPosition(index.column());
    if (hidden > 0) bar.setValue(bar.value() - hidden);
  }
}

/// A column that lies half under the fixed ones would show its values without their first digits,
/// so the columns move as wholes.
void OverviewTable::snap(int value) {
  const int width = std::max(1, columnWidth(2));
  const int rest = value % width;
  if (rest != 0) {
    horizontalScrollBar()->setValue(value > snapped_ ? value - rest + width : value - rest);
  } else {
    snapped_ = value;
    emit arranged();
  }
}

/// The toolkit ends scrolling where the last column ends, which may be within another one.
void OverviewTable::updateGeometries() {
  const int before = snapped_;
  QTableWidget::updateGeometries();
  QScrollBar& bar = *horizontalScrollBar();
  const int width = std::max(1, columnWidth(2));
  bar.setMaximum((bar.maximum() + width - 1) / width * width);
  bar.setSingleStep(width);
  bar.setValue(std::min(before, bar.maximum()));
}

/// All of it, without scrolling.
QSize OverviewTable::sizeHint() const {
  const int frame = 2 * frameWidth();
  return {fixedWidth() + OverviewGrid::kSlots * twips(kSlotWidth) + frame,
          verticalHeader()->length() + frame};
}

void OverviewTable::resizeEvent(QResizeEvent* event) {
  QTableWidget::resizeEvent(event);
  fixed_->setGeometry(viewport()->x(), viewport()->y(), fixedWidth(), viewport()->height());
  const int room =
      std::max(viewport()->width() - fixedWidth(), OverviewGrid::kSlots * twips(kSlotWidth));
  for (int k = 1; k <= OverviewGrid::kSlots; ++k) {
    setColumnWidth(k + 1, room * k / OverviewGrid::kSlots - room * (k - 1) / OverviewGrid::kSlots);
  }
  emit arranged();
}

}  // namespace calvora
