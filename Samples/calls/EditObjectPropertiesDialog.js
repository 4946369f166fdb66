// Family: Properties
// The properties of a MOSFET on a schematic, and how its label is drawn: a row of every type.
// Reopens: 1
EditObjectPropertiesDialog(
  ["REF", "VALUE", "W", "L", "NOTE", "NETLIST", "LEVEL", "LABELFONT", "LABELCOLOUR", "ORIENT", "HANDLE"],
  ["M1;9216", "IRF540N;9217", "20u;576", "1.2u;576", "Gate drive 12 V\nSee the data sheet, figure 6",
   "M1 drain gate source source IRF540N", "Typical", "9;0;0;0;0;0;DejaVu Sans", "2531007", "Upright", "4711"],
  ["SchemProperty", "SchemProperty", "SymbolProperty", "SymbolProperty", "", "string",
   "Minimum|Typical|Maximum", "Font", "Colour", "Upright|Quarter turn|Upside down", "*"],
  ["", "", "", "", "add"]
);
