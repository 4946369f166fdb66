// Family: Generic
// Which measurements a test bench is to make after a transient run.
// Reopens: 0
BoolSelect(
  [1, 0, 0, 1, 0, 1, 0, 0],
  ["Rise time", "Fall time", "Overshoot", "Settling time", "Slew rate", "RMS", "Peak to peak", "Duty cycle"],
  "Measurements",
  "After each run",
  "Measure these at the probed output:"
);
