// Family: Analog
// An ideal 4 to 1 transformer that works from DC up.
// Reopens: 0
DefineIdealTxDialog([1e-5, 0.99, 0.99, 0.99, 1, 1], [4], [1], "nonind");
