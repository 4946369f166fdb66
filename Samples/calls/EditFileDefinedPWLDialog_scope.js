// Family: Pwl
// A ringing switch node as an oscilloscope exports it: 10,000 lines of CSV, the first tenth of them
// before the trigger.
const lines = ["* Switch node, 10 V/div, 20 ns/div", "START_DATA FORMAT=CSV"];
for (let i = 0; i < 10000; ++i) {
  const t = (i - 1000) * 20e-12;
  const v = t < 0 ? 0.1 : 12 * (1 - Math.exp(-t / 20e-9) * Math.cos(6.28e8 * t));
  lines.push(`${t.toExponential(4)},${v.toFixed(3)}`);
}
EditFileDefinedPWLDialog(lines, ["0", "0", "0", "switch_node.csv", "Disk", "0", "V_sw"]);
