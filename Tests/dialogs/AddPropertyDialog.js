// AddPropertyDialog: a new property, and what the dialogs that change one have from it.

function box(args, act) {
  host.onDialog(act || (d => d.accept()));
  return host.call("AddPropertyDialog", ...args);
}
const none = { made: false, type: null, values: [] };
const made = (...values) => ({ made: true, type: "string", values });
const styles = ["Standard", "caption", "Small", "Caption"]; // sorted: Caption, Small, Standard, caption
const flagsOf = (flags, act) => Number(box(["R", String(flags), "1k", "", "Small", styles], d => {
  if (act)
    act(d);
  d.accept();
}).values[1]);
const small = 0x200 + 0x800; // what the font style Small leaves in the flags

const hidden = 1 << 6, guarded = 1 << 7, absolute = 1 << 8, selectable = 1 << 10, vertical = 1 << 14,
  showName = 1 << 15, symbolic = 1 << 16;

// Tab stops at the checked one of two buttons, whichever that is, and at no other.
for (const [flags, button] of [["0", "rbAuto"], ["256", "rbAbsolute"]])
  box(["n", flags, "v"], d => {
    d.key("valueEdit", "Tab");
    equal(d.focused(), button);
    d.key(null, "Tab");
    check(!/^rb/.test(d.focused()), d.focused());
    d.click(button === "rbAuto" ? "rbAbsolute" : "rbAuto");
    d.key("valueEdit", "Tab");
    check(d.checked(d.focused()), d.focused());
    d.reject();
  });

// By keyboard alone, from nothing.
equal(box([], d => {
  equal([d.name, d.title, d.modal], ["AddPropertyDialog", "Add Property", true]);
  equal([d.focused(), d.text("nameEdit"), d.text("valueEdit")], ["nameEdit", "", ""]);
  check(d.checked("cbDefault") && !d.enabled("fontStyleCombo"), "the default style");
  check(d.visible("QSizeGrip:0"), "size grip");
  for (const w of ["cbPrefix", "prefixLabel", "cbSuffix", "suffixLabel", "protectedLabel"])
    check(!d.visible(w), `${w} is for pins, or for the protected`);
  d.key(null, "v");
  d.key(null, "Tab");
  equal(d.focused(), "valueEdit");
  d.key(null, "1");
  d.key(null, "Return");
  d.key(null, "2");
  d.key(null, "Tab");
  equal(d.focused(), "rbAuto", "Tab is no part of a value");
  d.key(null, "Alt+D"); // Hidden
  d.key(null, "Alt+P"); // Protected
  d.key(null, "Alt+W"); // Show name
  d.key(null, "Alt+O");
}), made("v", String(0x200 + 0x3800 + hidden + guarded + showName), "1\n2", ""));

// --- flags --------------------------------------------------------------------------------------

// Untouched: every bit that has a place here stays, and so do those that have none.
for (const [flags, result] of [
  [0, small],
  [0x1b, small + 0x1b],                                   // right, bottom
  [guarded + selectable + vertical + showName + symbolic, small + 0x1c480],
  [hidden + selectable, small + hidden],                  // nobody can click on what is hidden
  [absolute + 0x0a, small + absolute + 0x0a],
  [absolute + 0x03, small + absolute + 0x08],             // a fourth code counts on into the next row
  [absolute + 0x1b, small + absolute + 0x1a],             // beyond the list: its last item
  [0x3800, small],                                        // the style goes by its name
  [-1, ~0x3800 & ~selectable & ~0x1 | small],
  [0x7e7e0024, 0x7e7e0024 | small],                       // 0x24: bits 2 and 5 are somebody else's
])
  equal(flagsOf(flags), result, `flags ${flags}`);
equal(box(["R", "4294967173", "1k"]).values[1], box(["R", "-123", "1k"]).values[1], "the low bits count");
equal(box(["R", " 12x", "1k"]).values[1], String(12 + 0x200 + 0x3800), "the number that a text begins with");

box(["R", "0", "1k"], d => {
  equal(d.get("cbHidden", "accessibleDescription"), d.text("textLabel7").replace(/\s+/g, " ").trim(), "heard with its box");
  d.reject();
});

// Each control has its own bits.
for (const [control, value, result] of [
  ["normalCombo", "Right", 2],
  ["rotatedCombo", "Bottom", 3 << 3],
  ["cbHidden", true, hidden],
  ["cbProtected", true, guarded],
  ["rbAbsolute", true, absolute],
  ["cbSelectable", true, selectable],
  ["cbShowName", true, showName],
  ["cbResolveSymbolic", true, symbolic],
])
  equal(flagsOf(0, d => d.set(control, value)), small + result, control);
equal(flagsOf(absolute, d => d.set("cbVertical", true)), small + absolute + vertical);
equal(flagsOf(absolute + 0x1a, d => d.set("justificationCombo", "Centre Baseline")),
      small + absolute + 0x9);
equal(flagsOf(absolute + 0x0a, d => d.set("rbAuto", true)), small, "back to the form's own places");
equal(flagsOf(absolute, d => equal(d.items("justificationCombo").slice(0, 6),
  ["Left Top", "Centre Top", "Right Top", "Left Baseline", "Centre Baseline", "Right Baseline"])),
  small + absolute);

// --- what is enabled ----------------------------------------------------------------------------

const watched = ["rbAuto", "rbAbsolute", "normalCombo", "rotatedCombo", "justificationCombo", "cbVertical",
  "verticalLabel", "cbSelectable"];
const enabledIn = d => watched.filter(w => d.enabled(w)).join(" ");
const auto = "rbAuto rbAbsolute normalCombo rotatedCombo cbSelectable";
const free = "rbAuto rbAbsolute justificationCombo cbVertical verticalLabel cbSelectable";
box(["R", "0"], d => {
  for (const [control, value, expected] of [
    [null, null, auto],
    ["cbSelectable", true, auto],
    ["rbAbsolute", true, free],
    ["cbHidden", true, "cbVertical verticalLabel"],
    ["cbHidden", false, free],
    ["rbAuto", true, auto],
    ["cbHidden", true, ""],
    ["cbHidden", false, auto],
  ]) {
    if (control)
      d.set(control, value);
    equal(enabledIn(d), expected, `${control} ${value}`);
  }
  check(!d.checked("cbSelectable"), "hiding took the tick away for good");
  d.reject();
});
for (const [flags, expected] of [[hidden, ""], [hidden + absolute, "cbVertical verticalLabel"], [absolute, free]])
  box(["R", String(flags)], d => { equal(enabledIn(d), expected, `opened with ${flags}`); d.reject(); });

// --- font styles --------------------------------------------------------------------------------

for (const [style, shown, bits, result] of [
  ["Small", "Small", 1, "Small"],
  ["caption", "caption", 3, "caption"],
  ["", "Caption", 0, ""],
  ["SMALL", "", 7, ""], // not on offer: no style, and no index
])
  equal(box(["R", "0", "1k", "", style, styles], d => {
    equal(d.items("fontStyleCombo"), ["Caption", "Small", "Standard", "caption"]);
    equal([d.text("fontStyleCombo"), d.checked("cbDefault"), d.enabled("fontStyleCombo")],
      [shown, style === "", style !== ""], style);
    if (shown)
      equal(d.get("fontStyleCombo", "currentData"), shown);
    d.accept();
  }), made("R", String(0x200 + (bits << 11)), "1k", result), `style ${style}`);
equal(box(["R", "0", "1k", "", "", styles], d => {
  d.set("cbDefault", false);
  d.set("fontStyleCombo", "Standard");
  d.accept();
}), made("R", String(0x200 + (2 << 11)), "1k", "Standard"));
equal(box(["R", "0", "1k", "", "Small", styles], d => { d.set("cbDefault", true); d.accept(); }).values[3], "");

// --- instances ----------------------------------------------------------------------------------

box(["R", "0", "1k", "Instance"], d => {
  check(!d.enabled("cbProtected") && d.enabled("cbShowName") && d.visible("okButton"), "not protected");
  d.reject();
});
box(["R", "128", "1k", "symbol"], d => { check(d.enabled("cbProtected"), "its own symbol"); d.reject(); });
equal(box(["R", "128", "1k", "INSTANCE"], d => {
  check(!d.visible("okButton") && d.visible("protectedLabel"), "nothing to take");
  check(!d.enabled("textLocationGroupBox") && !d.enabled("propertyAttributesGroupBox"), "groups");
  check(d.get("valueEdit", "readOnly") && d.get("nameEdit", "readOnly"), "fields");
  equal(d.text("cancelButton"), "Close");
  d.key(null, "Return");
}), none, "a protected property can only be closed");

// --- texts, cancel, what a script may hand in -----------------------------------------------------

for (const odd of ["", " \t", "a\r\nb\u00a0c\u2028d", "{1;2}\n\n", "µΩ – 電圧 😀", "x".repeat(1e6)])
  equal(box([odd, "0", odd]), made(odd, String(0x200 + 0x3800), odd, ""), `text ${odd.slice(0, 12)}`);
equal(box(["old", "0", "old\r\nvalue"], d => {
  d.type("nameEdit", "new");
  d.type("valueEdit", "other\nvalue");
  d.accept();
}), made("new", String(0x200 + 0x3800), "other\nvalue", ""));

for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  equal(box(["R", "0", "1k"], d => { d.type("nameEdit", "C"); d.set("cbHidden", true); leave(d); }), none);

const many = new Array(1e6).fill("").map((_, i) => `Style ${i * 7919 % 1e6}`);
equal(box([many, many, many, many, many, many], d => {
  equal([d.text("nameEdit"), d.text("fontStyleCombo")], ["Style 0", "Style 0"], "first elements");
  equal(d.items("fontStyleCombo")[1], "Style 1");
  d.accept();
}).values[3], "Style 0");
equal(box([[], [], [], [], [], []]), made("", String(0x200 + 0x3800), "", ""));

box(["R"], d => { d.press("Help"); d.reject(); });
equal(host.helpRequests().pop(), "2201", "Defining_properties");
