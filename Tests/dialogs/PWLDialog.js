// PWLDialog: a table of points, its modes, and what goes back.

function box(args, act) {
  host.onDialog(act);
  return PWLDialog(...args);
}
const grid = "pwlGrid";
const texts = s => s === "" ? [] : s.split(" ");
const rows = d => d.table(grid).map(r => r.join(","));
const options = (over = {}) =>
  Object.assign(["T", "X", "Y", "", "-1", "1", "256", "0", "0"], over);
/// Runs an action that is answered by a message box, and gives the box.
function warned(d, act) {
  let message = null;
  host.onDialog(m => { message = m.message(); m.accept(); });
  act();
  equal(message.buttons.length, 1);
  return message;
}

// --- what is loaded, and what goes back untouched -----------------------------------------------

for (const [name, points, opts, numbers, shown, result] of [
  ["plain", "0 0 1 1", undefined, undefined, ["0,0", "1,1", ","], "0 0 1 1"],
  ["none", "", undefined, undefined, [","], ""],
  ["an odd entry", "0 0 1", undefined, undefined, ["0,0", ","], "0 0"],
  ["expressions", "{a} {2*b} 1k 1e-3", undefined, undefined, ["{a},{2*b}", "1k,1e-3", ","],
    "{a} {2*b} 1k 1e-3"],
  ["symmetric", "-2 -4 -1 -2 1 2 2 4", options({ 7: "1" }), undefined, ["0,0", "1,2", "2,4", ","],
    "-2 -4 -1 -2 1 2 2 4"],
  ["symmetric expressions", "{-a} -2 {a} 2", options({ 7: "1" }), undefined, ["0,0", "{a},2", ","],
    "{-a} -2 {a} 2"],
  ["a centre at the origin is lost", "-1 -2 0 0 1 2", options({ 7: "1" }), undefined,
    ["0,0", "1,2", ","], "-1 -2 1 2"],
  ["symmetric, but not allowed", "-1 -2 1 2", options(), undefined, ["-1,-2", "1,2", ","],
    "-1 -2 1 2"],
  ["initial condition", "0 0", options({ 3: "CONTINUOUS" }), [1, 2.5], ["0,0", ","],
    "0 0 true 2.5"],
  ["initial condition, off", "0 0", options({ 3: "continuous" }), [0, 2.5], ["0,0", ","],
    "0 0 false 2.5"],
  ["source idle", "0 0", options(), [0, 0, 1], ["0,0", ","], "0 0 true"],
  ["source active", "0 0", options(), [0, 0, 0], ["0,0", ","], "0 0 false"],
  ["for ever", "0 0", options({ 8: "1" }), [0, 0, 0, 0], ["0,0", ","], "0 0 0 false"],
  ["five times", "0 0", options({ 8: "1", 3: "segment" }), [0, 0, 0, 5], ["0,0", ","],
    "0 0 5 false"],
  ["once", "0 0", options({ 8: "1" }), [], ["0,0", ","], "0 0 1 false"],
  ["converter", "0 0", options({ 0: "Define PWL Inductor L1" }), [], ["0,0", ","], "0 0 |||"],
]) {
  const args = [texts(points), opts, numbers].filter(a => a !== undefined);
  equal(box(args, d => { equal(rows(d), shown, name); d.accept(); }), texts(result), name);
}
host.onDialog(d => d.key(null, "Escape"));
equal(host.call("PWLDialog", ["0", "0"]), { made: false, type: null, values: [] }, "Escape");
for (const [memory, result] of [["", "||0|20"], ["1 2|3 4|1|7", "1 2|3 4|1|7"], ["1 2", "1 2|||"]])
  equal(box([["0", "0"], options({ 0: "Define PWL Capacitor" }), [], memory], d => {
    check(d.visible("componentUnitEntryButton"), "converter is offered");
    d.accept();
  })[2], result, `memory ${memory}`);

// --- keyboard alone -----------------------------------------------------------------------------

equal(box([texts("0 0 1 1")], d => {
  equal([d.focused(), d.current(grid)], [grid, [0, 0]]);
  d.key(null, "Return");
  d.key(null, "Return");
  equal(d.current(grid), [1, 0], "Return goes to the next row");
  for (const key of ["4", ".", "7", "k"])
    d.key(grid, key);
  d.key(null, "Return");
  equal(d.cell(grid, 1, 0), "4.7k", "and finishes what was typed");
  d.key(null, "Return");
  d.key(null, "Return");
  d.key(null, "Return");
  equal([d.rows(grid), d.current(grid)], [4, [3, 0]], "at the end it adds a row");
  d.key(null, "Tab");
  check(d.focused() !== grid, "Tab leaves the table");
  d.key(null, "Alt+O");
}), texts("0 0 4.7k 1"));

// What is typed in an open cell is kept.
for (const [how, leave] of [["Alt+O", d => d.key(null, "Alt+O")], ["mouse", d => d.click("okButton")]])
  equal(box([texts("0 0")], d => {
    d.key(grid, "7");
    leave(d);
  }), texts("7 0"), how);

equal(box([texts("0 0"), options({ 8: "1" })], d => {
  d.set("repetionPeriodEdit", "2.6");
  d.key("repetionPeriodEdit", "Return");
}), texts("0 0 3 false"), "outside the table Return means OK, and cycles are whole");

// --- rows ---------------------------------------------------------------------------------------

const six = "0 0 1 1 2 2 3 3 4 4 5 5";
box([texts(six)], d => {
  d.choose(grid, [2, 3, 4, 5]);
  d.key(grid, "Insert");
  equal(rows(d).slice(1, 7), ["1,1", ",", ",", ",", ",", "2,2"], "as many rows as are selected");
  d.choose(grid, [2, 3]);
  d.key(grid, "Delete");
  equal(rows(d).slice(1, 4), ["1,1", "2,2", "3,3"], "a row for each selected cell");
  d.choose(grid, [[1, 1]]);
  d.key(grid, "Delete");
  equal(rows(d).slice(0, 2), ["0,0", "2,2"]);
  d.choose(grid, [[0, 0], [0, 1]]);
  d.key(grid, "Delete");
  equal(rows(d)[0], "3,3", "both cells of a row take the next as well");
  d.reject();
});
// The least number of points and one more always stay.
for (const [least, segments] of [["0", 1], ["1", 1], ["2", 2], ["3", 3]])
  box([texts("0 0 1 1 2 2 3 3 4 4").slice(0, 2 * segments + 4), options({ 5: least })], d => {
    d.choose(grid, [[0, 0]]);
    d.key(grid, "Delete");
    equal(d.rows(grid), segments + 2, `at least ${least}: one goes`);
    const { title, text } = warned(d, () => d.key(grid, "Delete"));
    equal([title, text], ["Minimum segments", `You must have at least ${segments} segments`]);
    equal(d.rows(grid), segments + 2, `at least ${least}: the next does not`);
    d.reject();
  });
box([texts("0 0 1 1"), options({ 5: "2" })], d => {
  d.choose(grid, [[2, 0]]);
  d.key(grid, "Delete");
  equal(d.rows(grid), 2, "a blank row may always go");
  d.reject();
});
box([texts("0 0 1 1"), options({ 6: "2" })], d => {
  for (const act of [() => d.key(grid, "Insert"),
    () => { d.current(grid, 0, 1); d.key(null, "Return"); }]) {
    const message = warned(d, act);
    equal(message.title, "Too many points");
    check(message.text.includes("maximum of 3 PWL points"), message.text);
  }
  equal(d.rows(grid), 3);
  d.reject();
});
box([texts("0 0"), options({ 3: "segment" }), [0, 1]], d => {
  equal(d.get("initialConditionEdit", "max"), 2);
  d.key(grid, "Insert");
  equal(d.get("initialConditionEdit", "max"), 3, "segments follow the rows");
  d.reject();
});

// --- symmetric mode -----------------------------------------------------------------------------

equal(box([texts("0 0 1 2"), options({ 7: "1" })], d => {
  d.click("radiobuttonSymmetric");
  equal(rows(d), ["0,0", "1,2", ","], "the origin takes the place of one that is there");
  check(!d.cellInfo(grid, 0, 0).enabled, "and is fixed");
  d.click("radiobuttonAsymmetric");
  check(d.cellInfo(grid, 0, 0).enabled, "until the curve is arbitrary again");
  d.click("radiobuttonSymmetric");
  d.accept();
}), texts("-1 -2 1 2"));
equal(box([texts("-1 -2 1 2"), options({ 7: "1" })], d => {
  host.clipboard("5 6");
  d.press("Paste");
  equal(rows(d), ["5,6", "1,2"]);
  d.accept();
}), texts("5 6 1 2"), "a paste leaves the curve arbitrary, and the old row in its place");

// --- what a cell may hold -----------------------------------------------------------------------

for (const [text, symmetric, good] of [
  ["1k", 0, true], ["k1", 0, false], ["-1", 0, true], ["-1", 1, false], ["{a", 0, false],
  ["{ a + b }", 0, true], [".5", 1, true], ["+3", 1, true], ["1.e400", 0, true], ["nonsense", 0, false],
]) {
  const result = box([texts("-1 -1 1 1"), options({ 7: String(symmetric) })], d => {
    const row = d.rows(grid) - 2;
    d.cell(grid, row, 1, text);
    if (good) {
      d.accept();
      return;
    }
    equal(warned(d, () => d.accept()).title, "Invalid Entries", text);
    equal(d.current(grid), [row, 1], "the cell at fault is shown");
    d.reject();
  });
  equal(result.length > 0 && result[3] === text.replace(/ /g, ""), good, text);
}

// --- paste --------------------------------------------------------------------------------------

for (const [clipboard, shown] of [
  ["1 2 3 4", ["1,2", "3,4", "20,20", ","]],
  ["(1,2)\r\n(3,4)\r\n5", ["1,2", "3,4", "20,20", ","]],
  ["1\t2\r\n3\t4\r\n", ["1,2", "3,4", "20,20", ","]],
  ["", ["0,0", "10,10", "20,20", ","]],
]) {
  box([texts("0 0 10 10 20 20")], d => {
    host.clipboard(clipboard);
    d.press("Paste");
    equal(rows(d), shown.slice(0, clipboard ? 3 : 4), JSON.stringify(clipboard));
    d.reject();
  });
}
box([texts("0 0"), options({ 6: "3" })], d => {
  host.clipboard("1 1 2 2 3 3 4 4 5 5");
  const message = warned(d, () => d.press("Paste"));
  equal(message.title, "PWL Paste Error");
  check(/There are 5 points.*\n.*maximum of 4/.test(message.text), message.text);
  equal(rows(d), ["0,0", ","], "and nothing is changed");
  d.reject();
});
box([texts("0 0 1 1 2 2")], d => {
  host.clipboard("7\r\n8\r\n9\r\n10\r\n");
  d.current(grid, 1, 1);
  d.key(grid, "Ctrl+V");
  equal(rows(d), ["0,0", "1,7", "2,8", ",9", ",10", ","], "a spreadsheet's column goes where the user is");
  equal(d.text("pointNote"), "4 rows pasted. 1 row below row 4 is not part of the curve, since that has an empty cell.");
  d.key(grid, "Ctrl+Z");
  equal(rows(d), ["0,0", "1,1", "2,2", ","], "undone as a whole");
  d.key(grid, "Ctrl+Shift+Z");
  equal(rows(d).length, 6);
  d.reject();
});
for (const [clipboard, note, shown] of [
  ["Time;Value\n3;4", "1 row pasted. A heading was left out.", "3,4"],
  ["3\t4\t5", "1 row pasted. 1 cell was left out.", "3,4"],
  ["START_DATA\n3 4", "1 row pasted. A START_DATA line was left out.", "3,4"],
  ["3;4,5", "Nothing was pasted: “4,5” has a decimal comma. Numbers need a decimal point.", "1,1"],
])
  box([texts("0 0 1 1")], d => {
    host.clipboard(clipboard);
    d.current(grid, 1, 0);
    d.key(grid, "Ctrl+V");
    equal([d.text("pointNote"), rows(d)[1]], [note, shown]);
    d.reject();
  });

box([texts("0 0 1 1")], d => {
  const width = d.get(grid, "size").width;
  host.clipboard(`"1${"0".repeat(3000)},5"`);
  d.key(grid, "Ctrl+V");
  check(d.text("pointNote").includes("…"), d.text("pointNote"));
  equal(d.get(grid, "size").width, width, "a note does not make the window wider");
  d.key(grid, "Ctrl+Return");
});
for (const field of ["initialConditionEdit", "cbSourceIdle", "pasteButton", "cancelButton"]) {
  let left = false;
  box([texts("0 0 1 1"), options({ 3: "continuous" }), [1, 2, 1]], d => {
    d.key(field, "Ctrl+Return");
    left = !d.isOpen;
    if (d.isOpen)
      d.reject();
  });
  check(left, `Ctrl+Return in ${field} is OK`);
}

// --- steps ----------------------------------------------------------------------------------------

const symmetricCurve = texts("-2 -5 -1 -1 1 1 2 5");
for (const [keys, left] of [
  [["Ctrl+A", "Delete"], ["0,0"]],
  [["Ctrl+A", "Insert"], ["0,0", ",", ",", ",", "1,1", "2,5", ","]],
])
  equal(box([symmetricCurve, options({ 7: "1" })], d => {
    for (const key of keys)
      d.key(grid, key);
    equal(rows(d), left, "the origin stays where it is");
    d.key(grid, "Ctrl+Z");
    equal(rows(d), ["0,0", "1,1", "2,5", ","]);
    d.accept();
  }).slice(0, 8), symmetricCurve);
box([symmetricCurve, options({ 7: "1" })], d => {
  for (const key of ["Ctrl+A", "Delete", "Return"])
    d.key(grid, key);
  d.key(grid, "4");
  d.key(null, "Return");
  equal(rows(d), ["0,0", "4,"], "behind the origin it goes on");
  d.reject();
});
equal(box([texts("0 0 1 1"), options({ 7: "1" })], d => {
  d.click("radiobuttonSymmetric");
  d.click("radiobuttonSymmetric"); // is it already, and no step
  d.key(grid, "Ctrl+Z");
  equal(d.checked("radiobuttonAsymmetric"), true, "the mode goes back with the rows");
  d.accept();
}).slice(0, 4), texts("0 0 1 1"));
equal(box([[]], d => {
  d.key(grid, "5");
  for (const key of ["Tab", "6", "Tab", "7", "Tab", "8", "Shift+Tab", "9", "Tab", "Tab", "Escape"])
    d.key(null, key);
  equal(rows(d), ["5,6", "9,8", ","]);
  d.key(grid, "Tab");
  check(d.focused() !== grid, "a cell that is not being edited is left");
  d.accept();
}).slice(0, 4), texts("5 6 9 8"));

equal(box([texts("0 0 1 1 2 2"), options({ 3: "segment" }), [0, 2, 1]], d => {
  d.set("initialConditionEdit", "2.6");
  d.accept();
})[7], "3", "segments are counted");

// --- conversion tool ----------------------------------------------------------------------------

const capacitor = (over = {}) => options(Object.assign({ 0: "Define PWL Capacitor C1" }, over));
const textOf = table => table.map(r => r.join(" ")).join(" ");
const convertWith = act => d => {
  host.onDialog(act);
  d.click("componentUnitEntryButton");
};

// A capacitance table becomes charge, lands in the box, and is there again when the box is reopened.
const coss = "0 10n 100 10n 200 2n 400 2n";
const result = box([[], capacitor(), [], ""], d => {
  equal(d.text("componentUnitEntryButton"), "Enter Capacitance...");
  convertWith(t => {
    equal([t.name, t.title, t.checked("limitGroupBox"), t.value("limitValueSpinner")],
          ["ConvertDialog", "Units to Energy Storage Conversion Tool", false, 20]);
    host.clipboard("0 10e-9 100 10e-9 200 2e-9 400 2e-9");
    t.press("Paste from Clipboard");
    t.set("numSegSpinner", "3");
    t.key(null, "Alt+Right");
    t.key(null, "Alt+O");
  })(d);
  d.accept();
});
equal(result.length, 9, "four points and the memory");
const numbers = result.slice(0, 8).map(t => parseFloat(t) * (/n$/.test(t) ? 1e-9 : /u$/.test(t) ? 1e-6 : 1));
near([numbers[0], numbers[6], numbers[7]], [0, 400, 2e-6], 1e-3, "the whole charge");
check(numbers[3] / numbers[2] > 9e-9, "it starts at the capacitance of low voltages");
equal(result[8], `${coss}|${result.slice(0, 8).join(" ")}|0|20`);
equal(box([result.slice(0, 8), capacitor(), [], result[8]], d => {
  equal(rows(d).length, 5, "the curve and a blank row");
  convertWith(t => {
    equal([textOf(t.table("inputTable").slice(0, 4)), t.value("numSegSpinner")], [coss, 3]);
    check(t.enabled("okButton"));
    t.accept();
  })(d);
  d.accept();
}), result, "reopened, and unchanged");

// What is typed by hand reaches the tool as its output, and lands from the first row on.
equal(box([["0", "0", "10", "{a + b}"], options({ 0: "Define PWL Inductor" }), [], ""], d => {
  convertWith(t => {
    equal([textOf(t.table("inputTable")), textOf(t.table("outputPWLTable"))], [" ", "0 0 10 {a+b}"]);
    check(!t.enabled("okButton"), "until there is something to take");
    t.cell("outputPWLTable", 1, 1, "5");
    t.key(null, "Alt+Left");
    t.press("Ok");
  })(d);
  equal(rows(d), ["0,0", "10,5", ","]);
  d.accept();
}), ["0", "0", "10", "5", "0 500m 10 500m|0 0 10 5|0|20"]);
equal(box([texts("0 0 1 1"), capacitor(), [], "0 1 1 1 1 2 2 2|0 0 1 1 2 3|1|7"], d => {
  convertWith(t => { t.set("limitValueSpinner", "1e-9"); t.reject(); })(d);
  d.accept();
}), ["0", "0", "1", "1", "0 1 1 1 1 2 2 2|0 0 1 1 2 3|1|7"], "a cancelled tool changes nothing");
equal(box([texts("0 0 1 1"), capacitor(), [], ""], d => {
  convertWith(t => t.reject())(d);
  d.accept();
})[4], "|0 0 1 1|0|20", "but has seen what was typed");
equal(box([texts("-1 -2 1 2"), capacitor({ 7: "1" }), [], "0 2 1 2 1 1 3 1|0 0 1 2 3 4|0|20"], d => {
  convertWith(t => t.accept())(d);
  equal(rows(d), ["0,0", "1,2", "3,4", ","], "the first point takes the place of the origin");
  d.accept();
}).slice(0, 8), texts("-3 -4 -1 -2 1 2 3 4"));
// With nothing remembered at all the limit is on, at its least.
box([texts("0 0 1 1"), capacitor()], d => {
  convertWith(t => {
    equal([t.checked("limitGroupBox"), t.value("limitValueSpinner")], [true, 0.5]);
    t.reject();
  })(d);
  d.reject();
});
for (const [count, most] of [[8, 11], [9, 255]])
  box([texts("0 0 1 1"), capacitor().slice(0, count), [], ""], d => {
    convertWith(t => { equal(t.get("numSegSpinner", "max"), most); t.reject(); })(d);
    d.reject();
  });

// --- names, limits, hostile calls ---------------------------------------------------------------

const nameOf = opts => {
  let seen;
  box([["0", "0"], opts], d => { seen = d.name; d.reject(); });
  return seen;
};
check(/^PWLDialog_\d+$/.test(nameOf(["T", "X", "Y"])), "name");
check(nameOf(["T", "X", "Y"]) !== nameOf(["T", "X", "Z"]), "headings name the box");
check(/^MLPWLDialog_/.test(nameOf(options().slice(0, 8))), "eight options");

host.onDialog(m => {
  check(/There are 2000 points.*\n.*maximum of 256/.test(m.message().text), m.message().text);
  m.accept();
});
equal(box([new Array(4000).fill("1")], d => { equal(d.rows(grid), 0); d.accept(); }), [],
  "too many points give an empty table");
equal(box([new Array(4000).fill("1")].concat([options({ 6: "2000" })]), d => {
  equal(d.rows(grid), 2001);
  d.accept();
}).length, 4000);
const long = "x".repeat(1e6);
box([[long, long], [long, long, long, long, long]], d => d.reject());
