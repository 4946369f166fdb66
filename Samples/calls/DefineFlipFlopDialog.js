// Family: Digital
// A D-type flip-flop of a 5 V CMOS family, with set and reset that are active low.
// Reopens: 0
DefineFlipFlopDialog(
  [5e-9, 3e-9, 14e-9, 12e-9, 15e-9, 1, 0],
  "Edit D-type flip-flop",
  [4, 7, 5, 3.5e-12, 60],
  include("../data/logic_families.js")
);
