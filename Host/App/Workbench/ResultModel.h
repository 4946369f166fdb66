#pragma once

#include "Call/ScriptVector.h"

#include <QAbstractTableModel>

/// The elements of a result as rows; a million of them cost no more than those in sight.
class ResultModel : public QAbstractTableModel {
  Q_OBJECT

public:
  using QAbstractTableModel::QAbstractTableModel;

  void setResult(const CallResult& result);
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  enum class Column { Index, Value, Engineering, Reference };
  QVector<Column> columns() const;
  QString valueText(std::size_t element) const;

  CallResult m_result;
};
