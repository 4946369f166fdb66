// Family: Digital
// A barrel shifter of a 3.3 V CMOS family: a word of 32 bits, shifted both ways by a signed number.
// Reopens: 0
DefineArithmeticLogicUnitDialog(
  [4, 32, 6, 1, 3.8e-9, 1],
  [9, 11, 3.3, 4e-12, 25],
  include("../data/logic_families.js")
);
