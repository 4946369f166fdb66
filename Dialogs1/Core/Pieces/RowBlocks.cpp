#include "Core/Pieces/RowBlocks.h"

#include <algorithm>

RowBlocks tidied(RowBlocks blocks) {
  std::sort(blocks.begin(), blocks.end(),
            [](const RowBlock& a, const RowBlock& b) { return a.first < b.first; });
  RowBlocks joined;
  for (const RowBlock& block : blocks)
    if (!joined.empty() && block.first == joined.back().last + 1)
      joined.back().last = block.last;
    else
      joined.push_back(block);
  return joined;
}
