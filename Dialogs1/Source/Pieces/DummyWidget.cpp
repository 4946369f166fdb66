#include "Pieces/DummyWidget.h"

DummyWidget::DummyWidget(QWidget* parent, int outElement) : QWidget(parent) {
  setObjectName(QStringLiteral("dummy"));
  outElementIndex = outElement;
  hide();
}
