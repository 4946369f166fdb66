// EditObjectPropertiesDialog: rows of every type, each with its editor.

function box(args, act) {
  host.onDialog(act || (d => d.accept()));
  return host.call("EditObjectPropertiesDialog", ...args);
}
const texts = values => ({ made: true, type: "string", values });
const none = { made: false, type: null, values: [] };
const list = "itemsListView";
const shown = d => d.table(list).map(row => row[1]);

/// Opens one row, has `edit` act in its editor, accepts; the row's result.
function edited(value, type, edit, ...more) {
  const result = box([["N"], [value], [type], ...more], d => {
    host.onDialog(edit);
    d.doubleClick(list, 0, 1);
    d.accept();
  });
  return result.values[0];
}

// --- what is shown, and what goes back untouched ------------------------------------------------

box([["A", "B", "C", "D"], ["1;2", "1;2;3", "x\n\ny", "C:\\new"], ["SchemProperty", "symbolproperty"]], d => {
  equal(d.table(list), [["A", "1"], ["B", "1;2"], ["C", "x\\n\\ny"], ["D", "C:\\new"]]);
  equal([d.title, d.tabs(), d.headers(list)], ["Edit Properties", ["Properties"], ["Name", "Value"]]);
  equal([d.focused(), d.current(list)], [list, 0], "the user starts in the first row");
  check(!d.visible("addPropertyButton") && !d.visible("helpButton"), "nothing that was not asked for");
  d.reject();
});

// Of a schematic's property, what stands behind the last semicolon is a number.
for (const [value, flagged] of [[""], ["10k"], ["10k;256"], ["a;b;c;-3"], [";", ";0"], [";;", ";;0"], ["10k;", "10k;0"],
                                ["10k;junk", "10k;0"], ["a; 12x", "a;12"], ["C:\\new"], ["x\ny;7"], ["a\r\nb"], ["é;1"]])
  for (const type of ["", "string", "SchemProperty", "SYMBOLPROPERTY", "Font", "Colour", "a|b", "*"])
    equal(box([["N"], [value], [type]]), texts([/prop/i.test(type) ? flagged || value : value]), `${value} of type ${type}`);

equal(box([["A", "B", "C"], ["1", "2"], []]), texts(["1", "2"]), "as many rows as both have");
equal(box([["A"], ["1", "2"], ["", "", ""]]), texts(["1"]));
equal(box([[], ["1"]]), texts([]), "no row, yet a result");
equal(box([["A", "B"], ["1;5", "2"], ["SchemProperty", ""], [], ["x;y"]]), texts(["1;5;x;y", "2;"]), "extra texts");
equal(box([["A"], ["1"], [], [], [], ["Small"]]), texts(["1;"]), "passed, though empty");

for (const [settings, visible] of [[["", "", "", "", "add"], true], [["a", "a", "a", "a", ""], false], [["a"], false]])
  box([["A"], ["1"], [], settings], d => {
    equal([d.visible("addPropertyButton"), d.visible("helpButton")], [visible, false]);
    d.reject();
  });

// --- editors ------------------------------------------------------------------------------------

// Texts
equal(edited("10k", "STRING", d => {
  equal([d.text("label"), d.text("edit")], ["Enter new property value", "10k"]);
  d.type("edit", "22k");
  d.key("edit", "Return");
}), "22k");
equal(edited("a\nb", "", d => { equal(d.text("edit"), "a\\nb"); d.type("edit", "a\\nb\\nc"); d.accept(); }), "a\nb\nc");
equal(edited("C:\\new", "", d => d.accept()), "C:\\new", "a \\n that is no line break stays none");

// Fonts: the colour is 0 whatever it was.
equal(edited("9;1;0;0;0;255;DejaVu Sans", "font", d => {
  d.pick({ family: "DejaVu Sans Mono", pointSize: 20, underline: true });
  d.accept();
}), "20;1;0;1;0;0;DejaVu Sans Mono");
equal(edited("9;1;0;0;0;255;DejaVu Sans", "Font", d => d.accept()), "9;1;0;0;0;0;DejaVu Sans");
check(/^\d+;0;0;0;0;0;.+/.test(edited("Standard", "Font", d => d.accept())), "a font by its name");

// Colours: red in the low byte.
equal(edited("255", "Colour", d => { d.pick("#010203"); d.accept(); }), String(1 + 2 * 256 + 3 * 65536));
for (const value of ["255", "65280", "16711680", "0", "16777215"])
  equal(edited(value, "colour", d => d.accept()), value, "the chooser starts at the colour");

// Lists of values
equal(edited("On", "Off|On|Auto & more", d => {
  equal(d.title, "Select Value");
  equal([0, 1, 2].map(i => d.checked(`RadioButton${i}`)), [false, true, false]);
  equal(d.text("RadioButton2"), "Auto && more", "an ampersand is seen");
  check(!d.has("RadioButton3"), "three values, three choices");
  d.key(null, "Down");
  d.key(null, "Return");
}), "Auto & more");
equal(edited("else", "Off|On", d => { check(!d.checked("RadioButton0")); d.accept(); }), "else", "none chosen");
equal(edited("auto", "Off|Auto", d => { check(d.checked("RadioButton1")); d.reject(); }), "auto");
equal(box([["Label"], ["x"], ["Label"]], d => {
  host.onDialog(e => { e.click("RadioButton0"); e.accept(); });
  d.doubleClick(list, 0, 0);
  equal(shown(d), ["Label"], "shown at once");
  d.accept();
}), texts(["Label"]), "a list of one");

// Schematic and symbol properties
const styles = ["Small", "Large", "Notes"];
for (const type of ["SchemProperty", "symbolproperty"]) {
  equal(edited("10k;x;1280", type, d => {
    equal([d.name, d.text("nameEdit"), d.text("valueEdit")], ["EditPropertyDialog", "N", "10k;x"]);
    check(d.checked("rbAbsolute") && d.checked("cbSelectable") === true, "the row's attributes");
    equal(d.items("fontStyleCombo"), [...styles].sort());
    d.type("valueEdit", "22k;x");
    d.click("cbProtected");
    d.press("Ok");
  }, [], ["extra"], styles), `22k;x;${1280 + 128};extra`, type);
}
// What the user does not touch keeps its bits, even those that the box cannot show.
for (const [value, act, result] of [
  ["10k", () => 0, "10k"],
  ["10k", d => d.click("cbProtected"), "10k;128"],
  ["10k;9216", () => 0, "10k;9216"],
  ["10k;9216", d => d.click("cbProtected"), "10k;9344"],
  ["10k;9216", d => { d.click("cbDefault"); d.set("fontStyleCombo", "Notes"); }, `10k;${1024 + 512 + 2048}`],
  ["10k;9216", d => { d.click("cbDefault"); d.set("fontStyleCombo", "Large"); }, `10k;${1024 + 512}`],
  ["10k;1088", () => 0, "10k;1088"], // hidden, and yet selectable
  [`10k;${256 + 3}`, () => 0, `10k;${256 + 3}`],
  [`10k;${256 + 3}`, d => d.click("rbAuto"), "10k;0"],
])
  equal(edited(value, "SchemProperty", d => { act(d); d.press("Ok"); }, [], ["e"], styles), `${result};e`, value);

// Read-only
equal(edited("4711", "*", d => {
  equal([d.message().title, d.message().text, d.message().icon],
        ["Read Only", "That property is read only and may not be edited", "warning"]);
  d.accept();
}), "4711");

// Cancel in each editor, after a change where one can be made, leaves the row as it was.
const changes = [
  ["10k\n2", "", d => d.type("edit", "22k")],
  ["9;1;0;0;0;255;DejaVu Sans", "Font", d => d.pick({ pointSize: 30 })],
  ["255", "Colour", d => d.pick("#010203")],
  ["On", "Off|On", d => d.click("RadioButton0")],
  ["10k;;1", "SchemProperty", d => { d.type("valueEdit", "22k"); d.click("cbProtected"); }],
];
for (const [value, type, change] of changes)
  for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
    equal(edited(value, type, d => { change(d); leave(d); }), value, `cancelled: ${type}`);

// --- by keyboard alone --------------------------------------------------------------------------

for (const key of ["Return", "F2", "Enter"])
  equal(box([["A", "B"], ["1", "2"]], d => {
    d.key(null, "Down");
    host.onDialog(e => { e.type("edit", `3 ${key}`); e.key(null, "Return"); });
    d.key(null, key);
    check(d.isOpen, `${key} is for the row`);
    equal([d.focused(), shown(d)], [list, ["1", `3 ${key}`]]);
    d.key(null, "Alt+O");
  }), texts(["1", `3 ${key}`]));
for (const key of ["Ctrl+Return", "Ctrl+Enter"])
  equal(box([["A"], ["1"]], d => d.key(null, key)), texts(["1"]), key);
equal(box([[], []], d => { d.key(null, "F2"); d.key(null, "Return"); }), texts([]), "no row that Return is for");
equal(box([["A"], ["1"]], d => { d.key(null, "Tab"); equal(d.focused(), "okButton"); d.key(null, "Return"); }), texts(["1"]));

for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  equal(box([["A"], ["1"]], d => {
    host.onDialog(e => { e.type("edit", "2"); e.accept(); });
    d.doubleClick(list, 0, 0);
    equal(shown(d), ["2"]);
    leave(d);
  }), none);

// --- a property more ----------------------------------------------------------------------------

const adding = [["A"], ["1;7"], ["SchemProperty"], ["", "", "", "", "add"]];
equal(box(adding, d => {
  host.onDialog(e => {
    equal(e.name, "AddPropertyDialog");
    e.type("valueEdit", "x\ny");
    e.press("Ok");
  });
  host.onDialog(e => { check(e.message().text.includes("name"), "none without a name"); e.accept(); });
  host.onDialog(e => {
    equal(e.text("valueEdit"), "x\ny", "what was typed is still there");
    e.type("nameEdit", "TOL");
    e.press("Ok");
  });
  d.press("Add Property...");
  equal([d.table(list), d.current(list), d.focused()], [[["A", "1"], ["TOL", "x\\ny"]], 1, list]);
  host.onDialog(e => { equal(e.text("valueEdit"), "x\ny"); e.type("valueEdit", "5%"); e.press("Ok"); });
  d.key(null, "Return");
  d.press("Ok");
}).values.map(t => t.replace(/;\d+$/, "")), ["1", "TOL;5%"]);
equal(box(adding, d => {
  host.onDialog(e => { e.type("nameEdit", "TOL"); e.reject(); });
  d.click("addPropertyButton");
  d.accept();
}), texts(["1;7"]));

// --- what a script may hand in ------------------------------------------------------------------

const many = 100000;
const numbers = Array.from({ length: many }, (_, i) => `${i};1`);
equal(box([numbers, numbers, new Array(many).fill("SchemProperty")], d => {
  d.key(null, "End");
  equal(d.current(list), many - 1);
  d.accept();
}).values, numbers);

const million = new Array(1e6).fill("x");
equal(box([million, ["1"], million, million, million, million]), texts(["1;x"]));
const long = "x\n".repeat(5e5);
equal(box([[long, "B"], [long, long], ["", "SchemProperty"]], d => {
  d.accept();
}), texts([long, long]));
equal(edited("x", "a|".repeat(1e6), d => { check(d.message().text.includes("1000001")); d.accept(); }), "x");
