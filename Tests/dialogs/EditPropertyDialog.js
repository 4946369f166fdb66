// EditPropertyDialog: what it adds to a new property's dialog, which has the tests of the fields.

function box(args, act) {
  host.onDialog(act || (d => d.accept()));
  return host.call("EditPropertyDialog", ...args);
}
const none = { made: false, type: null, values: [] };
const made = (...values) => ({ made: true, type: "string", values });
const styles = ["Standard", "Small"];
const mark = 0x200; // the flags always leave with a font style

// By keyboard alone: the value first, its name is not for change.
equal(box(["VALUE", "64", "1k", "instance", "Standard", styles], d => {
  equal([d.name, d.title, d.focused()], ["EditPropertyDialog", "Edit Property", "valueEdit"]);
  equal([d.text("nameEdit"), d.enabled("nameEdit")], ["VALUE", false]);
  d.key(null, "Ctrl+A");
  d.key(null, "2");
  d.key(null, "Return");
  d.key(null, "3");
  d.key(null, "Alt+D");
  d.key(null, "Alt+S");
  d.key(null, "Tab");
  d.key(null, "Alt+O");
}), made(String(mark + 0x400 + 0x800), "2\n3", "Standard"));

for (const flags of [0, 0x1b, 0x15402, 0x1210a, 0x7e000024])
  equal(box(["VALUE", String(flags), "1k", "", "Small", styles]),
    made(String(flags & ~0x3800 | mark), "1k", "Small"), `flags ${flags}`);

// A property that its symbol keeps hidden.
for (const [flags, result] of [[1 << 22, 1 << 22 | 64], [1 << 22 | 0x440, 1 << 22 | 64], [1 << 22 | 0x400, 1 << 22 | 64]])
  equal(box(["VALUE", String(flags), "1k", "", "Small", styles], d => {
    check(d.checked("cbHidden") && !d.enabled("cbHidden"), "hidden for good");
    check(!d.enabled("cbSelectable") && !d.enabled("normalCombo"), "and what follows from it");
    d.accept();
  }).values[0], String(result | mark), `flags ${flags}`);
// The other two make nothing of that bit.
for (const name of ["AddPropertyDialog", "EditPinDialog"]) {
  host.onDialog(d => { check(!d.checked("cbHidden") && d.enabled("cbHidden"), name); d.reject(); });
  host.call(name, "VALUE", String(1 << 22));
}

// An instance cannot get round the protection of its symbol.
equal(box(["VALUE", "128", "1\n2", "instance", "", styles], d => {
  equal(d.focused(), "cancelButton", "what is left to press");
  check(!d.visible("okButton"), "no OK");
  d.key(null, "Alt+V");
  equal(d.focused(), "valueEdit", "to be read and copied");
  d.key(null, "9");
  equal(d.text("valueEdit"), "1\n2");
  d.key(null, "Tab");
  equal(d.focused(), "cancelButton", "past all that is disabled");
  d.key(null, "Return");
}), none);
box(["VALUE", "128", "1", "symbol"], d => {
  check(d.visible("okButton") && d.enabled("cbProtected"), "the symbol's own");
  d.reject();
});

for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  equal(box(["VALUE", "0", "1k"], d => { d.type("valueEdit", "2k"); leave(d); }), none);

for (const odd of ["", "a\r\nb", "x;y;z\n", "µ\u00a0電圧 😀", "x".repeat(1e6), new Array(1e5).fill("R1 1 0 1k").join("\n")])
  equal(box(["VALUE", "0", odd]).values[1], odd, `value ${odd.slice(0, 12)}`);
equal(box([[]]), made(String(mark + 0x3800), "", ""), "one empty argument");
equal(box([[], [], [], [], [], []]), made(String(mark + 0x3800), "", ""));
let refused = "";
try { EditPropertyDialog(); } catch (error) { refused = error.message; }
check(refused.includes("EditPropertyDialog"), refused);

box(["VALUE"], d => { d.press("Help"); d.reject(); });
equal(host.helpRequests().pop(), "2202", "Editing_properties");
