// Family: Digital
// A bus of sixteen bits that counts up every 100 ns.
const names = Array.from({ length: 16 }, (_, i) => `q${i}`);
const rows = Array.from({ length: 256 }, (_, n) =>
  [`${n * 100}n`].concat(names.map((_, i) => `${(n * 257 >> i) & 1}s`)).join("\t"));
DigitalSourceDialog([names.join("|"), rows.join("\n")], [], []);
