// GetAnalogInterface: five elements of a device's result.

const none = [0, 0, 0, 0, 0];
const numbers = Array.from({ length: 20 }, (_, i) => i / 8);
const texts = numbers.map(String);

for (const [argument, values] of [
  [numbers.slice(0, 14), numbers.slice(9, 14)],
  [numbers, numbers.slice(9, 14)],
  [numbers.slice(0, 13), none],
  [[], none],
  [texts.slice(0, 14), numbers.slice(9, 14)],
  [texts.slice(0, 13), none],
  [["", "", "", "", "", "", "", "", "", "4", "7", "3.3V", "5p", "{R}"], [4, 7, 3.3, 5e-12, 0]],
  [new Array(1e6).fill(2), [2, 2, 2, 2, 2]],
  ["4;7", none],
])
  equal(host.call("GetAnalogInterface", argument), { made: true, type: "real", values }, String(argument).slice(0, 40));

// What a dialog returns goes in as it is.
host.onDialog(d => d.accept());
equal(GetAnalogInterface(DefineCounterDialog([8], [-1, -1, 3.3, 4e-12, 25])), [0, 0, 3.3, 4e-12, 25]);

let refused = "";
try { GetAnalogInterface(); } catch (error) { refused = error.message; }
check(refused.includes("GetAnalogInterface"), refused);
