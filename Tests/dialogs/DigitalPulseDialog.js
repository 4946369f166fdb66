// DigitalPulseDialog: three times, and the page of the pulse's analog interface.

const families = include("../../Samples/data/logic_families.js");

function box(args, act) {
  host.onDialog(act);
  return DigitalPulseDialog(...args);
}
const rest = [0, 0, 0, 0, 0, 0];
const silent = [0, 0, 5, 5e-12, 100];

// By keyboard alone, on both pages.
equal(box([[1e-6, 200e-9, 0], [4, 7, 5, 3e-12, 60], families], d => {
  equal(d.focused(), "periodEdit");
  for (const key of "0")
    d.key(null, key);
  d.key(null, "Tab");
  d.key(null, "Up");
  d.key(null, "Tab");
  for (const key of "10n")
    d.key(null, key);
  d.key(null, "Ctrl+Tab");
  equal(d.tab(), "Analog Interface");
  check(d.visible("inputCombo") && d.visible("outputCombo"), "both sides");
  d.key("technologyCombo", "Home");
  d.key(null, "Return");
}), [0, 500e-9, 10e-9, ...rest, 0, 2, 5, 3e-12, 60]);

// No time is negative, whoever enters it; an expression has no value here.
equal(box([[1e-6, 0, 0], [], []], d => {
  for (const edit of ["periodEdit", "widthEdit", "startDelayEdit"])
    d.set(edit, "-1u");
  d.accept();
}), [0, 0, 0, ...rest, ...silent]);
equal(box([[-1, 2, 3], [], []], d => { d.set("widthEdit", "{tw}"); d.accept(); }),
  [0, 0, 3, ...rest, ...silent]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")]) {
  host.onDialog(d => { d.set("widthEdit", 5); leave(d); });
  equal(host.call("DigitalPulseDialog", [1, 2, 3], [], []), { made: false, type: null, values: [] });
}

// What a script may hand in.
equal(box([[], [], []], d => d.accept()), [0, 0, 0, ...rest, ...silent]);
equal(box([[NaN, Infinity, 1e300], [NaN, -Infinity, NaN], [";;;;;;;;", "\uFFFD", "x;y\nz"]],
  d => d.accept()).length, 14);
equal(box([new Array(1e6).fill(1), new Array(1e6).fill(0), families], d => d.accept()).slice(0, 3),
  [1, 1, 1]);
