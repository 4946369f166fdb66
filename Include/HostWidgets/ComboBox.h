#pragma once

#include "HostSupportQt/KV_FunctionDef.h"
#include "HostWidgets/Export.h"

#include <QComboBox>

/// A choice, bound as an index (real) or as a text (string). Its items stand in the form, or come
/// with the call: in the string vector of argument `argIndex`, from element `itemsElementIndex` on.
class HOSTWIDGETS_EXPORT ComboBox : public QComboBox, public KV_FunctionDef {
  Q_OBJECT
  KV_BINDING_PROPERTIES
  Q_PROPERTY(double realValue READ value WRITE setValue STORED false)
  Q_PROPERTY(QString stringValue READ currentText WRITE setStringValue STORED false)
  Q_PROPERTY(int itemsElementIndex MEMBER itemsElementIndex)
  Q_PROPERTY(int itemsStride MEMBER itemsStride)

public:
  explicit ComboBox(QWidget* parent = nullptr, const char* objectName = nullptr);

  /// Replaces the items by those of one text, separated by bars. An empty text gives none.
  void loadStrings(const char* items);
  void insertItem(const QString& text, int index); ///< -1, or beyond the end: appended
  using QComboBox::insertItem;

  double value() const { return currentIndex(); }
  void setValue(double index); ///< an index that is no item leaves the selection
  /// Selects the item of that text (exact, else in any case), else by index where the text is a
  /// number; an editable box takes any other text, another one keeps its selection.
  void setStringValue(const QString& text);

  /// Loads the items, where the call has them, and then what is selected.
  bool initialiseWidget(UserFunctionInterface* call) override;

  std::int32_t itemsElementIndex = -1; ///< element of the first items; -1: those of the form
  /// From one item to the next, to the end of the vector, so that several boxes can share one;
  /// empty texts at the end fill rows up and are no items. 0: all in one element, between bars.
  std::int32_t itemsStride = 0;

protected:
  void wheelEvent(QWheelEvent* event) override; ///< counts only with the focus
  void keyPressEvent(QKeyEvent* event) override;

private:
  bool loadItems(UserFunctionInterface* call);
};
