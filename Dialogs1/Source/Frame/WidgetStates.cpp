#include "Frame/WidgetStates.h"

#include <QWidget>

void setShown(std::initializer_list<QWidget*> widgets, bool shown) {
  for (QWidget* widget : widgets)
    widget->setVisible(shown);
}

void setEnabled(std::initializer_list<QWidget*> widgets, bool enabled) {
  for (QWidget* widget : widgets)
    widget->setEnabled(enabled);
}
