// Family: Digital
// A 3.3 V up/down counter of 16 bits that can be loaded, as a motor's position is counted with.
// Reopens: 0
DefineCounterDialog_V2(
  [16, 49999, 1, 4.2e-9, 1, 1, 5e-9, 0, 0],
  [10, 11, 3.3, 4e-12, 25],
  include("../data/logic_families.js")
);
