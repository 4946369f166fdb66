// Family: Generic
// The net that a probe of a converter's simulation is to show, out of all in its netlist.
SelectDialog(
  ["Select Net", "Net to probe:", "Single", "sorted", "2"],
  ["in", "sw", "out", "gate_hi", "gate_lo", "boot", "fb", "comp", "ref", "vcc", "en", "ss", "rt", "pgood",
   "sense_p", "sense_n", "X1.bias", "X1.comp_out", "X1.slope", "X1.clk", "X1.pwm", "X1.uvlo", "X2.drv", "X2.dt",
   ...Array.from({ length: 40 }, (_, i) => `X3.ladder_${i + 1}`)]
);
