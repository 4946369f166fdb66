#pragma once

#include "Core/Analog/Windings.h"

#include <QTableWidget>

class Spinner;

/// A transformer's windings, one a row: number of turns, polarity, and inductance where there is
/// one. The cells hold fields that are always open: Tab goes from one to the next in reading order.
class WindingsTable : public QTableWidget {
  Q_OBJECT

public:
  enum Column { Winding, NumberOfTurns, Polarity, Inductance };

  explicit WindingsTable(QWidget* parent = nullptr);

  /// Without rows. The inductance of the first primary can be a field.
  enum class Inductances { None, Shown, FirstEditable };
  void setInductances(Inductances kind);
  /// Makes rows for these windings, behind the dialog's field `before` in the order of Tab. A row
  /// that was there stays as it is, with whatever is being typed in it.
  void showWindings(const Windings& windings, QWidget* before);
  /// The turns as the rows have them.
  void readTurns(Windings* windings) const;
  /// Writes inductances where they are shown and not typed, and tells readers of all cells.
  void showInductances(const Windings& windings, double perTurnSquared);

  /// The field of the first primary's inductance; null where there is none.
  Spinner* firstInductanceEdit() const;

  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override;

signals:
  void edited(); ///< with every key, and when a field is left

private:
  struct Kind;
  void addRow(int row, const Kind& kind, int number, double turns);
  void addLabel(int row, Column column, const QString& name, const QString& text = QString());
  void addSpinner(int row, Column column, const QString& name, double value);
  void addPolarity(int row, const QString& name, bool isReversed);
  void setField(int row, Column column, QWidget* field, const QString& name);
  QString spokenName(int row, int column) const;
  void speakCells();
  void tell();
  void chainFields(QWidget* before);
  void scrollToFocus(QWidget* now);
  int columnHint() const;

  bool m_isChanging = false; ///< rows come and go, and nobody can read them

  Inductances m_inductances = Inductances::None;
  int m_primaries = 0;
  int m_secondaries = 0;
};
