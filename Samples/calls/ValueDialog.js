// Family: Generic
// A lossless transmission line for a cable model: 50 ohms, and the delay of two metres of coaxial
// cable. Both have to stay above zero, which the mode sees to.
ValueDialog(
  [50, 9.9e-9],
  ["Characteristic impedance (ohms)", "Propagation delay (seconds)"],
  "Transmission Line",
  "TransmissionLine"
);
