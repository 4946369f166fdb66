// Family: Properties
// The parameters of a subcircuit for a synchronous buck regulator.
// Reopens: 1
UserParametersDialog(
  ["FSW", "VREF", "GM_EA", "RCOMP", "CCOMP", "ILIMIT", "TSS", "RDSON"],
  ["500k", "0.8", "1.2m", "{27k*FSW/500k}", "1n", "6.5", "2m", "{8m*(1+TC*(TEMP-27))}"],
  "Buck Regulator Parameters"
);
