// Family: Pwl
// A definition with comments and a further file in it, and with faults for Check File Syntax to find:
// a letter O for a nought, a value that is missing, and time that goes back.
EditFileDefinedPWLDialog(
  [
    "* Line transient of the 48 V bus",
    "START_DATA REPEAT_COUNT=2",
    "0\t48",
    "10m\t48",
    "1O.1m\t36",
    "15m",
    "12m\t36",
    "20m\tfile=\"recovery.txt\"",
    "* back to nominal",
    "50m\t48"
  ],
  ["{Tstart}", "1", "0", "bus_48V", "F11", "1", "V_bus", "bus_48V|recovery.txt"],
  ["Edit File Defined PWL Source", "Time", "Voltage", "3002"]
);
