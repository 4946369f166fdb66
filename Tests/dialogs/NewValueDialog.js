// NewValueDialog: fields of four kinds, their limits, and where they stand.

function box(args, act) {
  host.onDialog(act);
  return NewValueDialog(...args);
}
// One field, accepted untouched: what comes back.
const untouched = (definition, value) => box([[definition], [value]], d => d.accept());

// --- kinds and initial values -------------------------------------------------------------------

for (const [definition, value, result] of [
  ["R", "4.7k", "4.7k"],
  ["R:REAL", "{2*Rload}", "{2*Rload}"],
  ["R", "", ""],
  ["N:Int", "12", "12"],
  ["f:BOOL", "TRUE", "1"], ["f:bool", "False", "0"], ["f:bool", "2", "1"], ["f:bool", "0.5", "0"],
  ["f:bool", "", "0"],
  ["t:string", "a:b|c", "a:b|c"],
  ["t:colour", "red", "red"],
  ["c:list:A|B|a|4:1", "A", "a"], ["c:list:A|B|C", "b", "B"], ["c:list:A|B|C", "2", "C"],
  ["c:list:A|B|4:1", "4:1", "4:1"], ["c:list:A|B", "7", "A"], ["c:list:A|B", "nonsense", "A"],
  ["c:list", "x", ""],
])
  equal(untouched(definition, value), [result], `${definition} of ${value}`);

equal(box([["a", "b:string", "c:bool", "d:list:x|y"], []], d => d.accept()), ["", "", "0", "x"],
      "values that are missing");

// --- limits -------------------------------------------------------------------------------------

const spinner = ["min", "max", "increment", "engMode", "step125", "wholeNumber"];
for (const [definition, expected] of [
  ["R", [-1e100, 1e100, 1, true, true, false]],
  ["R::1m|10k", [0.001, 1e4, 1, true, true, false]],
  ["R::||0.25", [-1e100, 1e100, 0.25, false, false, false]],
  ["R::", [-1e100, 1e100, 1, true, true, false]],
  ["R::||-2", [-1e100, 1e100, 1, true, true, false]],
  ["N:integer", [0, 2147483647, 1, false, false, true]],
  ["N:int:-5|5|2", [-5, 5, 2, false, false, true]],
])
  box([[definition], ["1"]], d => {
    equal(spinner.map(p => d.get("Spinner0", p)), expected, definition);
    d.reject();
  });
equal(box([["R::0|10|0.25"], ["1"]], d => {
  d.key("Spinner0", "Up");
  equal(d.text("Spinner0"), "1.25");
  d.set("Spinner0", "99");
  d.accept();
}), ["10"]);
// What nobody has changed stays, in the field that has the focus, too; what is changed is held.
for (const type of ["", "int"])
  equal(box([[`R:${type}:0|10`, `S:${type}:0|10`, `T:${type}:0|10`], ["99", "99", "99"]], d => {
    d.key(null, "Tab");
    d.key(null, "Tab");
    d.key("Spinner2", "Backspace");
    d.type("Spinner2", "98");
    d.key("Spinner0", "Return");
  }), ["99", "99", "10"], `limits of ${type}`);

// --- order, groups, keyboard --------------------------------------------------------------------

const mixed = ["Choice:list:A|B", "Text:string", "Flag:bool", "Real", "Whole:int"];
equal(box([mixed, ["B", "t", "1", "1k", "3"], ["Mixed"]], d => {
  equal([d.title, d.focused()], ["Mixed", "ComboBox0"], "the field defined first has the focus");
  check(!d.visible("helpButton") && !d.visible("selectAllButton"), "unused buttons");
  d.key(null, "Up");
  for (const name of ["okButton", "cancelButton", "Spinner3", "Spinner4", "CheckBox2", "EditBox1"]) {
    d.key(null, "Tab");
    equal(d.focused(), name, "Tab goes by what is seen");
  }
  d.key(null, "z");
  d.key(null, "Return");
}), ["A", "z", "1", "1k", "3"]);

for (const first of ["R", "t:string"])
  equal(box([[first, "f:bool"], ["10", "0"]], d => { d.key(null, "7"); d.accept(); })[0], "7",
        "the first text is selected");

// Nine numbers and two flags: two columns of five rows, a line, and the flags.
const position = (d, name) => [d.get(name, "geometry").x, d.get(name, "geometry").y];
box([new Array(9).fill("n").concat(["f:bool", "g:bool"]), []], d => {
  const [x0, y0] = position(d, "Spinner0");
  check(position(d, "Spinner1")[0] > x0 && position(d, "Spinner1")[1] === y0, "two in a row");
  check(position(d, "Spinner8")[0] === x0, "the ninth starts the fifth");
  check(position(d, "CheckBox9")[1] > position(d, "Spinner8")[1], "flags below");
  check(position(d, "CheckBox10")[1] > position(d, "CheckBox9")[1], "one flag a row");
  equal(d.names().filter(n => /^Line\d+$/.test(n)), ["Line5"]);
  check(position(d, "Line5")[1] > position(d, "Spinner8")[1] &&
        position(d, "Line5")[1] < position(d, "CheckBox9")[1], "a line between them");
  d.reject();
});

// A field is as wide as its first text, within reason.
box([["a", "b", "c:string", "d:string"], ["1", "{Rload*(1+tolerance)}", "x".repeat(30), "x".repeat(3000)]], d => {
  const [one, expression, text, long] = ["Spinner0", "Spinner1", "EditBox2", "EditBox3"].map(w => d.get(w, "minimumWidth"));
  check(expression > one + 50 && text > expression && long > text && long < 600, `${one} ${expression} ${text} ${long}`);
  d.reject();
});

// --- names and help -----------------------------------------------------------------------------

const name = (...args) => {
  let seen;
  box(args, d => { seen = d.name; d.reject(); });
  return seen;
};
const plain = name(["a"], [], ["T"]);
check(/^NewValueDialog_\d+$/.test(plain), plain);
check(plain === name(["a"], ["5"], ["T"]), "values do not matter");
check(plain !== name(["b"], [], ["T"]) && plain !== name(["a"], [], ["U"]), "what is shown does");
check(name(["a"], [], ["T", "5"]) === name(["b"], [], ["U", "5x"]), "a help number says it all");
box([["a"], [], ["T", "42"]], d => { d.press("Help"); d.reject(); });
equal(host.helpRequests().pop(), "42");

// --- cancel, and what a script may hand in ------------------------------------------------------

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")]) {
  host.onDialog(d => { d.type("Spinner0", "99"); leave(d); });
  equal(host.call("NewValueDialog", ["a"], ["1"]), { made: false, type: null, values: [] });
}
equal(box([[], []], d => { equal(d.title, ""); d.accept(); }), [], "no fields");
let said = "";
try { NewValueDialog(["a"]); } catch (error) { said = String(error); }
check(said.includes("2 to 3"), said);

equal(box([new Array(1e6).fill("a"), []], d => {
  check(d.message().text.includes("1000000"), "a million fields are refused in words");
  d.accept();
}), []);

// A long list opens at once.
const items = Array.from({ length: 100000 }, (_, i) => `Part ${i}`);
const begin = host.processTime();
equal(box([[`Part:list:${items.join("|")}`], ["part 99999"]], d => d.accept()), ["Part 99999"]);
check(host.processTime() - begin < 1500, `100,000 items took ${host.processTime() - begin} ms`);

const long = "x".repeat(1e6);
const back = box([[long, long + ":bool", "t:string", "c:list:a|" + long], ["1", "1", long, "1"], [long]],
                 d => d.accept());
check(back[0] === "1" && back[1] === "1" && back[2] === long && back[3] === long, "texts of any length");
