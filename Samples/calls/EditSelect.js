// Family: Generic
// What stands in the title block of a sheet.
// Reopens: 0
EditSelect(
  ["Flyback converter", "KV-0231", "C", "{Sheet} of {Sheets}"],
  ["Title", "Drawing number", "Revision", "Sheet"],
  "Title Block"
);
