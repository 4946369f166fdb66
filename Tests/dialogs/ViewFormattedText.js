// ViewFormattedText: windows that outlive their call.

const ok = { made: true, type: "string", values: ["ok"] };
function opened(arg) {
  const before = host.windows().length;
  equal(host.call("ViewFormattedText", arg), ok);
  equal(host.windows().length, before + 1, "opens and returns at once");
  return host.windows()[before];
}

const first = opened(["<b>Bold</b> & more<br>second", "Title"]);
equal([first.name, first.title, first.modal], ["ViewFormattedText", "Title", false]);
equal(first.text("textBrowser"), "Bold & more\nsecond");
const second = opened(["a < b\nplain"]);
equal([second.title, second.text("textBrowser")], ["View Results", "a < b\nplain"]);
equal(host.windows().length, 2);
first.press("Ok");
check(!first.isOpen && second.isOpen, "each window closes for itself");
second.close();

// The keyboard reaches text and button, and closes from both.
for (const keys of [["Return"], ["Escape"], ["Alt+O"], ["Tab", "Return"], ["Tab", "Space"], ["Tab", "Escape"]]) {
  const window = opened(["text"]);
  window.key(null, "Home");
  equal(window.focused(), "textBrowser");
  equal(window.get("textBrowser", "accessibleName"), "Text");
  for (const key of keys)
    window.key(null, key);
  check(!window.isOpen, `closes by ${keys}`);
}
const scrolled = opened(["line\n".repeat(1000)]);
scrolled.key(null, "Ctrl+End");
scrolled.key(null, "Ctrl+Home");
scrolled.key(null, "Tab");
equal(scrolled.focused(), "okButton");
scrolled.key(null, "Tab");
equal(scrolled.focused(), "textBrowser");
scrolled.close();

// A call that waits for a dialog goes on beside the window.
const beside = opened(["beside"]);
host.onDialog(d => d.accept());
EnterTextDialog(["x"]);
check(beside.isOpen, "outlives other dialogs");
beside.close();

// Texts that are odd, long or nested.
for (const [arg, shown] of [
  [[], ""], [[""], ""], [["", ""], ""], [["", "Only a title"], ""],
  [["µΩ – 電圧 😀"], "µΩ – 電圧 😀"],
  [["a word & ".repeat(1000).trim()], "a word & ".repeat(1000).trim()],
  [["<p>x <img src='file://server/share/x.png'><img src='http://127.0.0.1:1/x.png'>" +
    "<img src='/dev/zero'><img src='data:image/png;base64,AAAA'>"], "x \ufffc\ufffc\ufffc\ufffc"],
  [new Array(1000000).fill("many"), "many"],
]) {
  const window = opened(arg);
  equal(window.text("textBrowser"), shown);
  equal(window.title, arg.length > 1 ? arg[1] : "View Results");
  window.close();
}
for (const long of ["x".repeat(1000000), "word ".repeat(200000), "R1 in out 4.7k\n".repeat(200000),
                    "<table><tr><td>".repeat(1000), "<div>".repeat(100000), "<b>x</b>".repeat(20000)]) {
  const start = host.processTime();
  const window = opened([long]);
  host.wait(0);
  check(window.text("textBrowser").length >= (long.startsWith("<b>") ? 20000 : long.length), long.slice(0, 8));
  check(host.processTime() - start < 3000, `${long.slice(0, 8)}: ${host.processTime() - start} ms`);
  window.close();
}
equal(host.windows().length, 0);

// Its size is remembered.
const stored = host.config("WidgetDims", "ViewFormattedText");
check(/^-?\d+ -?\d+ \d+ \d+$/.test(stored), stored);

let refused = "";
try { ViewFormattedText(); } catch (error) { refused = error.message; }
check(refused.includes("ViewFormattedText"), refused);
