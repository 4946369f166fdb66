#pragma once

#include <initializer_list>

class QWidget;

// Field, label and unit are shown and enabled together.
void setShown(std::initializer_list<QWidget*> widgets, bool shown);
void setEnabled(std::initializer_list<QWidget*> widgets, bool enabled);
