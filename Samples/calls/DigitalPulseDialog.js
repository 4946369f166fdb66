// Family: Digital
// A reset pulse every 20 us, for a 3.3 V CMOS input: half a microsecond, after the supply is up.
// Reopens: 0
DigitalPulseDialog(
  [20e-6, 500e-9, 2e-6],
  [9, 11, 3.3, 4e-12, 40],
  include("../data/logic_families.js")
);
