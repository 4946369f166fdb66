// Family: Application
// The simulation data that a session has gathered: which groups are kept, which one curves are
// plotted from, and what they are called.
ManageDataGroupsDialog([
  "global;All runs;;global",
  "tran1;Start-up, no load;Transient;keep",
  "tran2;Start-up, 10 A;Transient;keep",
  "ac1;Loop gain;AC;",
  "ac2;Loop gain, 2.2 nF;AC;keep|current",
  "noise1;Output noise;Noise;",
  "dc1;Load regulation;DC sweep;",
  "op1;;Operating point;",
]);
