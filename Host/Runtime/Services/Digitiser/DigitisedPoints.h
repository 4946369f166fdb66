#pragma once

#include <QAbstractTableModel>

class DigitiserModel;

/// The digitiser's points as rows: axis values, or pixels as long as the axes are not complete.
class DigitisedPoints : public QAbstractTableModel {
  Q_OBJECT

public:
  explicit DigitisedPoints(const DigitiserModel* model, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  void follow();
  const DigitiserModel* m_model;
  int m_rows = 0;
};

/// A value as the digitiser shows it.
QString shownValue(double value);
