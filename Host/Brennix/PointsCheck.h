#pragma once

#include "Fault.h"

#include <functional>

/// Whether a file that a super data point names can be read.
using FileProbe = std::function<bool(const QString& path)>;

/// Looks at the contents of a points file, UTF-8 with or without a byte order mark, lines ended as
/// anywhere. A line gives one fault at most, its first; there are no more than `mostFaults` of
/// lines. Files of super data points are asked for, not looked into. The time it takes is linear in
/// the size, whatever the bytes are.
QVector<Fault> checkPoints(std::string_view contents, const FileProbe& canRead);
