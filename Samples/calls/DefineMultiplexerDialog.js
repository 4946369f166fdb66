// Family: Digital
// An eight-input data selector of a 3.3 V family; its output is released by an enable that is low.
// Reopens: 0
DefineMultiplexerDialog(
  [8, 3.8e-9, 4.6e-9, 2, 2, 0, 0, 0, 0],
  [9, 12, 3.3, 4e-12, 25],
  include("../data/logic_families.js")
);
