// EditDigInitDialog: two choices, each a number by its place.

function box(args, act) {
  host.onDialog(act);
  return EditDigInitDialog(args);
}

for (const [given, result] of [
  [[0, 0], [0, 0]], [[1, 0], [1, 0]], [[0, 1], [0, 1]], [[1, 1, 7], [1, 1]], [[1], [1, 0]],
  [[], [0, 0]], [[2, -1], [0, 0]], [[NaN, Infinity], [0, 0]], [[0.5, 1e300], [0, 0]],
  [new Array(1e6).fill(1), [1, 1]],
])
  equal(box(given, d => d.accept()), result, `${given.slice(0, 3)}`);

box([1, 1], d => {
  check(d.checked("radioButton2") && d.checked("radioButton3"), "ONE and Strong");
  d.reject();
});
equal(box([1, 1], d => { d.click("radioButton1"); d.click("radioButton4"); d.press("OK"); }), [0, 0]);

// By keyboard alone.
equal(box([1, 0], d => {
  equal(d.focused(), "radioButton2", "the user starts at what is chosen");
  d.key(null, "Up");
  d.key(null, "Tab");
  d.key(null, "Down");
  d.key(null, "Return");
}), [0, 1]);
equal(box([0, 0], d => {
  d.key(null, "Alt+S");
  d.key(null, "Down");
  d.key(null, "Alt+I");
  d.key(null, "Down");
  d.key(null, "Return");
}), [1, 1]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")]) {
  host.onDialog(d => { d.click("radioButton2"); leave(d); });
  equal(host.call("EditDigInitDialog", [0, 0]), { made: false, type: null, values: [] });
}
