#pragma once

#include "HostSupport/YString.h"

#include <vector>

/// Widths of columns in pixels, as they are kept between calls: whole numbers with blanks between.
YString writeColumnWidths(const std::vector<int>& widths);
/// Reads them back. Empty unless there are `count` numbers, each a width that a column can have on
/// a screen: settings are edited by hand, too.
std::vector<int> readColumnWidths(const char* text, int count);
