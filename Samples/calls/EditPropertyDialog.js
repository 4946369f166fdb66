// Family: Properties
// The statements that a transistor in a schematic adds to the netlist.
EditPropertyDialog(
  "EXTRA",
  "66816",
  ".ic v(Q1_base)=0.7\n.save i(Q1_c) i(Q1_b)",
  "instance",
  "",
  ["Standard", "Caption", "Heading", "Small", "Fixed"]
);
