#pragma once

#include "HostSupportQt/KV_FunctionDef.h"
#include "HostWidgets/Export.h"

#include <QTreeWidget>

/// A table of named values that the user edits in place, bound as one text per row.
///
/// It shows a row for each name; a name without a value gets an empty one, values beyond the names
/// have nothing to stand for and are not shown. Space, F2 or a double click opens the value of a
/// row, Return takes what was typed, Escape leaves it, and Tab leaves the view. A value is a
/// number, an expression or any other text, and stays as typed; one that nobody changed goes back
/// byte for byte, even where it is no valid text.
class HOSTWIDGETS_EXPORT ParameterView : public QTreeWidget, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES
  Q_PROPERTY(int nameArgIndex MEMBER nameArgIndex)

public:
  explicit ParameterView(QWidget* parent = nullptr, const char* objectName = nullptr);

  int vectorSize() override { return topLevelItemCount(); } ///< rows
  bool isReal() override { return false; }
  bool hasReadWidget() override { return true; }
  /// Shows the names of argument `nameArgIndex` with the values of argument `argIndex`, both string
  /// vectors. False, with the rows as they were, where no names were passed.
  bool initialiseWidget(UserFunctionInterface* call) override;
  /// Stores the values from `result->data` on, at most `result->count` of them. False where that is
  /// no string result.
  bool readWidget(UserReturnData* result, const UserFunctionInterface* call) override;

  QSize sizeHint() const override;

  void keyboardSearch(const QString& search) override; ///< among the names

  std::int32_t nameArgIndex = -1; ///< argument with the names; -1 for none

protected:
  using QTreeWidget::edit;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
};
