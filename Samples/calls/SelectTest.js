// Family: Analog
// The measurements that are taken of an amplifier after each change.
SelectTest([
  "DC;Offset voltage",
  "DC;Supply current",
  "AC;Gain;Bandwidth",
  "AC;Gain;Flatness",
  "AC;Phase margin",
  "Noise;Input noise",
  "Large signal;Slew rate",
  "Large signal;Settling time",
]);
