#pragma once

#include "Core/Pwl/PointRows.h"

#include <QTableWidget>

/// The table in which the points of a piecewise-linear curve are typed: x and y in columns 0 and 1,
/// numbers and expressions as text. Below the last point it keeps a blank row to type in. What it
/// holds are its `PointRows`; its items only show them, and tell them what was typed.
class PointTable : public QTableWidget {
  Q_OBJECT

public:
  /// How many points a table takes, and what it says to one who wants more or fewer.
  struct Limits {
    int most = 256;
    int least = 1;
    QString tooMany;     ///< %1 stands for `most`
    QString tooFewTitle; ///< title of the message
    QString tooFew;      ///< %1 stands for `least`
  };

  explicit PointTable(QWidget* parent = nullptr,
                      PointRows::Counted counted = PointRows::Counted::Rows);

  const PointRows& rows() const { return m_rows; }

  void setLimits(const Limits& newLimits) { limits = newLimits; }
  void setLimits(int least, int most); ///< the texts stay
  int mostRows() const { return limits.most; }

  /// Puts the row operations into the context menu of `owner`, the table or its dialog. Their keys
  /// are the table's alone: elsewhere, in another table too, Return and Delete mean what they
  /// always do.
  void addRowActions(QWidget* owner);

  /// Makes the table as long as the points and so many blank rows below, and puts them in.
  void setPoints(const PwlPoints& points, int blankRows = 1,
                 PointRow::Kind kind = PointRow::Kind::Point);
  /// Puts points over the rows from 0 on and cuts the table off behind the next row, which keeps
  /// what it held.
  void overwritePoints(const PwlPoints& points);
  void setRow(int row, const PointRow& value);
  void setText(int row, int column, const QString& text); ///< as if the user had typed it

  QSize minimumSizeHint() const override; ///< of a few rows

  void insertRows(); ///< blank, as many as are selected
  void deleteRows(); ///< a row for each selected cell, from the first on
  void nextCell();   ///< to the right, or to the start of the next row
  void showTooMany();

signals:
  void rowsChanged(); ///< the user has inserted or deleted rows

protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

  bool isShown(int row) const { return item(row, 0); }
  void showRow(int row); ///< gives a row its items

  Limits limits;
  PointRows m_rows;

private:
  int selectedCells() const;
  QString textOf(const QModelIndex& cell) const;
  void copySelection() const;
  void pasteCells();
};
