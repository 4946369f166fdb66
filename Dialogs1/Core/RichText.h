#pragma once

/// Whether a rich text nests its elements deeper than can be laid out in reasonable time: that of
/// nested tables doubles with each level. Null counts as empty.
bool nestsTooDeep(const char* text);
