// Family: Properties
// The first pin of an eight-bit data bus; its name stands to the left of the pin's end.
EditPinDialog(
  "D0",
  "778",
  ["true", "false"],
  [],
  "Small",
  ["Standard", "Caption", "Heading", "Small", "Fixed"]
);
