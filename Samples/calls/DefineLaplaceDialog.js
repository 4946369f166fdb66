// Family: Analog
// A second-order low-pass at 10 kHz with a Butterworth response, written for a corner of 1 rad/s.
// Reopens: 0
DefineLaplaceDialog(
  ["1/(s^2 + sqrt(2)*s + 1)", "0", "0", "0", "62.831853k", "0", "15", "1", "0.05", "1u", "0", "20", "0", "0"],
  ["allowconvolution"]
);
