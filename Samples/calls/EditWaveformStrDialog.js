// Family: Analog
// The same drive with a duty that a parameter sets, for the simulator that takes idle sources.
// Reopens: 0
EditWaveformStrDialog(
  ["5", "0", "20n", "20n", "{Duty*Ts-20n}", "10u", "0", "0", "100k", "40"],
  ["0", "12", "0", "6", "12", "0", "1"],
  ["brennix", "initialpulse"]
);
