// EditPinDialog: a pin's name, where it stands, and the ends of an array.

function box(args, act) {
  host.onDialog(act || (d => d.accept()));
  return host.call("EditPinDialog", ...args);
}
const none = { made: false, type: null, values: [] };
const made = (...values) => ({ made: true, type: "string", values });
const styles = ["Standard", "Small"];
const mark = 0x300; // placed absolutely, and with a font style

// By keyboard alone: what is left of the form, top down.
equal(box(["D0", "10", ["false", "TRUE"], "instance", "Small", styles], d => {
  equal([d.name, d.title, d.has("QSizeGrip:0")], ["EditPinDialog", "Edit Pin", false]);
  equal([d.focused(), d.text("nameEdit"), d.text("justificationCombo")], ["nameEdit", "D0", "Right Baseline"]);
  check(!d.visible("valueEdit") && !d.visible("rbAuto") && !d.visible("helpButton"), "no property");
  check(d.visible("prefixLabel") && d.visible("suffixLabel") && d.visible("okButton"), "a pin");
  const visited = [];
  do {
    visited.push(d.focused());
    d.key(null, "Tab");
  } while (d.focused() !== "nameEdit" && visited.length < 20);
  equal(visited, ["nameEdit", "justificationCombo", "cbHidden", "cbVertical", "cbDefault", "fontStyleCombo",
    "cbPrefix", "cbSuffix", "okButton", "cancelButton"]);
  d.key(null, "Ctrl+A");
  d.key(null, "q");
  d.key(null, "Alt+J");
  d.key(null, "Up");
  d.key(null, "Alt+E");
  d.key(null, "Return");
}), made(String(mark + 9 + 0x4000), "q", "Small", "false", "true"));

// The least size, whatever is remembered.
host.config("WidgetDims", "EditPinDialog", "0 0 780 580");
box(["D0"], d => {
  const groups = ["textLocationGroupBox", "propertyAttributesGroupBox"];
  equal(d.get(groups[0], "geometry").height, Math.max(...groups.map(w => d.get(w, "minimumSizeHint").height)));
  d.reject();
});
equal(host.config("WidgetDims", "EditPinDialog"), "0 0 780 580", "nor is it remembered");

// Flags: always placed by the one list; what is not shown stays.
for (const [flags, result] of [
  [0, mark], [0x100, mark], [0x1a, mark + 0x1a], [0x1b, mark + 0x1a], [0x185c0, mark + 0x180c0],
  [0x18580, mark + 0x18480], [0x7e400024, mark + 0x7e400024], [-1, ~0x3801 & ~0x400],
])
  equal(box(["D0", String(flags), [], [], "Small", styles]).values[0], String(result), `flags ${flags}`);
equal(box(["D0", "0", [], "", "Small", styles], d => { d.set("cbHidden", true); d.accept(); }).values[0],
  String(mark + 64));
box(["D0", "64"], d => { check(!d.enabled("justificationCombo"), "hidden"); d.reject(); });

for (const [ticks, prefix, suffix] of [
  [["true", "true"], "true", "true"], [["True"], "true", "false"], [["1", "yes"], "false", "false"],
  [[], "false", "false"], [undefined, "false", "false"],
])
  equal(box(["D0", "0", ticks]).values.slice(3), [prefix, suffix], JSON.stringify(ticks));
equal(box(["D0"], d => { d.set("cbPrefix", true); d.accept(); }).values.slice(3), ["true", "false"]);

// A pin is of a symbol, whatever stands in argument 3.
box(["D0", "128", [], "instance"], d => { check(d.visible("okButton") && d.enabled("cbHidden"), "open"); d.reject(); });

for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  equal(box(["D0", "0"], d => { d.type("nameEdit", "D1"); leave(d); }), none);

for (const odd of ["", "a;b", "A\u0305 µ 😀", "x".repeat(1e6)])
  equal(box([odd]).values[1], odd, `name ${odd.slice(0, 12)}`);
const many = new Array(1e6).fill("true");
equal(box([many, many, many, many, many, many]), made(String(mark), "true", "true", "true", "true"));
let refused = "";
try { EditPinDialog(); } catch (error) { refused = error.message; }
check(refused.includes("EditPinDialog"), refused);
