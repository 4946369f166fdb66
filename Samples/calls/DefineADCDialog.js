// Family: Digital
// A 12-bit converter for 0 to 3.3 V that takes 800 ns, up to 1.25 million times a second.
// Reopens: 0
DefineADCDialog(
  [12, 800e-9, 1.25e6, 1.65, 3.3, 0],
  [9, 11, 3.3, 5e-12, 25],
  include("../data/logic_families.js")
);
