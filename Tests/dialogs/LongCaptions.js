// Every box with 150 names, and captions of 230 letters, in words and in one: its buttons stay on a
// small screen, and of what is cut all is in the tool tip.

const width = 1366 - 16, height = 768 - 48; // less the window's frame
const count = 150;
const kinds = {
  words: i => `caption ${i} of a signal in the second stage of the power amplifier `.repeat(4).slice(0, 230),
  letters: i => `${i}`.padEnd(230, "W"),
};
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
    ["BoolSelect", [same(1), names.map((_, i) => `V(top.amplifier.net_${i})`)],
      d => equal(d.get("CheckBox7", "toolTip"), "", "nothing is cut")],
    ["RadioSelect", [2, names, [long, long, long]], d => {
      check(d.get("RadioButton7", "toolTip").includes(names[7]) && d.get("checkBox", "toolTip").includes(long));
    }],
    ["EditSelect", [names, names, long], d => equal(d.get("EditBox0", "cursorPosition"), 0, "the beginning is seen")],
    ["ValueDialog", [same(1), names, long]],
    ["NewValueDialog", [names.map((n, i) => n + (i % 2 ? ":bool" : "")), same("1"), [long]]],
    ["NewValueDialog", [typed, names, [long]]],
    ["SelectDialog", [[long, long, "Multiple"], names]],
    ["EditDeviceDialog", [[long, "0", long, long], names, names, names]],
    ["InputGraph", [long, long], d => equal(d.get("edit", "cursorPosition"), 0)],
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
    ["SearchDialog", [names.map((n, i) => `${n};${n}|${n};${i}`)], d => {
      d.choose("searchResultsListBox", [5]);
      check(d.get("searchResultsListBox", "size").width < width);
    }],
    ["SelectDeviceDialog", [names.map(n => `${n};1;2;3;${n}`), long, names.slice(0, 5), ["", "", ""], names]],
    ["DefineSelectionTableDialog", [names.map(n => `${n};${n}`), [long, long, "1"]]],
    ["DVMSelectTest", [names.map(n => `${n};${n};${n}`), [long, long]]],
  ]) {
    host.onDialog(d => {
      for (const button of ["okButton", "cancelButton"]) {
        const at = d.get(button, "geometry");
        check(at.x + at.width <= width && at.y + at.height <= height, `${button} of ${name} with ${kind}: ${JSON.stringify(at)}`);
      }
      if (act)
        act(d);
      d.reject();
    });
    host.call(name, ...args);
  }
}

// --- many rows ----------------------------------------------------------------------------------

for (const rows of [10000, 10001]) {
  const names = Array.from({ length: rows }, (_, i) => `V(top.net_${i})`);
  const ones = new Array(rows).fill(1);
  for (const [name, ...args] of [
    ["BoolSelect", ones, names], ["RadioSelect", 3, names], ["EditSelect", names, names],
    ["ValueDialog", ones, names], ["NewValueDialog", names, ones.map(String)],
  ]) {
    const start = host.processTime();
    host.onDialog(d => {
      const taken = host.processTime() - start;
      if (rows === 10000)
        check(taken < 10000, `${name} opened after ${taken} ms`); // sanitized on a busy machine
      else
        check(/10001 lines.*10000/.test(d.message().text), d.message().text);
      d.reject();
    });
    host.call(name, ...args);
  }
}
