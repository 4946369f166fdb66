// Family: Analog
// A supply that follows a parameter of the schematic.
// Reopens: 0
DCSourceDialogStr(["{vbat-0.3}"]);
