// Family: Analog
// Which corners of a regulator's tolerance analysis are simulated once more, with all waveforms saved.
DefineSelectionTableDialog(
  [
    "Corner;Input;Load;Temperature;Result",
    "Nominal;12 V;5 A;25 °C;passed",
    "Low line, hot;9 V;10 A;125 °C;output 1.2 % low",
    "High line, cold;16 V;0 A;-40 °C;ripple 48 mV\\n(limit 40 mV)",
    "Start-up into short;12 V;short;25 °C;passed",
    "Load step;12 V;1 A to 10 A;25 °C;undershoot 180 mV\\n(limit 150 mV)",
    "Brown-out;16 V to 6 V;5 A;25 °C;passed",
  ],
  ["Corners to simulate again:", "Tolerance Analysis"],
  ["highlight-blue"]
);
