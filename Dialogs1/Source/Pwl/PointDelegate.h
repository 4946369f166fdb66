#pragma once

#include "Pieces/ListRows.h"

/// Cells have colours of their own, which have to be seen on a dark table as well, and an alignment
/// that says only left.
class PointDelegate : public OneLineDelegate {
public:
  using OneLineDelegate::OneLineDelegate;

protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
