#include "Workbench/ResultModel.h"

#include "HostSupport/Numbers.h"
#include "HostSupportQt/Text.h"
#include "Workbench/CallRecord.h"

#include <algorithm>

static constexpr int engineeringDigits = 6;
static constexpr std::size_t mostRows = 100000000; // what a table view can count

void ResultModel::setResult(const CallResult& result) {
  beginResetModel();
  m_result = result;
  endResetModel();
}

QVector<ResultModel::Column> ResultModel::columns() const {
  QVector<Column> columns{Column::Index, Column::Value};
  if (m_result.type == CallResult::Type::Real)
    columns << Column::Engineering;
  if (!m_result.references.empty())
    columns << Column::Reference;
  return columns;
}

int ResultModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(std::min(m_result.count(), mostRows));
}

int ResultModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns().size();
}

QString ResultModel::valueText(std::size_t element) const {
  switch (m_result.type) {
  case CallResult::Type::Real:
    return scriptNumber(m_result.reals[element]);
  case CallResult::Type::String:
    return QString::fromUtf8(m_result.strings[element]);
  case CallResult::Type::Int:
    return scriptNumber(m_result.ints[element]);
  case CallResult::Type::Bool:
    return m_result.bools[element] ? QStringLiteral("true") : QStringLiteral("false");
  case CallResult::Type::None:
    break;
  }
  return QString();
}

QVariant ResultModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return QVariant();
  const Column column = columns().at(index.column());
  const auto element = std::size_t(index.row());
  if (role == Qt::TextAlignmentRole) {
    const bool isText = m_result.type == CallResult::Type::String && column == Column::Value;
    return int((isText ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole)
    return QVariant();
  switch (column) {
  case Column::Index:
    return index.row();
  case Column::Engineering:
    return toQs(sp_ConvertRealToJSEng(m_result.reals[element], engineeringDigits));
  case Column::Reference:
    return element < m_result.references.size() ? scriptNumber(m_result.references[element])
                                                : QString();
  case Column::Value:
    break;
  }
  return valueText(element);
}

QVariant ResultModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return QVariant();
  switch (columns().value(section)) {
  case Column::Index:
    return tr("Index");
  case Column::Value:
    return tr("Value");
  case Column::Engineering:
    return tr("Engineering");
  case Column::Reference:
    return tr("X Value");
  }
  return QVariant();
}
