#pragma once

#include "Pwl/PointHistory.h"

#include <QTableWidget>

#include <limits>

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

  /// Undo and redo alone, for a table whose rows nobody inserts or deletes.
  void addStepActions(QWidget* owner);

  /// Makes the table as long as the points and so many blank rows below, and puts them in.
  void setPoints(const PwlPoints& points, int blankRows = 1,
                 PointRow::Kind kind = PointRow::Kind::Point);
  /// Puts points over the rows from 0 on and cuts the table off behind the next row, which keeps
  /// what it held.
  void overwritePoints(const PwlPoints& points);
  void setRow(int row, const PointRow& value);
  void setText(int row, int column, const QString& text); ///< as if the user had typed it

  QSize minimumSizeHint() const override; ///< of a few rows
  QSize sizeHint() const override;        ///< of as many as one likes to see
  virtual void fitColumns();              ///< to what is in sight and the width of the table

  /// Finishes a cell that is being typed in. Whatever reads the table does so first.
  void commitOpenCell();
  /// Makes the window as large as its contents like to be, where the screen has room; Qt itself
  /// stops at two thirds of the screen.
  void openWindowFully();
  void enterFirstCell(); ///< makes the first that can be typed in the current one
  /// What `act` does to the rows is undone and done again as a whole, with the mode.
  void step(const QString& text, const std::function<void()>& act);
  void setMode(int mode) { m_mode = mode; } ///< what its owner takes the rows for
  void startSteps(); ///< from the rows as they are, which no step goes behind
  /// Says something under the table until the next step.
  void say(const QString& text);
  /// For a table whose texts that are not numbers count as 0.
  void setNumbersOnly() { m_numbersOnly = true; }

  void insertRows(); ///< blank, as many as are selected
  void deleteRows(); ///< a row for each selected cell, from the first on
  void nextCell();   ///< to the right, or to the start of the next row
  void showTooMany();

signals:
  void rowsChanged();              ///< the user has inserted or deleted rows
  void stepMade();                 ///< or undone, or done again
  void noted(const QString& text); ///< what there is to be said of the rows; empty for nothing
  void stepRestored(int mode);     ///< a step was undone or done again

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void commitData(QWidget* editor) override;
  virtual bool showsAll() const { return true; } ///< else a row has no items until it is seen

  bool isShown(int row) const { return item(row, 0); }
  void showRow(int row); ///< gives a row its items
  void wantFit();        ///< when the step has been done
  bool m_wantsFit = false;

  Limits limits;
  PointRows m_rows;

private:
  int heightOf(int rows) const;
  void updateNote();
  bool countsAsTyped(const QString& text) const;
  int textsThatCountAsZero() const; ///< in the rows that are part of the curve
  struct Selected {
    int cells = 0; ///< that can be selected at all
    int first = 0; ///< row of the first of them
    int top = 0;
    int bottom = 0;
  };
  Selected selectedCells() const;
  void addAction(QWidget* owner, QAction* action, const QList<QKeySequence>& keys);
  QAction* historyAction(QWidget* owner, const QString& caption, void (PointHistory::*go)());
  void addRow();       ///< a blank one at the end
  void goOn(int step); ///< to the next or last cell that can be typed in
  void restore(const PointRows::Change& change, bool isUndone, int mode);
  void copySelection() const;
  void pasteCells();
  int pasteRow(int row, int left, const QStringList& cells); ///< how many were taken

  int m_mode = 0;
  /// Rows that count: in a curve those behind the first incomplete one do not.
  int m_partRows = std::numeric_limits<int>::max();
  bool m_numbersOnly = false;
  QString m_said;
  bool m_isExtended = false; ///< by the user: rows come in, and a blank one stays below the last
  bool m_isRestoring = false;
  PointHistory m_history; ///< goes before the rows
};
