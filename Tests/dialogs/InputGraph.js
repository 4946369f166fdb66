// InputGraph and InputSchem: the same box under two names.

const none = { made: false, type: null, values: [] };
const text = value => ({ made: true, type: "string", values: [value] });

for (const name of ["InputGraph", "InputSchem"]) {
  const box = (args, act) => {
    host.onDialog(act);
    return host.call(name, ...args);
  };

  // The text is selected: typing replaces it, an arrow key keeps it, Return is OK.
  equal(box(["old", "Caption & more"], d => {
    equal([d.name, d.title, d.modal], [name, "Enter Text", true]);
    equal([d.text("edit"), d.focused(), d.get("edit", "selectedText")], ["old", "edit", "old"]);
    equal([d.text("label"), d.visible("label")], ["Caption & more", true]);
    equal(d.get("edit", "accessibleName"), "Caption & more");
    check(!d.visible("helpButton"), "no Help");
    d.key(null, "N");
    d.key(null, "Return");
  }), text("n"), "typed");
  equal(box(["ol"], d => { d.key(null, "End"); d.key(null, "D"); d.key(null, "Return"); }), text("old"));

  // Every way out but OK makes no result.
  for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
    equal(box(["old"], d => { d.type("edit", "new"); leave(d); }), none);
  equal(box(["old"], d => { d.key(null, "Tab"); d.key(null, "Tab"); d.key(null, "Space"); }), none,
        "Cancel by keyboard");

  // Whatever comes in goes out whole, and an empty text is a result.
  for (const odd of ["", "  two  blanks  ", "a\nb\r\n\tc", "<b>x</b>", "µΩ – 電圧 😀", "x".repeat(200000)])
    equal(box([odd, odd], d => d.accept()), text(odd), `text ${odd.slice(0, 20)}`);
  const everything = new Array(1000000).fill("many");
  for (const args of [[], [[], []], [undefined, undefined]])
    equal(box(args, d => {
      check(!d.visible("label"), "no caption, no gap");
      equal(d.get("edit", "accessibleName"), "Enter Text");
      d.accept();
    }), text(""));
  equal(box([everything, everything], d => d.accept()), text("many"), "the first element counts");
}
