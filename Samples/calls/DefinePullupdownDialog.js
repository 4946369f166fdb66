// Family: Digital
// The pull-up of an open drain bus, of a 5 V CMOS family.
// Reopens: 0
DefinePullupdownDialog(
  ["ONE RESISTIVE", "", "", "", "", "", "", "", ""],
  [4, 7, 5, 3.5e-12, 10e3],
  include("../data/logic_families.js")
);
