// ConvertPassiveToBRENNIXDialog: what is asked of the host's numeric functions, what stands in the
// tables before and after, and what goes back.

function box(args, act) {
  host.onDialog(act);
  return host.call("ConvertPassiveToBRENNIXDialog", ...args);
}
const none = { made: false, type: null, values: [] };
const texts = (...values) => ({ made: true, type: "string", values });
const rows = (d, table) => d.table(table).map(r => r.join(" "));
const input = d => rows(d, "inputTable");
const output = d => rows(d, "outputPWLTable");
/// Runs an action that is answered by a message box, and gives its title and text.
function warned(d, act) {
  let message = null;
  host.onDialog(m => { message = m.message(); m.accept(); });
  act();
  return [message.title, message.text];
}

// --- a host that can be watched: five samples, and its own simple idea of an integral -------------

const calls = [];
const points = c => c.x.map((x, i) => [x, c.y[i]]);
const functions = {
  interp: args => {
    const c = args[0], x = [], y = [];
    const a = c.x[0], b = c.x[c.x.length - 1];
    for (let i = 0; i <= 4; i++) {
      x.push(a + (b - a) * i / 4);
      y.push(c.y[0]);
    }
    return { x, y };
  },
  YFromX: () => [7],
  integ: args => ({ x: args[0].x, y: args[0].x.map((x, i) => x * args[0].y[i]) }),
  PWLCurveFit: args => ({ x: [args[0].x[0], args[0].x[args[0].x.length - 1]],
    y: [args[0].y[0], args[0].y[args[0].y.length - 1]] }),
};
function serve(over = {}) {
  for (const name of Object.keys(functions))
    host.provide(name, args => { calls.push([name, args]); return (over[name] || functions[name])(args); });
}
const called = () => calls.splice(0).map(c => c[0]).join(" ");
serve();

const stored = ["0 2 8 2", "0 0 1 1 2 2 3 3"];

// --- the steps, their order and their arguments ----------------------------------------------------

equal(box(["capacitor", ["0 2n 8 1n", "", "1", "5"]], d => {
  equal([d.enabled("okButton"), d.enabled("plotButton")], [false, false], "one curve is not enough");
  equal([input(d), d.rows("outputPWLTable")], [["0 2n", "8 1n", " "], 3]);
  check(!d.visible("RAW_DATA"), "what lies between is not shown");
  equal(calls.length, 0, "nothing is computed before it is asked for");
  d.click("convertButton");
  equal(calls.map(c => c[0]), ["interp", "YFromX", "integ", "PWLCurveFit"]);
  const curve = { x: [0, 8], y: [2e-9, 1e-9] };
  equal(calls[0][1].map(a => a.x ? points(a) : a), [points(curve), 1000, 1, [0.008, 0]]);
  equal(calls[1][1].map(a => a.x ? points(a) : a), [points(curve), 5, 1]);
  equal(points(calls[2][1][0]), [[0, 2e-9], [2, 2e-9], [4, 2e-9], [5, 7]], "cut exactly at the limit");
  equal(points(calls[3][1][0]).slice(2), [[4, 8e-9], [5, 35]]);
  equal(calls[3][1].slice(1), [2, "capacitor"]);
  calls.length = 0;
  equal(rows(d, "inputInterpDataTable").slice(2), ["4 0.000000002", "5 7"]);
  equal(rows(d, "integralDataTable").slice(2), ["4 0.000000008", "5 35"]);
  equal(output(d), ["0 0", "5 35"]);
  equal(d.cellInfo("outputPWLTable", 0, 0).kind, "QTableWidgetItem");
  equal([d.enabled("okButton"), d.enabled("plotButton")], [true, true]);
  d.accept();
}), texts("0 0 5 35", "0 2n 8 1n"));

// What the limit leaves: on a sample, beyond the last, before the first, and none at all.
for (const [first, flag, limit, left] of [
  [0, "1", "4", "0 2 4"], [0, "1", "8", "0 2 4 6 8"], [0, "1", "9", "0 2 4 6 8"], [0, "0", "3", "0 2 4 6 8"],
  [0, "1", "0.5", "0 0.5"], [2, "1", "1.23456789", "1.23457"], [0, "1", "", "0 0.5"], [0, "", "3", "0 2 3"],
])
  box(["capacitor", [`${first} 2 ${first ? 10 : 8} 2`, "", flag, limit]], d => {
    d.click("convertButton");
    equal(d.table("inputInterpDataTable").map(r => r[0]).join(" "), left, `${flag} ${limit}`);
    d.reject();
  });
serve({ YFromX: () => [] });
box(["capacitor", ["0 2 8 2", "", "1", "3"]], d => {
  d.click("convertButton");
  equal(rows(d, "inputInterpDataTable"), ["0 2", "2 2", " "], "no value at the limit");
  d.reject();
});
serve();
calls.length = 0;

// Text is what the steps hand on: six digits in what the user sees, all of them in between.
serve({ integ: args => ({ x: args[0].x, y: args[0].x.map(() => 1 / 3) }) });
box(["inductor", stored], d => {
  equal(rows(d, "integralDataTable")[0], "0 0.3333333333333333");
  equal(output(d)[0], "0 333.333m");
  equal(calls[2][1].slice(1), [3, "inductor"], "segments and kind");
  d.reject();
});
serve();
calls.length = 0;

// --- number of segments, limit ----------------------------------------------------------------------

box(["capacitor", stored], d => {
  equal([called(), output(d), d.value("numSegSpinner")],
        ["interp integ PWLCurveFit", ["0 0", "8 16"], 3], "both curves: computed anew");
  equal([d.enabled("okButton"), d.enabled("plotButton")], [true, true]);
  d.set("numSegSpinner", "4");
  equal([calls[0][1][1], called(), output(d).length], [4, "PWLCurveFit", 2]);
  d.set("limitGroupBox", true);
  equal(called(), "interp integ PWLCurveFit");
  d.set("limitValueSpinner", "5");
  equal([called(), output(d)], ["interp YFromX integ PWLCurveFit", ["0 0", "5 35"]]);
  d.accept();
});
for (const [args, act] of [
  [["capacitor", ["0 2 8 2"]], d => { d.set("limitGroupBox", true); d.set("limitValueSpinner", "4"); }],
  [["capacitor", ["0 2 8 2 8 1", "0 0 8 4"]], d => { d.set("limitGroupBox", true); }],
])
  box(args, d => {
    act(d);
    d.set("numSegSpinner", "6");
    equal([called(), d.rows("outputPWLTable")], ["", 7], "only the rows follow");
    d.reject();
  });

// --- back, and what cannot be converted ---------------------------------------------------------------

equal(box(["capacitor", ["", "0 0 1 2 3 4"]], d => {
  equal([d.enabled("okButton"), d.enabled("plotButton")], [false, false], "typed points alone");
  d.click("revertButton");
  equal(input(d), ["0 2", "1 2", "1 1", "3 1"]);
  equal([d.enabled("okButton"), d.enabled("plotButton")], [true, true]);
  equal([rows(d, "inputInterpDataTable"), rows(d, "integralDataTable")], [[" "], [" "]]);
  equal(warned(d, () => d.click("convertButton")),
        ["Cannot convert step-wise data", "Converting step-wise data is not allowed."]);
  d.accept();
}), texts("0 0 1 2 3 4", "0 2 1 2 1 1 3 1"));
equal(calls.length, 0, "steps are for nobody to compute");
box(["capacitor", ["0 2 8 2 8 1", "0 0 8 4"]], d => {
  equal([d.enabled("okButton"), output(d)], [true, ["0 0", "8 4"]], "steps are not computed anew");
  d.reject();
});
for (const [fields, button, message] of [
  [["0 2"], "convertButton", "The convert function requires at least 2 input points."],
  [[""], "convertButton", "The convert function requires at least 2 input points."],
  [["", "0 2"], "revertButton", "The revert function requires at least 2 output points."],
  [["0 2 8 2"], "revertButton", "The revert function requires at least 2 output points."],
])
  box(["capacitor", fields], d => {
    equal(warned(d, () => d.click(button)), ["Not enough points", message]);
    check(!d.enabled("okButton"));
    d.reject();
  });

// --- a host that does not answer as it should -----------------------------------------------------------

const fault = reason => n => `The function "${n}" has failed: ${reason}`;
const odd = n => `The function "${n}" has not given a curve.`;
const state = d => ["inputTable", "inputInterpDataTable", "integralDataTable", "outputPWLTable"].map(t => rows(d, t));
for (const name of Object.keys(functions)) {
  const answers = [[null, fault("the host has no such function")],
    [() => { throw new Error("no licence"); }, fault("no licence")],
    [() => ["a text"], name === "YFromX" ? n => `The function "${n}" has not given a number.` : odd]];
  if (name !== "YFromX")
    answers.push([() => [], odd], [() => [1, 2], odd], [() => null, odd]);
  for (const [answer, message] of answers)
    box(["capacitor", ["0 2 8 2", "0 0 8 4", "1", "5"]], d => {
      d.cell("inputTable", 1, 0, "12");
      host.provide(name, answer);
      const before = state(d);
      const said = warned(d, () => d.click("convertButton"));
      equal(said, ["Cannot convert", message(name)]);
      equal(state(d), before, `${name}: the tables are as they were`);
      serve();
      d.reject();
    });
}
host.provide("integ", null);
host.onDialog(m => { equal(m.message().text, fault("the host has no such function")("integ"), "on opening"); m.accept(); });
equal(box(["capacitor", ["0 2 8 2", "0 0 8 4"]], d => d.accept()), texts("0 0 8 4", "0 2 8 2"));
serve();

// --- keyboard alone, rows, paste -------------------------------------------------------------------------

calls.length = 0;
equal(box(["inductor"], d => {
  equal([d.focused(), d.get("FluxLinkageNote", "visible")], ["inputTable", true]);
  for (const key of ["0", "Return", "2", "u", "Return", "4", "Return"])
    d.key(null, key);
  d.key(null, "1");
  d.key(null, "u");
  d.key(null, "Alt+Right");
  equal(calls[0][1][0].y, [2e-6, 1e-6], "a cell that is open is finished first");
  equal([d.focused(), output(d)], ["convertButton", ["0 0", "4 8u"]]);
  d.key(null, "Alt+Left");
  equal(input(d), ["0 2u", "4 2u"]);
  d.key(null, "Alt+O");
}).values[0], "0 0 4 8u");
for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  equal(box(["capacitor", stored], d => { d.click("revertButton"); leave(d); }), none);

box(["capacitor", ["0 1 1 2 2 3"]], d => {
  d.choose("inputTable", [[1, 0]]);
  d.key("inputTable", "Delete");
  equal(input(d), ["0 1", "2 3", " "]);
  d.current("inputTable", 0, 0);
  d.key("outputPWLTable", "Delete");
  d.key("outputPWLTable", "Insert");
  equal([input(d).length, d.rows("outputPWLTable")], [3, 3], "the keys are those of the left table");
  d.choose("inputTable", [[0, 0]]);
  equal(warned(d, () => d.key("inputTable", "Delete")),
        ["Minimum segments", "You must have at least 1 segments"]);
  d.reject();
});
const thousand = new Array(1001).fill("1 2").join(" ");
box(["capacitor", [thousand]], d => {
  d.choose("inputTable", [[0, 0]]);
  equal(warned(d, () => d.key("inputTable", "Insert")),
        ["Too many points", "This dialog box can handle a maximum of 1001 PWL points."]);
  d.reject();
});
for (const [clipboard, shown, note] of [
  ["0 1.5n\n1 -2e-9,(3,1e6)", ["0 1.5", "1 -2n", "3 1Meg", "9 9"],
    "3 points read. 1 text was cut behind its digits: suffixes are not read here."],
  ["x 1k 2", ["0 1", "1 1"], "1 point read. A last text without a partner was left out. " +
    "1 text is not a number and has become 0. 1 text was cut behind its digits: suffixes are not read here."],
  ["", ["0 1", "1 1", "9 9", "9 9", " "], ""],
])
  box(["capacitor", ["0 1 1 1 9 9 9 9"]], d => {
    host.clipboard(clipboard);
    d.press("Paste from Clipboard");
    equal([input(d), d.text("pointNote")], [shown, note], JSON.stringify(clipboard));
    d.reject();
  });
box(["capacitor", ["0 1 1 1"]], d => {
  d.current("inputTable", 1, 1);
  d.key("inputTable", "{");
  for (const key of ["x", "}", "Return"])
    d.key(null, key);
  equal(d.text("pointNote"), "1 text is not a number and counts as 0.");
  d.key("inputTable", "Ctrl+Z");
  equal([d.text("pointNote"), d.text("outputNote")], ["", ""]);
  d.reject();
});
box(["capacitor", ["0 1 1 1", "0 0 1 1"]], d => {
  d.current("inputTable", 1, 1);
  d.key("inputTable", "7");
  d.key(null, "Return");
  equal(d.text("outputNote"), "These points are not of the present input.");
  d.key("inputTable", "Ctrl+Z");
  equal(d.text("outputNote"), "");
  d.current("outputPWLTable", 1, 1);
  d.key("outputPWLTable", "7");
  d.key(null, "Tab");
  equal([d.rows("outputPWLTable"), d.text("outputNote")], [2, "These points are not of the present input."]);
  d.key("outputPWLTable", "Ctrl+Z");
  equal([output(d), d.text("outputNote")], [["0 0", "1 1"], ""]);
  d.cell("outputPWLTable", 1, 1, "7");
  d.set("numSegSpinner", "3");
  const computed = output(d);
  d.key("outputPWLTable", "Ctrl+Z");
  equal(output(d), computed, "a conversion is not undone");
  d.reject();
});
box(["capacitor"], d => {
  host.clipboard("1\t2");
  d.current("outputPWLTable", 2, 0);
  d.key("outputPWLTable", "Ctrl+V");
  equal(output(d), [" ", " ", "1 2"], "blank rows take what is pasted");
  d.reject();
});
box(["capacitor", ["0 1"]], d => {
  host.clipboard(thousand + " 1 2");
  equal(warned(d, () => d.press("Paste from Clipboard")), ["PWL Paste Error",
    "There are 1002 points in the pasted definition.\nThis dialog box can handle a maximum of 1001 PWL points."]);
  equal(input(d), ["0 1", " "]);
  d.reject();
});

// --- digitiser ---------------------------------------------------------------------------------------------

const picture = host.tempDir() + "/coss.png";
host.writeFile(picture, "");
for (const [serving, path, shown, fault] of [
  [p => ({ x: [0, 1.5, 3000], y: [1e-9, 2.34567891e-9, 0] }), picture, ["0 1n", "1.5 2.34568n", "3k 0"], ""],
  [p => ({ x: [], y: [] }), picture, [], ""],
  [p => null, picture, ["5 5", " "], ""],
  [p => { throw new Error("no such picture"); }, picture, null, "no such picture"],
  [p => "nonsense", picture, null, "{x, y} or null"],
  [p => [], picture, null, "{x, y} or null"],
  [null, picture, null, "dyn_GraphImageCapture"],
  [p => { check(false, "nobody chose a picture"); }, null, ["5 5", " "], ""],
]) {
  const digitise = d => {
    let asked = path;
    host.provide("dyn_GraphImageCapture", serving && (p => { asked = p; return serving(p); }));
    host.onDialog(chooser => {
      equal(chooser.title, "Open Image");
      if (path) {
        chooser.pick(path);
        chooser.accept();
      } else {
        chooser.reject();
      }
    });
    d.press("Digitize Data Sheet Curve");
    equal(asked, path);
    if (!d.isOpen) // a fault takes the dialog with it
      return;
    equal(input(d), shown);
    d.reject();
  };
  let raised = "";
  try { box(["capacitor", ["5 5"]], digitise); } catch (error) { raised = error.message; }
  check(fault ? raised.includes(fault) : !raised, `a fault of the host is the script's: ${raised}`);
}
host.provide("dyn_GraphImageCapture", undefined);

// --- plot ----------------------------------------------------------------------------------------------------

for (const [kind, fields, labels, ranges] of [
  ["capacitor", ["0 2n 8k 2n", "0 0 1 1"], ["Capacitance", "(nF)", "Charge", "(uC)", "Voltage", "(kV)"],
    [0, 8, 0, 16, 1.8, 2.2]],
  ["inductor", ["0 5u 8 1u", "0 0 1 1"],
    ["Inductance", "(uH)", "Flux Linkages", "(uV-s or uWb-t)", "Current", "(A)"], [0, 8, 0, 40, 0.9, 5.5]],
  ["capacitor", ["0 0 8 0 8 1", "0 0 1 0"], ["Capacitance", "(F)", "Charge", "(C)", "Voltage", "(V)"],
    [0, 1, 0, 0, 0, 1.1]],
  ["capacitor", ["0 nan 8 1 8 inf", "x y"], ["Capacitance", "(F)", "Charge", "(C)", "Voltage", "(V)"],
    [0, 0, 0, 0, 0, 1.1]],
])
  box([kind, fields], d => {
    host.onDialog(p => {
      equal(["topYLabel", "topYUnit", "bottomYLabel", "bottomYUnit", "XLabel", "XUnit"].map(
        name => p.get(name, "text").replace(/<[^>]*>/g, "")), labels);
      check(/^<div align = "right">/.test(p.get("XLabel", "text")));
      const [left, right, low, high, topLow, topHigh] = ranges;
      for (const [plotter, a, b] of [["bottomPlotter", low, high], ["topPlotter", topLow, topHigh]])
        for (const [direction, from, to] of [["x", left, right], ["y", a, b]]) {
          const least = p.get(plotter, direction + "Minimum"), most = p.get(plotter, direction + "Maximum");
          check(least <= from && to <= most && most - least <= Math.max(2 * (to - from), 2.5),
                `${labels[0]} ${plotter} ${direction} shows ${least} to ${most}`);
        }
      p.key(null, "Return");
    });
    d.press("Plot PWL Characteristics");
    d.reject();
  });

// --- help, names, hostile calls ---------------------------------------------------------------------------------

for (const [kind, topic] of [["capacitor", "3004"], ["inductor", "3005"], ["resistor", "3004"]])
  box([kind], d => {
    equal([d.name, d.get("numSegSpinner", "max")], ["ConvertPassiveToBRENNIXDialog", 255]);
    d.press("Help");
    equal(host.helpRequests().pop(), topic);
    d.reject();
  });
const million = new Array(500000).fill("1 2").join(" ");
const long = "x".repeat(1e6);
for (const args of [
  [[], []], ["capacitor", [million]], ["capacitor", ["", million]], [long, [long, long, long, long]],
  ["capacitor", ["0 \uFFFD 1 {a}", "", "7", "nan"]], [new Array(1e6).fill("inductor"), new Array(1e6).fill("")],
  ["capacitor", ["0 1e400 1e400 1", "", "1", "-1e400"]],
])
  equal(box(args, d => d.reject()), none);
for (const args of [[], [1], ["capacitor", 1], ["capacitor", [""], ""]]) {
  let said = "";
  try { ConvertPassiveToBRENNIXDialog(...args); } catch (error) { said = String(error); }
  check(said.includes("ConvertPassiveToBRENNIXDialog"), said);
}
