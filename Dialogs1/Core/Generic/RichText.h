#pragma once

#include <cstddef>

/// Whether a rich text nests its elements deeper than can be laid out in reasonable time: that of
/// nested tables doubles with each level. Null counts as empty.
bool nestsTooDeep(const char* text);

/// Bytes of the longest run without a blank; null counts as empty. Finding where to break a run
/// takes time that grows with its square.
std::size_t longestWord(const char* text);
