// UpDownDialog: moves, ends, and what comes back.

function box(args, act) {
  host.onDialog(act);
  return host.call("UpDownDialog", ...args);
}
const list = "upDownListBox";
const none = { made: false, type: null, values: [] };
const texts = values => ({ made: true, type: "string", values });
const abcd = ["a", "b", "c", "d"];

// Moves of the current item: u is up, d is down; the item stays current.
for (const [start, moves, order, current] of [
  [0, "", "abcd", 0],
  [0, "u", "abcd", 0],
  [0, "d", "bacd", 1],
  [0, "dddd", "bcda", 3],
  [3, "d", "abcd", 3],
  [3, "uuuu", "dabc", 0],
  [2, "uud", "acbd", 1],
]) {
  const name = `${start} ${moves}`;
  equal(box([abcd], d => {
    equal(d.current(list), 0, "the first item is current on opening");
    d.choose(list, [start]);
    for (const move of moves)
      d.click(move === "u" ? "upButton" : "downButton");
    equal([d.items(list).join(""), d.current(list)], [order, current], name);
    d.accept();
  }), texts(order.split("")), name);
}

// By keyboard alone: with the keys for it, and on the buttons, which keep the focus at the ends.
equal(box([abcd], d => {
  equal(d.focused(), list);
  d.key(null, "Down");
  d.key(null, "Alt+Down");
  d.key(null, "Alt+Down");
  d.key(null, "Alt+Up");
  d.key(null, "Return");
}), texts(["a", "c", "b", "d"]));
equal(box([abcd], d => {
  d.key(null, "Down");
  d.key(null, "Tab");
  for (let i = 0; i < 4; ++i)
    d.key(null, "Space");
  equal(d.focused(), "upButton");
  d.key(null, "Return");
}), texts(["b", "a", "c", "d"]));

for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  equal(box([abcd], d => { d.click("downButton"); leave(d); }), none);

// Titles.
for (const [args, title] of [[[["a"]], "Select Item Order"], [[["a"], ""], "Select Item Order"], [[["a"], "Mine"], "Mine"]])
  box(args, d => { equal([d.name, d.title], ["UpDownDialog", title]); d.reject(); });

// Items alike, empty, broken into lines; one; none.
for (const items of [["x", "x", "", "a\nb", "<b>x</b>", "µΩ – 電圧 😀"], ["x".repeat(100000), "y"]])
  equal(box([items], d => { d.click("downButton"); d.accept(); }),
        texts([items[1], items[0], ...items.slice(2)]));
for (const items of [["one"], []])
  equal(box([items], d => { d.click("upButton"); d.click("downButton"); d.accept(); }), texts(items));

// Many.
const many = Array.from({ length: 1000000 }, (_, i) => `item ${i}`);
const result = box([many], d => {
  d.key(null, "End");
  d.key(null, "Alt+Up");
  d.accept();
}).values;
equal([result.length, ...result.slice(-2)], [many.length, "item 999999", "item 999998"]);

let refused = "";
try { UpDownDialog(); } catch (error) { refused = error.message; }
check(refused.includes("UpDownDialog"), refused);
