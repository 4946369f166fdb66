// Family: Analog
// A forward transformer of 32 turns to two times 4, on an ETD core without a gap.
// Reopens: 3
DefineSaturableTxDialog(
  include("../data/core_materials.js"),
  include("../data/core_types.js"),
  [1, 0.125, -0.125],
  [32, 1, 8, 1, 2, 0, 0, 0, 0.998]
);
