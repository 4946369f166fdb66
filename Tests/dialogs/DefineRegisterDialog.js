// DefineRegisterDialog: setup time and clock delay tied to each other, both pages, ways out.

const families = include("../../Samples/data/logic_families.js");
const sheet = [0, 0, 5, 5e-12, 100]; // what the second page returns when no argument loads it
const gap = [0, 0, 0, 0, 0];
const none = { made: false, type: null, values: [] };
const setup = "setupTimeEdit", delay = "clockDelayEdit";

function box(device, act) {
  host.onDialog(act);
  return host.call("DefineRegisterDialog", device);
}
const n = value => Math.round(value * 1e12) / 1e3; // nanoseconds
const times = d => [n(d.value(setup)), n(d.value(delay))];

// --- loading ------------------------------------------------------------------------------------

for (const [device, result] of [
  [[16, 1, 12e-9, 15e-9], [16, 1, 12e-9, 15e-9]],
  [[16, 0, 12e-9, 12e-9], [16, 0, 12e-9, 12e-9]],
  // The form's own delay is no limit, as long as nobody has set it.
  [[], [8, 0, 5e-9, 0]],
  [[32, 1], [32, 1, 5e-9, 0]],
  // A setup time takes the delay along, and a delay the setup time that the form has.
  [[8, 0, 12e-9], [8, 0, 12e-9, 12e-9]],
  [[8, 0, 12e-9, 3e-9], [8, 0, 12e-9, 12e-9]],
  [[8, 0, 5e-9, 3e-9], [8, 0, 3e-9, 3e-9]],
  [[0, -1, -1, -1], [1, 1, 0, 0]],
  [[33, 0, Infinity, Infinity], [32, 0, 1e100, 1e100]],
  [[NaN, 0, NaN, NaN], [8, 0, 5e-9, 0]],
])
  equal(box(device, d => {
    equal([d.name, d.title], ["DefineRegisterDialog", "Define Register Dialog"]);
    d.accept();
  }).values, [...result, ...gap, ...sheet], `result of ${device}`);

// --- the coupling -------------------------------------------------------------------------------

box([8, 0, 5e-9, 10e-9], d => {
  for (const [edit, typed, left] of [
    [setup, "8n", [8, 10]],
    [setup, "20n", [10, 10]],
    [delay, "30n", [10, 30]],
    [setup, "20n", [20, 30]],
    [delay, "5n", [20, 20]],
    [delay, "many", [20, 20]],
    [delay, "", [20, 20]],
    [setup, "-1", [0, 20]],
    [delay, "0", [0, 0]],
    [setup, "1n", [0, 0]],
    // An expression may be anything.
    [delay, "{Tclk/2}", [0, 0]],
    [setup, "9n", [9, 0]],
    [delay, "7n", [9, 9]],
    [setup, "{Ts}", [0, 9]],
    [delay, "2n", [0, 2]],
  ]) {
    d.set(edit, typed);
    equal(times(d), left, `${edit} ${typed}`);
  }
  d.reject();
});

// The "3" on the way to "30n" moves neither field, whichever is being typed.
equal(box([8, 0, 5e-9, 10e-9], d => {
  const seen = [];
  d.key(null, "Alt+D");
  for (const key of ["3", "0", "n"]) {
    d.key(null, key);
    seen.push([d.text(delay), n(d.value(setup))]);
  }
  equal(seen, [["3", 5], ["30", 5], ["30n", 5]]);
  d.type(setup, "2");
  equal([d.text(setup), n(d.value(delay))], ["2", 30]);
  d.type(setup, "25n");
  d.key(null, "Return");
}).values.slice(2, 4), [25e-9, 30e-9]);

// Steps are held at once.
box([8, 0, 5e-9, 10e-9], d => {
  const seen = [];
  for (const [edit, key] of [[setup, "Up"], [setup, "Up"], [delay, "Down"], [delay, "Up"], [setup, "Up"], [setup, "Down"],
                             [delay, "Down"]]) {
    d.key(edit, key);
    seen.push(times(d));
  }
  equal(seen, [[10, 10], [10, 10], [10, 10], [10, 20], [20, 20], [10, 20], [10, 10]]);
  d.reject();
});

// --- by keyboard alone --------------------------------------------------------------------------

host.onDialog(d => {
  equal(d.focused(), "spinner5", "the user starts in the first field");
  for (const key of ["4", "Alt+E", "Alt+D", "9", "n", "Alt+S", "6", "n", "Ctrl+Tab"])
    d.key(null, key);
  equal(d.tab(), "Analog Interface");
  d.key("technologyCombo", "Down");
  d.key(null, "Shift+Tab");
  d.key(null, "Left");
  equal(d.tab(), "Digital");
  d.key(null, "Return");
});
equal(DefineRegisterDialog([8], [0, 2, 5, 1e-12, 50], families), [4, 1, 6e-9, 9e-9, ...gap, 4, 7, 5, 1e-12, 50]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel"), d => d.key(setup, "Escape")])
  equal(box([8], d => {
    d.type(setup, "4n");
    leave(d);
  }), none);

// --- what a script may hand in ------------------------------------------------------------------

equal(box(new Array(1e6).fill(3), d => d.accept()).values.slice(0, 4), [3, 1, 3, 3]);
let refused = "";
try { DefineRegisterDialog(); } catch (error) { refused = error.message; }
check(refused.includes("DefineRegisterDialog"), refused);
