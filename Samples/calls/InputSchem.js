// Family: Generic
// A new name for the net that is selected in the schematic.
// Reopens: 0
InputSchem("VOUT_SENSE", "Name of the net");
