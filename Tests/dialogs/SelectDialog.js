// SelectDialog: what is selected at the start, by the box and in the list, and the indices returned.

const list = "listBox";
const edit = "editBox";
const none = { made: false, type: null, values: [] };
const reals = (...values) => ({ made: true, type: "real", values });
const abc = ["banana", "Cherry", "apple", "avocado"];

function box(settings, act, items = abc) {
  host.onDialog(act);
  return host.call("SelectDialog", settings, items);
}
/// The settings with those given, by index, over the defaults.
function settings(given) {
  const all = ["T", "L", "", "", "0", undefined, undefined];
  Object.assign(all, given);
  return all.filter(text => text !== undefined);
}

// --- the start: settings, what the list and the box show, and what an untouched OK gives -----------

for (const [given, shown, text, result] of [
  [{}, "banana Cherry apple avocado", "banana", reals(0)],
  [{ 4: "2" }, "banana Cherry apple avocado", "apple", reals(2)],
  [{ 4: "2", 3: "SORTED" }, "Cherry apple avocado banana", "apple", reals(2)],
  [{ 4: "0", 3: "sorted" }, "Cherry apple avocado banana", "banana", reals(0)],
  [{ 4: "0", 3: "sort" }, "banana Cherry apple avocado", "banana", reals(0)],
  [{ 4: "-1" }, "banana Cherry apple avocado", "", none],
  [{ 4: "4" }, "banana Cherry apple avocado", "", none],
  [{ 4: "99999999999999999999" }, "banana Cherry apple avocado", "", none],
  [{ 4: "nonsense" }, "banana Cherry apple avocado", "banana", reals(0)],
  [{ 4: "3", 5: "app" }, "banana Cherry apple avocado", "app", reals(3)],
  [{ 4: "3", 5: "" }, "banana Cherry apple avocado", "", reals(3)],
  [{ 4: "-1", 5: "app", 6: "-7" }, "banana Cherry apple avocado", "app", reals(-7)],
  [{ 4: "-1", 5: "", 6: "" }, "banana Cherry apple avocado", "", reals(0)],
  [{ 4: "1", 5: "", 6: "-7" }, "banana Cherry apple avocado", "", reals(1)],
  [{ 2: "single", 4: "1" }, "banana Cherry apple avocado", "Cherry", reals(1)],
]) {
  const name = JSON.stringify(given);
  equal(box(settings(given), d => {
    equal([d.items(list).join(" "), d.text(edit)], [shown, text], name);
    check(!d.visible("multiLabel") && !d.visible("selectAllButton"), name);
    d.accept();
  }), result, name);
}

for (const [given, title, label] of [[[], "Select Dialog", ""], [[""], "Select Dialog", ""], [["Mine"], "Mine", ""], [["A", "B&c"], "A", "B&c"]])
  equal(box(given, d => {
    equal([d.name, d.title, d.visible("label"), d.text("label")], ["SelectDialog", title, label !== "", label]);
    check(!d.visible("parametersButton"), "there are none to edit");
    d.accept();
  }), reals(0));

// --- the box and the list ------------------------------------------------------------------------

for (const [what, act, text, result] of [
  ["a beginning", d => d.type(edit, "av"), "av", reals(3)],
  ["a beginning in capitals", d => d.type(edit, "AV"), "AV", reals(3)],
  ["the first of two", d => d.type(edit, "a"), "a", reals(2)],
  ["an empty box", d => d.type(edit, ""), "", none],
  ["nothing like it", d => d.type(edit, "zzz"), "zzz", none],
  ["nothing like it, then a beginning", d => { d.type(edit, "zzz"); d.type(edit, "ch"); }, "ch", reals(1)],
  ["typed, then a click", d => { d.type(edit, "av"); d.click(list, 1); }, "Cherry", reals(1)],
  ["typed, then a click on what was found", d => { d.type(edit, "av"); d.click(list, 3); }, "avocado", reals(3)],
  ["Down twice", d => { d.key(null, "Down"); d.key(null, "Down"); }, "Cherry", reals(1)],
  ["nothing like it, then Down", d => { d.type(edit, "zzz"); d.key(null, "Down"); }, "banana", reals(0)],
  ["nothing like it, left", d => { d.type(edit, "zzz"); d.key(null, "Tab"); }, "zzz", none],
  ["typed over the list", d => { d.key(null, "Tab"); d.key(null, "a"); d.key(null, "v"); }, "avocado", reals(3)],
  ["End and Up in the list", d => { d.key(null, "Tab"); d.key(null, "End"); d.key(null, "Up"); }, "apple", reals(2)],
])
  equal(box(settings({}), d => {
    act(d);
    equal(d.text(edit), text, what);
    d.accept();
  }), result, what);

// Duplicates, and items that are one another's beginnings, are told apart.
for (const [items, start] of [[["R10", "R1"], 1], [["a", "A"], 1], [["x", "x"], 1]])
  for (const order of ["", "sorted"])
    equal(box(settings({ 3: order, 4: `${start}` }), d => d.accept(), items), reals(start), `${items}`);

// By keyboard alone; by a double click.
equal(box(settings({ 3: "sorted" }), d => {
  equal(d.focused(), edit, "the user may type at once");
  d.key(null, "c");
  equal(d.text(edit), "c", "over the text of the start");
  for (const key of ["Down", "Down", "Return"])
    d.key(null, key);
}), reals(2));
equal(box(settings({}), d => d.doubleClick(list, 3)), reals(3));
for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  for (const mode of ["Single", "Multiple"])
    equal(box(settings({ 2: mode, 5: "x", 6: "1" }), d => { d.click(list, 2); leave(d); }), none);

// --- several -------------------------------------------------------------------------------------

for (const [what, given, act, result] of [
  ["untouched", { 4: "2" }, () => 0, none],
  ["untouched, with a number for none", { 4: "2", 5: "app", 6: "12k" }, () => 0, reals(12)],
  ["three by clicks", {}, d => d.choose(list, [3, 0, 2]), reals(0, 2, 3)],
  ["three of a sorted list", { 3: "sorted" }, d => d.choose(list, [3, 0, 2]), reals(1, 3, 0)],
  ["Select All", {}, d => d.press("Select All"), reals(0, 1, 2, 3)],
  ["Ctrl+A in a sorted list", { 3: "sorted" }, d => d.key(null, "Ctrl+A"), reals(1, 2, 3, 0)],
  ["Shift+Down", {}, d => { d.key(null, "Down"); d.key(null, "Shift+Down"); d.key(null, "Shift+Down"); }, reals(1, 2, 3)],
  ["Select All, then a click", { 6: "-1" }, d => { d.press("Select All"); d.click(list, 2); }, reals(2)],
])
  equal(box(settings(Object.assign({ 2: "mULTIPLE" }, given)), d => {
    check(!d.visible(edit) && d.visible("multiLabel") && d.visible("selectAllButton"), "several");
    equal(d.focused(), list);
    act(d);
    d.key(null, "Return");
  }), result, what);

// --- what a script may hand in -------------------------------------------------------------------

for (const mode of ["Single", "Multiple"]) {
  equal(box(settings({ 2: mode }), d => { d.key(null, "Down"); d.accept(); }, []), none);
  equal(box(settings({ 2: mode, 5: "x", 6: "9" }), d => d.accept(), []), reals(9));
}
const odd = ["", "a\nb", "<b>x</b>", "&x", "µΩ – 電圧 😀", "x".repeat(1e6)];
for (let i = 0; i < odd.length; ++i)
  equal(box(settings({ 4: `${i}` }), d => d.accept(), odd), reals(i));
const long = "x".repeat(1e6);
equal(box([long, long, long, long, long], d => d.accept()), reals(0), "settings of any length");

let refused = "";
try { SelectDialog(["T"]); } catch (error) { refused = error.message; }
check(refused.includes("SelectDialog"), refused);

// Many: each act takes less than a display frame, as far as a busy machine lets it be measured.
const count = 100000;
const many = Array.from({ length: count }, (_, i) => `V(top.pwr.net_${(i * 7919) % count})`);
function timed(what, limit, act) {
  act();
  const start = host.processTime();
  for (let i = 0; i < 5; ++i)
    act();
  const taken = (host.processTime() - start) / 5;
  check(taken < limit, `${what} took ${taken} ms`);
}
equal(box(settings({ 3: "sorted", 4: `${count - 1}` }), d => {
  d.type(edit, "v(top.pwr.net_99998");
  timed("a keystroke that matches late", 100, () => { d.key(edit, "x"); d.key(edit, "Backspace"); });
  timed("a keystroke in the list", 100, () => d.key(list, "x"));
  d.accept();
}, many), reals(many.indexOf("V(top.pwr.net_99998)")));
const all = box(settings({ 2: "Multiple", 3: "sorted" }), d => {
  timed("Select All", 100, () => d.press("Select All"));
  d.accept();
}, many).values;
equal([all.length, many[all[0]], many[all[count - 1]]], [count, "V(top.pwr.net_0)", "V(top.pwr.net_99999)"]);

const million = many.concat(...Array.from({ length: 9 }, () => many));
equal(box(settings({ 4: "999999" }), d => { d.type(edit, "V(top.pwr.net_5"); d.accept(); }, million).values.length, 1);
equal(box(settings({ 2: "Multiple" }), d => { d.press("Select All"); d.accept(); }, million).values.length, 1e6);
