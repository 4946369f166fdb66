// DefineFlipFlopDialog: two warnings that refuse nothing, the title, the keyboard.

const families = include("../../Samples/data/logic_families.js");
const sheet = [0, 0, 5, 5e-12, 100]; // what the second page returns when no argument loads it
const none = { made: false, type: null, values: [] };
const hold = "holdTimeEdit", delay = "clockDelayEdit", clock = "minClockEdit";

function box(device, act, title = "") {
  host.onDialog(act);
  return host.call("DefineFlipFlopDialog", device, title);
}
const warned = d => ["holdTimeViolationLabel", "clockDelayViolationLabel"].map(w => d.visible(w));

// --- loading ------------------------------------------------------------------------------------

for (const [device, result, warnings] of [
  [[], [0, 0, 0, 0, 0, 0, 0], [false, false]], // nothing has changed yet
  [[5e-9], [5e-9, 0, 0, 0, 0, 0, 0], [false, false]],
  [[5e-9, 3e-9, 14e-9, 12e-9, 6e-9, 1, 1], [5e-9, 3e-9, 14e-9, 12e-9, 6e-9, 1, 1], [false, false]],
  [[0, 3e-9, 3e-9, 3e-9], [0, 3e-9, 3e-9, 3e-9, 0, 0, 0], [true, false]],
  [[0, 4e-9, 2e-9, 3e-9], [0, 4e-9, 2e-9, 3e-9, 0, 0, 0], [true, true]],
  [[0, 2e-9, 2e-9, 3e-9], [0, 2e-9, 2e-9, 3e-9, 0, 0, 0], [false, true]],
  // Times that look alike are compared as they are.
  [[0, 3.00000001e-9, 4e-9, 3e-9], [0, 3.00000001e-9, 4e-9, 3e-9, 0, 0, 0], [true, false]],
  [[-1, -1, -1, -1, -1, -1, -1], [0, 0, 0, 0, 0, 0, 0], [false, false]],
  [[NaN, NaN, NaN, NaN, NaN, NaN, 2], [0, 0, 0, 0, 0, 0, 0], [false, false]],
  [new Array(1e6).fill(1), [1, 1, 1, 1, 1, 1, 1], [true, false]],
])
  equal(box(device, d => {
    equal(warned(d), warnings, `warnings of ${device.slice(0, 9)}`);
    d.accept();
  }).values, [...result, 0, 0, ...sheet], `loaded ${device.slice(0, 9)}`);

// --- the warnings, at every key -----------------------------------------------------------------

equal(box([5e-9, 3e-9, 14e-9, 12e-9], d => {
  const seen = [];
  d.type(hold, "1");
  for (const key of ["2", "n", "Backspace", "Backspace", "1", "n"]) {
    d.key(hold, key);
    seen.push(warned(d)[0]);
  }
  equal(seen, [true, true, true, true, true, false], "12n is as long as the clock, 11n is not");
  for (const [edit, text, warnings] of [
    [hold, "12n", [true, false]],
    [delay, "12n", [true, false]],
    [delay, "11n", [true, true]],
    [clock, "13n", [false, true]],
    [clock, "{T}", [false, false]], // what it will be is not known
    [clock, "0", [true, false]],
    [hold, "-1n", [true, false]],
    [clock, "-1n", [true, false]],
    [clock, "12.5n", [false, true]],
  ]) {
    d.type(edit, text);
    equal(warned(d), warnings, `${edit} ${text}, typed`);
    d.key(edit, "Tab");
    equal(warned(d), warnings, `${edit} ${text}, left`);
  }
  d.accept();
}).values.slice(0, 4), [5e-9, 0, 11e-9, 12.5e-9], "none is refused");

box([0, 1e-9, 5e-9, 5e-9], d => {
  d.key(clock, "Up");
  equal(warned(d), [false, true]);
  for (const key of ["Down", "Down", "Down", "Down"])
    d.key(clock, key);
  equal(warned(d), [true, false], "steps warn at once");
  d.reject();
});

// --- the title ----------------------------------------------------------------------------------

for (const [title, shown] of [
  ["", "Edit Flip-Flop Dialog"],
  ["Edit JK flip-flop", "Edit JK flip-flop"],
  [[], "Edit Flip-Flop Dialog"],
  [["Edit T flip-flop", "another"], "Edit T flip-flop"],
])
  box([], d => {
    equal([d.name, d.title], ["DefineFlipFlopDialog", shown]);
    d.reject();
  }, title);
box([], d => {
  check(d.title.startsWith("xxx") && d.title.length < 1e4, "a long title is cut");
  d.reject();
}, "x".repeat(1e6));

// --- by keyboard alone --------------------------------------------------------------------------

host.onDialog(d => {
  equal(d.tabs(), ["Digital", "Analog Interface"]);
  const order = [d.focused()];
  d.key(null, "2");
  for (const key of ["1", "4", "3", "Down", "5", "Down"]) {
    d.key(null, "Tab");
    order.push(d.focused());
    d.key(null, key);
  }
  equal(order, ["setupTimeEdit", hold, delay, clock, "radioButton", "asyncDelayEdit", "radioButton_4"]);
  d.key(null, "Ctrl+Tab");
  d.key("technologyCombo", "Down");
  d.key(null, "Shift+Tab");
  d.key(null, "Left");
  equal(d.tab(), "Digital");
  d.key(null, "Return");
});
equal(DefineFlipFlopDialog([], "Edit", [0, 2, 5, 1e-12, 50], families), [2, 1, 4, 3, 5, 1, 1, 0, 0, 4, 7, 5, 1e-12, 50]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")])
  equal(box([1e-9], d => {
    d.type(hold, "4n");
    leave(d);
  }), none);
