// Family: Analog
// The supply of a logic board.
// Reopens: 0
DCSourceDialog([3.3]);
