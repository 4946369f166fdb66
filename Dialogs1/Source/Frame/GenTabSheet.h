#pragma once

#include "Frame/WidgetStates.h"

#include <QWidget>

/// Base of the tab pages that several dialogs share. A sheet knows nothing of the script's call:
/// its dialog loads and stores it by name.
class GenTabSheet : public QWidget {
public:
  using QWidget::QWidget;
  virtual int helpContextId(); ///< number of the sheet's help page; -1 for none

  using QWidget::setEnabled;

protected:
  static void setEnabled(std::initializer_list<QWidget*> widgets, bool enabled) {
    ::setEnabled(widgets, enabled);
  }
};
