#pragma once

#include <vector>

class QString;
class QWidget;

/// Lets the user take points from the picture of a graph, modally over `over` (may be null): their
/// values by strictly ascending x, two at least. False, and both vectors untouched, when the user
/// gave up, or the file is not a picture, which a message then says.
bool digitise(QWidget* over, const QString& path, std::vector<double>* x, std::vector<double>* y);
