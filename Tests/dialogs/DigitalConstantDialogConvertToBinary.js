// DigitalConstantDialogConvertToBinary: the bits of a constant, the lowest first.

const bits = (...texts) => DigitalConstantDialogConvertToBinary(texts);
const pattern = (...texts) => bits(...texts).map(bit => (bit ? "1" : "0")).join("");

for (const [width, value, base, expected] of [
  ["4", "10", "DECIMAL", "0101"],
  ["8", "10", "DECIMAL", "01010000"],
  ["2", "10", "DECIMAL", "01"],
  ["6", "2a", "HEXADECIMAL", "010101"],
  ["5", "0011", "BINARY", "11000"],
  ["8", "-1", "SIGNED DECIMAL", "11111111"],
  ["8", "-20", "SIGNED DECIMAL", "00110111"],
  ["8", "5", "SIGNED DECIMAL", "10100000"],
  ["3", "-8", "SIGNED DECIMAL", "000"],
  ["4", "0", "SIGNED DECIMAL", "0000"],
  ["4", "", "SIGNED DECIMAL", "0000"],
  ["4", "-5", "DECIMAL", "0000"],
  ["4", "15", "decimal", "1111"],
  ["4", "15", "OCTAL", "0000"],
  ["4", "15", "", "0000"],
  ["2.9", "3", "DECIMAL", "11"],
  ["0", "3", "DECIMAL", ""],
  ["-1", "3", "DECIMAL", ""],
  ["many", "3", "DECIMAL", ""],
  ["1T", "3", "DECIMAL", ""],
  ["1e400", "3", "DECIMAL", ""],
])
  equal(pattern(width, value, base), expected, `${width} bits of ${value}, ${base}`);

equal(bits("3", "2", "DECIMAL"), [false, true, false]);
equal(pattern("256", "F".repeat(64), "HEXADECIMAL"), "1".repeat(256));
equal([pattern("3", "7"), pattern("3"), pattern()], ["000", "000", ""], "what is missing is empty");

// What the dialog gives is what this takes.
host.onDialog(d => d.accept());
equal(pattern(...DigitalConstantDialog(["6", "-2", "SIGNED DECIMAL"])), "011111");

// Any length, in no time: the lowest bits do not depend on what stands far in front of them.
const start = host.processTime();
const odd = "7".repeat(1e6);
for (const base of ["DECIMAL", "HEXADECIMAL", "SIGNED DECIMAL"])
  equal(bits("65536", odd, base).length, 65536);
equal(pattern("16", odd, "DECIMAL"), pattern("16", "7".repeat(16), "DECIMAL"));
equal(bits("65537", "1", "BINARY"), [], "wider than anybody needs");
equal(DigitalConstantDialogConvertToBinary(new Array(1e6).fill("2")).length, 2);
check(host.processTime() - start < 20000, `in ${host.processTime() - start} ms`);
