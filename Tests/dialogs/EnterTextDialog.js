// EnterTextDialog: several lines in, several lines out.

function box(arg, act) {
  host.onDialog(act);
  return host.call("EnterTextDialog", arg);
}
const none = { made: false, type: null, values: [] };
const text = value => ({ made: true, type: "string", values: [value] });

// By keyboard alone: Return is a new line, Tab leads to OK.
equal(box(["second", "Notes & more"], d => {
  equal([d.name, d.title, d.modal], ["EnterTextDialog", "Enter Text", true]);
  equal([d.focused(), d.text("editBox"), d.text("label")], ["editBox", "second", "Notes & more"]);
  equal(d.get("editBox", "accessibleName"), "Notes & more");
  d.key(null, "Ctrl+Home");
  d.key(null, "1");
  d.key(null, "Return");
  d.key(null, "Tab");
  equal(d.focused(), "okButton");
  d.key(null, "Return");
}), text("1\nsecond"));

for (const [caption, name] of [["<b>Notes</b> &amp; more", "Notes & more"], ["<b></b>", "Enter Text"]])
  box(["", caption], d => {
    equal(d.get("editBox", "accessibleName"), name, "read without its tags");
    d.reject();
  });

for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  equal(box(["old"], d => { d.type("editBox", "new"); leave(d); }), none);

// Texts that nobody touched.
const lines = new Array(100000).fill("R1 in out 4.7k").join("\n");
for (const odd of ["", "\n", "a\n\nb\n", " \tblanks ", "<b>x</b>", "µΩ – 電圧 😀", "a\r\nb\rc", "a\u2028b\u2029\u00a0c", "x".repeat(1000000), lines])
  equal(box([odd], d => {
    check(!d.visible("label"), "no caption, no gap");
    equal(d.get("editBox", "accessibleName"), "Enter Text");
    d.accept();
  }), text(odd), `text ${odd.slice(0, 20)}`);
equal(box(["a\r\nb"], d => { d.key("editBox", "x"); d.key("editBox", "Ctrl+Z"); d.accept(); }), text("a\r\nb"));
equal(box(["a\r\nb"], d => { d.key("editBox", "x"); d.accept(); }), text("xa\nb"));
equal(box([], d => d.accept()), text(""), "no element");
equal(box(new Array(1000000).fill("many"), d => d.accept()), text("many"), "the first two count");

let refused = "";
try { EnterTextDialog(); } catch (error) { refused = error.message; }
check(refused.includes("EnterTextDialog"), refused);

// What is no value leaves the field alone.
for (const value of [{}, Symbol("x"), () => 1]) {
  let told = "";
  host.onDialog(d => {
    try { d.set("editBox", value); } catch (error) { told = error.message; }
    equal(d.text("editBox"), "as it was");
    d.reject();
  });
  EnterTextDialog(["as it was"]);
  check(told.includes("must be a text"), told);
}
