// Family: Pwl
// The output capacitance of a MOSFET as charge against drain voltage: few volts cost most of it.
PWLDialog(
  ["0", "0", "5", "7.35n", "25", "16.1n", "100", "27.4n", "400", "41.8n"],
  ["Define PWL Capacitor", "Voltage", "Charge", "continuous", "3001"],
  [1, 325, 0],
  [""]
);
