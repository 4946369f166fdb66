#pragma once

#include <QListView>

/// A list whose rows stand in columns side by side, as in a wrapping QListView, where one row at
/// most is selected. All rows are of one size, so that nothing has to be laid out: a million rows
/// are shown, scrolled and replaced as fast as a few.
class ColumnsView : public QListView {
  Q_OBJECT

public:
  explicit ColumnsView(QWidget* parent = nullptr);

  /// Makes columns as wide as the widest of these, within reason.
  void setWidestTexts(const QStringList& texts);

  QRect visualRect(const QModelIndex& index) const override;
  QModelIndex indexAt(const QPoint& point) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint) override;
  void keyboardSearch(const QString& text) override;
  void doItemsLayout() override;
  void reset() override;
  QSize sizeHint() const override;

signals:
  /// The user types where nothing is to be typed in.
  void typed(const QString& text);

protected:
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  int horizontalOffset() const override;
  int verticalOffset() const override { return 0; }
  void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
  QRegion visualRegionForSelection(const QItemSelection& selection) const override;
  void updateGeometries() override;
  void scrollContentsBy(int dx, int dy) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  bool viewportEvent(QEvent* event) override;

private:
  int rowCount() const;
  int rowsPerColumn() const;
  int columnWidth() const;
  int columnsInSight() const; ///< whole ones
  QRect rectOf(int row) const;
  /// The rows of the columns that are in sight, first and behind the last.
  std::pair<int, int> rowsInSight() const;
  int rowFrom(int row, CursorAction action) const;
  void paintRow(QPainter* painter, const QStyleOptionViewItem& option, int row) const;
  void measure();

  QStringList m_widestTexts;
  QSize m_cell;
};
