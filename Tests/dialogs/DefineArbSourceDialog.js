// DefineArbSourceDialog: each way out of the checks of the expression, two layouts, what the host asks.

const none = { made: false, type: null, values: [] };
const strong = (before, e, after) => `<html><p>${before}:</p><p><strong>${e}</strong></p>${after}</html>`;
const reenter = "<p>Please re-enter and try again";
const logText = "<p>Makes use of the log() function which can be ambiguous.<br>From version 9.2 Kelvarin interprets log() as log to base e<br>in common with other simulators. Kelvarin version 9.1 and <br>earlier interpret log() as log to base 10.</p><p>If you require compatibility with older Kelvarin versions<br>we recommend using <strong>ln()</strong> for log to base e and <strong>log10()</strong> for log to<br>base 10";
const mText = "<p>uses the parameter <b>M</b>. This is reserved as a device multiplier and may not be used in an arbitrary source expression.</p>Choose a different name for this parameter";
const boxes = {
  Parentheses: e => ["Mismatched Parentheses", "critical", strong("The expression has mis-matched parentheses", e, reenter), ["OK", "Cancel"]],
  Syntax: e => ["Syntax Error", "critical", strong("There is a syntax error with the expression", e, reenter), ["OK", "Cancel"]],
  Log: e => ["Use of log() Function", "warning", strong("The expression", e, logText), ["Edit", "Accept", "Accept and don't ask again", "Cancel"]],
  M: e => ["M Parameter is Reserved", "critical", strong("The expression", e, mText), ["OK"]],
};

function open(definition, act, ...layout) {
  host.onDialog(act);
  return host.call("DefineArbSourceDialog", definition, ...layout);
}

// Types an expression and presses Ok, which opens `box` (null: none) showing `shown`, left by `leave`
// (a caption or a function). Then the dialog is open for editing, or gone.
function settle(d, expression, box, leave, shown = expression) {
  if (box)
    host.onDialog(b => {
      const m = b.message();
      equal([m.title, m.icon, m.text, m.buttons], boxes[box](shown), `box of ${expression}`);
      typeof leave === "function" ? leave(b) : b.press(leave);
    });
  d.set("expressionEdit", expression);
  d.accept();
  if (d.isOpen)
    equal(d.focused(), "expressionEdit", "back to the expression");
}

// --- by keyboard alone, in both layouts ---------------------------------------------------------

equal(open(["V(N1)"], d => {
  equal([d.name, d.title, d.modal], ["DefineArbSourceDialog", "Define Arbitrary Source", true]);
  equal([d.text("expressionEdit"), d.value("numVoltagesEdit"), d.value("numCurrentsEdit")], ["V(N1)", 1, 0]);
  equal(d.text("expressionLabel"), "Use I(Vn) for input currents and V(Nn) for input voltages");
  equal(["inputGroupBox", "implementationGroupBox", "parametersGroupBox"].map(w => d.visible(w)), [true, false, false]);
  equal(d.focused(), "expressionEdit");
  for (const key of ["Ctrl+End", "*", "Return", "2", "Tab", "Up", "Tab", "3", "Tab", "Down", "Down", "Alt+O"])
    d.key(null, key);
}).values, ["V(N1)*\n2", "2", "3", "2", "0", ""]);

equal(open(["V(IN1)", "7", "8", "3", "1", "a = 1"], d => {
  equal(d.text("expressionLabel").trim(), "Enter an expression to define the output.\nClick ? button for more information");
  equal(["inputGroupBox", "implementationGroupBox", "parametersGroupBox"].map(w => d.visible(w)), [false, true, true]);
  for (const key of ["Tab", "Ctrl+End", "Return", "b", "Tab", "Up", "Tab", "Up", "Ctrl+Return"])
    d.key(null, key);
}, "Advanced").values, ["V(IN1)", "7", "8", "2", "0", "a = 1\nb"], "the hidden counts come back");

equal(open(["x", "7", "8", "3", "1", "* p\na = {b}"], d => d.accept(), "simple").values,
  ["x", "7", "8", "3", "1", "* p\na = {b}"], "so do what is hidden in the simple layout");

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel"), d => d.key("expressionEdit", "Escape")])
  equal(open(["x"], d => { d.type("expressionEdit", "("); leave(d); }), none);

open(["x"], d => {
  check(d.get("expressionEdit", "whatsThis").includes("Diifferential output voltage"));
  check(d.get("textedit", "whatsThis").includes("must be defines globally, e.g. in the F11 window"));
  equal([d.get("expressionEdit", "className"), d.get("textedit", "className")], ["QPlainTextEdit", "TextEdit"]);
  d.set("numVoltagesEdit", "3.5");
  d.set("numCurrentsEdit", "-1");
  equal([d.text("numVoltagesEdit"), d.text("numCurrentsEdit")], ["4", "0"]);
  d.press("Help");
  d.reject();
});
equal(host.helpRequests().pop(), "2511", "Non_linear_Transfer_Function");

// --- the three boxes ----------------------------------------------------------------------------

// One dialog, refused again and again, and accepted in the end.
equal(open(["V(a"], d => {
  settle(d, "V(a", "Parentheses", "OK");
  settle(d, "", "Syntax", "OK");
  settle(d, ")a(", "Syntax", "OK");
  settle(d, "a<b>c &lt; <img src='file:///x.png'/>+", null); // a quote: the host says nothing, and it is let through
}).values[0], "a<b>c &lt; <img src='file:///x.png'/>+");

equal(open(["x"], d => {
  settle(d, "<b>x</b> & \"y\" %1", "Syntax", "OK", "&lt;b>x&lt;/b> &amp; \"y\" %1");
  settle(d, "a b\nc", "Syntax", b => b.accept(), "a b\nc");
  settle(d, "2 * M", "M", "OK");
  settle(d, "log(x)", "Log", "Edit");
  settle(d, "LOG (M)", "Log", b => b.accept());
  settle(d, "a < b ? V(m) : 1m", null);
}).values[0], "a < b ? V(m) : 1m");

for (const [expression, box, leave] of [
  ["V(a", "Parentheses", "Cancel"],
  ["a +", "Syntax", "Cancel"],
  ["a +", "Syntax", b => b.reject()],
  ["a +", "Syntax", b => b.close()],
  ["log(a)", "Log", "Cancel"],
  ["log(a)", "Log", b => b.reject()],
  ["log(a)", "Log", b => b.close()],
])
  equal(open(["x"], d => {
    settle(d, expression, box, leave);
    check(!d.isOpen, "closed as cancelled");
  }), none, `${expression}: ${leave}`);

// What the user has just let through is not tested for M; once the option is set, it is.
equal(open(["x"], d => settle(d, "log(M)", "Log", "Accept")).values[0], "log(M)");
equal(host.option("DontWarnArbLogFunction"), null, "asked again");
equal(open(["x"], d => settle(d, "M+log(M)", "Log", "Accept and don't ask again")).values[0], "M+log(M)");
equal(host.option("DontWarnArbLogFunction"), "true");
equal(open(["x"], d => { settle(d, "log(M)", "M", "OK"); settle(d, "log(x)", null); }).values[0], "log(x)");
host.option("DontWarnArbLogFunction", null);

// Neither a name nor a text is a call.
for (const expression of ["log + V(log)", "log10(2)", "mine(\"log(2)\")", "a+++b", "V(in+++)", "I(a++++)", "mine(\"+++\")"])
  equal(open([expression], d => d.accept()).values[0], expression);

// A message has room for every expression.
for (const long of ["V(N1)+".repeat(1e4), "x ".repeat(1e5), "<".repeat(1e5), "\n(".repeat(1e4), "😀".repeat(1e4) + "+"])
  open([long], d => {
    host.onDialog(b => {
      check(b.get("qt_msgbox_label", "width") < 1000 && b.get("qt_msgbox_label", "height") < 700, long.slice(0, 9));
      b.press("Cancel");
    });
    d.accept();
  });
const deep = "(".repeat(1e5) + "1" + ")".repeat(1e5);
equal(open([deep], d => d.accept()).values[0].length, deep.length, "as deep as anybody likes");

// --- what the host is asked, and what it may answer ---------------------------------------------

let asked = [];
const scripts = e => [
  `length(ParseSimExpression('${e}', '', '', 'spice'))`,
  `StrStr(ParseSimExpression('${e}', 'log,+++', '', 'spice'), '+++')`,
  `_TestExpressionUsesM('${e}')`,
];
function answers(...values) {
  asked = [];
  host.provide("dyn_EvaluateExpression", text => {
    asked.push(text);
    const value = values[asked.length - 1];
    if (value === undefined) throw new Error("cannot");
    return value;
  });
}

for (const values of [[1, -1, 0], [], [-1], [0.5, NaN, undefined]]) {
  answers(...values);
  equal(open(["it's"], d => d.accept()).values[0], "it's");
  equal(asked, scripts("it's"), `asked, answered ${values}`);
}
for (const [values, box] of [
  [[0], "Syntax"], [[NaN], "Syntax"], [[undefined, 0], "Log"], [[undefined, -0.5], "Log"],
  [[1, undefined, -1], "M"], [[1, -1, 0.1], "M"],
]) {
  answers(...values);
  open(["e"], d => { settle(d, "e", box, "M" === box ? "OK" : "Cancel"); if (d.isOpen) d.reject(); });
}
host.provide("dyn_EvaluateExpression", null);
equal(open(["V(a"], d => d.accept()).values[0], "V(a", "a host that cannot evaluate");
host.provide("dyn_EvaluateExpression", undefined);

// A quote of the user's runs nothing.
let ran = 0;
for (const name of ["length", "StrStr", "ParseSimExpression", "_TestExpressionUsesM"])
  host.provide(name, () => [++ran]);
for (const e of ["a', '', '', 'spice')), length('b", "a'), StrStr('b', 'c", "a', length('b'), 'c"])
  equal(open([e], d => d.accept()).values[0], e);
equal(ran, 0);
for (const name of ["length", "StrStr", "ParseSimExpression", "_TestExpressionUsesM"])
  host.provide(name, undefined);

// --- what a script may hand in ------------------------------------------------------------------

for (const [definition, result] of [
  [["x"], ["x", "1", "0", "0", "0", ""]],
  [["x", "-1", "2.6", "4", "-1", ""], ["x", "-1", "2.6", "0", "0", ""]],
  [["x", "{n}", "4.7k", "nonsense", "1e400"], ["x", "{n}", "4.7k", "0", "0", ""]],
  [["a\r\n+ b", "", "", "", "", "p = 1\r\nq = 2"], ["a\r\n+ b", "", "", "0", "0", "p = 1\r\nq = 2"]],
  [["x", ...new Array(1e6).fill("1")], ["x", "1", "1", "1", "1", "1"]],
])
  equal(open(definition, d => d.accept()).values, result, `${definition.slice(0, 6)}`);
equal(open(["a\r\n+ b"], d => { d.key("expressionEdit", "x"); d.key("expressionEdit", "Ctrl+Z"); d.accept(); }).values[0], "a\r\n+ b");
host.onDialog(d => { host.onDialog(b => b.press("OK")); d.accept(); d.set("expressionEdit", "1"); d.accept(); });
equal(DefineArbSourceDialog([]), ["1", "1", "0", "0", "0", ""], "nothing given");
for (const wrong of [[], [1], [["x"], "simple", "more"]]) {
  let refused = "";
  try { DefineArbSourceDialog(...wrong); } catch (error) { refused = error.message; }
  check(refused.includes("DefineArbSourceDialog"), refused);
}
