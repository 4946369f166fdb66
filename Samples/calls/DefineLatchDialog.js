// Family: Digital
// One bit of a transparent latch in a 3.3 V CMOS family, cleared by a low level.
// Reopens: 0
DefineLatchDialog(
  [3.1e-9, 2.8e-9, 4.5e-9, 1, 0],
  "Transparent latch",
  [9, 11, 3.3, 4e-12, 25],
  include("../data/logic_families.js")
);
