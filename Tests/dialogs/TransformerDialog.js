// TransformerDialog: the windings that it shows, defaults, cores, the shape of the result, ways out.

const none = { made: false, type: null, values: [] };
const materials = ["Soft;2000;0.5", "Hard", "hard"];
const cores = ["Small;100u;100m;1k;hard", "Large;400u;200m;500;Soft", "Broken;1u;1m;5"];
const fields = ["primaryTurnsEdit", "secondaryTurnsEdit", "winding3TurnsEdit", "couplingFactorEdit",
                "couplingFactor13Edit", "couplingFactor23Edit"];
const captions = ["winding1TurnsLabel", "winding2TurnsLabel", "winding3TurnsLabel", "winding1CFLabel",
                  "winding2CFLabel", "winding3CFLabel"];

function box(device, act, lines = materials, table = cores) {
  host.onDialog(act);
  return host.call("TransformerDialog", lines, table, device);
}
const accept = d => d.accept();

for (const [device, result] of [
  // The defaults are those that scripts have always had; a coupling factor is at most 1.
  [[], [1, 0, 0, 0, 0, 0.99, 10, 1, 0.99, 0.99, 1]],
  [[0, 1, 1, 2, 9, 9, 9, 20, 5, 0.9, 6, 0.8, -0.7], [0, 1, 0, 0, 0, 20, 5, 0.9, 6, 0.8, -0.7]],
  [[2, -1, 1, 2, 76e-6, 72e-3, 90.5, -1], [1, -1, 76e-6, 72e-3, 90.5, 0, 10, 1, 0.99, 0.99, 1]],
  [[0, -1, 1, 0, NaN, -1, 1e400], [0, -1, 0, 0, 1e100, 0.99, 10, 1, 0.99, 0.99, 1]],
  [[9, 99], [0, 0, 0, 0, 0, 0.99, 10, 1, 0.99, 0.99, 1]],
])
  equal(box(device, accept), { made: true, type: "real", values: result }, `loaded ${device}`);
equal(box([2, -1], accept, ["Hard;1", "hard;1", "x"]).values[0], 2, "materials are whole lines");
equal(box([], accept, [], []).values.slice(0, 5), [0, 0, 0, 0, 0]);

for (const [primaries, secondaries, shown, texts] of [
  [1, 0, 1, ["Turns"]],
  [1, 1, 4, ["Primary turns", "Secondary turns", "Coupling factor"]],
  [1, 2, 6, ["Primary turns", "Sec 1 turns", "Sec 2 turns", "Coupling \nfactor P-S1", "Coupling\nfactor P-S2",
             "Coupling factor\nS1-S2"]],
  [2, 1, 6, ["Prim 1 turns", "Prim 2 turns", "Secondary Turns", "Coupling\nfactor P1-P2", "Coupling\nfactor P1-S",
             "Coupling\nfactor P2-S"]],
  [7, -3, 6, ["Primary turns", "Sec 1 turns", "Sec 2 turns", "Coupling \nfactor P-S1", "Coupling\nfactor P-S2",
              "Coupling factor\nS1-S2"]],
])
  equal(box([0, 0, primaries, secondaries, 0, 0, 0, 1, 2, 0.3, 4, 0.5, 0.6], d => {
    equal([d.name, d.title], ["TransformerDialog", "Select Transformer"]);
    equal(captions.filter(name => d.visible(name)).map(name => d.text(name).replace("&", "")), texts);
    equal(fields.filter(name => d.visible(name)).length, texts.length);
    equal(d.visible("divider"), texts.length > 1);
    d.accept();
  }).values.slice(5), [1, 2, 0.3, 4, 0.5, 0.6], "what is not shown goes back as it came");

// --- the core -----------------------------------------------------------------------------------

equal(box([0, 0, 1, 1, 0, 0, 0, 10], d => {
  const label = () => d.text("inductanceLabel");
  const seen = [label()];
  d.set("coreSizeCombo", "Large");
  seen.push(label());
  d.set("coreSizeCombo", "Broken");
  seen.push(label());
  d.type("primaryTurnsEdit", "");
  for (const key of ["2", "0"]) {
    d.key("primaryTurnsEdit", key);
    seen.push(label());
  }
  equal([d.enabled("coreSizeCombo"), d.enabled("areaEdit"), d.enabled("coreMaterialCombo")], [true, false, false]);
  d.click("rbUserDims");
  equal([d.enabled("coreSizeCombo"), d.enabled("areaEdit"), d.enabled("coreMaterialCombo")], [false, true, true]);
  d.click("rbCm");
  equal([d.text("areaEdit"), d.text("lengthEdit")], ["4", "20"]);
  seen.push(label());
  d.set("lengthEdit", "10");
  seen.push(label());
  d.set("lengthEdit", "0");
  seen.push(label());
  d.set("lengthEdit", "10");
  equal(seen, ["125.664uH", "125.664uH", "125.664uH", "5.02655uH", "502.655uH", "502.655uH", "1.00531mH", ""]);
  d.set("coreMaterialCombo", "hard");
  d.key(null, "Alt+U");
  d.key(null, "6");
  d.key(null, "Alt+O");
}).values.slice(0, 7), [2, -1, 4e-4, 0.1, 6, 20, 10]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel"), d => d.key("primaryTurnsEdit", "Escape")])
  equal(box([], d => {
    d.type("primaryTurnsEdit", "4");
    leave(d);
  }), none);
