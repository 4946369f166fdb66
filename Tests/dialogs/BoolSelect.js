// BoolSelect: the grid, its two buttons, and what comes back.

function box(args, act) {
  host.onDialog(act);
  return BoolSelect(...args);
}
const boxes = d => d.names().filter(n => /^CheckBox\d+$/.test(n));

for (const [states, captions, count] of [
  [undefined, undefined, 6],
  [[], [], 6],
  [[1, 0, 1], ["a", "b"], 2],
  [[1], ["a", "b", "c"], 1],
]) {
  const result = box([states, captions, "Grid"], d => {
    equal(boxes(d).length, count, `boxes for ${states} / ${captions}`);
    equal(d.visible("selectAllButton"), count > 2, "Select All from three boxes on");
    d.accept();
  });
  equal(result, (states || []).concat(new Array(6).fill(0)).slice(0, count));
}

// Any number but 0 is on.
equal(box([[2, 0, -1], ["a", "b", "c"]], d => d.accept()), [1, 0, 1]);

// By mouse, by keyboard, and all at once.
equal(box([[0, 0, 0, 0], ["a", "b", "c", "d"]], d => {
  equal(d.focused(), "CheckBox0");
  d.key("CheckBox0", "Space");
  d.key(null, "Tab");
  d.key(null, "Space");
  d.click("CheckBox3");
  d.key("CheckBox3", "Return");
}), [1, 1, 0, 1]);
equal(box([[0, 1, 0], ["a", "b", "c"]], d => { d.press("Select All"); d.accept(); }), [1, 1, 1]);
equal(box([[0, 1, 0], ["a", "b", "c"]], d => { d.press("Unselect All"); d.accept(); }), [0, 0, 0]);

// Titles: what the script says, and nothing where it says nothing.
box([[1], ["a"], "Title", "Group", "Heading"], d => {
  equal([d.title, d.get("groupBox", "title")], ["Title", "Group"]);
  check(d.text("Label:0") === "Heading", "the line above the boxes");
  d.reject();
});
box([[1], ["R&D"], "R&D", "R&D", "R&D"], d => {
  equal([d.title, d.get("groupBox", "title"), d.text("Label:0"), d.text("CheckBox0")], ["R&D", "R&&D", "R&D", "R&&D"],
        "a script's ampersand is seen as written");
  d.reject();
});
box([[1], ["a"]], d => { equal(d.title, ""); d.reject(); });

// Each title has a name, and so a geometry, of its own: the same tomorrow.
const names = ["One", "Two", "One"].map(title => {
  let name;
  box([[1], ["a"], title], d => { name = d.name; d.reject(); });
  return name;
});
check(/^BoolSelect_\d+$/.test(names[0]), names[0]);
check(names[0] === names[2] && names[0] !== names[1], `names ${names}`);

host.onDialog(d => d.reject());
equal(host.call("BoolSelect", [1], ["a"]), { made: false, type: null, values: [] });
