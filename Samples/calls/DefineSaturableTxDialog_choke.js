// Family: Analog
// A choke of 24 turns on a core that is in no table.
// Reopens: 3
DefineSaturableTxDialog(
  include("../data/core_materials.js"),
  include("../data/core_types.js"),
  [1],
  [24, 7, -1, 1, 0, 110e-6, 76e-3, 90]
);
