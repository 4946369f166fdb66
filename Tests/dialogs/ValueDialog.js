// ValueDialog as a user meets it: typing, arrows, linked limits, cancel.

// Runs the box and `act` in it; gives the box's result.
function box(values, labels, mode, act) {
  host.onDialog(act);
  return ValueDialog(values, labels, "Values", mode);
}

// --- rows ---------------------------------------------------------------------------------------

for (const [values, labels, rows] of [
  [[1, 2, 3], ["a", "b"], 2],
  [[1, 2], ["a", "b", "c"], 2],
  [[], ["a"], 0],
  [7, "one", 1],
]) {
  const result = box(values, labels, "", d => {
    equal(d.names().filter(n => /^Spinner\d+$/.test(n)).length, rows, "rows");
    d.accept();
  });
  equal(result, [].concat(values).slice(0, rows), `untouched: ${values} / ${labels}`);
}

box([1, 2], ["<i>R</i>1", "<b></b>"], "", d => {
  equal(["Spinner0", "Spinner1"].map(w => d.get(w, "accessibleName")), ["R1", "Field 2"], "read without tags");
  d.reject();
});
box([1, 2], ["a", "b"], "", d => {
  equal(d.focused(), "Spinner0", "the user starts in the first row");
  d.key(null, "7");
  equal(d.text("Spinner0"), "7", "and types over it");
  d.reject();
});

host.onDialog(d => {
  equal(d.title, "");
  check(!d.visible("helpButton") && !d.visible("selectAllButton"), "unused buttons are hidden");
  d.accept();
});
equal(host.call("ValueDialog"), { made: true, type: "real", values: [] }, "no arguments");

// --- what a user types --------------------------------------------------------------------------

for (const [text, value] of [
  ["4.7k", 4700],
  ["2Meg", 2e6],
  ["1e-9", 1e-9],
  ["10kOhm", 10e3],
  ["5m", 0.005],
  ["1e400", 1e100],    // the largest that a field takes
  ["{2*Rload}", 0],    // an expression has no value yet
  ["nonsense", 33],    // the last good value
  ["", 33],
]) {
  equal(box([33], ["R"], "", d => {
    d.type("Spinner0", text);
    equal(d.text("Spinner0"), text, "typing rewrites nothing");
    d.accept();
  }), [value], `typed "${text}"`);
}

// What is typed counts also when OK is pressed without leaving the field.
for (const way of ["Return", "click"]) {
  equal(box([1, 5], ["Off", "On"], "switch", d => {
    d.type("Spinner0", "10");
    way === "click" ? d.click("okButton") : d.key("Spinner0", way);
  }), [10, 10], `OK by ${way} follows the link`);
}

// Steps go 1, 2, 5 through the decades; the text stands as typed until then.
box([0.1], ["x"], "", d => {
  const seen = [];
  for (let i = 0; i < 4; ++i) {
    d.key("Spinner0", "Up");
    seen.push(d.value("Spinner0"));
  }
  equal(seen, [0.2, 0.5, 1, 2]);
  d.key("Spinner0", "Down");
  equal(d.value("Spinner0"), 1);
  d.reject();
});

// --- modes --------------------------------------------------------------------------------------

for (const word of ["Switch", "SWITCH", "switch"]) {
  box([1, 10], ["Off", "On"], word, d => {
    equal(d.get("Spinner1", "min"), 1, "row 1 is limited from the start");
    check(d.get("Spinner0", "max") > 1e99, "row 0 is not, until row 1 changes");
    d.set("Spinner1", "20");
    equal(d.get("Spinner0", "max"), 20);
    d.set("Spinner0", "50");
    equal(d.value("Spinner0"), 20, "row 0 never passes row 1");
    d.set("Spinner1", "3");
    equal(d.value("Spinner1"), 20, "row 1 never falls below row 0");
    d.reject();
  });
}

// Typing 10 never passes through 1: the neighbour is left alone until the field is.
box([50, 60], ["Off", "On"], "Switch", d => {
  d.type("Spinner0", "100");
  equal(d.value("Spinner1"), 60);
  d.key("Spinner0", "Tab");
  equal(d.value("Spinner1"), 100);
  d.reject();
});

// An expression in row 1 has no value from which a limit of row 0 could follow.
equal(box([5, 60], ["Off", "On"], "Switch", d => {
  d.set("Spinner1", "{Ron}");
  equal(d.text("Spinner1"), "{Ron}");
  d.accept();
}), [5, 0]);

box([0, 0, 0.5], ["N1", "N2", "k"], "Transformer", d => {
  equal([d.get("Spinner0", "min"), d.get("Spinner1", "min")], [1e-18, 1e-18]);
  equal(["min", "max", "increment", "engMode", "step125"].map(p => d.get("Spinner2", p)),
        [0, 1, 0.05, false, false]);
  d.key("Spinner2", "Up");
  equal(d.text("Spinner2"), "0.55");
  d.set("Spinner2", "1.2");
  equal(d.value("Spinner2"), 1);
  d.accept();
});

box([50, 1e-9], ["Z0", "Delay"], "TransmissionLine", d => {
  equal([d.get("Spinner0", "min"), d.get("Spinner1", "min")], [1e-18, 1e-21]);
  d.set("Spinner0", "-1");
  equal(d.value("Spinner0"), 1e-18);
  d.reject();
});

for (const [period, width, expected, max] of [
  [2e-6, 5e-6, [2e-6, 2e-6], 2e-6],  // pulled down before the box opens
  [2e-6, 1e-6, [2e-6, 1e-6], 2e-6],
  [0, 5e-6, [0, 5e-6], 1e18],
]) {
  equal(box([period, width], ["Period", "Width"], "DigitalPulse", d => {
    equal(d.get("Spinner1", "max"), max);
    d.accept();
  }), expected, `pulse ${period} ${width}`);
}

box([2e-6, 1e-6, 0], ["Period", "Width", "Delay"], "DIGITALPULSE", d => {
  d.set("Spinner1", "5u");
  equal(d.value("Spinner1"), 2e-6, "the width is held to the period");
  d.set("Spinner0", "500n");
  equal([d.value("Spinner0"), d.value("Spinner1")], [5e-7, 5e-7], "and follows it down");
  d.set("Spinner0", "0");
  d.set("Spinner1", "1");
  equal(d.value("Spinner1"), 1, "no period, no limit");
  d.set("Spinner2", "-1");
  equal(d.value("Spinner2"), 0);
  d.reject();
});

// --- cancel -------------------------------------------------------------------------------------

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")]) {
  host.onDialog(d => {
    d.type("Spinner0", "99");
    leave(d);
  });
  equal(host.call("ValueDialog", [1], ["a"]), { made: false, type: null, values: [] });
}

// --- what a script may hand in ------------------------------------------------------------------

for (const [args, part] of [
  [[["a"]], "ValueDialog: argument 1"],
  [[[1], [2]], "ValueDialog: argument 2"],
  [[1, "a", "t", "m", "more"], "0 to 4"],
]) {
  let said = "";
  try {
    ValueDialog(...args);
  } catch (error) {
    said = String(error);
  }
  check(said.includes(part), `refused with: ${said}`);
}

host.onDialog(d => {
  check(d.message().text.includes("1000000"), "a million rows are refused in words");
  d.accept();
});
equal(ValueDialog(new Array(1e6).fill(1), new Array(1e6).fill("x")), []);

host.onDialog(d => {
  check(d.visible("okButton"), "a hundred rows scroll, and the buttons stay in sight");
  d.set("Spinner99", "12");
  d.accept();
});
equal(ValueDialog(new Array(100).fill(1), new Array(100).fill("x"))[99], 12);
