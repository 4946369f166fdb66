// Family: Analog
// Types: N60
// The switch of a converter, out of a list that current, voltage and on-resistance narrow down.
SelectDeviceDialog(
  include("../data/power_mosfets.js"),
  "Select Power Transistor",
  ["Part", "Drain current", "Breakdown voltage", "On-resistance", "Package"],
  ["current", "voltage", "resistance"],
  [
    "all", "all", "all",
    "0-20", "0-40", "0-2m",
    "20-60", "40-80", "2m-5m",
    "60-120", "80-150", "5m-20m",
    "120-inf", "150-inf", "20m-inf",
  ]
);
