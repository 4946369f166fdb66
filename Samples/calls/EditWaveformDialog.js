// Family: Analog
// The gate drive of a converter that switches at 100 kHz: 12 V for 40 % of the period, edges of 20 ns.
// Reopens: 0
EditWaveformDialog(
  [5, 0, 20e-9, 20e-9, 3.98e-6, 10e-6, 0, 0, 100e3, 40],
  [0, 12, 0, 6, 12, 0, 0],
  ["initialpulse"]
);
