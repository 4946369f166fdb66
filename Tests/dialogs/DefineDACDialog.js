// DefineDACDialog: loading, the keyboard, and a page without outputs.

const families = include("../../Samples/data/logic_families.js");
const sheet = [0, 0, 5, 5e-12, 100]; // what the second page returns when no argument loads it
const none = { made: false, type: null, values: [] };

function box(device, act) {
  host.onDialog(act);
  return host.call("DefineDACDialog", device);
}

for (const [device, result] of [
  [[], [1, 0, 0, 0, 0]],
  [[12, 1e-6, -1.5, 3, 1], [12, 1e-6, -1.5, 3, 1]],
  [[33, -1, -1, -1, 7], [32, -1, -1, -1, 1]],
  [[NaN, NaN, NaN, NaN], [1, 0, 0, 0, 0]],
  [new Array(1e6).fill(1), [1, 1, 1, 1, 1]],
])
  equal(box(device, d => d.accept()).values, [...result, 0, 0, 0, 0, ...sheet], `loaded ${device.slice(0, 9)}`);

host.onDialog(d => {
  equal([d.name, d.title, d.tabs()], ["DefineDACDialog", "Define D-A Converter", ["Digital", "Analog Interface"]]);
  equal(d.focused(), "numBitsEdit");
  d.key(null, "9");
  d.key(null, "Tab");
  d.key(null, "Space");
  for (const [key, digit] of [["Alt+T", "3"], ["Alt+R", "2"], ["Alt+S", "4"], ["Alt+F", "7"]]) {
    d.key(null, key);
    d.key(null, digit);
  }
  d.key(null, "Ctrl+Tab");
  equal(["inputCombo", "outputCombo", "inputCapacitanceEdit", "outputResistanceEdit"].map(w => d.visible(w)),
        [true, false, true, false], "its pins are inputs");
  d.key("technologyCombo", "Down");
  d.key(null, "Return");
});
equal(DefineDACDialog([8], [0, 2, 5, 1e-12, 50], families), [9, 4, 7, 2, 1, 0, 0, 0, 0, 4, 7, 5, 1e-12, 50]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")])
  equal(box([8], d => {
    d.type("rangeEdit", "4");
    leave(d);
  }), none);
