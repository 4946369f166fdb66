// NewPassiveDialog, EditReactiveDialog: a preferred value times a decade, and what the user types instead.

const none = { made: false, type: null, values: [] };
const all = d => [d.text("baseEdit"), d.text("decadeEdit"), d.text("resultEdit")];

function box(args, act, name = "NewPassiveDialog") {
  host.onDialog(act);
  return host.call(name, ...args).values;
}

// --- what base and decade make of a text, and what an untouched OK gives -------------------------------

for (const [text, base, decade] of [
  ["4.7k", "4.7", "1k"], ["0", "0", "1"], ["-4.7k", "-4.7", "1k"], ["4.99k", "4.99", "1k"],
  ["10k", "1", "10k"], ["{2*Rload}", "1", "1"], ["680n", "6.8", "100n"],
])
  equal(box([[text]], d => {
    equal(all(d), [base, decade, text]);
    equal([d.focused(), d.visible("initialConditionGroup"), d.visible("parametersButton")], ["resultEdit", false, false]);
    d.accept();
  }), [text, "0"], text);

// --- each follows the others, and is never rewritten by what it caused ----------------------------------

equal(box([["1k"], ["", "E12"]], d => {
  d.set("resultEdit", "4.99k");
  equal(all(d), ["4.99", "1k", "4.99k"], "a typed value is no preferred one and stays");
  d.key("baseEdit", "Up");
  equal(all(d), ["5.6", "1k", "5.6k"]);
  d.key("decadeEdit", "Down");
  equal(all(d), ["5.6", "100", "560"]);
  for (let i = 0; i < 11; i++)
    d.key("decadeEdit", "Down");
  equal(d.value("resultEdit"), 5.6e-9);
  d.set("resultEdit", "{x}");
  equal(all(d), ["5.6", "1n", "{x}"], "an expression tells nothing");
  d.set("baseEdit", "{y}");
  equal(d.text("resultEdit"), "{x}", "and is not read as a base");
  d.set("baseEdit", "3.3");
  d.accept();
}), ["3.3n", "0"]);
for (const [series, button, value, up, down] of [
  ["E24", "rbE24", "9.1", "9.1", "8.2"], ["e12", "rbE12", "8.2", "8.2", "6.8"],
  ["E6", "rbE6", "6.8", "6.8", "4.7"], ["E96", "rbE24", "1", "1.1", "1"],
])
  box([[value], ["T", series]], d => {
    check(d.checked(button), series);
    d.key("baseEdit", "Up");
    equal(d.text("baseEdit"), up, series);
    d.set("baseEdit", value);
    d.key("baseEdit", "Down");
    equal(d.text("baseEdit"), down, series);
    d.reject();
  });
box([["3.3"]], d => {
  check(d.checked("rbE12"), "the series where none is named");
  d.click("rbE6");
  equal(all(d), ["3.3", "1", "3.3"], "another series changes nothing");
  d.key("baseEdit", "Up");
  equal(d.text("baseEdit"), "4.7", "before the next step");
  d.reject();
});

// --- by keyboard alone; what is typed when Return comes counts ---------------------------------------------

equal(box([["1"]], d => {
  for (const key of "2.2k")
    d.key(null, key);
  d.key(null, "Return");
}), ["2.2k", "0"]);
equal(box([["1"]], d => {
  d.key("baseEdit", "Ctrl+A");
  d.key("baseEdit", "4");
  d.key(null, "Return");
}), ["4", "0"]);

// --- parameters -------------------------------------------------------------------------------------------

const parameters = [["tol", "tc1"], ["1%", "100u"]];
equal(box([["1k"], [], ...parameters], d => {
  host.onDialog(p => { equal(p.table("listView1"), [["tol", "1%"], ["tc1", "100u"]]); p.cell("listView1", 0, 1, "5%"); p.accept(); });
  d.click("parametersButton");
  d.accept();
}), ["1k", "2", "5%", "100u"]);
equal(box([["1k"], [], ["a"], []], d => {
  check(!d.visible("parametersButton"), "names without values");
  d.accept();
}), ["1k", "1", ""]);

for (const [settings, title] of [[[], "Select value"], [[""], ""], [["R3"], "R3"]])
  box([["1"], settings], d => { equal(d.get("valueGroupBox", "title"), title); d.reject(); });
box([["1"]], d => {
  for (let i = 0; i < 330; i++)
    d.key("decadeEdit", "Down");
  d.key("decadeEdit", "Up");
  check(d.value("decadeEdit") > 0, "a decade comes back from the smallest");
  d.reject();
});

for (const leave of [d => d.reject(), d => d.close(), d => d.key(null, "Escape")]) {
  host.onDialog(leave);
  equal(host.call("NewPassiveDialog", ["1k"]), none);
}

// --- capacitors and inductors ------------------------------------------------------------------------------

const reactive = (args, act) => box(args, act, "EditReactiveDialog");
const boxes = ["cbOp", "cbTransient", "cbAC", "cbDC"];
for (const [initial, settings, open, label, offered, ticked, result] of [
  ["", ["T", "E6"], true, "Open circuit", false, [], ["1u", "", "0", "false", "false", "false", "false"]],
  ["5", ["T", "E6", "INDUCTOR"], false, "Short circuit", false, [], ["1u", "5", "0", "false", "false", "false", "false"]],
  ["{v0}", ["T", "E6", "x", "TRUE", "false", "true", "1"], false, "Open circuit", true, ["cbOp", "cbAC"],
    ["1u", "{v0}", "0", "true", "false", "true", "false"]],
  ["1", ["T", "E6", "capacitor", "true"], false, "Open circuit", true, ["cbOp"],
    ["1u", "1", "0", "true", "false", "false", "false"]],
])
  equal(reactive([["1u", initial], settings], d => {
    equal([d.checked("rbOpenCircuit"), d.text("rbOpenCircuit").replace("&", ""), d.visible("icEnableLabel")], [open, label, offered]);
    equal(boxes.filter(b => d.checked(b)), ticked);
    equal(boxes.concat("editInitialVoltage").map(w => d.enabled(w)), boxes.concat("").map(() => !open));
    d.accept();
  }), result);
equal(reactive([["1u"], ["T", "E6", "capacitor", "false"], ...parameters], d => {
  d.click("rbInitialVoltage");
  d.set("editInitialVoltage", "3.3");
  d.set("cbTransient", true);
  d.accept();
}), ["1u", "3.3", "2", "1%", "100u", "false", "true", "false", "false"]);
equal(reactive([["1u", "7"], [], ...parameters], d => {
  d.click("rbOpenCircuit");
  equal([d.enabled("editInitialVoltage"), d.enabled("cbOp")], [false, false]);
  d.accept();
}), ["1u", "", "2", "1%", "100u", "false", "false", "false", "false"]);
