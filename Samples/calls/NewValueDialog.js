// Family: Generic
// The parameters of a comparator, of every kind that a field can have.
// Reopens: 1
NewValueDialog(
  ["Threshold (V)", "Hysteresis (V)::0|5", "Delay (s)::0", "Load (ohms)::1|", "Drive:real:0|1|0.05",
   "Bits:int:1|16", "Open collector:bool", "Inverted:bool", "Reference:string",
   "Technology:list:CMOS|TTL|ECL"],
  ["2.5", "50m", "20n", "{Rload}", "0.5", "8", "1", "0", "U1", "TTL"],
  ["Comparator"]
);
