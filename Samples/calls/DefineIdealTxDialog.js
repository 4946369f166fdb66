// Family: Analog
// A flyback transformer: 450 uH of 30 turns, a winding of 6 turns that is wound against it, one of 8 for
// the controller.
// Reopens: 0
DefineIdealTxDialog(
  [500e-9, 0.99, 0.98, 0.995, 1, 2],
  [30],
  [-6, -8]
);
