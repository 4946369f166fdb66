// DigitalSourceDialog: outputs, the text of their states, tools that write it, and the strips.

function box(args, act) {
  host.onDialog(act);
  return DigitalSourceDialog(...args);
}
const rows = d => d.text("definitionTextBox").split("\n").filter(l => l)
  .map(l => l.replace(/\t+/g, " "));
const strips = d => d.names().filter(n => /^strip\d+$/.test(n)).length;
function told(act) {
  let message = null;
  host.onDialog(m => { message = m.message(); m.accept(); });
  act();
  return message;
}
const two = ["a|b", "0 0s 1s\n1u 1s 0s\n2u 0s 1s\n"];

// --- as it comes, and by keyboard ----------------------------------------------------------------

const untouched = box([two], d => {
  equal([d.items("outputNamesListBox"), strips(d)], [["a", "b"], 2]);
  check(!d.visible("plotter0"), "the strips take the placeholder's room");
  equal(d.tabs(), ["Digital", "Analog Interface"]);
  d.accept();
});
equal(untouched.slice(0, 2), two, "a text that no tool has written goes back as it came");
equal(untouched.length, 14, "the interface sheet's values follow");
host.onDialog(d => { d.press("Add"); d.key(null, "Escape"); });
host.onDialog(m => m.accept());
equal(host.call("DigitalSourceDialog", two), { made: false, type: null, values: [] }, "Escape");

equal(box([two], d => {
  d.key("outputNamesListBox", "Down");
  d.key(null, "Alt+N");
  equal(d.focused(), "outputNameEdit");
  for (const letter of "clk")
    d.key("outputNameEdit", letter);
  d.key("outputNameEdit", "Return");
  equal([d.items("outputNamesListBox"), d.current("outputNamesListBox"), strips(d)],
    [["a", "b", "clk"], 2, 3], "Return adds the output");
  d.key(null, "Alt+G");
  d.accept();
}).slice(0, 2), ["a|b|clk", "0\t\t0s\t1s\t1s\n1e-06\t\t1s\t0s\t1s\n2e-06\t\t0s\t1s\t1s\n"]);
box([two], d => {
  d.key("tabWidget", "Ctrl+Tab");
  equal(d.tab(), "Analog Interface", "the other tab by keyboard");
  d.reject();
});

// --- tools ---------------------------------------------------------------------------------------

for (const [name, act, expected] of [
  ["single pulse", d => {
    d.set("singlePulseWithEdit", "200n");
    d.set("singlePulseAtEdit", "1.5u");
    d.click("singlePulseAddButton");
  }, ["0 0s 1s", "1e-06 1s 0s", "1.7e-06 0s 0s", "1.7000000000017e-06 1s 0s", "2e-06 0s 1s"]],
  ["pulse train", d => {
    d.choose("outputNamesListBox", ["b"]);
    d.set("repetitivePulseWidthEdit", "1u");
    d.set("repetitiveStartEdit", "0");
    d.set("repetitivePeriodEdit", "2u");
    d.set("repetitiveEndEdit", "4u");
    d.click("repetitiveAddButton");
  }, ["0 0s 1s", "1e-06 1s 0s", "2e-06 0s 1s", "3e-06 0s 0s", "4e-06 0s 1s"]],
  ["clear high", d => d.press("Clear high"), ["0 1s 1s", "1e-06 1s 0s", "2e-06 1s 1s"]],
  ["clear low", d => {
    d.set("lowStateCombo", "UNKNOWN HI-Z");
    d.press("Clear low");
  }, ["0 Uz 1s", "1e-06 Uz 0s", "2e-06 Uz 1s"]],
  ["shift", d => { d.set("timeShiftEdit", "500n"); d.click("timeShiftApplyButton"); },
    ["0 0s 1s", "1e-06 0s 0s", "1.5e-06 1s 0s", "2e-06 1s 1s", "2.5e-06 0s 1s"]],
  ["remove", d => d.press("Remove"), ["0 1s", "1e-06 0s", "2e-06 1s"]],
  ["clone", d => { d.type("outputNameEdit", "c"); d.press("Clone"); },
    ["0 0s 1s 0s", "1e-06 1s 0s 1s", "2e-06 0s 1s 0s"]],
  ["down", d => d.click("downButton"), ["0 1s 0s", "1e-06 0s 1s", "2e-06 1s 0s"]],
  ["up at the top", d => d.click("upButton"), ["0 0s 1s", "1u 1s 0s", "2u 0s 1s"]],
])
  box([two], d => {
    const before = d.text("definitionTextBox");
    act(d);
    equal(rows(d), expected, name);
    equal(strips(d), d.items("outputNamesListBox").length, name);
    if (d.text("definitionTextBox") !== before) {
      d.press("Undo");
      equal(rows(d), ["0 0s 1s", "1e-06 1s 0s", "2e-06 0s 1s"], name + ", undone");
      equal(d.items("outputNamesListBox"), ["a", "b"]);
    }
    d.reject();
  });
equal(box([two], d => {
  d.type("outputNameEdit", "first");
  d.press("Rename");
  d.click("downButton");
  equal(d.current("outputNamesListBox"), 1, "a moved output stays selected");
  d.accept();
})[0], "b|first");
box([two], d => {
  for (const name of ["1", "2", "3", "4", "5", "6"]) {
    d.type("outputNameEdit", name);
    d.press("Add");
  }
  for (let i = 0; i < 10; ++i)
    d.press("Undo");
  equal(d.items("outputNamesListBox"), ["a", "b", "1", "2"], "five steps are remembered");
  d.reject();
});

// Return in a field of a tool is the tool's button, which says what the field lacks.
for (const [edit, button, text] of [
  ["singlePulseWithEdit", "singlePulseAddButton", "2u"],
  ["singlePulseAtEdit", "singlePulseAddButton", "5u"],
  ["repetitivePulseWidthEdit", "repetitiveAddButton", "200n"],
  ["repetitiveStartEdit", "repetitiveAddButton", "8u"],
  ["repetitivePeriodEdit", "repetitiveAddButton", "3u"],
  ["repetitiveEndEdit", "repetitiveAddButton", "9u"],
  ["timeShiftEdit", "timeShiftApplyButton", "1u"],
]) {
  const [clicked, returned] = [d => d.click(button), d => d.key(edit, "Return")].map(act => {
    let after;
    box([two], d => {
      d.type(edit, text);
      act(d);
      check(d.isOpen, edit);
      after = rows(d);
      d.reject();
    });
    return after;
  });
  check(clicked[1] !== "1u 1s 0s", `${button} writes`);
  equal(returned, clicked, edit);
  for (const bad of ["oops", "", "{later}"])
    box([two], d => {
      d.type(edit, bad);
      const message = told(() => d.click(button));
      check(message && message.text.includes(bad || "empty"), `${edit}, "${bad}"`);
      equal([rows(d), d.focused(), d.text(edit)], [["0 0s 1s", "1u 1s 0s", "2u 0s 1s"], edit, bad]);
      d.reject();
    });
}

// --- undo ----------------------------------------------------------------------------------------

const highs = ["0 1s 1s", "1e-06 1s 0s", "2e-06 1s 1s"];
const names = d => d.items("outputNamesListBox");
box([two], d => {
  d.press("Clear high");
  d.type("definitionTextBox", "0 1s 1s\n1u 1s Us\n");
  d.press("Undo");
  equal(rows(d), highs, "what was typed is a step of its own");
  d.type("definitionTextBox", "0 nonsense");
  d.press("Undo");
  equal(rows(d), highs, "one that cannot be read alike");
  d.press("Clear high");
  d.set("timeShiftEdit", "0");
  d.click("timeShiftApplyButton");
  d.press("Undo");
  equal(rows(d), ["0 0s 1s", "1e-06 1s 0s", "2e-06 0s 1s"], "what changed nothing is no step");
  d.reject();
});
box([two], d => {
  d.type("outputNameEdit", "clk");
  d.press("Rename");
  d.press("Clear high");
  d.press("Undo");
  equal(names(d), ["clk", "b"], "Undo takes back the clearing, and not the name");
  d.press("Undo");
  equal(names(d), ["a", "b"], "which is a step of its own");
  d.type("outputNameEdit", "clk");
  d.press("Rename");
  d.type("definitionTextBox", two[1] + "* for the second board\n");
  d.press("Undo");
  equal([names(d), rows(d)[3]], [["a", "b"], "* for the second board"], "and leaves comments alone");
  d.reject();
});
box([["", ""]], d => {
  d.type("definitionTextBox", "0 0s 1s\n1u 1s 0s\n");
  d.press("Update");
  d.press("Clear high");
  equal(rows(d), ["0 1s 1s", "1e-06 1s 0s"], "Update selects an output");
  d.press("Undo");
  d.press("Undo");
  equal([names(d), rows(d)], [[], []]);
  d.type("definitionTextBox", "0 0s\n");
  d.press("Update");
  d.press("Remove");
  d.press("Undo");
  equal(told(() => { d.press("Clear high"); d.press("Add"); }).title, "No Name for Output", "Undo selects an output");
  d.reject();
});

// --- refusals ------------------------------------------------------------------------------------

for (const [title, act] of [
  ["No Name for Output", d => d.press("Add")],
  ["No Output Name", d => d.press("Clone")],
  ["No Output Name", d => d.press("Rename")],
  ["Invalid Pulse Parameters", d => { d.set("singlePulseWithEdit", "0"); d.click("singlePulseAddButton"); }],
  ["End Before Start", d => { d.set("repetitiveEndEdit", "0"); d.click("repetitiveAddButton"); }],
  ["Period Zero", d => { d.set("repetitivePeriodEdit", "0"); d.click("repetitiveAddButton"); }],
  ["Period Shorted than Width", d => {
    d.set("repetitivePulseWidthEdit", "3u");
    d.click("repetitiveAddButton");
  }],
  ["Source Definition Error", d => {
    d.type("definitionTextBox", "0 0s\n");
    d.press("Clear high");
    equal(d.text("definitionTextBox"), "0 0s\n", "a text at fault is left alone");
  }],
])
  box([two], d => {
    const before = rows(d);
    equal(told(() => act(d)).title, title);
    if (title !== "Source Definition Error")
      equal(rows(d), before, title);
    d.reject();
  });
box([["", ""]], d => {
  check(d.visible("plotter0"), "nothing to plot");
  for (const [title, button] of [["No Output Selected", "removeButton"], ["Nothing Selected", "cloneButton"],
    ["Nothing Selected", "renameButton"], ["No Output Selected", "repetitiveAddButton"],
    ["No Output Selected", "clearLowButton"], ["No Output Selected", "timeShiftApplyButton"]])
    equal(told(() => d.click(button)).title, title, button);
  d.type("definitionTextBox", "0 0s 1s 0s\n1u 1s 0s Uz\n");
  d.press("Update");
  equal([d.items("outputNamesListBox"), strips(d)], [["OUT0", "OUT1", "OUT2"], 3], "outputs get names");
  d.reject();
});
host.onDialog(m => {
  check(m.message().text.startsWith("Source definition error: "), m.message().text);
  m.accept();
});
box([["a", "0 0s\n1u nonsense\n"]], d => {
  check(d.visible("plotter0") && strips(d) === 0, "what cannot be read is not plotted");
  d.type("definitionTextBox", "0 0s\n1u 1s\n");
  d.press("Update");
  equal(strips(d), 1, "until it can");
  d.press("Undo");
  equal(rows(d), ["0 0s", "1u 1s"], "with nothing before it there is nothing to undo");
  d.reject();
});

// --- strips --------------------------------------------------------------------------------------

box([two], d => {
  const range = n => [d.get(`strip${n}`, "xMinimum"), d.get(`strip${n}`, "xMaximum")];
  const all = range(0);
  near(all[1], 2e-6, 1e-9, "round end");
  d.key("strip0", "+");
  check(range(0)[1] - range(0)[0] < all[1], "zoom");
  equal(range(1), range(0), "both strips");
  d.key("strip1", "0");
  equal(range(0), all, "and back");
  d.reject();
});

box([two], d => {
  const height = n => d.get(`strip${n}`, "height");
  const axis = Math.floor(5.5 / 25.4 * 96);
  near(height(1) - axis, height(0), 0.03, "strips are as high, but for the axis");
  d.press("Clear low"); // writes with tabs
  const columns = d.get("definitionTextBox", "width") / d.get("definitionTextBox", "tabStopDistance");
  check(columns > 8.4 && columns < 20, `two outputs behind a long time, and not far between: ${columns}`);
  d.reject();
});

// --- what a script may hand in --------------------------------------------------------------------

const many = Array.from({ length: 300 }, (_, i) => `n${i}`).join("|");
box([[many, "0" + " 0s".repeat(300)]], d => {
  check(strips(d) < 300 && strips(d) > 50, "hundreds of outputs are not all drawn");
  d.reject();
});
equal(box([["a|b", "0 0s 1s\n"].concat(new Array(1000).fill("x"))], d => d.accept())[0], "a|b");
equal(box([[]], d => d.accept()).slice(0, 2), ["", ""]);
