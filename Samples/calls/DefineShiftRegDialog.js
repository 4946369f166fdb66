// Family: Digital
// A serial-in, parallel-out shift register of eight bits, as it drives a row of LEDs.
// Reopens: 0
DefineShiftRegDialog(
  [8, 14e-9],
  [4, 7, 5, 3.5e-12, 60],
  include("../data/logic_families.js")
);
