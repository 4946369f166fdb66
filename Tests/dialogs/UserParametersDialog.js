// UserParametersDialog: rows, editing in place, ways out with an editor open.

function box(args, act) {
  host.onDialog(act);
  return host.call("UserParametersDialog", ...args);
}
const view = "listView1";
const none = { made: false, type: null, values: [] };
const texts = values => ({ made: true, type: "string", values });
const names = ["W", "L", "M"];
const values = ["10u", "{Lmin*2}", "1"];

// --- what is shown ------------------------------------------------------------------------------

equal(box([names, values], d => {
  equal([d.name, d.title, d.modal], ["UserParametersDialog", "Edit Parameters", true]);
  equal(d.headers(view), ["Parameters", "Values"]);
  equal(d.table(view), [["W", "10u"], ["L", "{Lmin*2}"], ["M", "1"]]);
  equal([d.focused(), d.current(view)], [view, 0], "the user starts in the first row");
  equal([d.text("okButton"), d.visible("cancelButton")], ["&Ok", true]);
  d.accept();
}), texts(values));

for (const [title, shown] of [[["MOS"], "MOS"], [[], "Edit Parameters"], [[""], "Edit Parameters"]])
  box([names, values, title], d => { equal(d.title, shown); d.reject(); });

// A row for each name.
for (const [given, result] of [
  [["10u"], ["10u", "", ""]],
  [[], ["", "", ""]],
  [["1", "2", "3", "4"], ["1", "2", "3"]],
])
  equal(box([names, given], d => d.accept()), texts(result), `${given.length} values`);
for (const first of [[], ["a"]])
  equal(box([[], first], d => {
    for (const key of ["Space", "F2", "Down"])
      d.key(view, key);
    d.accept();
  }), texts([]), "no parameters");

// --- editing ------------------------------------------------------------------------------------

// By keyboard alone: Space and F2 open the value whole, Return commits, Escape gives up.
equal(box([names, values], d => {
  d.key(null, "Space");
  check(d.has("QLineEdit:0"), "Space opens the editor");
  equal([d.text("QLineEdit:0"), d.get("QLineEdit:0", "accessibleName")], ["10u", "W"]);
  d.key(null, "2");
  d.key(null, "Return");
  check(d.isOpen, "Return ends the edit, not the dialog");
  d.key(null, "Down");
  d.key(null, "F2");
  d.key(null, "9");
  d.key(null, "Escape");
  check(d.isOpen, "Escape ends the edit, not the dialog");
  equal(d.cell(view, 1, 1), "{Lmin*2}");
  d.key(null, "Down");
  d.key(null, "Space");
  d.key(null, "4");
  d.key(null, "Tab");
  equal(d.focused(), "okButton", "Tab takes what was typed and leaves the view");
  d.key(null, "Shift+Tab");
  equal(d.current(view), 2);
  d.key(null, "Space");
  d.key(null, "Shift+Tab");
  equal(d.focused(), "cancelButton", "and so it does backwards");
  d.key(null, "Shift+Tab");
  d.key(null, "Return");
}), texts(["2", "{Lmin*2}", "4"]));

// The whole row answers to the mouse; a name never changes.
equal(box([names, values], d => {
  d.doubleClick(view, 1, 0);
  d.key(null, "7");
  d.key(null, "Return");
  d.doubleClick(view, 2, 1);
  d.key(null, "8");
  d.key(null, "Return");
  equal(d.table(view), [["W", "10u"], ["L", "7"], ["M", "8"]]);
  d.click(view, 0, 0);
  d.key(null, "x");
  equal(d.cell(view, 0, 1), "10u", "other keys change nothing");
  d.accept();
}), texts(["10u", "7", "8"]));

// A letter goes to the name that begins so, from either column; Return on a row is OK.
for (const column of [0, 1])
  equal(box([["alpha", "beta", "gamma"], ["g1", "g2", "b3"]], d => {
    d.click(view, 0, column);
    d.key(null, "g");
    equal(d.current(view), 2, `from column ${column}`);
    d.key(null, "F2");
    d.key(null, "7");
    d.key(null, "Return");
    d.key(null, "Return");
  }), texts(["g1", "g2", "7"]));

// OK with the editor open.
for (const [way, accept] of [
  ["mouse", d => d.click("okButton")],
  ["Alt+O", d => d.key(null, "Alt+O")],
  ["Return on the button", d => { d.key(null, "Tab"); d.key(null, "Return"); }],
])
  equal(box([names, values], d => {
    d.key(null, "Space");
    d.key(null, "5");
    accept(d);
  }), texts(["5", ...values.slice(1)]), `OK by ${way}`);

for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  equal(box([names, values], d => { d.cell(view, 0, 1, "99"); leave(d); }), none);
equal(box([names, values], d => { d.key(null, "Space"); d.key(null, "9"); d.press("Cancel"); }), none);

// Texts stay as they are, opened or not.
const odd = ["", " a ", "4.70k", "a;b", "one\ntwo", "<b>x</b>", "µΩ – 電圧 😀", "\t", "\r\n",
             "x".repeat(100000)];
equal(box([odd, odd], d => d.accept()), texts(odd));
equal(box([odd, odd], d => {
  odd.forEach((_, row) => { d.current(view, row, 1); d.key(view, "F2"); d.key(null, "Return"); });
  d.accept();
}), texts(odd), "opened and closed again");
equal(box([["a"], ["1"]], d => { d.cell(view, 0, 1, " {a; b} µ "); d.accept(); }), texts([" {a; b} µ "]));

// --- many, long, wrong --------------------------------------------------------------------------

const many = Array.from({ length: 1000000 }, (_, i) => `p${i}`);
const result = box([many, many], d => {
  d.key(null, "End");
  d.key(null, "Space");
  d.key(null, "1");
  d.accept();
}).values;
equal([result.length, ...result.slice(-2)], [many.length, "p999998", "1"]);

const long = "x".repeat(1000000);
equal(box([[long], [long], [long]], d => { d.key(null, "Down"); d.accept(); }), texts([long]));

for (const [args, part] of [[[], "2 to 3"], [[names], "2 to 3"], [[names, [1]], "argument 2"]]) {
  let said = "";
  try { UserParametersDialog(...args); } catch (error) { said = String(error); }
  check(said.includes("UserParametersDialog") && said.includes(part), said);
}
