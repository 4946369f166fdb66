// Family: Digital
// A bus keeper that holds a one at first, weakly enough for any driver to override.
// Reopens: 0
EditDigInitDialog([1, 0]);
