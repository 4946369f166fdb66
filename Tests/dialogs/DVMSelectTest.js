// DVMSelectTest and SelectTest: the tree, what a check takes along, and the states that come back.

const tree = "dvmSelectListView";
const none = { made: false, type: null, values: [] };
const texts = (...values) => ({ made: true, type: "string", values });
const lines = ["AC;Loop;Margin", "DC", "ac;LOOP;Bandwidth", "AC;Noise"];

function box(act, args = [lines], name = "DVMSelectTest") {
  host.onDialog(act);
  return host.call(name, ...args);
}
const result = states => texts(...["AC;Loop;Margin;", "AC;Loop;Bandwidth;", "AC;Noise;", "DC;"].map((path, i) => `${states[i] === "1" ? "on" : "off"};${path}`));

for (const [name, title] of [["DVMSelectTest", "DVM Test Selection"], ["SelectTest", "Select Test"]])
  for (const [settings, shown, heading] of [[undefined, title, "Test Name"], [["", "H"], title, "H"], [["X"], "X", "Test Name"]])
    equal(box(d => {
      equal([d.name, d.title, d.headers(tree)], ["DVMSelectTest", shown, [heading]]);
      equal(d.items(tree), ["AC", "Loop", "Margin", "Bandwidth", "Noise", "DC"]);
      d.accept();
    }, settings ? [lines, settings] : [lines], name), result("0000"));

for (const [what, act, states] of [
  ["a test", d => d.cell(tree, 3, 0, true), "0100"],
  ["a folder", d => d.cell(tree, 1, 0, true), "1100"],
  ["a folder of folders", d => d.cell(tree, 0, 0, true), "1110"],
  ["a folder, and one back", d => { d.cell(tree, 0, 0, true); d.cell(tree, 2, 0, false); }, "0110"],
  ["a folder twice", d => { d.cell(tree, 0, 0, true); d.cell(tree, 0, 0, false); }, "0000"],
  ["a click on a folder's name", d => { d.cell(tree, 2, 0, true); d.cell(tree, 5, 0, true); d.click(tree, 1); }, "0001"],
  ["by keys", d => { d.key(tree, "Space"); d.key(tree, "End"); d.key(tree, "Space"); }, "1111"],
])
  equal(box(d => { act(d); d.key(tree, "Return"); }), result(states), what);

equal(box(d => { d.cell(tree, 0, 0, true); d.reject(); }), none);
equal(box(d => d.accept(), [[]]), texts());
equal(box(d => d.accept(), [["", "a;"]]), texts("off;;", "off;a;;"));
equal(box(d => { d.key(tree, "Space"); d.accept(); }, [[";".repeat(1e5)]]), texts(`on;${";".repeat(1e5 + 1)}`), "deeper than any tree");
