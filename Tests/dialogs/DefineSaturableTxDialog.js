// DefineSaturableTxDialog: cores of the list and by hand, units, labels that follow every key, the
// shape of the result, the keyboard, ways out.

const none = { made: false, type: null, values: [] };
const materials = ["Soft;2000;0.5", "Hard;;0.25;x", "Bare;100"];
const cores = ["Small;100u;100m;1k;soft", "Large;400u;200m;500;Hard", "Broken;1u;1m;5", "small;1;1;1;Bare"];
const labels = d => [d.text("inductanceLabel"), d.text("saturationCurrentLabel")];
const dimensions = d => ["areaEdit", "lengthEdit", "ueEdit"].map(name => d.value(name));
const mu0 = 1.2566370614359173e-06;

function box(ratios, device, act, lines = materials, table = cores) {
  host.onDialog(act);
  return host.call("DefineSaturableTxDialog", lines, table, ratios, device);
}
const accept = d => d.accept();

// --- loading, and what comes back ---------------------------------------------------------------

for (const [ratios, device, result] of [
  [[], [], [1, 0, 0, 1, 1, 1e-4, 0.1, 1000, 1, 1, 1]],
  [[1, 0.5, -2], [30, 0, 1, 1, 2, 9, 9, 9, 0.9], [30, 1, 1, 1, 2, 4e-4, 0.2, 500, 0.9, 1, 0.5, -2]],
  [[-1, 2], [30, 0, 1, 1, 1], [-30, 1, 1, 1, 1, 4e-4, 0.2, 500, 1, 1, -2]],
  [[0, 2], [30, 0, 1, 1, 1], [0, 1, 1, 1, 1, 4e-4, 0.2, 500, 1, 0, 60]],
  // By hand: the material is the script's, and dimensions come back to the last digit.
  [[1], [30, 1, -1, 1, 0, 1.1e-4, 0.0763, 90.5, -1], [30, 1, -1, 1, 0, 1.1e-4, 0.0763, 90.5, -1, 1]],
  [[1], [30, 7, -1, 1, 0, -1, 0, -5, 2], [30, 0, -1, 1, 0, 0, 0, 0, 1, 1]],
  [[NaN], [NaN, NaN, NaN, NaN, NaN, NaN, NaN, NaN, NaN], [1, 0, 0, 1, 1, 1e-4, 0.1, 1000, 1, 1, 1]],
  // No such core: the first one stands there. One that is not whole changes nothing.
  [[1], [30, 2, 99, 1, 0], [30, 0, 0, 1, 0, 1e-4, 0.1, 1000, 1, 1]],
  [[1], [30, 2, -7, 1, 0], [30, 0, 0, 1, 0, 1e-4, 0.1, 1000, 1, 1]],
  // The first of a name counts, in any letter case, wherever it is shown.
  [[1], [30, 0, 3, 1, 0], [30, 2, 0, 1, 0, 1, 1, 1, 1, 1]],
]) {
  const loaded = box(ratios, device, accept);
  equal(loaded, { made: true, type: "real", values: result }, `loaded ${ratios}; ${device}`);
  if (device[2] !== 3 && ratios[0] !== 0)
    equal(box(loaded.values.slice(9), loaded.values, accept), loaded, `reopened ${ratios}; ${device}`);
}
equal(box(Array(50).fill(2), [10, 0, 0, 20, 20], accept).values.slice(9, 30), [...Array(20).fill(1), 0.05],
      "twenty ratios are used");
equal(box([1], [30], accept, [], []).values, [30, 0, 0, 1, 1, 0, 0, 0, 1, 1, 1 / 30], "no tables");
equal(box([1], [30], accept, ["", ";;", "a\nb;1;2"], ["", ";;;;", "x;nan;inf;1e999;y"]).values.slice(0, 5), [30, 0, 0, 1, 1], "odd tables");
// A blank line is no name; what no index finds is the first core.
box([1], [100, 0, 99, 1, 0], d => {
  equal([d.text("areaEdit"), d.text("inductanceLabel")], ["100", "1.25664mH"]);
  d.accept();
}, ["Soft;1;0.4"], ["Small;100u;100m;100;Soft", ""]);
equal(box([1, 2, 3, 4, 5], [10, 0, 0, 2.5, 1.5], accept).values.slice(9), [1, 2, 3], "counts are cut alike");
// The same number in another unit is another length.
equal(box([1], [10, 0, -1, 1, 0, 1e-4, 0.076, 1000], d => {
  d.set("lengthEdit", "{L}");
  d.click("rbCm");
  d.set("lengthEdit", "76");
  d.accept();
}).values[6], 0.76);

box([1, 0.5], [10, 0, 0, 1, 1], d => {
  equal([d.name, d.title, d.headers("windingsTable").length],
        ["DefineSaturableTxDialog", "Define Saturable Transformer/Inductor", 4]);
  equal([d.items("coreSizeCombo"), d.items("coreMaterialCombo")],
        [["Small", "Large", "Broken", "small"], ["Soft", "Hard", "Bare"]]);
  equal(d.visible("inductanceAndCouplingGroupBox"), false);
  equal([d.cellInfo("windingsTable", 0, 3).kind, d.get("windingsTable", "rowCount")], ["QLabel", 2]);
  d.press("Help");
  d.reject();
});
equal(host.helpRequests().pop(), "2533", "Placing_and_Specifying_Components");

// --- what follows, at every key -----------------------------------------------------------------

box([1, -0.5], [10, 0, -1, 1, 1, 1e-4, 0.1, 1000], d => {
  const inductance = 1e-4 * mu0 * 1000 * 100 / 0.1;
  equal(labels(d), ["125.664uH", "3.97887A"]);
  near(inductance, 125.664e-6, 1e-5);
  const seen = [];
  const press = (field, ...keys) => {
    d.type(field, "");
    for (const key of keys) {
      d.key(field, key);
      seen.push(labels(d));
    }
  };
  press("primaryTurnsEdit1", "2", "0");
  press("ueEdit", "5", "0", "0");
  press("lengthEdit", "0", "Backspace", "2", "0", "0");
  press("areaEdit", "4", "0", "0");
  equal(seen, [
    ["5.02655uH", "19.8944A"], ["502.655uH", "1.98944A"],
    ["2.51327uH", "397.887A"], ["25.1327uH", "39.7887A"], ["251.327uH", "3.97887A"],
    ["", "0A"], ["251.327uH", "3.97887A"], ["12.5664mH", "79.5775mA"], ["1.25664mH", "795.775mA"],
    ["125.664uH", "7.95775A"],
    ["5.02655uH", "7.95775A"], ["50.2655uH", "7.95775A"], ["502.655uH", "7.95775A"],
  ]);
  equal(d.text("secondaryInductanceLabel1"), "31.4159uH");
  d.set("ueEdit", "0");
  equal(labels(d), ["0H", ""]);
  d.set("ueEdit", "500");
  // Another material: its flux density. One that has none leaves what stands there.
  d.set("coreMaterialCombo", "Hard");
  equal(labels(d)[1], "3.97887A");
  d.set("coreMaterialCombo", "Bare");
  equal(labels(d)[1], "3.97887A");
  d.set("primaryPolarityCombo1", "-");
  equal(labels(d), ["502.655uH", "3.97887A"]);
  d.accept();
});

// --- cores, by hand and of the list -------------------------------------------------------------

const byHand = ["areaEdit", "lengthEdit", "ueEdit", "coreMaterialCombo"];
equal(box([1], [10, 0, 0, 1, 0], d => {
  const enabled = () => ["coreSizeCombo", ...byHand].map(name => d.enabled(name));
  equal(enabled(), [true, false, false, false, false]);
  d.set("coreSizeCombo", "Large");
  equal([d.text("coreMaterialCombo"), ...dimensions(d)], ["Hard", 400, 200, 500]);
  d.set("coreSizeCombo", "Broken");
  equal(dimensions(d), [400, 200, 500], "a line with too few fields changes nothing");
  d.click("rbUserDims");
  equal(enabled(), [false, true, true, true, true]);
  d.set("areaEdit", "7");
  d.click("rbCoreType");
  equal([d.text("coreSizeCombo"), d.value("areaEdit")], ["Broken", 7]);
  d.set("coreSizeCombo", "small"); // the first of the name
  equal([d.text("coreMaterialCombo"), ...dimensions(d)], ["Soft", 100, 100, 1000]);
  d.set("coreSizeCombo", "Large");
  d.accept();
}).values.slice(0, 8), [10, 1, 1, 1, 0, 4e-4, 0.2, 500]);

// A core's material counts again, though its dimensions stood there all the time.
box([1], [10, 0, 0, 1, 0], d => {
  const before = labels(d);
  d.click("rbUserDims");
  d.set("coreMaterialCombo", "Hard");
  equal(labels(d), [before[0], "1.98944A"]);
  d.click("rbCoreType");
  equal([d.text("coreMaterialCombo"), ...labels(d)], ["Soft", ...before]);
  d.reject();
});

// --- units: the core stays ----------------------------------------------------------------------

equal(box([1], [10, 0, -1, 1, 0, 76e-6, 72e-3, 90], d => {
  const shown = [];
  for (const unit of ["rbInch", "rbMetres", "rbCm", "rbMm"]) {
    d.click(unit);
    shown.push([d.text("areaEdit"), d.text("lengthEdit"), ...labels(d)]);
  }
  const same = labels(d);
  equal(shown.map(each => each.slice(2)), Array(4).fill(same));
  equal(shown.map(each => each.slice(0, 2)),
        [["0.1178002356", "2.83464566929"], ["0.000076", "0.072"], ["0.76", "7.2"], ["76", "72"]]);
  d.set("lengthEdit", "{2*L}");
  d.set("areaEdit", "4k7");
  d.click("rbMm");
  equal([d.text("areaEdit"), d.text("lengthEdit")], ["4.7k", "{2*L}"], "the unit that it is in already");
  d.click("rbCm");
  equal([d.text("areaEdit"), d.text("lengthEdit"), labels(d)[0]], ["47", "{2*L}", ""]);
  d.set("lengthEdit", "7.2");
  d.set("areaEdit", "0.9"); // from which and back to which there is a rounding
  d.click("rbCm");
  equal(d.value("areaEdit"), 0.9);
  d.click("rbMm");
  d.set("areaEdit", "76");
  d.accept();
}).values.slice(5, 7), [76e-6, 72 * 0.001]);
box([1], [10, 0, -1, 1, 0, 76e-6, 72e-3, 90], d => {
  const area = d.value("areaEdit"), length = d.value("lengthEdit");
  d.key("rbMm", "Down");
  d.key(null, "Down");
  check(d.checked("rbInch"), "arrow keys choose");
  near(d.value("areaEdit") / area, (0.001 / 0.0254) ** 2, 1e-12);
  near(d.value("lengthEdit") / length, 0.001 / 0.0254, 1e-12);
  d.click("rbUserDims");
  d.reject();
});

// --- the coupling factor, the keyboard, ways out ------------------------------------------------

equal(box([1, 2], [10, 0, 0, 1, 1, 0, 0, 0, 0.5], d => {
  d.set("numSecondariesEdit", "0");
  equal([d.visible("couplingFactorEdit"), d.enabled("couplingFactorEdit")], [true, false]);
  d.set("numPrimariesEdit", "2");
  equal(d.enabled("couplingFactorEdit"), true);
  d.set("couplingFactorEdit", "3");
  d.accept();
}).values.slice(3, 10), [2, 0, 1e-4, 0.1, 1000, 1, 1]);

equal(box([1, 2], [10, 0, -1, 1, 1, 1e-4, 0.1, 100], d => {
  const seen = Array.from({ length: 14 }, () => (d.key(null, "Tab"), d.focused()));
  equal(["numPrimariesEdit", ...seen].slice(0, 3), ["numPrimariesEdit", "numSecondariesEdit", "couplingFactorEdit"]);
  equal(seen.slice(2), ["rbUserDims", "coreMaterialCombo", "rbMm", "areaEdit", "lengthEdit", "ueEdit",
        "primaryTurnsEdit1", "primaryPolarityCombo1", "secondaryTurnsEdit1", "secondaryPolarityCombo1",
        "okButton", "cancelButton"]);
  d.key(null, "Alt+A");
  d.key(null, "7");
  d.key(null, "Alt+O");
}).values.slice(5), [7e-6, 0.1, 100, 1, 1, 2]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel"), d => d.key("primaryTurnsEdit1", "Escape")])
  equal(box([1], [10], d => {
    d.type("primaryTurnsEdit1", "4");
    leave(d);
  }), none);
