#include "Services/Entries/Graphs.h"

#include "GraphEditData.h"
#include "HostSupportQt/Text.h"
#include "Services/Entries/Entries.h"
#include "Services/Entries/EntryCall.h"

#include <algorithm>

namespace {

GraphFacts& facts() {
  static GraphFacts instance;
  return instance;
}

GraphVector vectorOf(const GraphVectorFacts& told) {
  GraphVector vector{};
  vector.name = toYs(told.name);
  vector.physicalType = told.physicalType;
  vector.vectorKind = told.vectorKind;
  vector.isPlottable = told.isPlottable;
  return vector;
}

} // namespace

const GraphFacts& graphFacts() {
  return facts();
}

void setGraphFacts(GraphFacts given) {
  facts() = std::move(given);
}

/// The array goes over to the caller. What is not the host's to tell stays as it was.
void graphEditDataEntry(GraphEditData* data) {
  asEntry([&] {
    const GraphFacts& present = facts();
    data->vectors = new GraphVector[present.vectors.size()];
    std::transform(present.vectors.begin(), present.vectors.end(), data->vectors, vectorOf);
    data->vectorCount = static_cast<std::int32_t>(present.vectors.size());
    data->graphCount = present.graphCount;
  });
}
