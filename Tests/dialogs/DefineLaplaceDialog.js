// DefineLaplaceDialog: three layouts, and the way out of OK for each answer of the two checkers.

const names = ["expression", "device", "input", "output", "scale", "implementation", "size",
  "errorControl", "relative", "absolute", "extraction", "ifft", "delay", "diagnostics"];
const defaults = ["", "0", "0", "0", "1", "0", "15", "1", "0.05", "1u", "0", "20", "0", "0"];
function definition(values) {
  return names.map((name, i) => name in values ? values[name] : defaults[i]);
}
function box(values, words, act) {
  host.onDialog(act || (d => d.accept()));
  return host.call("DefineLaplaceDialog", definition(values), words).values;
}
// OK, and what is answered to the box that it raises.
function answered(values, words, answer) {
  let message = null;
  let stayed = false;
  const result = box(values, words, d => {
    host.onDialog(m => { message = m.message(); m.press(answer); });
    d.press("OK");
    stayed = d.isOpen;
    if (stayed) {
      equal(d.focused(), "expressionEdit");
      d.reject();
    }
  });
  return { message, stayed, result, implementation: result[5] };
}
const withConvolution = ["allowconvolution"];
const reenter = "<p>Select <strong>OK</strong> to accept change</p><p>Select <strong>Cancel</strong> to re-enter expression</p>";
const only = "<html><p>The Laplace definition entered can only be implemented using the convolution method.</p>";
const older = only + "To use this method the symbol needs to be converted to a format which will not be compatible with version 8.0 or earlier";
const choices = "<p>Select <strong>OK</strong> to re-enter expression</p><p>Select <strong>Cancel</strong> to cancel operation</p>";
const correct = "<p>Correct before continuing</p>";

// Every element, by keyboard where it is typed; line breaks survive.
equal(box({}, withConvolution, d => {
  equal(d.focused(), "expressionEdit");
  equal(d.tabs(), ["Definition", "Advanced Options"]);
  d.set("expressionEdit", "1\n/(1+s)");
  d.set("radioButton9", true);
  d.set("radioButton11_2", true);
  d.set("frequencyScaleEdit", "10k");
  d.set("rbConvolution", true);
  d.set("convolutionSizeEdit", "18");
  d.set("delayEdit", "2n");
  d.tab("Advanced Options");
  d.set("cbEnableErrorControl", false);
  d.set("relativeToleranceEdit", "0.7");
  d.set("absoluteToleranceEdit", "3u");
  check(d.enabled("ifftSizeEdit"), "all methods");
  d.set("rbAnalytic", true);
  check(!d.enabled("ifftSizeEdit"), "analytic");
  d.set("rbInverseFFT", true);
  d.set("ifftSizeEdit", "21.4");
  d.set("rbStehfest", true);
  d.set("checkbox", true);
  d.key(null, "Ctrl+Return");
}), ["1\n/(1+s)", "0", "1", "3", "10k", "1", "18", "0", "0.5", "3u", "3", "21", "2n", "1"]);
equal(box({ expression: "s" }, []), definition({ expression: "s" }));
host.onDialog(d => { d.set("expressionEdit", "1/s"); d.accept(); });
equal(DefineLaplaceDialog([]), definition({ expression: "1/s" }));

// What depends on the implementation, and captions, which follow a click only.
box({ expression: "1/s", device: "2" }, withConvolution, d => {
  equal([d.title, d.text("expressionLabel"), d.enabled("inputGroupBox")],
    ["Define Laplace Transfer Function", "Define output using S variable", true]);
  for (const on of [false, true, false]) {
    if (on || d.checked("rbConvolution"))
      d.set(on ? "rbConvolution" : "rbLumpedNetwork", true);
    for (const group of ["convolutionOptionsGroup", "errorControlGroup", "impulseExtractionMethodGroup",
      "diagnosticsGroup"])
      equal(d.enabled(group), on, group);
  }
  const captions = [["rbImpedance", "Define Impedance", "Define impedance using S variable", false],
    ["rbAdmittance", "Define Admittance", "Define admittance using S variable", false],
    ["rbTransferFunction", "Define Laplace Transfer Function", "Define output using S variable", true]];
  for (const [button, title, label, on] of captions) {
    d.set(button, true);
    equal([d.title, d.text("expressionLabel"), d.enabled("inputGroupBox"), d.enabled("outputGroupBox")],
      [title, label, on, on]);
  }
  d.reject();
});

// The layouts. Words count in any letter case, others do not.
const layouts = [[[], false, false, false], [["other", "SimpleMode"], false, false, true],
  [["simplemode", "ALLOWCONVOLUTION"], false, false, true], [["AllowConvolution", ""], true, true, true]];
for (const [words, pages, implementation, delay] of layouts)
  box({ expression: "1/s", delay: "0" }, words, d => {
    equal(d.tabs().length, pages ? 2 : 1, String(words));
    for (const [w, shown] of [["implementationGroup", implementation], ["convolutionOptionsGroup", implementation],
      ["delayEdit", delay], ["delayLabel", delay], ["delayInfoLabel", delay]])
      equal(d.visible(w), shown, w + " " + words);
    d.reject();
  });

// The sizes that the machine has room for.
for (const [memory, convolution, ifft] of [[2 ** 34, 27, 28], [2 ** 35 - 1, 27, 28], [2 ** 17, 10, 11]]) {
  host.system("memory", memory);
  box({ expression: "1/s" }, withConvolution, d => {
    equal([d.get("convolutionSizeEdit", "max"), d.get("ifftSizeEdit", "max")], [convolution, ifft]);
    d.reject();
  });
}
host.system("memory", null);

// A lumped network needs no question; in simple mode the implementation follows the expression.
const root = "1/sqrt(1+s)";
equal(box({ expression: "1/(1+s)", implementation: "1" }, withConvolution)[5], "1");
equal(box({ expression: "1/(1+s)", implementation: "1" }, [])[5], "1");
equal(box({ expression: "1/(1+s)", implementation: "1" }, ["simplemode"])[5], "0");
for (const words of [["simplemode"], ["simplemode", "allowconvolution"]]) {
  equal(box({ expression: root }, words)[5], "1");
  equal(box({ expression: "1/s", delay: "1n" }, words)[5], "1");
}
equal(box({ expression: root, implementation: "1" }, withConvolution)[5], "1");

equal(box({ expression: "1/s", delay: "{td}" }, withConvolution)[5], "0", "an expression counts as 0");
// What takes convolution: a root, a delay, more coefficients than there are.
for (const values of [{ expression: root }, { expression: "1/s", delay: "1n" },
  { expression: "1/s", delay: "-5u" }, { expression: "s^50" }]) {
  const ok = answered(values, withConvolution, "OK");
  equal(ok.message, { title: "Requires Convolution", text: only + reenter, icon: "warning", buttons: ["OK", "Cancel"] });
  equal(ok.implementation, "1");
  const cancel = answered(values, withConvolution, "Cancel");
  check(cancel.stayed, "stays");
}
equal(answered({ expression: root }, [], "OK").message.text, older + reenter);
equal(answered({ expression: root, implementation: "1" }, [], "Cancel").message.text, older + reenter);
equal(answered({ expression: root }, [], "OK").implementation, "1");

// The codes of the checker, first its own, then those that a script makes it give.
const syntax = "<html><p>The Laplace expression has a syntax error.</p>";
const faults = {
  "-1": syntax,
  1: syntax + correct,
  2: "<html><p>The Laplace expression has mis-matched parentheses.</p>" + correct,
  3: "",
  4: "<html><p>The Laplace expression uses one or more unknown functions.</p>" + correct,
  6: "<html><p>The Laplace expression has one or more invalid values. For example, a negative magnitude coefficient in a table function will lead to this error</p>",
  99: "",
};
function refused(values, code) {
  for (const words of [[], withConvolution, ["simplemode"]]) {
    const ok = answered(values, words, "OK");
    equal(ok.message, { title: "Invalid Laplace Expression", text: faults[code] + choices, icon: "warning",
      buttons: ["OK", "Cancel"] });
    check(ok.stayed, "back to the expression");
    const cancel = answered(values, words, "Cancel");
    check(!cancel.stayed, "cancelled");
    equal(cancel.result, []);
  }
}
for (const [expression, code] of [["1/(s", 2], ["1/+", 1], ["2s", 1], ["foo(s)", 4], ["tau*s", 4],
  ["table(1k,-1,0)", 6], ["1/0", 6], ["1e400*s", 6]])
  refused({ expression }, code);
equal(answered({}, [], "OK").message.text, "<html><p>No Laplace expression has been entered.</p>" + correct + choices);
for (const code of [1, 2, 3, 4, 6, 99]) {
  host.provide("laplace_CheckLaplaceExpression", () => code);
  refused({ expression: "1/s" }, code);
}
// 5 is as good as 0, and the parser has the last word.
host.provide("laplace_CheckLaplaceExpression", () => 5);
equal(box({ expression: "1/s" }, [])[5], "0");
host.provide("sp_ParseLaplaceExpression", text => text === "mine" ? 0 : 1);
equal(box({ expression: "mine" }, [])[0], "mine");
equal(answered({ expression: "1/s" }, withConvolution, "OK").message.title, "Requires Convolution");
// Nobody checks: a lumped network passes, nothing else is ever asked about convolution.
host.provide("sp_ParseLaplaceExpression", undefined);
host.provide("laplace_CheckLaplaceExpression", null);
equal(box({ expression: "1/s" }, [])[0], "1/s");
refused({ expression: root }, -1);
refused({ expression: "1/s", delay: "1n" }, -1);
host.provide("laplace_CheckLaplaceExpression", undefined);

// Back at the expression, the next key goes to where the fault is.
box({ expression: "1/(1+*s)" }, [], d => {
  host.onDialog(m => m.press("OK"));
  d.press("OK");
  d.key(null, "Delete");
  equal(d.text("expressionEdit"), "1/(1+s)");
  d.reject();
});

// The picture follows every key, and says why where there is none.
box({ expression: "1/(1+s)", scale: "6.2831853k", delay: "0" }, withConvolution, d => {
  check(!d.visible("Plotter:0"), "closed at first");
  d.press("Graph");
  check(d.visible("Plotter:0") && d.visible("Plotter:1"), "open");
  const stops = [];
  for (d.type("delayEdit", "0"); stops[stops.length - 1] !== "okButton" && stops.length < 9; stops.push(d.focused()))
    d.key(null, "Tab");
  equal(stops, ["rbLumpedNetwork", "Plotter:0", "Plotter:1", "pictureButton", "okButton"]);
  near(d.get("Plotter:0", "xMinimum"), 10, 1e-9);
  near(d.get("Plotter:0", "xMaximum"), 100e3, 1e-9);
  for (const [plot, low, high] of [["Plotter:0", -50, 10], ["Plotter:1", -135, 45]]) {
    near(d.get(plot, "yMinimum"), low, 1e-9);
    near(d.get(plot, "yMaximum"), high, 1e-9);
  }
  d.type("frequencyScaleEdit", "6.2831853");
  near(d.get("Plotter:0", "xMinimum"), 0.01, 1e-9, "follows the scale factor");
  d.key("Plotter:0", "Ctrl+Right");
  check(/^x = .*, y = .*/.test(d.get("Plotter:0", "readOut")), "reads out");
  for (const [field, text] of [["expressionEdit", "1/("], ["expressionEdit", "1/"], ["expressionEdit", "1+*s"],
    ["expressionEdit", "tau*s"], ["expressionEdit", "1/0"], ["expressionEdit", "{gain}"], ["expressionEdit", ""],
    ["expressionEdit", "s-s"], ["frequencyScaleEdit", "{k}"], ["frequencyScaleEdit", "0"], ["delayEdit", "{td}"]]) {
    d.set("expressionEdit", "1/(1+s)");
    d.set("frequencyScaleEdit", "1");
    d.set("delayEdit", "0");
    check(d.visible("Plotter:0"), "back again");
    d.type(field, text);
    check(!d.visible("Plotter:0"), `nothing to see: ${field} ${text}`);
  }
  d.press("Graph");
  d.reject();
});

// What a script may hand in, and a user type: the first are expressions, the others are not.
const lasting = ["(".repeat(1e5) + "s" + ")".repeat(1e5), "s^1e9", "((1+s)^49)^1e9", "{2*Rload}*s"];
const wrong = ["1;2\n;3", "\uFFFDs", "NaN", "1e400", "4.7k/(s+10 k)"];
for (const expression of [...lasting, ...wrong]) {
  const started = host.now();
  box({ expression }, ["simplemode"], d => {
    d.press("Graph");
    if (wrong.includes(expression))
      host.onDialog(m => m.press("Cancel"));
    d.press("OK");
  });
  check(host.now() - started < 20000, expression.slice(0, 20));
}
equal(box({}, ["simplemode"], d => d.reject()), []);
