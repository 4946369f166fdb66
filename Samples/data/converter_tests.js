// The tests that a converter's verification can run: levels of folders, then the test.
[
  "Steady state;Efficiency;Nominal line;Light load",
  "Steady state;Efficiency;Nominal line;Half load",
  "Steady state;Efficiency;Nominal line;Full load",
  "Steady state;Output ripple;Low line",
  "Steady state;Output ripple;High line",
  "Transient;Load step;10 % to 90 %",
  "Transient;Load step;90 % to 10 %",
  "Transient;Line step",
  "Transient;Start-up;No load",
  "Transient;Start-up;Full load",
  "Loop;Gain and phase margin;Nominal line",
  "Loop;Gain and phase margin;Low line",
  "Loop;Output impedance",
  "Protection;Short circuit",
  "Protection;Over-voltage",
]
