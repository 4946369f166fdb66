// Family: Pwl
// A varistor, current against voltage: the simulation starts in its second segment.
PWLDialog(
  ["-300", "-1", "-240", "-1m", "240", "1m", "300", "1"],
  ["Define PWL Resistor", "Voltage", "Current", "segment", "3001"],
  [1, 2, 0]
);
