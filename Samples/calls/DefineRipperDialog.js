// Family: Digital
// The low byte of an address bus.
// Reopens: 0
DefineRipperDialog(
  ["ADDR", "0", "7", "1"],
  ["Straight", "Angled left", "Angled right", "Compact"]
);
