// Family: Digital
// A decade counter of a 5 V CMOS family: four bits, counting from 0 to 9.
// Reopens: 0
DefineCounterDialog(
  [4, 9, 2, 15e-9, 0, 0, 10e-9, 10e-9, 0],
  [4, 7, 5, 3.5e-12, 60],
  include("../data/logic_families.js")
);
