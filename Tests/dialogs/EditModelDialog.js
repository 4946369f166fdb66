// EditModelDialog: the library's model, its local copy, and which of the two counts.

function box(args, act) {
  host.onDialog(act);
  return host.call("EditModelDialog", ...args);
}
const none = { made: false, type: null, values: [] };
const texts = (...values) => ({ made: true, type: "string", values });
const models = [".model D1 D(IS=1f)", ".model D1 D(IS=2f)\n+ RS=1"];
const chosen = d => [d.checked("rbUseGlobalLibraryModel"), d.checked("rbUseLocalModel")];

// Each text has its place, and loading it is nobody's keystroke.
for (const [choice, checked] of [["0", [true, false]], ["1", [false, true]]])
  equal(box([models, choice], d => {
    equal([d.name, d.title, d.modal], ["EditModelDialog", "Edit Model", true]);
    equal([d.text("globalModelEdit"), d.text("localModelEdit")], models);
    equal(chosen(d), checked, "loading chooses nothing");
    equal(d.focused(), checked[0] ? "rbUseGlobalLibraryModel" : "rbUseLocalModel");
    for (const edit of ["globalModelEdit", "localModelEdit"])
      equal([d.get(edit, "font").family, d.get(edit, "readOnly")],
            ["Courier New", edit === "globalModelEdit"]);
    d.accept();
  }), texts(models[1], choice));

// By keyboard alone: the choice by arrow keys, or made by the first keystroke in the local model.
equal(box([models, "0"], d => { d.key(null, "Down"); d.key(null, "Return"); }), texts(models[1], "1"));
equal(box([models, "0"], d => {
  d.key(null, "Shift+Tab");
  equal(d.focused(), "localModelEdit");
  d.key(null, "Right");
  equal(chosen(d), [true, false], "moving about changes nothing");
  d.key(null, "Ctrl+Home");
  d.key(null, "*");
  equal(chosen(d), [false, true]);
  d.key(null, "Alt+O");
}), texts(`*${models[1]}`, "1"));
equal(box([models, "0"], d => {
  d.key("localModelEdit", "x");
  d.click("rbUseGlobalLibraryModel");
  equal(chosen(d), [true, false], "the user may go back to the library");
  d.accept();
}).values[1], "0");
equal(box([models, "0"], d => {
  d.key("globalModelEdit", "x");
  d.key("globalModelEdit", "Delete");
  equal(d.text("globalModelEdit"), models[0], "the library's model is read only");
  d.key("globalModelEdit", "Tab");
  equal(d.focused(), "localModelEdit");
  d.accept();
}), texts(models[1], "0"));

for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  equal(box([models, "0"], d => { d.type("localModelEdit", "new"); leave(d); }), none);

// What a script may hand in.
for (const [args, result] of [
  [[[], []], texts("", "0")],
  [[["one"], ""], texts("", "0")],
  [[models, "2"], texts(models[1], "0")],
  [[models, "local"], texts(models[1], "0")],
  [[["g", "µΩ\n\n 電圧 😀 <b>;\n"], "1"], texts("µΩ\n\n 電圧 😀 <b>;\n", "1")],
  [[["g", "a\r\nb\u2028\u00a0c"], "1"], texts("a\r\nb\u2028\u00a0c", "1")],
  [[new Array(1000000).fill("m"), new Array(1000000).fill("1")], texts("m", "1")],
  [[["x".repeat(1000000), "y".repeat(1000000)], "1"], texts("y".repeat(1000000), "1")],
])
  equal(box(args, d => d.accept()), result, JSON.stringify(args).slice(0, 40));
const lines = new Array(100000).fill("+ IS=1f").join("\n");
equal(box([[lines, lines], "1"], d => d.accept()), texts(lines, "1"));

for (const args of [[], [models], [models, 1]]) {
  let said = "";
  try { EditModelDialog(...args); } catch (error) { said = String(error); }
  check(said.includes("EditModelDialog"), said);
}
