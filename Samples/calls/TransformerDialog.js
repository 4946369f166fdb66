// Family: Analog
// 20 turns to 5 and 5 on an RM core with a gap.
TransformerDialog(
  include("../data/core_materials.js").map(line => line.split(";")[0]),
  include("../data/core_types.js"),
  [1, 18, 1, 2, 0, 0, 0, 20, 5, 0.99, 5, 0.985, 0.98]
);
