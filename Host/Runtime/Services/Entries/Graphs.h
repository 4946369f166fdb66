#pragma once

#include <QString>

#include <cstdint>
#include <vector>

// The graphs and vectors that the host has, as far as the development host has any: what scripts
// set, and what `dyn_GetGraphEditData` hands out.

struct GraphVectorFacts {
  QString name;
  std::int32_t physicalType = 0;
  std::int32_t vectorKind = 0;
  bool isPlottable = true;
};

struct GraphFacts {
  std::vector<GraphVectorFacts> vectors;
  std::int32_t graphCount = 0; ///< open graphs
};

const GraphFacts& graphFacts(); ///< none to begin with
void setGraphFacts(GraphFacts facts);
