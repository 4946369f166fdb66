// DefineRipperDialog: styles by index and by name, the limits of the indexes, ways out.

const styles = ["Straight", "Angled left", "Angled right"];
const twelve = name => Array.from({ length: 12 }, (_, i) => (i === 10 ? name : `Style ${i}`));
const none = { made: false, type: null, values: [] };

function box(ripper, names, act) {
  host.onDialog(act);
  return host.call("DefineRipperDialog", ripper, names);
}

// --- loading, and what the style comes back as --------------------------------------------------

for (const [ripper, names, shown, result] of [
  [["ADDR", "8", "15", "2"], styles, "Angled right", "2"],
  [["ADDR", "8", "15", " 1x"], styles, "Angled left", "1"],
  // No index of a style: the first one stands.
  [["ADDR", "8", "15", "3"], styles, "Straight", "0"],
  [["ADDR", "8", "15", "-1"], styles, "Straight", "0"],
  [["ADDR", "8", "15", "99999999999999999999"], styles, "Straight", "0"],
  [["ADDR", "8", "15", "Angled left"], styles, "Straight", "0"],
  [["ADDR", "8", "15"], styles, "Straight", "0"],
  // An index is written over the name that it is shorter than; any other name stands.
  [["ADDR", "8", "15", "1"], ["A", "B"], "B", "B"],
  [["ADDR", "8", "15", "1"], ["A", "BC"], "BC", "1"],
  [["ADDR", "8", "15", "0"], ["é"], "é", "0"],
  [["ADDR", "8", "15", "10"], twelve("K"), "K", "K"],
  [["ADDR", "8", "15", "10"], twelve("KL"), "KL", "KL"],
  [["ADDR", "8", "15", "10"], twelve("KLM"), "KLM", "10"],
  [["ADDR", "8", "15", "0"], [""], "", ""],
  [["ADDR", "8", "15", "0"], [], "", ""],
])
  equal(box(ripper, names, d => {
    equal([d.name, d.title, d.text("styleCombo")], ["DefineRipperDialog", "Define Bus Ripper", shown]);
    equal(d.items("styleCombo"), names);
    d.accept();
  }), { made: true, type: "string", values: ["ADDR", "8", "15", result] }, `${ripper} of ${names}`);

for (const [ripper, result] of [
  [[], ["", "0", "3"]],
  [["D"], ["D", "0", "3"]],
  [["a;b", "-1", "10001"], ["a;b", "0", "10000"]],
  [["&<b>", "010", "9"], ["&<b>", "010", "9"]],
  [["", "{LSB}", "{LSB+7}"], ["", "{LSB}", "{LSB+7}"]],
])
  equal(box(ripper, styles, d => d.accept()).values, [...result, "0"], `result of ${ripper}`);

// --- by keyboard alone --------------------------------------------------------------------------

equal(box(["ADDR", "0", "3", "0"], styles, d => {
  equal(d.focused(), "editBox2");
  for (const key of ["D", "Alt+S", "4", "Tab", "7", "Up", "Tab", "Down", "Down"])
    d.key(null, key);
  equal(d.focused(), "styleCombo");
  d.key(null, "Return");
}).values, ["d", "4", "8", "2"]);

equal(box([], twelve("K"), d => {
  d.set("spinner4", "20000");
  d.set("spinner5", "-4");
  d.set("styleCombo", "K");
  d.accept();
}).values, ["", "10000", "0", "K"]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel"), d => d.key("editBox2", "Escape")])
  equal(box(["ADDR", "0", "3", "0"], styles, d => {
    d.type("editBox2", "D");
    leave(d);
  }), none);

box([], styles, d => {
  d.press("Help");
  d.reject();
});
equal(host.helpRequests().pop(), "2401", "Schematic_busses");

// --- what a script may hand in ------------------------------------------------------------------

const million = 1e6;
equal(box(new Array(million).fill("9"), new Array(million).fill("Straight"), d => {
  d.key("styleCombo", "End");
  d.accept();
}).values, ["9", "9", "9", "999999"]);
const long = "x".repeat(1e5);
equal(box([long, long, long, long], [`a\nb;${long}`, "\ud800"], d => d.accept()).values[3], "0");
let refused = "";
try { DefineRipperDialog(["ADDR"]); } catch (error) { refused = error.message; }
check(refused.includes("DefineRipperDialog"), refused);
