// DefineLogicGateDialog and the older form of it: seven types or four, with and without the second page.

const families = include("../../Samples/data/logic_families.js");
const sheet = [0, 0, 5, 5e-12, 100]; // what the second page returns when no argument loads it
const none = { made: false, type: null, values: [] };
const types = [1, 2, 3, 4, 5, 6, 7].map(n => `radioButton${n}`);
const chosen = d => types.findIndex(w => d.checked(w));
const fields = d => ["spinner3", "spinner4", "invertedInputsEdit"].map(w => d.value(w));

function box(device, act, name = "DefineLogicGateDialog") {
  host.onDialog(act);
  return host.call(name, device);
}

// What is loaded: fields, type. The older form keeps what it does not show.
for (const [device, values, type] of [
  [[], [4, 1e-8, 0], 0],
  [[2, 6, 3e-9, 1], [2, 3e-9, 1], 6],
  [[8, 3, 0, 256], [8, 0, 256], 3],
  [[0, 7, -1, -1], [1, 0, 0], 0],
  [[1000, -1, 1, 1000], [256, 1, 256], 0],
  [[3, 1.5, 1e-9, 2], [3, 1e-9, 2], 0],
  [[NaN, NaN, NaN, NaN], [4, 1e-8, 0], 0],
  [new Array(1e6).fill(5), [5, 5, 5], 5],
])
  for (const [name, end] of [["DefineLogicGateDialog", [0, 0, 0, 0, 0, ...sheet]], ["DefineLogicGateDialog_Legacy", []]])
    equal(box(device, d => {
      equal([d.name, fields(d), chosen(d)], [name, values, type], `${name}: ${device.slice(0, 4)}`);
      d.accept();
    }, name).values, [values[0], type, values[1], values[2], ...end]);

// By keyboard alone, on both pages.
const byKeyboard = () => {
  host.onDialog(d => {
    equal([d.focused(), d.tabs()], ["spinner3", ["Digital", "Analog Interface"]]);
    d.key(null, "6");
    d.key(null, "Alt+D");
    d.key(null, "Up");
    d.key(null, "Tab");
    d.key(null, "2");
    d.key(null, "Alt+G");
    types.slice(1).forEach(() => d.key(null, "Down"));
    d.key(null, "Tab");
    equal(d.focused(), "xorInfoLabel", "what an XOR gate does can be asked for");
    d.key(null, "Ctrl+Tab");
    equal(d.tab(), "Analog Interface");
    d.key("inputCombo", "Down");
    d.key(null, "Return");
  });
  return DefineLogicGateDialog([4, 0, 1e-8, 0], [4, 7, 5, 1e-12, 50], families);
};
equal(byKeyboard(), [6, 6, 2e-8, 2, 0, 0, 0, 0, 0, 5, 7, 5, 1e-12, 50]);

// A delay of none grows by nanoseconds, and does not go below.
equal(box([4, 0, 0], d => {
  d.key("spinner4", "Down");
  equal(d.value("spinner4"), 0);
  d.key(null, "Up");
  d.set("invertedInputsEdit", "300");
  d.set("spinner3", "{N}");
  d.accept();
}).values.slice(0, 4), [0, 0, 1e-9, 256], "an expression is not a number of inputs");

// The older form, by keyboard; also where the type that was given is not among those shown.
for (const [given, keys, type] of [[0, ["Down"], 1], [3, ["Up", "Up"], 1], [6, ["Space"], 0], [5, [], 5]])
  equal(box([2, given, 1e-8, 1], d => {
    equal([d.title, d.tabs(), d.has("technologyCombo")], ["Define Logic Gate", ["Digital"], false]);
    equal([...types, "invertedInputsEdit", "invertedInputsLabel", "xorInfoLabel"].filter(w => d.visible(w)), types.slice(0, 4));
    d.key(null, "Alt+G");
    keys.forEach(key => d.key(null, key));
    d.key(null, "Return");
  }, "DefineLogicGateDialog_Legacy").values, [2, type, 1e-8, 1]);

for (const name of ["DefineLogicGateDialog", "DefineLogicGateDialog_Legacy"])
  for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")])
    equal(box([4], d => {
      d.click("radioButton4");
      leave(d);
    }, name), none);
