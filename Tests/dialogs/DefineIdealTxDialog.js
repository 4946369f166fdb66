// DefineIdealTxDialog: the table of windings and what follows from it at every key, rows that come
// and go, the keyboard, ways out.

const none = { made: false, type: null, values: [] };
const table = "windingsTable", primaries = "numPrimariesEdit", secondaries = "numSecondariesEdit";

function box(device, first, second, act, ...kind) {
  host.onDialog(act);
  return host.call("DefineIdealTxDialog", device, first, second, ...kind);
}
const accept = d => d.accept();
const column = (d, index) => d.table(table).map(row => row[index]);

// --- loading, and what comes back ---------------------------------------------------------------

const ones = count => Array(count).fill(1);
for (const [device, first, second, result] of [
  [[], [], [], [1e-5, 0.99, 0.99, 0.99, 1, 1, 1, 1]],
  [[2e-6, 0.9, 0.8, 0.7, 2, 1], [10, -5], [-3], [2e-6, 0.9, 0.8, 0.7, 2, 1, 10, -5, -3]],
  [[2e-6, 2, -2, 0.5, 0, -1], [10, 5], [3], [2e-6, 1, -1, 0.5, 1, 0, 10]],
  [[2e-6, 0, 0, 0, 2.5, 1e9], [4], [], [2e-6, 0, 0, 0, 3, 20, 4, 1, 1, ...ones(20)]],
  [[NaN, NaN, NaN, NaN, NaN, NaN], [NaN], [NaN, 2], [1e-5, 0.99, 0.99, 0.99, 1, 1, 1, 1]],
  [[1e-5, 0, 0, 0, 1, 1], [0], [-0], [0, 0, 0, 0, 1, 1, 0, 0]], // no turns, no inductance of one
  [[-1, 0, 0, 0, 1, 0], [3], [], [0, 0, 0, 0, 1, 0, 3]],
]) {
  const loaded = box(device, first, second, accept);
  equal(loaded, { made: true, type: "real", values: result }, `loaded ${device}`);
  const [p, s] = loaded.values.slice(4);
  equal(box(loaded.values, loaded.values.slice(6, 6 + p), loaded.values.slice(6 + p, 6 + p + s), accept),
        loaded, `reopened ${device}`);
}

box([2e-6, 0.9, 0.8, 0.7, 2, 2], [10, -5], [-3, 0], d => {
  equal([d.name, d.title, d.headers(table)], ["BaseDefineIdealTxDialog", "Define Ideal Transformer",
        ["Winding", "Number of turns", "Polarity", "Inductance"]]);
  equal(d.table(table), [["Primary 1", "10", "+", "200u"], ["Primary 2", "5", "-", "50uH"],
                         ["Secondary 1", "3", "-", "18uH"], ["Secondary 2", "0", "+", "0H"]]);
  equal([d.get(primaries, "max"), d.get(secondaries, "max"), d.visible("couplingFactorEdit"),
         d.visible("defineCoreGroupBox")], [20, 20, false, false]);
  equal(["primaryTurnsEdit1", "secondaryPolarityCombo2", "primaryInductanceEdit1", "primaryInductanceLabel2"]
          .map(name => d.get(name, "accessibleName")),
        ["Primary 1, Number of turns", "Secondary 2, Polarity", "Primary 1, Inductance",
         "Primary 2, Inductance: 50uH"]);
  d.press("Help");
  d.reject();
});
equal(host.helpRequests().pop(), "2531", "Ideal_Transformers");

box([], [-4], [1, -1], d => {
  equal([d.title, d.columns(table), d.visible("inductanceAndCouplingGroupBox")],
        ["Define Ideal DC Transfromer", 3, false]);
  d.set(secondaries, "0");
  equal(d.text(secondaries), "1");
  d.press("Help");
  d.set(secondaries, "2");
  d.cell(table, 0, 1, "5");
  d.accept();
}, "NonInd");
equal(host.helpRequests().pop(), "2532", "DC_Transformer");
equal(box([1e-5], [-4], [], accept, "nonind").values, [1e-5, 0.99, 0.99, 0.99, 1, 1, -4, 1]);

// --- inductances follow every key ---------------------------------------------------------------

box([1e-5, 0, 0, 0, 1, 1], [10], [20], d => {
  const seen = [];
  const press = (field, ...keys) => keys.forEach(key => {
    d.key(field, key);
    seen.push(d.text("secondaryInductanceLabel1"));
  });
  d.type("secondaryTurnsEdit1", "");
  press("secondaryTurnsEdit1", "3", "0", "-", "Backspace", "Up");
  equal(seen, ["90uH", "9mH", "4mH", "9mH", "9.61mH"], "its own turns");
  seen.length = 0;
  d.type("primaryTurnsEdit1", "");
  press("primaryTurnsEdit1", "5", "0", "Backspace");
  equal(seen, ["38.44mH", "384.4uH", "38.44mH"], "the turns of the first primary");
  seen.length = 0;
  d.type("primaryInductanceEdit1", "");
  press("primaryInductanceEdit1", "2", "m");
  equal(seen, ["76.88H", "76.88mH"], "its inductance");
  d.set("primaryTurnsEdit1", "-5");
  equal([d.text("primaryTurnsEdit1"), d.text("secondaryInductanceLabel1")], ["0", "0H"]);
  d.reject();
});

// --- rows come and go ---------------------------------------------------------------------------

equal(box([1e-5, 0, 0, 0, 2, 2], [1, -2], [3, -4], d => {
  d.set("secondaryTurnsEdit2", "44");
  d.set("primaryTurnsEdit2", "22");
  d.set(primaries, "1");
  d.set(secondaries, "1");
  equal(column(d, 0), ["Primary 1", "Secondary 1"]);
  d.set("primaryPolarityCombo1", "-");
  d.set(primaries, "3");
  d.set(secondaries, "2");
  equal(column(d, 1), ["1", "22", "1", "3", "44"], "what was taken away comes back");
  equal(column(d, 2), ["-", "-", "+", "+", "-"]);
  equal(column(d, 3), ["10u", "4.84mH", "10uH", "90uH", "19.36mH"]);
  d.accept();
}).values.slice(4), [3, 2, -1, -22, 1, 3, -44]);

// Rows that come leave what was typed in a cell as it is.
for (const [text, ending] of [["7", 7], ["4k7", 4700], ["{2*Rload}", 0], ["1e400", 1e100], ["soon", 3]])
  equal(box([1e-5, 0, 0, 0, 1, 1], [2], [3], d => {
    d.type("secondaryTurnsEdit1", text);
    for (const name of [primaries, secondaries, primaries])
      d.set(name, String(d.value(name) + 1));
    equal(d.text("secondaryTurnsEdit1"), { "4k7": "4.7k", "1e400": "1e100" }[text] || text);
    d.accept();
  }).values.slice(4), [3, 2, 2, 1, 1, ending, 1], text);

// OK by its key takes a count and a cell that are still open; Escape leaves no trace.
equal(box([], [2], [3], d => {
  d.type(secondaries, "3");
  d.key(null, "Alt+O");
}).values.slice(4), [1, 3, 2, 3, 1, 1]);
equal(box([], [2], [3], d => {
  d.type("primaryTurnsEdit1", "8");
  d.key(null, "Return");
}).values.slice(4), [1, 1, 8, 3]);
for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel"),
                     d => d.key("secondaryTurnsEdit1", "Escape")])
  equal(box([], [2], [3], d => {
    d.type("secondaryTurnsEdit1", "8");
    leave(d);
  }), none);

// An expression stands; one in a count leaves the windings that there are.
box([], [2], [3], d => {
  d.set("primaryInductanceEdit1", "{L}");
  d.set(secondaries, "2");
  equal([d.text("primaryInductanceEdit1"), d.text("secondaryInductanceLabel1")], ["{L}", "0H"]);
  d.reject();
});
equal(box([], [2], [3, 4], d => {
  d.set(secondaries, "2");
  d.set(secondaries, "{N}");
  d.accept();
}).values.slice(4), [1, 2, 2, 3, 4]);

// --- by keyboard alone --------------------------------------------------------------------------

const visited = (d, key, count) => Array.from({ length: count }, () => {
  d.key(null, key);
  return d.focused();
});
equal(box([1e-5, 0.9, 0.8, 0.7, 1, 0], [2], [3], d => {
  equal(d.focused(), primaries);
  d.key(null, "2"); // replaces what is there
  d.key(null, "Tab");
  d.key(null, "1");
  equal(visited(d, "Tab", 13),
        ["primaryCouplingEdit", "primarySecondaryCouplingEdit", "secondaryCouplingEdit",
         "primaryTurnsEdit1", "primaryPolarityCombo1", "primaryInductanceEdit1", "primaryTurnsEdit2",
         "primaryPolarityCombo2", "secondaryTurnsEdit1", "secondaryPolarityCombo1", "okButton",
         "cancelButton", "helpButton"]);
  equal(visited(d, "Shift+Tab", 4), ["cancelButton", "okButton", "secondaryPolarityCombo1", "secondaryTurnsEdit1"]);
  d.key(null, "5");
  d.key(null, "Tab");
  d.key(null, "Down");
  d.key(null, "Return");
}).values, [1e-5, 0.9, 0.8, 0.7, 2, 1, 2, 1, -5]);

// The row that has the focus goes away: the keyboard is still somewhere.
box([], [2], [3], d => {
  d.type("secondaryTurnsEdit1", "8");
  d.set(secondaries, "0");
  check(d.focused() !== "", "somewhere");
  d.key(null, "Tab");
  check(d.has(d.focused()), d.focused());
  d.reject();
});

// Twenty of each, open at once; the table scrolls along.
box([1e-5, 0, 0, 0, 20, 20], Array.from({ length: 20 }, (_, i) => i + 1), [], d => {
  equal([d.rows(table), d.text("primaryInductanceLabel20")], [40, "4mH"]);
  d.type("primaryTurnsEdit1", "7");
  d.key(null, "Tab");
  d.key(null, "Tab");
  const last = "secondaryTurnsEdit20";
  visited(d, "Tab", 39 * 2 - 1);
  equal(d.focused(), last);
  const bottom = d.get(last, "y") + d.get(last, "height");
  check(bottom < d.get(table, "height") - 20, `scrolled to ${bottom}`); // below the headings
  const start = host.now();
  d.set(primaries, "1");
  d.set(primaries, "20");
  check(host.now() - start < 5000, "rows come in no time");
  equal(column(d, 1).slice(0, 20), ["7", ...Array.from({ length: 19 }, (_, i) => String(i + 2))]);
  d.reject();
});
