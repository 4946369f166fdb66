// AddRemoveDialog and AddRemoveDialogNew: what is shown, moved and ordered, and what comes back.

const selected = "selectedItemsListBox";
const available = "allItemsListBox";
const none = { made: false, type: null, values: [] };
const texts = values => ({ made: true, type: "string", values });

function box(args, act, name = "AddRemoveDialog") {
  host.onDialog(act);
  return host.call(name, ...args);
}
const shown = d => [d.items(selected).join(""), d.items(available).join("")];
const abc = [["x", "y", "z"], ["a", "b", "c"]];

// What is shown, and that it comes back; the other function puts a count before it.
for (const [args, lists] of [
  [[["x"], ["a", "x", "b"]], ["x", "ab"]],
  [[[], ["a", "b", "a", "A"]], ["", "ab"]],
  [[[""], ["a"]], ["", "a"]],
  [[["", ""], ["a", ""]], ["", "a"]],
  [[["x", "x"], ["X"]], ["xx", ""]],
  [[["x"], []], ["x", ""]],
  [["x", "a"], ["x", "a"]],
  [[[], []], ["", ""]],
]) {
  const kept = [].concat(args[0]).filter((_, i, all) => all.length > 1 || all[i] !== "");
  for (const arrangement of ["", "Vertical"]) {
    const all = [...args, [], arrangement];
    equal(box(all, d => { equal(shown(d), lists); d.accept(); }), texts(kept), JSON.stringify(all));
    equal(box(all, d => d.accept(), "AddRemoveDialogNew"), texts([`${kept.length}`, ...kept]));
  }
}

// Letter case counts for paths only, and only where it does for files.
for (const [word, files, list] of [
  ["", true, "a"],
  ["PathNames", true, "aA"],
  ["pathnames", false, "a"],
  ["pathname", true, "a"],
]) {
  host.system("caseSensitiveFiles", files);
  box([["b"], ["a", "A"], ["", "", "", "", word]], d => {
    equal(shown(d), ["b", list], `${word} ${files}`);
    d.reject();
  });
}
host.system("caseSensitiveFiles", null);

// Moves: rows chosen in a list, what is done with them, both lists afterwards.
for (const [what, list, rows, act, lists] of [
  ["Add takes those selected", available, [0, 2], d => d.click("addButton"), ["xyzac", "b"]],
  ["Add takes nothing", available, [], d => d.click("addButton"), ["xyz", "abc"]],
  ["Insert adds", available, [1], d => d.key(available, "Insert"), ["xyzb", "ac"]],
  ["Return adds in the order of the list", available, [2, 1], d => d.key(available, "Return"), ["xyzbc", "a"]],
  ["a double click adds", available, ["b"], d => d.doubleClick(available, 1), ["xyzb", "ac"]],
  ["Insert twice", available, [0], d => { d.key(available, "Insert"); d.key(available, "Insert"); }, ["xyzab", "c"]],
  ["Remove takes those selected", selected, [0, 1], d => d.click("removeButton"), ["z", "abcxy"]],
  ["Delete removes", selected, [1], d => d.key(selected, "Delete"), ["xz", "abcy"]],
  ["Return removes", selected, [0, 1], d => d.key(selected, "Return"), ["z", "abcxy"]],
  ["a double click removes", selected, [0], d => d.doubleClick(selected, 2), ["xy", "abcz"]],
  ["Up", selected, [1], d => d.click("upButton"), ["yxz", "abc"]],
  ["Up beyond the top", selected, [2], d => { d.click("upButton"); d.click("upButton"); d.click("upButton"); }, ["zxy", "abc"]],
  ["Down with two", selected, [0, 1], d => d.click("downButton"), ["zxy", "abc"]],
  ["Up at the top", selected, [0, 1], d => d.click("upButton"), ["xyz", "abc"]],
  ["Up with a gap", selected, [0, 2], d => d.click("upButton"), ["xzy", "abc"]],
  ["Ctrl+Down with a gap", selected, [0, 2], d => d.key(selected, "Ctrl+Down"), ["yxz", "abc"]],
  ["Ctrl+Up", selected, [1], d => d.key(selected, "Ctrl+Up"), ["yxz", "abc"]],
  ["Alt+Down", selected, [0], d => d.key(null, "Alt+Down"), ["yxz", "abc"]],
])
  for (const arrangement of ["", "vertical"])
    equal(box([...abc, [], arrangement], d => {
      d.choose(list, rows);
      act(d);
      equal(shown(d), lists, what);
      d.accept();
    }), texts(lists[0].split("")));

// By keyboard alone: the cursor stands on the next item, so that Insert adds one after the other.
equal(box(abc, d => {
  equal(d.focused(), available);
  d.key(null, "c");
  for (const key of ["Return", "Insert", "Tab", "Tab", "Tab", "Home", "Delete", "Ctrl+Down", "Alt+O"])
    d.key(null, key);
}), texts(["z", "y", "c", "b"]));
equal(box(abc, d => { d.key(null, "Ctrl+A"); d.key(null, "Return"); d.key("okButton", "Return"); }),
      texts(["x", "y", "z", "a", "b", "c"]));

// With nothing to add or to remove, Return is OK.
equal(box([["x"], []], d => d.key(available, "Return")), texts(["x"]));
equal(box([[], ["x"]], d => d.key(selected, "Enter")), texts([]));
box([[], ["x"], ["", "R & D", "&Rest"]], d => {
  equal([d.get("selectedItemsGroupBox", "title"), d.get("allItemsGroupBox", "title")], ["R && D", "&Rest"]);
  d.reject();
});

for (const name of ["AddRemoveDialog", "AddRemoveDialogNew"])
  for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
    equal(box(abc, d => { d.key(null, "Insert"); leave(d); }, name), none);

// Settings, given and left out; the form is the arrangement's.
box([...abc, ["Mine", "One", "T&wo", "a topic"], "VERTICAL"], d => {
  equal([d.name, d.title, d.get("selectedItemsGroupBox", "title"), d.get("allItemsGroupBox", "title")],
        ["AddRemoveDialog_2", "Mine", "One", "T&wo"]);
  d.click("helpButton");
  d.reject();
});
equal(host.helpRequests(), ["a topic"]);
for (const settings of [undefined, [], ["", "", "", ""]])
  box([...abc, settings, "horizontal"], d => {
    equal([d.name, d.title, d.get("selectedItemsGroupBox", "title"), d.get("allItemsGroupBox", "title")],
          ["AddRemoveDialog", "Add/Remove", "&Selected items", "&Available items"]);
    check(!d.visible("helpButton"), "no topic, no help");
    d.reject();
  });

// Odd texts come back as they went in.
const odd = ["", "a\nb", "<b>x</b>", "&x", "µΩ – 電圧 😀", "x".repeat(100000), "x".repeat(100000) + "y"];
equal(box([["y"], odd], d => { d.key(available, "Ctrl+A"); d.click("addButton"); d.accept(); }),
      texts(["y", ...odd]));

// Many.
const many = Array.from({ length: 100000 }, (_, i) => `item ${i}`);
function timed(what, limit, act) {
  const start = host.processTime();
  act();
  const taken = host.processTime() - start;
  check(taken < limit, `${what} took ${taken} ms`);
}
const all = box([[], many], d => {
  timed("choosing and adding", 1000, () => { d.key(available, "Ctrl+A"); d.click("addButton"); });
  d.key(selected, "End");
  timed("a move", 200, () => d.key(selected, "Ctrl+Up"));
  d.key(selected, "Ctrl+A");
  timed("removing", 1000, () => d.key(selected, "Delete"));
  equal(d.items(selected).length, 0);
  d.key(available, "Ctrl+A");
  d.key(available, "Insert");
  d.accept();
}).values;
equal([all.length, ...all.slice(-2)], [many.length, "item 99999", "item 99998"]);

const million = many.concat(...Array.from({ length: 9 }, () => many));
timed("a million items", 10000, () =>
  equal(box([million, million], d => d.accept()).values.length, million.length));

for (const name of ["AddRemoveDialog", "AddRemoveDialogNew"]) {
  let refused = "";
  try { host.call(name, ["a"]); } catch (error) { refused = error.message; }
  check(refused.includes(name), refused);
}
