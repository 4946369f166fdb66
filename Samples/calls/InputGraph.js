// Family: Generic
// The title over a graph of a converter's output.
// Reopens: 0
InputGraph("Output ripple at 10 A", "Title of the graph");
