// Family: Digital
// The clock of a phase-locked loop: 10 MHz at rest, 2 MHz more for each volt.
// Reopens: 0
DefineDigitalVCODialog(
  [10e6, 2e6],
  [9, 11, 3.3, 4e-12, 25],
  include("../data/logic_families.js")
);
