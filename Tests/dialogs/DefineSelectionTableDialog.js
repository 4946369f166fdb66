// DefineSelectionTableDialog: what the table shows, what a check does, and which rows come back.

const table = "tableWidget";
const reals = (...values) => ({ made: true, type: "real", values });
const lines = ["Name;Note", "a;x\\ny;z", "b", "c;;"];

function box(act, settings = ["L", "T"], words = [], rows = lines) {
  host.onDialog(act);
  return host.call("DefineSelectionTableDialog", rows, settings, words);
}
const checked = d => d.table(table).map((_, row) => d.cellInfo(table, row, 0).checked ? 1 : 0).join("");

equal(box(d => {
  equal([d.title, d.text("tableLabel"), d.visible("helpButton")], ["T", "L", false]);
  check(/^DefineSelectionTableDialog_\d+$/.test(d.name), d.name);
  equal(d.headers(table), ["", "Name", "Note", ""]);
  equal(d.table(table), [["", "a", "x\ny", "z"], ["", "b", "", ""], ["", "c", "", ""]]);
  for (const column of [1, 2, 3])
    check(!d.cellInfo(table, 0, column).editable && !d.cellInfo(table, 0, column).checkable);
  d.accept();
}), reals(), "nothing checked is a result of length 0");

// Rows by mouse and by keys, and how they look.
equal(box(d => {
  equal([d.cellInfo(table, 0, 1).kind, d.cellInfo(table, 0, 1).foreground], ["NoEdit_NoHighlight_Item", "#000000"]);
  d.cell(table, 0, 0, true);
  d.cell(table, 2, 0, true);
  equal([1, 2, 3].map(column => d.cellInfo(table, 2, column).kind), new Array(3).fill("NoEdit_Highlight_Item"));
  equal([d.cellInfo(table, 0, 1).foreground, d.cell(table, 0, 2)], ["#ff0000", "x\ny"]);
  d.cell(table, 0, 0, false);
  equal(d.cellInfo(table, 0, 1).kind, "NoEdit_NoHighlight_Item");
  d.accept();
}, ["L"], ["highlight-red"]), reals(2));
equal(box(d => {
  d.current(table, 1, 2);
  d.key(table, "Space");
  d.key(table, "Down");
  d.key(table, "Space");
  equal(d.cellInfo(table, 1, 1).kind, "NoEdit_Highlight_Item");
  d.key(table, "Up");
  d.key(table, "Space");
  d.key(table, "Return");
}), reals(2), "by keys");
equal(box(d => { d.key(table, "Ctrl+A"); d.key(table, "Space"); d.accept(); }), reals(0, 1, 2), "all at once");

// Option words.
equal(box(d => {
  equal([d.rows(table), d.cell(table, 0, 1)], [4, "Name"]);
  d.cell(table, 0, 0, true);
  equal(d.cellInfo(table, 0, 1).foreground, "#000000", "no colour is the default");
  d.accept();
}, ["L"], ["NOHEADER", "noRowNumbers"]), reals(0));
equal(box(d => {
  equal(d.current(table), [0, 1]);
  for (const row of [0, 2, 1]) {
    d.cell(table, row, 0, true);
    equal([checked(d), d.current(table)], [["100", "010", "001"][row], [row, 1]]);
  }
  equal(d.cellInfo(table, 2, 1).kind, "NoEdit_NoHighlight_Item", "what is unchecked is not highlighted");
  d.key(table, "Ctrl+A");
  d.key(table, "Space");
  equal(checked(d), "000");
  d.key(table, "Space");
  d.accept();
}, ["L"], ["exclusive"]), reals(1));

// A table is known by its label, and one without by its lines.
const name = (...args) => { let found; box(d => { found = d.name; d.reject(); }, ...args); return found; };
equal(name(["A"]), name(["A", "other title"], ["exclusive"], ["x"]));
check(name(["A"]) !== name(["B"]));
check(name([]) !== name([], [], ["x"]) && name([]) === name([], ["noHeader"]));

// Help by number, and what scripts may hand in.
host.onDialog(d => { check(d.visible("helpButton")); d.press("Help"); d.reject(); });
DefineSelectionTableDialog(lines, ["L", "T", "2201"]);
equal(host.helpRequests().pop(), "2201");
for (const rows of [[], [""], [";"], ["a".repeat(1e6) + "\\n".repeat(1e5)], ["x;y", ";".repeat(1e6)]])
  for (const words of [["exclusive"], ["noHeader", "exclusive", "highlight-no-such-colour"]])
    box(d => { d.key(table, "Space"); d.accept(); }, [], words, rows);
