// SelectDeviceDialog: which devices are shown, in what order, and that the line number is the script's.

const list = "fetSelectListView";
const none = { made: false, type: null, values: [] };
const real = value => ({ made: true, type: "real", values: [value] });
const devices = ["B9;9;60;5m;TO", "*comment;1;1;1", "A10;10;100;20m;DFN", "C2;2k;30;1m;SO", "N;-1;5;5", "", "D100;100;60;4.7k"];
const choices = ["*", "all", "all", "9-10", "", "0-20m", "10-inf", "60-100", "20m-1", "all", "", ""];
const headers = ["Part", "Id", "Vds", "Rdson", "Case"];

function box(act, args = [devices, "T", headers, ["1", "2", "3"], choices]) {
  host.onDialog(act);
  return host.call("SelectDeviceDialog", ...args);
}
const shown = d => d.items(list).join(" ");

// What is shown at the start: nothing negative, sorted by name, the filters' choices three to a row.
equal(box(d => {
  equal([d.name, d.title, shown(d)], ["SelectDeviceDialog", "T", " A10 B9 C2 D100"]);
  equal(d.headers(list), headers);
  equal([1, 2, 3].map(i => d.text(`label${i}`)), ["Id", "Vds", "Rdson"]);
  equal([1, 2, 3].map(i => d.items(`filter${i}Edit`).join()), ["*,9-10,10-inf,all", "all,,60-100", "all,0-20m,20m-1"]);
  d.accept();
}), none, "untouched");

// Filters: half open, each with what the others say.
for (const [what, act, names] of [
  ["the low end is in, the high end is not", d => d.set("filter1Edit", "9-10"), "B9"],
  ["no upper limit", d => d.set("filter1Edit", "10-inf"), "A10 C2 D100"],
  ["all: negative ones, too", d => d.set("filter1Edit", "all"), " A10 B9 C2 D100 N"],
  ["the others count", d => { d.set("filter1Edit", "10-inf"); d.set("filter3Edit", "20m-1"); }, "A10"],
  ["an empty one", d => { d.set("filter1Edit", "all"); d.set("filter2Edit", "60-100"); d.set("filter2Edit", 1); }, " A10 B9 C2 D100 N"],
])
  box(d => { act(d); equal(shown(d), names, what); d.reject(); });

// The line number is the position in the script's list.
for (const [name, line] of [["A10", 2], ["B9", 0], ["D100", 6]])
  equal(box(d => { d.choose(list, [name]); d.accept(); }), real(line), name);
equal(box(d => { d.choose(list, ["A10"]); d.set("filter1Edit", "10-inf"); d.accept(); }), real(2), "still shown, still chosen");
equal(box(d => { d.choose(list, ["B9"]); d.set("filter1Edit", "10-inf"); d.accept(); }), none, "no longer shown");
equal(box(d => d.doubleClick(list, 2)), real(0));
equal(box(d => { d.key(list, "End"); d.key(null, "Return"); }), real(6), "by keys");
equal(box(d => { d.choose(list, ["B9"]); d.reject(); }), none);

// How many filters there are; what is not passed.
for (const [filters, visible] of [[[], ""], [["a"], "1"], [["", ""], "12"], [["", "", "", ""], "123"]])
  box(d => {
    equal([1, 2, 3].filter(i => d.visible(`filter${i}Edit`) && d.visible(`label${i}`)).join(""), visible);
    equal(d.visible("groupBox5"), visible !== "");
    d.reject();
  }, [devices, "", headers, filters, choices]);
box(d => {
  equal([d.title, d.headers(list), shown(d)], ["Select Device", ["Part Number"], "*comment A10 B9 C2 D100"]);
  d.reject();
}, [devices]);
for (const args of [[[]], [[""]], [[";;;;"], [], [], [], []], [["a".repeat(1e6), "1e400;1e400;nan;inf"], "", ["x"]]])
  equal(box(d => { d.accept(); }, args), none);
box(d => { check(d.columns(list) <= 100); d.reject(); }, [devices, "", new Array(1e5).fill("x")]);
