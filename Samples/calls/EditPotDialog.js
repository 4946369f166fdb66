// Family: Analog
// A 10k trimmer in its middle position.
// Reopens: 0
EditPotDialog([10e3, 0.5, 0, 0.05]);
