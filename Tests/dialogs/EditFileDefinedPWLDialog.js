// EditFileDefinedPWLDialog: a points file line by line, its kinds of rows, and the syntax check.

const grid = "pwlGrid";
const source = ["0", "0", "0", "points.txt", "Disk"];
function box(args, act) {
  host.onDialog(act);
  return EditFileDefinedPWLDialog(...args);
}
const rows = d => d.table(grid).map(r => r.slice(0, 2).join("|"));
const colours = { Comment: "#008000", StartData: "#0000ff", Error: "#ff0000" };
const kinds = d => d.table(grid).map((r, i) => {
  const cells = [0, 1].map(column => d.cellInfo(grid, i, column));
  const kind = cells[0].kind.replace("PWLTableItem", "") || "Data";
  // The start data line spans its row.
  for (const cell of cells.slice(0, kind === "StartData" ? 1 : 2))
    equal(cell.foreground, colours[kind] || "#000000", `${kind} in row ${i}`);
  return kind;
});
/// Runs an action that is answered by a message box, and gives the box.
function told(act) {
  let message = null;
  host.onDialog(m => { message = m.message(); m.accept(); });
  act();
  return message;
}

// --- lines become rows, and rows lines ----------------------------------------------------------

for (const [name, lines, shown, kind, result] of [
  ["no lines", [], ["|"], ["Data"], [""]],
  ["blank, comma, tab", ["1e-6 5", "2e-6,5", "3e-6\t5"], ["1e-6|5", "2e-6|5", "3e-6|5", "|"],
    ["Data", "Data", "Data", "Data"], ["1e-6\t5", "2e-6\t5", "3e-6\t5"]],
  ["a path with blanks", ["1 file=\"a b, c.txt\""], ["1|file=\"a b, c.txt\"", "|"],
    ["Data", "Data"], ["1\tfile=\"a b, c.txt\""]],
  ["commas before the value", ["1 ,, , 5"], ["1|, 5", "|"], ["Data", "Data"], ["1\t, 5"]],
  ["indented", ["  1 2"], ["1|1 2", "|"], ["Data", "Data"], ["1\t1 2"]],
  ["comments", ["* one, two", "1 2", " *three"], ["* one, two|", "1|2", " *three|", "|"],
    ["Comment", "Data", "Comment", "Data"], ["* one, two", "1\t2", " *three"]],
  ["start data", ["START_DATA  REPEAT_COUNT=7", "1 2"], ["START_DATA REPEAT_COUNT=7|", "1|2", "|"],
    ["StartData", "Data", "Data"], ["START_DATA REPEAT_COUNT=7", "1\t2"]],
  ["csv", ["START_DATA FORMAT=CSV", "1 2"], ["START_DATA FORMAT=CSV|", "1|2", "|"],
    ["StartData", "Data", "Data"], ["START_DATA FORMAT=CSV", "1, 2"]],
  ["time before the trigger", ["START_DATA", "-1 2"], ["START_DATA SHIFT_FIRST_TO_ZERO|", "-1|2", "|"],
    ["StartData", "Data", "Data"], ["START_DATA SHIFT_FIRST_TO_ZERO", "-1\t2"]],
  ["a value is missing", ["1", "2 3"], ["1|", "2|3", "|"], ["Data", "Data", "Data"], ["1\t", "2\t3"]],
  ["nothing in use", ["1"], ["1|", "|"], ["Data", "Data"], ["1\t", ""]],
]) {
  equal(box([lines, source], d => {
    equal(rows(d), shown, name);
    equal(kinds(d), kind, name);
    d.accept();
  }).slice(1), result, name);
}

// What OK gave, opened again, gives the same.
for (const lines of [["START_DATA REPEAT_COUNT=3 SHIFT_FIRST_TO_ZERO", "-1 2", "* c", "3 file=\"a b\""],
  ["START_DATA FORMAT=CSV", "1,2", "3,4"], ["1 2", "", "3 4"]]) {
  const once = box([lines, source], d => d.accept()).slice(1);
  equal(box([once, source], d => d.accept()).slice(1), once, JSON.stringify(lines));
}

// --- the source's options -----------------------------------------------------------------------

for (const [settings, expected] of [
  [source, "0;0;0;points.txt;Disk;0"],
  [["-5u", "1", "1", "a.txt", "disk", "1"], "-5u;1;1;a.txt;Disk;1"],
  [["{td}", "true", "01", "step", "F11", "0", "V1", "step|ramp"], "{td};0;0;step;F11;0"],
  [["0", "0", "0", "two words", "f11"], "0;0;0;\"two words\";F11;0"],
])
  equal(box([["1 2"], settings], d => d.accept())[0], expected, expected);
box([["1 2"], source], d => {
  check(d.enabled("editboxDiskFileName") && !d.enabled("comboboxF11FileName"), "on disk");
  d.click("radioButtonF11");
  check(!d.enabled("editboxDiskFileName") && !d.enabled("toolButtonDiskSelectFile") &&
    d.enabled("comboboxF11FileName"), "in the F11 window");
  d.set("checkboxPeriodic", true);
  check(!d.enabled("spinnerRepeatCount"), "what repeats for ever is not counted");
  const message = told(() => d.accept());
  check(message.title === "File Name Empty" && message.text.includes("<b>F11 window</b>"), "empty");
  check(d.isOpen, "and the box stays open");
  d.reject();
});
host.onDialog(d => d.key(null, "Escape"));
equal(host.call("EditFileDefinedPWLDialog", ["1 2"], source),
  { made: false, type: null, values: [] }, "Escape");

// --- controls and the start data line -----------------------------------------------------------

equal(box([["START_DATA", "0 1"], source], d => {
  d.set("comboboxFileFormat", "CSV");
  d.set("spinnerRepeatCount", "12");
  d.set("checkboxShiftFirstToZero", true);
  equal(d.cell(grid, 0, 0), "START_DATA REPEAT_COUNT=12 SHIFT_FIRST_TO_ZERO FORMAT=CSV");
  d.set("spinnerRepeatCount", "0");
  d.set("checkboxPeriodic", true);
  d.accept();
}).slice(1), ["START_DATA SHIFT_FIRST_TO_ZERO FORMAT=CSV", "0, 1"]);
// A file without that line has no place for them.
box([["0 1"], source], d => {
  const options = ["comboboxFileFormat", "spinnerRepeatCount", "checkboxShiftFirstToZero"];
  const reasons = () => options.map(o => d.enabled(o) ? "" : d.get(o, "toolTip").match(/START_DATA|periodic/)[0]);
  const off = options.map(() => "START_DATA");
  equal(reasons(), off);
  host.clipboard("START_DATA\n0 1\n");
  d.press("Paste");
  equal(reasons(), ["", "", ""]);
  d.set("checkboxPeriodic", true);
  equal(reasons(), ["", "periodic", ""]);
  d.set("checkboxPeriodic", false);
  d.key(grid, "Ctrl+Z");
  equal(reasons(), off);
  d.key(grid, "Ctrl+Shift+Z");
  equal(reasons(), ["", "", ""]);
  d.reject();
});

// --- by keyboard --------------------------------------------------------------------------------

equal(box([["0 1", "1 2"], source], d => {
  equal([d.focused(), d.current(grid)], [grid, [0, 0]]);
  for (const key of ["*", "a"])
    d.key(grid, key);
  d.key(null, "Return");
  equal(kinds(d), ["Comment", "Data", "Data"], "an asterisk makes a comment");
  equal(d.columns(grid), 3);
  equal(d.cell(grid, 0, 2), "", "which has no file");
  d.cell(grid, 0, 0, "0.5");
  equal([kinds(d)[0], d.cell(grid, 0, 2)], ["Data", "Select..."], "and back");
  d.current(grid, 1, 1);
  for (const key of ["7", "k"])
    d.key(grid, key);
  d.key(null, "Alt+O");
}).slice(1), ["0.5\t1", "1\t7k"]);
box([["START_DATA", "0 1", "1 2", "2 3"], source], d => {
  d.choose(grid, [1, 2]);
  d.key(grid, "Insert");
  equal(rows(d), ["START_DATA|", "|", "|", "0|1", "1|2", "2|3", "|"]);
  equal(d.cell(grid, 1, 2), "Select...");
  d.choose(grid, [[3, 0]]);
  d.key(grid, "Delete");
  equal(rows(d).slice(3), ["1|2", "2|3", "|"]);
  d.choose(grid, [[3, 0]]);
  equal(told(() => d.key(grid, "Delete")).title, "Minimum number of points");
  d.choose(grid, [[1, 0], [1, 1], [1, 2]]);
  d.key(grid, "Delete");
  equal(rows(d), ["START_DATA|", "2|3", "|"], "a blank row goes, with one row per further cell");
  d.reject();
});
box([["* a", "* b", "* c", "0 1"], source, ["", "", "", "", "1", "4"]], d => {
  d.choose(grid, [0, 1, 2]);
  d.key(grid, "Insert");
  equal(d.rows(grid), 8, "comments are no points, and leave room for them");
  d.reject();
});
box([["0 1", "1 2"], source, ["", "", "", "", "1", "2"]], d => {
  const message = told(() => d.key(grid, "Insert"));
  equal([message.title, /maximum of 2 PWL/.test(message.text)], ["Too many points", true]);
  d.reject();
});

// --- files --------------------------------------------------------------------------------------

const folder = host.tempDir();
host.writeFile(folder + "/scope.txt", "START_DATA FORMAT=CSV\n-1,0\n0,5\n");
box([["9 9"], source], d => {
  host.onDialog(f => { f.pick(folder + "/scope.txt"); f.accept(); });
  d.click("toolButtonDiskSelectFile");
  equal(rows(d), ["START_DATA SHIFT_FIRST_TO_ZERO FORMAT=CSV|", "-1|0", "0|5", "|"]);
  check(d.text("editboxDiskFileName").endsWith("scope.txt"), "relative to where the host is");
  host.onDialog(f => { f.pick(folder + "/scope.txt"); f.accept(); });
  d.click(grid, 2, 2);
  check(/^file=".*scope.txt"$/.test(d.cell(grid, 2, 1)), d.cell(grid, 2, 1));
  d.current(grid, 1, 1);
  d.key(grid, "Right"); // a click would open the chooser
  host.onDialog(f => f.reject());
  d.key(grid, "Space");
  equal(rows(d)[1], "-1|0", "given up");
  host.clipboard("* pasted\r\n5\t6\r\n");
  d.press("Paste");
  equal(rows(d), ["* pasted|", "5|6", "|"]);
  host.clipboard("");
  d.press("Paste");
  equal(d.rows(grid), 3, "nothing to paste, nothing lost");
  d.reject();
});

// What is not a plain file might never come to its end, and what is too long takes the memory of all.
/// Runs a program, as the host runs its simulator.
function shell(script) {
  host.option("SimulatorProgram", "/bin/sh");
  command(`RunBRENNIX -c "${script}"`);
  host.option("SimulatorProgram", null);
}
const temporary = `${host.tempDir()}/Kelvarin`; // where the texts of the F11 window are staged
host.option("TempDataDir", temporary.replace("/Kelvarin", ""));
shell(`mkdir ${temporary}; cd ${temporary}; mkfifo pipe; truncate -s 2G huge; ln -s pipe link;
  yes '' | head -c 5000000 > lines; echo 3 4 > plain; ln -s plain other`);
for (const [path, reason] of [
  [`${temporary}/pipe`, "it is not a plain file"],
  ["/dev/zero", "it is not a plain file"],
  ["staged pipe", "it is not a plain file"],
  ["staged link", "it is not a plain file"],
  ["staged huge", "it has 2.1 GB, and no more than 250 MB are read"],
  ["staged lines", "it has more than 4000004 lines"],
  ["staged other", ""],
]) {
  const name = path.replace(/^staged /, "");
  const location = name === path ? "Disk" : "F11";
  box([["9 9"], ["0", "0", "0", "", location, "0", "V7", "pipe|link|huge|lines|other"]], d => {
    let said = "";
    if (location === "Disk")
      host.onDialog(f => { f.pick(path); f.accept(); });
    if (reason)
      host.onDialog(m => { said = m.message().text; m.accept(); });
    location === "Disk" ? d.click("toolButtonDiskSelectFile") : d.set("comboboxF11FileName", name);
    check(reason ? said.endsWith(` cannot be read: ${reason}.`) : !said, `${path}: ${said}`);
    equal(rows(d)[0], reason ? "9|9" : "3|4", path);
    d.reject();
  });
}
host.option("TempDataDir", null);

// --- the syntax check, with a simulator that says what it is told to ------------------------------

let said = null; // what the simulator writes; null: nothing
let seen = {};
host.provide("dyn_RunCommand", command => {
  const deck = /"(.*)"$/.exec(command)[1];
  seen = { command, deck: host.readFile(deck),
    points: host.readFile(deck.replace(/[^/\\]*$/, "temp_points.txt")) };
  host.writeFile(deck + ".err", said === null ? "" : said);
});
const fault = (id, line, text) =>
  `<<<<<<<< Error Message ID: ${id} >>>>>>>>\n${line ? `in temp_points.txt, line ${line}:\n` : "temp_points.txt\n"}${text}\n****\n`;

box([["START_DATA", "* c", "0 1", "x y", ""], source.concat("0", "V7")], d => {
  said = fault(1100, 4, "That is not a number.");
  const message = told(() => d.click("toolButtonCheckSyntax"));
  equal(message.title, "Source definition file has errors");
  equal(seen.points, "START_DATA\n* c\n0\t1\nx\ty\n");
  check(seen.deck.includes("\nV7 1 0 FDPWL file=\""), seen.deck);
  check(seen.command.startsWith("RunBRENNIX /hidestatusbox /additionalargs SYNTAX_CHK_ONLY,,"),
    seen.command);
  equal(kinds(d).slice(0, 5), ["StartData", "Comment", "Data", "Error", "Data"]);
  equal(d.cellInfo(grid, 3, 1).toolTip, "Line number 4:\n\nThat is not a number.");
  d.cell(grid, 3, 0, "3");
  equal(kinds(d)[3], "Data", "a correction takes the mark away");
  d.reject();
});
for (const [name, messages, title, text, marks] of [
  ["an empty file", fault(1217, 0, "No points."), "File is empty", "points.txt", 0],
  ["too few", fault(1219, 0, "One point."), "Less than two data points", "One point.", 0],
  ["no line", fault(1300, 0, "Somewhere."), "Source definition file has errors", "red", 0],
  ["no message", "the simulator fell over\n", "Source definition file has errors", "red", 0],
  // The controls write the start data line anew, without its mark.
  ["the start line", fault(1050, 1, "Unknown keyword."), "Source definition file has errors", "red", 0],
  ["many", Array.from({ length: 25 }, (_, i) => fault(1100, i + 2, "x")).join(""),
    "Source definition file has errors", "red", 20],
]) {
  box([["START_DATA"].concat(new Array(30).fill("1 2")), source], d => {
    said = messages;
    const message = told(() => d.click("toolButtonCheckSyntax"));
    equal(message.title, title, name);
    check(message.text.includes(text), name + ": " + message.text);
    equal(kinds(d).filter(k => k === "Error").length, marks, name);
    d.reject();
  });
}
host.provide("dyn_RunCommand", () => { throw new Error("no simulator here"); });
const raisedBy = () => {
  try {
    box([["0 1"], source], d => d.click("toolButtonCheckSyntax"));
  } catch (error) { return error.message; }
  return "";
};
check(raisedBy().includes("no simulator here"), "the host's fault is the script's");
host.provide("dyn_RunCommand", null);
check(raisedBy().includes("dyn_RunCommand"), "and so is a host that cannot run anything");
host.provide("dyn_RunCommand", undefined);

// --- names, and what a script may hand in --------------------------------------------------------

const nameOf = (...args) => {
  let name;
  box([["1 2"], ...args], d => { name = d.name; d.reject(); });
  return name;
};
check(nameOf(source) !== nameOf(["0", "0", "0", "other.txt", "Disk"]), "each file has a geometry");
box([new Array(300).fill("1 2v"), source], d => {
  d.key(grid, "Ctrl+A");
  d.key(grid, "Ctrl+C");
  equal(host.clipboard().split("\n")[299], "1\t2v", "rows that nobody has seen are copied");
  d.reject();
});
equal(box([["START_DATA REPEAT_COUNT=3", "* note", "1 2"], source], d => {
  d.key(grid, "Ctrl+A");
  d.key(grid, "Ctrl+C");
  d.current(grid, 3, 0);
  d.key(grid, "Ctrl+V");
  equal(rows(d).slice(3), ["* note|", "1|2", "|"], "lines stay lines");
  d.key(grid, "Ctrl+Z");
  equal(rows(d).length, 4);
  equal(d.text("pointNote"), "");
  d.accept();
}).slice(1), ["START_DATA REPEAT_COUNT=3", "* note", "1\t2"]);
box([["START_DATA REPEAT_COUNT=3", "0 0"], source], d => {
  d.key(grid, "7");
  d.key(null, "Return");
  equal(rows(d)[1], "7|0", "the first row that can be typed in is the current one");
  host.clipboard("START_DATA REPEAT_COUNT=5\n1 1");
  d.press("Paste");
  equal([d.text("pointNote"), d.value("spinnerRepeatCount")], ["2 lines read.", 5]);
  d.key(grid, "Ctrl+Z");
  equal([rows(d)[1], d.value("spinnerRepeatCount")], ["7|0", 3], "the controls follow");
  host.clipboard("START_DATA FORMAT=CSV\n* a note");
  d.key(grid, "Ctrl+V");
  equal(rows(d).slice(1), ["* a note|", "|"], "a comment takes the whole row");
  equal(d.text("pointNote"), "1 row pasted. A START_DATA line was left out.");
  d.cell(grid, 1, 1, "b");
  d.choose(grid, [[1, 0]]);
  d.key(grid, "Ctrl+C");
  equal(host.clipboard(), "* a noteb", "and is copied as it goes into the file");
  d.key(grid, "Ctrl+Z");
  d.key(grid, "Ctrl+Z");
  d.key(grid, "Ctrl+Z");
  equal(rows(d)[1], "0|0");
  d.reject();
});
{
  const many = new Array(3000).fill("* a comment").join("\n");
  const start = host.processTime();
  box([new Array(100000).fill("1 2"), source], d => {
    host.clipboard(many);
    d.current(grid, 50000, 0);
    d.key(grid, "Ctrl+V");
    equal(d.cellInfo(grid, 52999, 0).kind, "CommentPWLTableItem");
    d.reject();
  });
  check(host.processTime() - start < 4000, `${host.processTime() - start} ms`);
}
const long = "x".repeat(1e5);
box([[long, "* " + long, long + " " + long], [long, long, long, long, "Disk", long, long],
  [long, long, long]], d => d.reject());
equal(box([new Array(200000).fill("1 2"), source], d => {
  equal(d.rows(grid), 200001);
  d.current(grid, 150000, 0);
  d.key(grid, "5");
  d.key(null, "Return");
  equal(d.cell(grid, 199999, 1), "2");
  d.accept();
})[150001], "5\t2");
