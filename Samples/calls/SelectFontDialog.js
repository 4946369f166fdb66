// Family: Generic
// The font in which netlists are shown: the fixed one of the host, until the user takes another.
// Reopens: 0
SelectFontDialog("Fixed");
