// Family: Properties
// A switching diode: the library's model, and a copy in which the junction capacitance is to be set
// to what was measured.
EditModelDialog(
  [
    ".model D1N4148 D(\n+ IS=2.52n  RS=0.568  N=1.752\n+ CJO=4p    M=0.4     TT=20n\n+ BV=75     IBV=10u\n+ )",
    ".model D1N4148 D(\n+ IS=2.52n  RS=0.568  N=1.752\n+ CJO=1.7p  M=0.4     TT=20n\n+ BV=75     IBV=10u\n+ )",
  ],
  "1"
);
