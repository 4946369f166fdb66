// Family: Digital
// A 10-bit converter for -5 V to 5 V that takes two's complement and settles within 2 us.
// Reopens: 0
DefineDACDialog(
  [10, 2e-6, 0, 10, 1],
  [5, 7, 5, 4e-12, 60],
  include("../data/logic_families.js")
);
