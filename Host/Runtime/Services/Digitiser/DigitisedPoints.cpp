#include "Services/Digitiser/DigitisedPoints.h"

#include "HostSupport/Numbers.h"
#include "HostSupportQt/Text.h"
#include "Services/Digitiser/DigitiserModel.h"

QString shownValue(double value) {
  constexpr int digits = 4; // more than a picture holds
  return toQs(sp_ConvertRealToJSEng(value, digits));
}

DigitisedPoints::DigitisedPoints(const DigitiserModel* model, QObject* parent)
    : QAbstractTableModel(parent), m_model(model) {
  connect(model, &DigitiserModel::changed, this, &DigitisedPoints::follow);
}

/// Rows come and go at the end, so that a selection outlives a change of values.
void DigitisedPoints::follow() {
  const int rows = m_model->state().points.size();
  if (rows > m_rows) {
    beginInsertRows({}, m_rows, rows - 1);
    m_rows = rows;
    endInsertRows();
  } else if (rows < m_rows) {
    beginRemoveRows({}, rows, m_rows - 1);
    m_rows = rows;
    endRemoveRows();
  }
  if (rows > 0)
    emit dataChanged(index(0, 0), index(rows - 1, 1));
  emit headerDataChanged(Qt::Horizontal, 0, 1);
}

int DigitisedPoints::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : m_rows;
}

int DigitisedPoints::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : 2;
}

QVariant DigitisedPoints::data(const QModelIndex& index, int role) const {
  if (role == Qt::TextAlignmentRole)
    return int(Qt::AlignRight | Qt::AlignVCenter);
  const auto& points = m_model->state().points;
  if (role != Qt::DisplayRole || index.row() >= points.size())
    return {};
  const QPointF& pixel = points[index.row()];
  const QPointF shown = m_model->map() ? m_model->map()->toValues(pixel) : pixel;
  const double value = index.column() == 0 ? shown.x() : shown.y();
  return m_model->map() ? shownValue(value) : QString::number(value, 'f', 1);
}

QVariant DigitisedPoints::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole)
    return {};
  if (orientation == Qt::Vertical)
    return section + 1;
  if (m_model->map())
    return section == 0 ? tr("X") : tr("Y");
  return section == 0 ? tr("X (pixels)") : tr("Y (pixels)");
}
