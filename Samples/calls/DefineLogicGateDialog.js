// Family: Digital
// A four-input NAND of a 5 V CMOS family, one of its inputs inverted.
// Reopens: 0
DefineLogicGateDialog(
  [4, 1, 9e-9, 1, 0, 0, 0, 0, 0],
  [4, 7, 5, 3.5e-12, 60],
  include("../data/logic_families.js")
);
