// Family: Analog
// A diode's current out of its voltage, with the saturation current as a local parameter.
// Reopens: 0
DefineArbSourceDialog(
  ["is * (exp(V(anode, cathode) / (n * 25.85m)) - 1)", "1", "0", "1", "0", "* a small signal diode\nis = 2.52n\nn = 1.752"],
  "advanced"
);
