// Family: Digital
// The reset vector of a 16-bit processor, at the outputs of a 5 V CMOS latch.
// Reopens: 0
DigitalConstantDialog(
  ["16", "BFF4", "HEXADECIMAL"],
  [4, 7, 5, 5e-12, 60],
  include("../data/logic_families.js")
);
