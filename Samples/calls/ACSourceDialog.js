// Family: Analog
// The stimulus of a loop-gain measurement: one volt, in phase.
// Reopens: 0
ACSourceDialog([1, 0]);
