// EditDeviceDialog: the name from the list or typed, its index, and the parameters behind it.

const list = "listBox";
const edit = "editBox";
const view = "listView1";
const none = { made: false, type: null, values: [] };
const texts = (...values) => ({ made: true, type: "string", values });
const names = ["BSS84", "2N7002", "IRF540N", "IRF540", "irlz44"];
const sorted = "2N7002 BSS84 IRF540 IRF540N irlz44";

function box(args, act) {
  host.onDialog(act);
  return host.call("EditDeviceDialog", ...args);
}

// --- the name at the start, and what an untouched OK gives -----------------------------------------

for (const [settings, text, name, index] of [
  [["IRF540N"], "IRF540N", "IRF540N", 2],
  [["IRF540"], "IRF540", "IRF540", 3],
  [["IRF540N", "0"], "IRF540N", "IRF540N", 2],
  [["", "1"], "2N7002", "2N7002", 1],
  [["", "4"], "irlz44", "irlz44", 4],
  [["", "5"], "", "", -1],
  [["", "-1"], "", "", -1],
  [["", "99999999999999999999"], "", "", -1],
  [[""], "", "", -1],
  [[], "", "", -1],
  [["irf"], "irf", "IRF540", 3],
  [["IRLZ44"], "IRLZ44", "irlz44", 4],
  [["BC547"], "BC547", "BC547", -1],
])
  equal(box([settings, names], d => {
    equal([d.items(list).join(" "), d.text(edit)], [sorted, text], settings.join());
    d.accept();
  }), texts(name, `${index}`, "0"), settings.join());

for (const [settings, title, label] of [
  [[], "Select device", "Select device"],
  [["a", "0", "T"], "T", "Select device"],
  [["a", "0", "T", "L&x"], "T", "L&x"],
  [["a", "0", "", ""], "Select device", ""],
])
  box([settings, names], d => {
    equal([d.name, d.title, d.text("label")], ["EditDeviceDialog", title, label]);
    equal(["multiLabel", "selectAllButton", "parametersButton"].filter(w => d.visible(w)), []);
    d.reject();
  });

// The same text comes before one that only begins with it, whatever the letter case.
for (const [name, all, index] of [
  ["d1n4148", ["D1N4148", "d1n4148_hot"], 0],
  ["R1", ["r10", "r1", "R1"], 2],
  ["r", ["R1", "r10"], 0],
])
  equal(box([[name], all], d => d.accept()), texts(all[index], `${index}`, "0"), name);

// --- the box and the list ------------------------------------------------------------------------

for (const [what, act, text, name, index] of [
  ["a beginning", d => d.type(edit, "bss"), "bss", "BSS84", 0],
  ["a name that is not there", d => d.type(edit, "BC547"), "BC547", "BC547", -1],
  ["typed, then a click", d => { d.type(edit, "BC547"); d.click(list, 1); }, "BSS84", "BSS84", 0],
  ["a click, then typed", d => { d.click(list, 4); d.type(edit, "irf540n"); }, "irf540n", "IRF540N", 2],
  ["Down and Up", d => { d.key(null, "Down"); d.key(null, "Up"); }, "BSS84", "BSS84", 0],
  ["an empty box", d => d.type(edit, ""), "", "", -1],
  ["nothing like it, left", d => { d.type(edit, "q"); d.key(null, "Tab"); d.key(null, "Tab"); }, "q", "q", -1],
  // A click with Ctrl leaves nothing selected: the box has the name, and its index is found.
  ["a click with Ctrl", d => { d.choose(list, [3, 3]); }, "IRF540N", "IRF540N", 2],
])
  equal(box([["IRF540"], names], d => {
    act(d);
    equal(d.text(edit), text, what);
    d.accept();
  }), texts(name, `${index}`, "0"), what);

// --- parameters ------------------------------------------------------------------------------------

const four = [["IRF540"], names, ["M", "Tj", "Rg"], ["1", "85", "2.2"]];
const edited = (d, row, text) => {
  host.onDialog(p => { p.cell(view, row, 1, text); p.press("Close"); });
  d.press("Parameters...");
};

equal(box(four, d => d.accept()), texts("IRF540", "3", "3", "1", "85", "2.2"));
equal(box(four, d => {
  edited(d, 1, "125");
  edited(d, 2, "{Rgate}");
  d.type(edit, "other");
  d.accept();
}), texts("other", "-1", "3", "1", "125", "{Rgate}"));
// The box of the parameters keeps what was typed from one opening to the next.
box(four, d => {
  edited(d, 0, "4");
  host.onDialog(p => { equal(p.cell(view, 0, 1), "4"); p.key(null, "Escape"); });
  d.press("Parameters...");
  d.reject();
});
for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  equal(box(four, d => { edited(d, 0, "4"); d.type(edit, "x"); leave(d); }), none);
equal(box(four, d => d.accept()), texts("IRF540", "3", "3", "1", "85", "2.2"), "cancel left nothing");

for (const [parameters, values, result] of [
  [["M"], [], ["0"]],
  [[], ["1"], ["0"]],
  [["M"], undefined, ["0"]],
  [["M", "Tj"], ["1"], ["2", "1", ""]],
  [["M"], ["1", "85"], ["1", "1"]],
  [["M", ""], ["a;b\nc", "µ"], ["2", "a;b\nc", "µ"]],
])
  equal(box([["IRF540"], names, parameters, values], d => {
    equal(d.visible("parametersButton"), result.length > 1, `${parameters} ${values}`);
    d.accept();
  }), texts("IRF540", "3", ...result), `${parameters} ${values}`);

// By keyboard alone, a parameter and then the name.
equal(box(four, d => {
  equal(d.focused(), edit, "the user may type at once");
  host.onDialog(p => {
    equal(p.focused(), view);
    for (const key of ["Down", "Space", "9", "Return", "Alt+C"])
      p.key(null, key);
  });
  d.key(null, "Alt+P");
  d.key(edit, "2");
  d.key(null, "Down");
  d.key(null, "Return");
}), texts("2N7002", "1", "3", "1", "9", "2.2"));
equal(box(four, d => d.doubleClick(list, 0)), texts("2N7002", "1", "3", "1", "85", "2.2"));

// --- what a script may hand in ---------------------------------------------------------------------

equal(box([[], []], d => { d.key(null, "Down"); d.accept(); }), texts("", "-1", "0"));
const odd = ["", "a\nb", "<b>x</b>", "&x", "µΩ – 電圧 😀", "x".repeat(1e6)];
for (let i = 1; i < odd.length; ++i)
  equal(box([["", `${i}`], odd], d => d.accept()), texts(odd[i], `${i}`, "0"));
equal(box([["x", "x"], ["x", "X", "x"]], d => { d.click(list, 0); d.accept(); }), texts("X", "1", "0"));
const long = "x".repeat(1e6);
equal(box([["q", "", long, long], ["q"]], d => d.accept()), texts("q", "0", "0"));

equal(box([[long], ["q"]], d => d.accept()), texts(long, "-1", "0"), "the box cuts no name");

const many = Array.from({ length: 100000 }, (_, i) => `M${(i * 7919) % 100000}`);
equal(box([["M99999"], many, many, many], d => {
  d.key(edit, "Backspace");
  d.type(edit, "m9999");
  d.accept();
}).values.slice(0, 4), ["M9999", `${many.indexOf("M9999")}`, "100000", "M0"]);
const million = many.concat(...Array.from({ length: 9 }, () => many));
equal(box([["M5"], million], d => d.accept()).values[0], "M5");

let refused = "";
try { EditDeviceDialog(["a"]); } catch (error) { refused = error.message; }
check(refused.includes("EditDeviceDialog"), refused);
