// Family: Digital
// A register of eight bits with tri-state outputs, in a 5 V CMOS family.
// Reopens: 0
DefineRegisterDialog(
  [8, 1, 12e-9, 15e-9],
  [4, 7, 5, 3.5e-12, 60],
  include("../data/logic_families.js")
);
