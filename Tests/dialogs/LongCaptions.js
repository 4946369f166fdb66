// Every box with 150 names, and captions of 230 letters, in words, in one and in lines: its buttons stay
// on a small screen, of what is cut all is in the tool tip, labels are as high as their text, and fields
// show its beginning.

const width = 1366 - 16, height = 768 - 48; // less the window's frame
const count = 150;
const ones = rows => new Array(rows).fill(1);
const kinds = {
  words: i => `caption ${i} of a signal in the second stage of the power amplifier `.repeat(4).slice(0, 230),
  letters: i => `${i}`.padEnd(230, "W"),
  lines: i => `${i}\n`.repeat(230).slice(0, 230),
};

function checkSeen(d, what) {
  for (const button of ["okButton", "cancelButton"]) {
    const at = d.get(button, "geometry");
    check(at.x + at.width <= width && at.y + at.height <= height, `${button} of ${what}: ${JSON.stringify(at)}`);
  }
  for (let i = 0; i < 5 && d.has(`QLabel:${i}`); ++i)
    if (d.visible(`QLabel:${i}`))
      check(d.get(`QLabel:${i}`, "size").height >= d.get(`QLabel:${i}`, "heightForWidth"), `label ${i} of ${what} is cut`);
  for (let i = 0; i < 5 && d.has(`QLineEdit:${i}`); ++i)
    if (d.text(`QLineEdit:${i}`).length > 200)
      equal(d.get(`QLineEdit:${i}`, "cursorPosition"), 0, `the beginning of text ${i} of ${what}`);
}

for (const [kind, caption] of Object.entries(kinds)) {
  const names = Array.from({ length: count }, (_, i) => caption(i));
  const same = value => new Array(count).fill(value);
  const long = caption(0);
  const typed = names.map((_, i) => `a:${["real", "bool", "string", `list:${long}|b`][i % 4]}`);
  for (const [name, args, act] of [
    ["BoolSelect", [same(1), names, long, long, long], d => {
      check(d.get("CheckBox7", "toolTip").includes(names[7]), "all of a caption");
      check(d.get("groupBox", "toolTip").includes(long), "all of a group's title");
      check(d.get("QLabel:0", "size").width < width, "a heading wraps");
    }],
    ["BoolSelect", [same(1), names.map(() => "b"), "t", "g", long]], // a heading across all columns
    ...[5, 8, 24].map(boxes => ["BoolSelect", [ones(boxes), names.slice(0, boxes).map(name => name.slice(0, 30))]]),
    ["BoolSelect", [same(1), names.map((_, i) => `V(top.amplifier.net_${i})`)],
      d => equal(d.get("CheckBox7", "toolTip"), "", "nothing is cut")],
    ["RadioSelect", [2, names, [long, long, long]], d => {
      check(d.get("RadioButton7", "toolTip").includes(names[7]) && d.get("checkBox", "toolTip").includes(long));
    }],
    ["RadioSelect", [2, ["a", "b"], ["", "", long.repeat(2)]]],
    ["EditSelect", [names, names, long]],
    ["ValueDialog", [same(1), names, long]],
    ["NewValueDialog", [names.map((n, i) => n + (i % 2 ? ":bool" : "")), same("1"), [long]]],
    ["NewValueDialog", [typed, names, [long]]],
    ["SelectDialog", [[long, long, "Multiple"], names]],
    ["EditDeviceDialog", [[long, "0", long, long], names, names, names]],
    ["InputGraph", [long, long.repeat(3)], d => {
      const whole = [d.text("label"), d.get("label", "toolTip")].some(text => text.includes(long.repeat(2)));
      check(whole, `all of a label: ${d.text("label")}`);
    }],
    ["InputGraph", ["", "<b>b</b><br>".repeat(40)], d => check(/(b\n?){10}\u2026/.test(d.text("label")), d.text("label"))],
    ["InputSchem", [long, long]],
    ["EnterTextDialog", [[long, long]]],
    ["UpDownDialog", [names, long]],
    ["AddRemoveDialog", [names, names, [long, long, long]],
      d => check(d.get("allItemsGroupBox", "toolTip").includes(long))],
    ["AddRemoveDialog", [names, names, [long, long, long], "vertical"]],
    ["UserParametersDialog", [names, names, long]],
    ["EditObjectPropertiesDialog", [names, names, same(""), ["", "", "", "", "add"]]],
    ["AddPropertyDialog", [long, "0", long, "", long, names]],
    ["EditPropertyDialog", [long, "0", long, "", long, names]],
    ["EditPinDialog", [long, "0", ["true"], "", long, names]],
    ["EditModelDialog", [[long, long], "1"]],
    ["ChooseDir", ["/", long]],
    ["ManageDataGroupsDialog", [names.map(n => `${n};${n};${n};keep`)]],
    ["PWLDialog", [["0", "1"], [long, long, long]]],
    ["NewPassiveDialog", [[long], [long], names, names]],
    ["EditReactiveDialog", [[long, long], [long, "E6", "inductor", "true"], names, names]],
    ["DCSourceDialogStr", [[long]]],
    ["EditFileDefinedPWLDialog", [["0 1"], ["0", "0", "1", long, "Disk", "0", "V", names.join("|")], [long, long, long]], d => {
      d.click("radioButtonF11");
      d.set("comboboxF11FileName", 7);
      equal(d.get("comboboxF11FileName", "currentText"), names[7]);
    }],
    ["DefineRipperDialog", [[long, "0", "7", "1"], names]],
    ["DigitalConstantDialog", [["16", kind === "letters" ? "1".repeat(230) : "1", "HEXADECIMAL"]], d => {
      d.set("baseCombo", "BINARY");
      equal(d.get("valueEdit", "cursorPosition"), kind === "letters" ? 0 : 1, "the beginning of what it is then");
    }],
    ["DigitalSourceDialog", [[`${long}|b`, "0 1s 0s\n1 0s 1s"]], d => {
      const hasRoom = what => check(d.get("strip0", "size").width > 300, `the strip ${what}: ${d.get("strip0", "size").width}`);
      hasRoom("of a long name");
      d.type("outputNameEdit", "c" + long.replace(/\n/g, "n"));
      d.press("Rename");
      hasRoom("renamed");
    }],
    ["SearchDialog", [names.map((n, i) => `${n};${n}|${n};${i}`)], d => {
      d.choose("searchResultsListBox", [5]);
      check(d.get("searchResultsListBox", "size").width < width);
    }],
    ["SelectDeviceDialog", [names.map(n => `${n};1;2;3;${n}`), long, names.slice(0, 5), ["", "", ""], names]],
    ["DefineSelectionTableDialog", [names.map(n => `${n};${n}`), [long, long, "1"]]],
    ["DVMSelectTest", [names.map(n => `${n};${n};${n}`), [long, long]]],
  ]) {
    host.onDialog(d => {
      checkSeen(d, `${name} with ${kind}`);
      if (act)
        act(d);
      d.reject();
    });
    host.call(name, ...args);
  }
}

// --- many rows ----------------------------------------------------------------------------------

const boxesOf = (rows, names = Array.from({ length: rows }, (_, i) => `V(top.net_${i})`)) => [
  ["BoolSelect", ones(rows), names], ["RadioSelect", 3, names], ["EditSelect", names, names],
  ["ValueDialog", ones(rows), names], ["NewValueDialog", names, ones(rows).map(String)],
];

function timeToOpen([name, ...args]) {
  const start = host.processTime();
  let taken;
  host.onDialog(d => {
    taken = host.processTime() - start;
    d.reject();
  });
  host.call(name, ...args);
  return taken;
}

// In proportion to the rows, on any machine: one box of 10,000 in about the time of ten of 1,000.
boxesOf(1000).forEach((box, i) => {
  let ten = 0;
  for (let opened = 0; opened < 10; ++opened)
    ten += timeToOpen(box);
  const one = timeToOpen(boxesOf(10000)[i]);
  check(one < 1.5 * ten, `${box[0]} of 10,000 rows: ${one} ms, ten of 1,000: ${ten} ms`);
  check(one < 60000, `${box[0]} hangs: ${one} ms`);
});

for (const [name, ...args] of boxesOf(10001)) {
  host.onDialog(d => {
    check(/10001 lines.*10000/.test(d.message().text), d.message().text);
    d.reject();
  });
  host.call(name, ...args);
}
