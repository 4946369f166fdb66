// DefineLatchDialog: the title that a script gives it, its fields, both pages by keyboard.

const families = include("../../Samples/data/logic_families.js");
const sheet = [0, 0, 5, 5e-12, 100]; // what the second page returns when no argument loads it
const gap = [0, 0, 0, 0];
const none = { made: false, type: null, values: [] };
const delays = ["enableDelayEdit", "dataDelayEdit", "asyncDelayEdit"];

function box(args, act) {
  host.onDialog(act);
  return host.call("DefineLatchDialog", ...args);
}

// --- loading ------------------------------------------------------------------------------------

for (const [device, shown] of [
  [[1e-9, 2e-9, 3e-9, 2, 1], [1e-9, 2e-9, 3e-9, 2, 1]],
  [[1e-9], [1e-9, 0, 0, 0, 0]],
  [[], [0, 0, 0, 0, 0]],
  [[-1, -1, -1, -1, -1], [0, 0, 0, 0, 0]],
  [[NaN, NaN, NaN, NaN, NaN], [0, 0, 0, 0, 0]],
  [[1, 2, 3, 3, 2], [1, 2, 3, 0, 0]],
])
  equal(box([device, "D"], d => d.accept()).values, [...shown, ...gap, ...sheet], `result of ${device}`);

const long = "x".repeat(1e5);
for (const [title, shown] of [
  ["Transparent latch", "Transparent latch"],
  ["&Set <b>%1</b>", "&Set <b>%1</b>"],
  ["", "Edit Latch Dialog"],
  [[], "Edit Latch Dialog"],
  [[long], `${long.slice(0, 499)}…`],
])
  box([[], title], d => {
    equal([d.name, d.title], ["DefineLatchDialog", shown]);
    d.reject();
  });

// The page of the interface has its arguments behind the title.
equal(box([[], "D", [9, 11, 3, 4e-12, 25], families], d => {
  equal(d.tabs(), ["Digital", "Analog Interface"]);
  d.accept();
}).values.slice(9), [9, 11, 3, 4e-12, 25]);

// --- by keyboard alone --------------------------------------------------------------------------

equal(box([[1e-9, 1e-9, 1e-9, 0, 0], "D", [4, 7, 5, 1e-12, 50], families], d => {
  const seen = [];
  const enter = (...keys) => {
    seen.push(d.focused());
    for (const key of [...keys, "Tab"])
      d.key(null, key);
  };
  enter("3", "n");
  enter("Up");
  enter("Down", "Down");
  enter("7", "n");
  enter("Down");
  equal(seen, ["enableDelayEdit", "dataDelayEdit", "radioButton", "asyncDelayEdit", "radioButton_4"]);
  equal(d.focused(), "okButton");
  d.key(null, "Shift+Tab");
  d.key(null, "Ctrl+Tab");
  equal(d.tab(), "Analog Interface");
  d.key("technologyCombo", "Down");
  d.key(null, "Shift+Tab");
  d.key(null, "Left");
  equal(d.tab(), "Digital");
  d.key(null, "Return");
}).values, [3e-9, 2e-9, 7e-9, 2, 1, ...gap, 9, 11, 3.3, 1e-12, 50]);

equal(box([[], "D"], d => {
  for (const edit of delays)
    d.set(edit, "-1n");
  d.accept();
}).values.slice(0, 3), [0, 0, 0], "no delay is negative");

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel"), d => d.key(delays[0], "Escape")])
  equal(box([[], "D"], d => {
    d.type(delays[0], "4n");
    leave(d);
  }), none);

// --- what a script may hand in ------------------------------------------------------------------

equal(box([new Array(1e6).fill(1), new Array(1e6).fill("\n;\ud800")], d => d.accept()).values.slice(0, 5), [1, 1, 1, 1, 1]);
let refused = "";
try { DefineLatchDialog([]); } catch (error) { refused = error.message; }
check(refused.includes("DefineLatchDialog"), refused);
