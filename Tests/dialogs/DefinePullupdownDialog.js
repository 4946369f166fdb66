// DefinePullupdownDialog: a state by its name, and the second page's values as texts.

const families = include("../../Samples/data/logic_families.js");
const sheet = ["0", "0", "5", "5p", "100"]; // what the second page returns when no argument loads it
const gap = new Array(8).fill("");
const none = { made: false, type: null, values: [] };
const states = ["ONE STRONG", "ZERO STRONG", "ONE RESISTIVE", "ZERO RESISTIVE", "ONE HI-Z", "ZERO HI-Z",
                "UNKNOWN STRONG", "UNKNOWN RESISTIVE", "UNKNOWN HI-Z", "ONE UNDETERMINED", "ZERO UNDETERMINED",
                "UNKNOWN UNDETERMINED"];

function box(device, act) {
  host.onDialog(act);
  return host.call("DefinePullupdownDialog", device);
}

for (const [given, state] of [
  ...states.map(state => [[state], state]),
  [["zero hi-z"], "ZERO HI-Z"],
  [["11"], states[11]],
  [["12"], states[0]],
  [["TWO STRONG"], states[0]],
  [[""], states[0]],
  [[], states[0]],
  [["x".repeat(1e5)], states[0]],
  [["\ud800", "\n;"], states[0]],
  [new Array(1e6).fill("UNKNOWN HI-Z"), "UNKNOWN HI-Z"],
])
  equal(box(given, d => {
    equal(d.items("combobox"), states);
    d.accept();
  }), { made: true, type: "string", values: [state, ...gap, ...sheet] }, String(given[0]).slice(0, 40));

// By keyboard alone; the page shows the output's side, and gives both back.
host.onDialog(d => {
  equal([d.name, d.title, d.focused()], ["DefinePullupdownDialog", "Dialog", "combobox"]);
  d.key(null, "Down");
  d.key(null, "Ctrl+Tab");
  const sides = ["Label", "Combo"].map(part => [d.visible(`input${part}`), d.visible(`output${part}`)]);
  const loads = ["inputCapacitance", "outputResistance"].map(w => [d.visible(`${w}Label`), d.visible(`${w}Edit`)]);
  equal([sides, loads], [[[false, true], [false, true]], [[false, false], [true, true]]]);
  d.key("outputCombo", "Down");
  d.key(null, "Tab");
  d.key(null, "Tab");
  d.key(null, "Tab");
  equal(d.focused(), "outputResistanceEdit");
  for (const key of ["4", ".", "7", "k", "Return"])
    d.key(null, key);
});
const values = DefinePullupdownDialog(["ONE RESISTIVE"], [4, 7, 5, 3.5e-12, 1e4], families);
equal(values, ["ZERO RESISTIVE", ...gap, "4", "8", "5", "3.5p", "4.7k"]);
equal(GetAnalogInterface(values), [4, 8, 5, 3.5e-12, 4700]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")])
  equal(box(["ZERO STRONG"], d => {
    d.set("combobox", "UNKNOWN HI-Z");
    leave(d);
  }), none);
