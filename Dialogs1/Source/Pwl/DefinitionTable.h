#pragma once

#include "Core/Pwl/LineStore.h"
#include "Core/Pwl/PointsFile.h"
#include "Core/Pwl/SyntaxMessages.h"
#include "Pwl/PointTable.h"

#include <limits>

/// The table of a file-defined source: time, value and, in each data row, a cell that opens a file
/// chooser. A row gets its items when it is first seen or touched; until then its line is all there
/// is of it, so that a million lines open at once.
class DefinitionTable : public PointTable {
  Q_OBJECT

public:
  explicit DefinitionTable(QWidget* parent = nullptr);

  /// A row for each line; lines with a message become rows at fault.
  void setLines(const LineStore& lines, const SyntaxMessages& messages);

  QString textAt(int row, int column) const override;
  PointsLineKind kindAt(int row) const; ///< a row at fault counts as data
  /// Data rows with both cells filled; not more than `most` of them are looked for.
  int countDataPoints(int most = std::numeric_limits<int>::max()) const;
  int rowsInUse() const; ///< up to the last that is a comment or has both cells filled

  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
  /// The row as a line of the file, with `separator` between the fields.
  QByteArray lineAt(int row, const QString& separator) const;

  /// Puts the line in the row of the start data line, if there is one.
  void setStartData(const QString& line);
  /// Makes a row what its text, just changed, says: comment or data.
  void adaptRow(int row);

signals:
  void fileWanted(int row); ///< the user chose the row's third cell

protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void rowsInserted(const QModelIndex& parent, int start, int end) override;
  void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;

  void fillRow(int row) override;
  void touchRow(int row) override;
  bool mayInsert(int rows) const override;
  bool mayDelete() const override;
  bool isRemovable(int first, int count) const override;
  bool hasCell(int row, int column) const override;

private:
  bool isPending(int row) const { return m_lineOfRow.value(row, -1) >= 0; }
  void fitColumns();
  bool isDataPoint(int row) const;
  int startDataRow() const;
  void setDataRow(int row, const PwlPoint& point);
  void setCommentRow(int row, const QString& first, const QString& second);
  void setRowAtFault(int row, const SyntaxMessage& message);

  LineStore m_lines;
  QVector<int> m_lineOfRow; ///< of rows without items the line; -1 for the others
};
