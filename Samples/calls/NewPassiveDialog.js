// Family: Analog
// A feedback resistor, with its tolerance and temperature coefficient.
NewPassiveDialog(
  ["4.7k"],
  ["Resistor R3", "E24"],
  ["tol", "tc1"],
  ["1%", "100u"]
);
