// EditSelect: rows from two lists, and a cancel that is one empty text.

function box(args, act) {
  host.onDialog(act);
  return EditSelect(...args);
}
const boxes = d => d.names().filter(n => /^EditBox\d+$/.test(n));

for (const [texts, labels, count] of [
  [undefined, undefined, 6],
  [[], [], 6],
  [["x"], ["a", "b", "c"], 3],
  [["x", "y"], ["a"], 2],
  ["x", undefined, 1],
]) {
  const result = box([texts, labels], d => {
    equal(boxes(d).length, count, `boxes for ${texts} / ${labels}`);
    equal(boxes(d).map((_, i) => d.text(`QLabel:${i}`)),
          [].concat(labels || []).concat(new Array(6).fill("")).slice(0, count), "labels");
    d.accept();
  });
  equal(result, [].concat(texts || []).concat(new Array(6).fill("")).slice(0, count));
}

// By keyboard alone: the first text is selected, so that typing replaces it.
equal(box([["one", "two", "three"], ["A", "B & C"], "Texts"], d => {
  equal([d.title, d.focused()], ["Texts", "EditBox0"]);
  check(["helpButton", "selectAllButton", "unselectAllButton"].every(b => !d.visible(b)), "hidden");
  d.key(null, "1");
  d.key(null, "Tab");
  d.key(null, "2");
  d.key(null, "Return");
}), ["1", "2", "three"]);
box([["x"]], d => { equal(d.title, "", "no title, none shown"); d.reject(); });

// Texts come back as they were.
const odd = ["", "  ", "a|b;c", "Ω µ 漢", "x".repeat(40000), "two\nlines", "tab\there", "\"'<b>&"];
equal(box([odd], d => d.accept()), odd);

// A pasted text is one line; the line ends that a script has passed stay.
for (const [initial, pasted, expected] of [
  ["", "\na\nb\r\n c\u2028d\n\n", "a b  c d"],
  ["x\ny", "1\n", "x\ny1"],
  ["x", " a ", "x a "],
])
  equal(box([[initial], ["A"], ""], d => {
    host.clipboard(pasted);
    d.key("EditBox0", "End");
    d.key("EditBox0", "Ctrl+V");
    d.accept();
  }), [expected], pasted);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")]) {
  host.onDialog(d => { d.type("EditBox0", "lost"); leave(d); });
  equal(host.call("EditSelect", ["kept", "too"]), { made: true, type: "string", values: [""] });
}

for (const args of [[new Array(1e6).fill("x")], [[], new Array(1e6).fill("x")]])
  equal(box(args, d => {
    check(d.message().text.includes("1000000"), "a million boxes are refused in words");
    d.accept();
  }), [""], "and answered as cancelled");

const long = "x".repeat(1e6);
check(box([[long], [long], long], d => d.accept())[0] === long, "texts of any length");
