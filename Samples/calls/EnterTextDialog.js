// Family: Generic
// The simulator statements that go into the netlist with a schematic.
// Reopens: 0
EnterTextDialog([
  ".tran 10u 5m\n.options reltol=1m\n.param Rload=2.2 Lout=4.7u\n.ic v(VOUT)=0",
  "Statements that are added to the netlist",
]);
