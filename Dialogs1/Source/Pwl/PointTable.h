#pragma once

#include "Core/Pwl/PwlPoints.h"

#include <QTableWidget>

/// The table in which the points of a piecewise-linear curve are typed: x and y in columns 0 and 1,
/// numbers and expressions as text. Below the last point it keeps a blank row to type in.
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

  explicit PointTable(QWidget* parent = nullptr);

  void setLimits(const Limits& newLimits) { limits = newLimits; }
  void setLimits(int least, int most); ///< the texts stay
  int mostRows() const { return limits.most; }

  /// Puts the row operations into the context menu of `owner`, the table or its dialog. Their keys
  /// are the table's alone: elsewhere, in another table too, Return and Delete mean what they
  /// always do.
  void addRowActions(QWidget* owner);

  virtual QString textAt(int row, int column) const; ///< a missing cell counts as empty
  bool isFilled(int row) const;                      ///< both coordinates
  /// Rows from `first` to the one before the first that has an empty cell.
  int completeRows(int first = 0) const;
  PwlPoints points(int first = 0) const; ///< of the complete rows

  /// Makes the table as long as the points and so many blank rows below, and puts them in.
  void setPoints(const PwlPoints& points, int blankRows = 1);
  /// Puts points over the rows from 0 on and cuts the table off behind the next row, which keeps
  /// what it held.
  void overwritePoints(const PwlPoints& points);
  void setRow(int row, const PwlPoint& point);

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

  virtual void fillRow(int row);          ///< gives a new row its cells
  virtual void touchRow(int row);         ///< before the cells of a row are written to
  virtual bool mayInsert(int rows) const; ///< within the limits
  virtual bool mayDelete() const;
  /// Whether the user may take away these rows.
  virtual bool isRemovable(int first, int count) const;
  virtual bool hasCell(int row, int column) const { return item(row, column); }

  Limits limits;

private:
  int selectedCells() const;
  void copySelection() const;
  void pasteCells();
};
