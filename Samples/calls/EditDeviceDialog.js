// Family: Generic
// The model of a power switch, with the parameters of this one instance.
EditDeviceDialog(
  ["IRF540N", "-1", "Select MOSFET", "Model name:"],
  ["IRF540N", "IRF530", "IRFZ44N", "IRFP250N", "IRF9540", "BSC010N04LS", "BSC0902NS", "2N7002", "BSS84", "Si4435", "Si7336",
   "FDS6680", "NTMFS4833", "CSD17559", "STP80NF55", "IPP045N10N3"],
  ["M", "Tj", "Rg", "Lsource"],
  ["1", "85", "2.2", "3n"]
);
