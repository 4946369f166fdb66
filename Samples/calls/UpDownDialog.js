// Family: Generic
// The order in which curves are stacked in a graph.
// Reopens: 0
UpDownDialog(["Input voltage", "Inductor current", "Gate drive", "Output voltage", "Output ripple"], "Order of Curves");
