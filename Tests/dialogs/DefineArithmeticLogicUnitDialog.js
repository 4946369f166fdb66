// DefineArithmeticLogicUnitDialog: the options of a shift, what the marks tell, the keyboard.

const families = include("../../Samples/data/logic_families.js");
const sheet = [0, 0, 5, 5e-12, 100]; // what the second page returns when no argument loads it
const none = { made: false, type: null, values: [] };
const operations = ["rbAdd", "rbSubtract", "rbMultiply", "rbCompare", "rbShift"];

function box(device, act) {
  host.onDialog(act);
  return host.call("DefineArithmeticLogicUnitDialog", device, []);
}

for (const [device, result] of [
  [[], [0, 1, 1, 0, 0, 0]],
  [[4, 32, 6, 1, 3e-9, 1], [4, 32, 6, 1, 3e-9, 1]],
  [[2, 32, 6, 1, 3e-9, 1], [2, 32, 6, 1, 3e-9, 1]], // the options come back though they mean nothing
  [[5, 300, 0, 9, -1, 2], [0, 256, 1, 1, -1, 0]],
  [[-1, NaN, 257, 0, NaN, -1], [0, 1, 256, 0, 0, 0]],
  [new Array(1e6).fill(1), [1, 1, 1, 1, 1, 1]],
])
  equal(box(device, d => {
    equal(d.focused(), operations[result[0]], "the user starts in the operation that is loaded");
    equal(d.enabled("shiftOptionsGroup"), result[0] === 4, `options of ${device.slice(0, 9)}`);
    d.accept();
  }).values, [...result, 0, 0, 0, ...sheet], `loaded ${device.slice(0, 9)}`);

// Only a shift has options, by mouse and by keyboard.
box([0], d => {
  const seen = [];
  for (const operation of ["rbShift", "rbMultiply"]) {
    d.click(operation);
    seen.push(d.enabled("shiftOptionsGroup"));
  }
  for (const key of ["Down", "Down", "Up"]) {
    d.key(null, key);
    seen.push([d.focused(), d.enabled("shiftOptionsGroup")]);
  }
  equal(seen, [true, false, ["rbCompare", false], ["rbShift", true], ["rbCompare", false]]);
  d.reject();
});

box([4], d => {
  for (const [mark, texts] of [
    ["label_4", ["E.g. 1000=-8, 0111=+7", "E.g 0000=0, 1111=15", "positive values shifting right and negative values shifting left",
                 "The top bit defines the direction, 1 to shift left, 0 to shift right"]],
    ["label_5", ["When shifting left by N bits the lowest N bits will be filled with bit 0. When shifting right by N bits the highest N bits will be filled with the top bit",
                 "When shifting left the highest bits are cycled back to the lowest bits. When shifting right, the lowest bits are cycled to the highest bits"]],
  ])
    for (const text of texts)
      check(d.get(mark, "info").includes(text), text);
  d.reject();
});

// --- by keyboard alone --------------------------------------------------------------------------

host.onDialog(d => {
  equal([d.name, d.title, d.tabs()], ["DefineArithmeticLogicUnitDialog", "Define Arithmetic Logic Unit Dialog",
                                      ["Digital", "Analog Interface"]]);
  const order = [d.focused()];
  for (const keys of [["Down"], ["Tab", "4"], ["Tab", "2"], ["Tab", "Space"], ["Tab"], ["Tab", "3"], ["Tab", "Down"], ["Tab"]]) {
    for (const key of keys)
      d.key(null, key);
    order.push(d.focused());
  }
  equal(order, ["rbCompare", "rbShift", "portASizeEdit", "portBSizeEdit", "checkbox", "label_4", "delayEdit", "radioButton_7",
                "label_5"]);
  d.key(null, "Ctrl+Tab");
  d.key("technologyCombo", "Down");
  d.key(null, "Shift+Tab");
  d.key(null, "Left");
  equal(d.tab(), "Digital");
  d.key(null, "Return");
});
equal(DefineArithmeticLogicUnitDialog([3, 8, 8], [0, 2, 5, 1e-12, 50], families),
      [4, 4, 2, 1, 3, 1, 0, 0, 0, 4, 7, 5, 1e-12, 50]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")])
  equal(box([4], d => {
    d.click("rbAdd");
    leave(d);
  }), none);

let refused = "";
try { DefineArithmeticLogicUnitDialog([4]); } catch (error) { refused = error.message; }
check(refused.includes("DefineArithmeticLogicUnitDialog"), "the analog interface must be given");
