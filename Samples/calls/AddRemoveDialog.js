// Family: Generic
// Which signals a graph is to show, in which order.
// Reopens: 0
AddRemoveDialog(
  ["V(out)", "V(in)"],
  ["V(in)", "V(out)", "V(ref)", "V(gate)", "V(vcc)", "I(L1)", "I(R1)", "I(Q1.c)", "I(Q1.e)", "Power(Q1)"],
  ["Signals to Plot", "&Selected signals", "&Available signals"]
);
