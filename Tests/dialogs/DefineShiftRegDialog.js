// DefineShiftRegDialog: its two fields, both pages by keyboard.

const families = include("../../Samples/data/logic_families.js");
const sheet = [0, 0, 5, 5e-12, 100]; // what the second page returns when no argument loads it
const gap = [0, 0, 0, 0, 0, 0, 0];
const none = { made: false, type: null, values: [] };
const outputs = "spinner1";

function box(device, act) {
  host.onDialog(act);
  return host.call("DefineShiftRegDialog", device);
}

for (const [device, result] of [
  [[16, 2e-9], [16, 2e-9]],
  [[], [4, 1e-8]],
  [[0, -1], [1, 0]],
  [[33, Infinity], [32, 1e100]],
  [[NaN, NaN], [4, 1e-8]],
  [new Array(1e6).fill(3), [3, 3]],
])
  equal(box(device, d => {
    equal([d.name, d.title], ["DefineShiftRegDialog", "Define Shift Register"]);
    d.accept();
  }).values, [...result, ...gap, ...sheet]);

host.onDialog(d => {
  for (const key of ["Up", "Up", "Alt+D", "2", "n", "Ctrl+Tab"])
    d.key(null, key);
  equal(d.tab(), "Analog Interface");
  d.key("technologyCombo", "Down");
  d.key(null, "Shift+Tab");
  d.key(null, "Left");
  equal([d.tab(), d.text(outputs)], ["Digital", "6"], "outputs are counted one by one");
  d.key(null, "Return");
});
equal(DefineShiftRegDialog([4], [0, 2, 5, 1e-12, 50], families), [6, 2e-9, ...gap, 4, 7, 5, 1e-12, 50]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel"), d => d.key(outputs, "Escape")])
  equal(box([8], d => {
    d.type(outputs, "4");
    leave(d);
  }), none);

let refused = "";
try { DefineShiftRegDialog(); } catch (error) { refused = error.message; }
check(refused.includes("DefineShiftRegDialog"), refused);
