// Family: Properties
// A temperature coefficient for the resistor symbol that is being drawn: beside the value, in the
// small style, with its name.
AddPropertyDialog(
  "TC1",
  "35072",
  "{tc_film*1u}",
  "symbol",
  "Small",
  ["Standard", "Caption", "Heading", "Small", "Fixed"]
);
