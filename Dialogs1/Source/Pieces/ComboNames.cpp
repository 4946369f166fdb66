#include "Pieces/ComboNames.h"

#include <QComboBox>
#include <QStringListModel>

namespace {

/// The model that a combo box has by itself looks each item up among all as it is taken away.
/// Nobody rewrites a name.
class NameModel : public QStringListModel {
public:
  using QStringListModel::QStringListModel;

  Qt::ItemFlags flags(const QModelIndex& index) const override {
    return QStringListModel::flags(index) & ~Qt::ItemIsEditable;
  }
};

class SortedNameModel : public NameModel {
public:
  using NameModel::NameModel;

  QVariant data(const QModelIndex& index, int role) const override {
    return QStringListModel::data(index, role == Qt::UserRole ? Qt::DisplayRole : role);
  }
};

void showModel(QComboBox* combo, QStringListModel* model) {
  combo->setModel(model);
  combo->setCurrentIndex(0);
}

} // namespace

void showNames(QComboBox* combo, const QStringList& names) {
  showModel(combo, new NameModel(names, combo));
}

void showSortedNames(QComboBox* combo, const QStringList& names) {
  auto* model = new SortedNameModel(names, combo);
  model->sort(0);
  showModel(combo, model);
}
