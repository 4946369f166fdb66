// The page of the analog interface, as every digital device has it; a counter stands for all.

const families = include("../../Samples/data/logic_families.js");
const first = 9;

// Opens a counter with these interface values and this table, and brings the page to the front.
function page(values, table, act) {
  host.onDialog(d => {
    d.tab("Analog Interface");
    act(d);
    if (d.isOpen)
      d.accept();
  });
  return DefineCounterDialog([8], values, table).slice(first);
}
const spinners = d => ["supplyVoltageEdit", "inputCapacitanceEdit", "outputResistanceEdit"].map(w => d.value(w));
const combos = d => ["technologyCombo", "inputCombo", "outputCombo"].map(w => d.text(w));

// --- loading ------------------------------------------------------------------------------------

for (const [values, table, shown, result] of [
  // The page follows the input's technology; the output stands where it belongs to the same one.
  [[4, 7, 4.5, 3e-12, 60], families, ["CMOS 5 V", "Standard input", "Standard output"], [4, 7, 4.5, 3e-12, 60]],
  [[5, 8, 5, 3e-12, 60], families, ["CMOS 5 V", "Schmitt input", "Open drain output"], [5, 8, 5, 3e-12, 60]],
  [[9, 3, 3, 3e-12, 60], families, ["CMOS 3.3 V", "Standard input", "Standard output"], [9, 11, 3, 3e-12, 60]],
  // One that is already in front is loaded as well.
  [[1, 3, 5, 3e-12, 60], families, ["TTL", "Schmitt input", "Open collector output"], [1, 3, 5, 3e-12, 60]],
  // A line of the other side is none that could be chosen.
  [[2, 0, 5, 3e-12, 60], families, ["TTL", "Standard input", "Standard output"], [0, 2, 5, 3e-12, 60]],
  // Nobody has chosen: the first technology stands there without interfaces.
  [[-1, 7, 5, 3e-12, 60], families, ["TTL", "", ""], [0, 0, 5, 3e-12, 60]],
  [[4, -1, 5, 3e-12, 60], families, ["TTL", "", ""], [0, 0, 5, 3e-12, 60]],
  [[NaN, NaN, NaN, NaN, NaN], families, ["TTL", "", ""], [0, 0, 5, 0, 1e-6]],
  [[1e300, 0, 5, 1, 2], families, ["TTL", "", ""], [0, 0, 5, 1, 2]],
  // Below three values all defaults hold; a missing one has its own.
  [[4, 7], families, ["TTL", "", ""], [0, 0, 5, 5e-12, 100]],
  [[], families, ["TTL", "", ""], [0, 0, 5, 5e-12, 100]],
  [undefined, undefined, ["", "", ""], [0, 0, 5, 5e-12, 100]],
  [[4, 7, 6], families, ["CMOS 5 V", "Standard input", "Standard output"], [4, 7, 6, 5e-12, 100]],
  // The limits of the fields hold.
  [[4, 7, -3, -1, 0], families, ["CMOS 5 V", "Standard input", "Standard output"], [4, 7, 0, 0, 1e-6]],
  // Without a table the numbers still stand.
  [[4, 7, 3, 1e-12, 50], [], ["", "", ""], [0, 0, 3, 1e-12, 50]],
]) {
  equal(page(values, table, d => {
    equal(combos(d), shown, `shown for ${values}`);
    equal(d.items("technologyCombo"), table && table.length ? ["TTL", "CMOS 5 V", "CMOS 3.3 V", "LVDS"] : []);
  }), result, `result for ${values}`);
}

// --- choosing, by keyboard ----------------------------------------------------------------------

equal(page([4, 7, 4.5, 3e-12, 60], families, d => {
  d.key("technologyCombo", "Down");
  equal(combos(d), ["CMOS 3.3 V", "Standard input", "Standard output"]);
  equal(spinners(d), [3.3, 3e-12, 60], "a technology brings its supply along, and nothing else");
  equal(d.items("outputCombo"), ["Standard output", "Bus output, 24 mA"]);
  d.key("technologyCombo", "Tab");
  equal(d.focused(), "inputCombo");
  d.key(null, "Down");
  d.key(null, "Tab");
  d.key(null, "End");
  d.key(null, "Tab");
  d.key(null, "3");
  d.key(null, "Return");
}), [10, 12, 3, 3e-12, 60]);

equal(page([-1, -1, 4, 1e-12, 50], families.slice(0, 4), d => {
  d.set("technologyCombo", "TTL");
  equal(combos(d), ["TTL", "Standard input", "Standard output"], "the only one can be chosen as well");
  d.set("supplyVoltageEdit", "4.8");
  d.set("technologyCombo", "TTL");
  equal(d.value("supplyVoltageEdit"), 4.8, "choosing it again changes nothing");
}), [0, 2, 4.8, 1e-12, 50]);

page([4, 7, 5, 1e-12, 50], families, d => {
  const seen = [];
  d.key("technologyCombo", "Tab");
  while (d.focused() !== "technologyCombo" && seen.length < 20) {
    seen.push(d.focused());
    d.key(null, "Tab");
  }
  equal(seen, ["inputCombo", "outputCombo", "supplyVoltageEdit", "inputCapacitanceLabel", "inputCapacitanceEdit",
               "outputResistanceLabel", "outputResistanceEdit", "okButton", "cancelButton", "tabWidget"]);
});

// --- what the page says of the output resistance -------------------------------------------------

const qualifying = names => names.map(n => `${n};Standard output;;dac_bridge;5;;`);
for (const [table, phrase] of [
  [families, "For <b>CMOS 5 V</b> and  <b>CMOS 3.3 V</b> technology interfaces"],
  [qualifying(["A"]), "For <b>A</b> technology interfaces"],
  [qualifying(["A", "B", "a", "C"]), "For <b>A</b>, <b>B</b> and  <b>C</b> technology interfaces"],
  [qualifying(["<i>%1"]), "For <b>&lt;i&gt;%1</b> technology"],
  [families.slice(0, 4), "</p><p>The analog output resistance is defined"],
  [[], "</p><p>The analog output resistance is defined"],
])
  page([], table, d => {
    const info = d.get("outputResistanceLabel", "info");
    check(info.includes(phrase), info);
  });

// --- what a script may hand in ------------------------------------------------------------------

const odd = [";;;;;;;;", "", "A\nB;line\nbreak;;adc_bridge;;", `${"x".repeat(1e5)};${"y".repeat(1e5)};;dac_bridge`];
equal(page([2, 3, 5, 0, 1], odd, d => {
  equal(combos(d), ["A B", "line break", ""]);
  d.key("technologyCombo", "End");
}).slice(0, 2), [0, 3]);

const million = 1e6;
equal(page([million - 1, million - 1, 5, 0, 1], new Array(million).fill("T;Standard output;;dac_bridge;3"), d => {
  d.key("outputCombo", "End");
}), [0, million - 1, 5, 0, 1]);
page([0, 0, 5, 0, 1], Array.from({ length: 1e5 }, (_, i) => `T${i};Standard output;;dac_bridge;3`), d => {
  d.key("technologyCombo", "End");
  equal(d.text("technologyCombo"), "T99999");
});
