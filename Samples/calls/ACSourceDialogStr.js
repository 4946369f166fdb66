// Family: Analog
// The same stimulus, with a phase that the schematic steps.
// Reopens: 0
ACSourceDialogStr(["1", "{phase}"]);
