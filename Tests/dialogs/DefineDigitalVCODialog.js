// DefineDigitalVCODialog: loading, the keyboard, and a page without inputs.

const families = include("../../Samples/data/logic_families.js");
const sheet = [0, 0, 5, 5e-12, 100]; // what the second page returns when no argument loads it

function box(device, act) {
  host.onDialog(act);
  return host.call("DefineDigitalVCODialog", device, [], []);
}

for (const [device, result] of [
  [[], [0, 0]],
  [[1e6, 1.23456789e5], [1e6, 1.23456789e5]],
  [[-1, -1], [0, 0]],
  [[NaN, Infinity], [0, 1e100]],
  [new Array(1e6).fill(3), [3, 3]],
])
  equal(box(device, d => d.accept()).values, [...result, 0, 0, 0, 0, 0, 0, 0, ...sheet], `loaded ${device.slice(0, 9)}`);

host.onDialog(d => {
  equal([d.name, d.title, d.tabs()], ["DefineDigitalVCODialog", "Define Digital VCO", ["Digital", "Analog Interface"]]);
  equal(d.focused(), "spinner");
  for (const key of ["4", "Tab", "Up", "Ctrl+Tab"])
    d.key(null, key);
  equal(["inputCombo", "outputCombo", "inputCapacitanceEdit", "outputResistanceEdit"].map(w => d.visible(w)),
        [false, true, false, true], "its pin is an output");
  d.key("technologyCombo", "Down");
  d.key(null, "Return");
});
equal(DefineDigitalVCODialog([8, 2], [0, 2, 5, 1e-12, 50], families), [4, 5, 0, 0, 0, 0, 0, 0, 0, 4, 7, 5, 1e-12, 50]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")])
  equal(box([8], d => {
    d.type("spinner_2", "4");
    leave(d);
  }), { made: false, type: null, values: [] });

let refused = "";
try { DefineDigitalVCODialog([1, 2], []); } catch (error) { refused = error.message; }
check(refused.includes("DefineDigitalVCODialog"), "all three arguments must be given");
