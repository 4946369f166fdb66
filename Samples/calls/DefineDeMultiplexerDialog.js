// Family: Digital
// A one-of-eight decoder of a 5 V CMOS family: outputs that are not selected stay high.
// Reopens: 0
DefineDeMultiplexerDialog(
  [8, 15e-9, 18e-9, 1, 1, 0, 0, 0, 0],
  [6, 7, 5, 3.5e-12, 60],
  include("../data/logic_families.js")
);
