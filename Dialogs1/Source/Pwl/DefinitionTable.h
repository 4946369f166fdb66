#pragma once

#include "Pwl/PointTable.h"

/// The table of a file-defined source: time, value and, in each data row, a cell that opens a file
/// chooser. A row gets its items when it is first seen or touched, so that a million lines open at
/// once.
class DefinitionTable : public PointTable {
  Q_OBJECT

public:
  explicit DefinitionTable(QWidget* parent = nullptr);

  /// A row for each line; lines with a message become rows at fault.
  void setLines(const LineStore& lines, const SyntaxMessages& messages);
  /// Puts the line in the row of the start data line, if there is one.
  void setStartData(const QString& line);
  /// Makes a row what its text, just changed, says: comment or data.
  void adaptRow(int row);

  void fitColumns() override; ///< to what is in sight
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

signals:
  void fileWanted(int row); ///< the user chose the row's third cell

protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool showsAll() const override { return false; }
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
  bool isFileCell(int row, int column) const;
  void touchRow(int row); ///< shows it, if it has not been seen yet
};
