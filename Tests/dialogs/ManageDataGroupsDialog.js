// ManageDataGroupsDialog: what is shown, what each button does to which rows, and what comes back.

const list = "manageGroupsListWidget";
const buttons = ["setCurrentGroupButton", "deleteGroupButton", "keepGroupButton", "deleteAllGroupsButton", "editTitleButton"];
const none = { made: false, type: null, values: [] };
const texts = values => ({ made: true, type: "string", values });
const lines = ["global;All runs;;GLOBAL", "tran1;Start-up;Transient;keep", "tran2;;Transient;current", "ac1;Loop;AC;Keep|x", "ac2"];
const untouched = ["global;All runs;global", "tran1;Start-up;keep", "tran2;;current", "ac1;Loop;keep", "ac2;;"];

function box(groups, act) {
  host.onDialog(act);
  return host.call("ManageDataGroupsDialog", groups);
}
const enabled = d => buttons.map(name => d.enabled(name) ? 1 : 0).join("");
const flags = d => d.table(list).map(row => row[3]);
const bold = d => d.table(list).map((row, i) => row.map((_, column) => d.cellInfo(list, i, column).bold));
const hidden = d => d.table(list).map((_, row) => d.cellInfo(list, row, 0).hidden ? 1 : 0).join("");

// --- what is shown ------------------------------------------------------------------------------

equal(box(lines, d => {
  equal([d.name, d.title, d.focused()], ["ManageDataGroupDialog", "Manage Data Groups", list]);
  equal(d.headers(list), ["Name", "Title", "Analysis", "Flags"]);
  equal(d.table(list), [
    ["global", "All runs", "", "global"], ["tran1", "Start-up", "Transient", "keep"],
    ["tran2", "", "Transient", "current"], ["ac1", "Loop", "AC", "keep"], ["ac2", "", "", ""],
  ]);
  equal([d.current(list), enabled(d)], [2, "11111"], "the current group is selected");
  equal(d.get("deleteGroupButton", "toolTip"), "Delete selected groups.\n\nNote: Global group cannot be deleted");
  equal(d.get("deleteAllGroupsButton", "toolTip"), "Delete all groups except global group");
  d.accept();
}), texts(untouched));

// --- what is done to rows -----------------------------------------------------------------------

for (const [what, rows, act, result, off, states] of [
  ["current", [1], d => d.press("Set Current Group"), { 1: "tran1;Start-up;keep|current", 2: "tran2;;" }, "00000", "11111"],
  ["current global", [0], d => d.press("Set Current Group"), { 0: "global;All runs;global|current", 2: "tran2;;" }, "00000", "11110"],
  ["keep", [0, 2, 4], d => d.press("Keep Group"), { 0: "global;All runs;global|keep", 2: "tran2;;keep|current", 4: "ac2;;keep" }, "00000", "01110"],
  ["delete one", [1], d => d.press("Delete Group"), { 1: "tran1;Start-up;deleted" }, "01000", "11111"],
  ["delete the current", [2], d => d.press("Delete Group"), { 1: "tran1;Start-up;keep|current", 2: "tran2;;deleted" }, "00100", "11111"],
  ["delete the last", [4], d => d.key(list, "Delete"), { 4: "ac2;;deleted" }, "00001", "00010"],
  ["delete with global", [3, 0], d => d.key(list, "Delete"), { 3: "ac1;Loop;deleted" }, "00010", "11110"],
  ["delete global alone", [0], d => d.key(list, "Delete"), {}, "00000", "11110"],
  ["delete several", [1, 2, 4], d => d.press("Delete Group"), { 1: "tran1;Start-up;deleted", 2: "tran2;;deleted", 3: "ac1;Loop;keep|current", 4: "ac2;;deleted" }, "01101", "00010"],
  ["delete all", [], d => d.press("Delete All Groups"), { 0: "global;All runs;global|current", 1: "tran1;Start-up;deleted", 2: "tran2;;deleted", 3: "ac1;Loop;deleted", 4: "ac2;;deleted" }, "01111", "11100"],
  ["all by keys", [], d => { d.key(list, "Ctrl+A"); d.key(list, "Delete"); }, { 0: "global;All runs;global|current", 1: "tran1;Start-up;deleted", 2: "tran2;;deleted", 3: "ac1;Loop;deleted", 4: "ac2;;deleted" }, "01111", "11100"],
  ["nothing selected", [], d => { d.key(list, "Delete"); d.key(list, "F2"); }, {}, "00000", "00010"],
])
  equal(box(lines, d => {
    d.choose(list, rows);
    act(d);
    equal([hidden(d), enabled(d)], [off, states], what);
    const current = flags(d).map(words => words.includes("current"));
    equal(current.filter(is => is).length, 1, `${what}: one is current`);
    equal(bold(d), current.map(is => [is, is, is, is]), `${what}: which is bold`);
    d.accept();
  }), texts(untouched.map((line, i) => result[i] || line)), what);

// Deleted rows stay away from keys and from what is done later.
equal(box(lines, d => {
  d.choose(list, [1, 2]);
  d.key(list, "Delete");
  equal(d.current(list), 3, "what follows is next");
  d.key(list, "Up");
  equal(d.current(list), 0, "the cursor steps over what is deleted");
  d.key(list, "Ctrl+A");
  d.press("Keep Group");
  d.choose(list, [4]);
  d.press("Set Current Group");
  d.accept();
}).values, ["global;All runs;global|keep", "tran1;Start-up;deleted", "tran2;;deleted", "ac1;Loop;keep", "ac2;;keep|current"]);

// A button that goes grey under the finger gives the focus to the list, and not to the next button.
equal(box(lines, d => {
  d.choose(list, [4]);
  for (const key of ["Tab", "Tab", "Space"])
    d.key(null, key);
  equal([d.enabled("deleteGroupButton"), d.focused()], [false, list]);
  d.key(null, "Space");
  d.key(null, "Return");
}).values.filter(line => line.endsWith("deleted")).length, 1);

// --- titles -------------------------------------------------------------------------------------

const edit = (d, act, leave) => {
  let before;
  host.onDialog(box => {
    before = [box.name, box.text("edit")];
    act(box);
  });
  leave(d);
  return before;
};
equal(box(lines, d => {
  d.choose(list, [1]);
  // A semicolon would break the record: what was typed is there to be mended.
  equal(edit(d, e => { e.type("edit", "Cold; 12 V"); e.accept(); }, d => {
    host.onDialog(m => { check(m.message().text.includes("semicolon"), m.message().text); m.accept(); });
    host.onDialog(e => { equal(e.text("edit"), "Cold; 12 V"); e.type("edit", "Cold start, 12 V|keep"); e.accept(); });
    d.press("Edit Title");
  }), ["InputDialog", "Start-up"]);
  equal(d.cell(list, 1, 1), "Cold start, 12 V|keep");
  d.choose(list, [3]);
  edit(d, e => { e.type("edit", "no"); e.reject(); }, d => d.key(list, "F2"));
  edit(d, e => { e.type("edit", ""); e.accept(); }, d => d.key(list, "F2"));
  d.choose(list, [4]);
  edit(d, e => { e.type("edit", "gone"); e.accept(); }, d => d.key(null, "F2"));
  d.key(null, "Delete");
  d.accept();
}).values, ["global;All runs;global", "tran1;Cold start, 12 V|keep;keep", "tran2;;current", "ac1;;keep", "ac2;gone;deleted"]);

// --- by keyboard alone, and ways out ------------------------------------------------------------

equal(box(lines, d => {
  d.key(null, "Down");
  d.key(null, "Shift+Down");
  d.key(null, "Delete");
  d.key(null, "Home");
  for (const key of ["Tab", "Space", "Return"])
    d.key(null, key);
}).values, ["global;All runs;global|current", "tran1;Start-up;keep", "tran2;;", "ac1;Loop;deleted", "ac2;;deleted"]);

for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  equal(box(lines, d => { d.press("Delete All Groups"); leave(d); }), none);

// --- widths -------------------------------------------------------------------------------------

const section = "ColumnWidths";
const key = "ManageDataGroupsDialog";
const kept = stored => {
  host.config(section, key, stored);
  box(lines, d => d.accept());
  return host.config(section, key);
};
const own = kept(null);
check(/^\d+( \d+){3}$/.test(own), own);
equal(kept("90 150 120 200").split(" ").slice(0, 3), ["90", "150", "120"], "widths come back");
for (const damaged of ["", "90 150 120", "90 150 120 200 10", "90 150 0 200", "-90 150 120 200", "90 150 120 2000000000",
                       "90 x 120 200", "nan nan nan nan", "1e2 150 120 200", "x".repeat(100000)])
  equal(kept(damaged).split(" ").slice(0, 3), own.split(" ").slice(0, 3), damaged.slice(0, 40));

// --- what a script may hand in ------------------------------------------------------------------

for (const [groups, result] of [
  [[], []],
  ["one", ["one;;"]],
  [[""], [";;"]],
  [["a;b;c;d;keep", ";;;", "a;b;c;keep|global|current|keep", "<b>x</b>;&T;\n;"], ["a;b;", ";;", "a;b;global|keep|current", "<b>x</b>;&T;"]],
  [["a;x\ny\u2028z;;current", "a;;;current"], ["a;x\ny\u2028z;current", "a;;current"]],
  [["µΩ – 電圧 😀;" + "x".repeat(100000) + ";;"], ["µΩ – 電圧 😀;" + "x".repeat(100000) + ";"]],
])
  equal(box(groups, d => d.accept()), texts(result));

equal(box(["a;;;keep", "b;;;current"], d => {
  d.press("Delete All Groups");
  equal(enabled(d), "00000", "no global group, nothing left");
  for (const key of ["Down", "Ctrl+A", "Delete", "F2"])
    d.key(list, key);
  d.accept();
}).values, ["a;;deleted", "b;;deleted"]);

// Rows are one line high, whatever is in them: the window, as tall as its rows, does not grow.
const height = first => {
  let seen;
  host.config("WidgetDims", "ManageDataGroupDialog", null);
  box([`${first};;;`, ...lines, ...lines], d => { seen = d.get(list, "height"); d.reject(); });
  return seen;
};
check(height("a") > 0, "height");
equal(height("a\nb\nc\nd\ne\nf"), height("a"), "a line break makes no row taller");

// --- many ---------------------------------------------------------------------------------------

// Generous: under a sanitizer everything takes many times as long.
function timed(what, limit, act) {
  const start = host.processTime();
  act();
  const taken = host.processTime() - start;
  check(taken < limit, `${what} took ${taken} ms`);
}
const many = Array.from({ length: 100000 }, (_, i) => `tran${i};Run ${i};Transient;${i === 0 ? "global" : i === 7 ? "current" : ""}`);
const all = box(many, d => {
  timed("selecting all", 10000, () => d.key(list, "Ctrl+A"));
  timed("deleting", 20000, () => d.key(list, "Delete"));
  equal([d.current(list), enabled(d), d.cell(list, 0, 3)], [0, "11100", "global,current"]);
  d.accept();
}).values;
equal([all.length, all[0], all[99999]], [100000, "tran0;Run 0;global|current", "tran99999;Run 99999;deleted"]);

// Global groups between the others leave tens of thousands of blocks to be selected.
const odd = many.map((line, i) => i % 2 ? line : `g${i};;;global`);
equal(box(odd, d => {
  timed("blocks", 40000, () => ["Ctrl+A", "Delete", "Down", "Ctrl+A", "Delete", "Home", "Shift+End"].forEach(key => d.key(list, key)));
  d.press("Keep Group");
  d.accept();
}).values.filter(line => line.endsWith("|keep") || line.endsWith("|current")).length, 50000);

const million = many.concat(...Array.from({ length: 9 }, () => many));
timed("a million groups", 120000, () => equal(box(million, d => d.accept()).values.length, million.length));

let refused = "";
try { ManageDataGroupsDialog(); } catch (error) { refused = error.message; }
check(refused.includes("ManageDataGroupsDialog"), refused);
