#pragma once

#include <vector>

/// Neighbouring rows of a list, both ends included.
struct RowBlock {
  int first;
  int last;
};
using RowBlocks = std::vector<RowBlock>;

inline bool operator==(const RowBlock& a, const RowBlock& b) {
  return a.first == b.first && a.last == b.last;
}

/// In order, neighbours joined to one. Blocks must not overlap.
RowBlocks tidied(RowBlocks blocks);
