// DigitalConstantDialog: a pattern of bits in four bases, and the page of its analog interface.

const families = include("../../Samples/data/logic_families.js");

function box(args, act) {
  host.onDialog(act);
  return DigitalConstantDialog(...args);
}
const constant = (args, act) => box([args], act).slice(0, 3);
function refused(d, bits, act) {
  host.onDialog(m => {
    const { title, text, icon } = m.message();
    equal([title, text, icon], ["Insufficient Number of Bits", `The value entered requires at least ${
      bits} bits. Increase the number of bits or reduce the value`, "critical"]);
    m.accept();
  });
  act();
  check(d.isOpen, "a refusal leaves the dialog open");
}

// --- the base -----------------------------------------------------------------------------------

for (const [from, value, to, shown] of [
  ["DECIMAL", "10", "BINARY", "1010"],
  ["DECIMAL", "10", "HEXADECIMAL", "A"],
  ["BINARY", "1000", "SIGNED DECIMAL", "8"],
  ["SIGNED DECIMAL", "5", "BINARY", "0101"],
  ["SIGNED DECIMAL", "-3", "BINARY", "101"],
  ["SIGNED DECIMAL", "-3", "DECIMAL", "5"],
  ["HEXADECIMAL", "00fF", "DECIMAL", "255"],
  ["HEXADECIMAL", "", "BINARY", ""],
  ["DECIMAL", "007", "DECIMAL", "007"],
  ["SIGNED DECIMAL", "-", "HEXADECIMAL", "0"],
])
  constant(["256", value, from], d => {
    d.set("baseCombo", to);
    equal(d.text("valueEdit"), shown, `${from} ${value} in ${to}`);
    d.reject();
  });

const widest = "F".repeat(64);
equal(constant(["256", widest, "HEXADECIMAL"], d => {
  for (const base of ["BINARY", "DECIMAL", "SIGNED DECIMAL", "BINARY", "SIGNED DECIMAL", "HEXADECIMAL"])
    d.set("baseCombo", base);
  d.accept();
}), ["256", widest, "HEXADECIMAL"], "256 bits there and back");

// What each base lets in, from the first key on, also for a value that came with the call.
for (const [base, value, keys, left] of [
  ["DECIMAL", "12", "3x-.A4", "1234"],
  ["BINARY", "10", "1201", "10101"],
  ["HEXADECIMAL", "FF", "Gg-ab0", "FFab0"],
  ["SIGNED DECIMAL", "-1", "Z2-", "-12"],
])
  constant(["256", value, base], d => {
    d.key("valueEdit", "End");
    for (const key of keys)
      d.key("valueEdit", key);
    equal(d.text("valueEdit"), left, `${base}: ${keys}`);
    d.set("baseCombo", "BINARY");
    d.type("valueEdit", "102");
    equal(d.text("valueEdit"), "10", "the new base counts");
    d.reject();
  });

// Pasted as it stands in a listing, over what was there.
for (const [base, pasted, left] of [
  ["HEXADECIMAL", `0x${widest}`, widest],
  ["HEXADECIMAL", " 0XDEAD_BEEF\n", "DEADBEEF"],
  ["BINARY", "0b1111 0000 1010'0101", "1111000010100101"],
  ["DECIMAL", "340 282 366", "340282366"],
  ["SIGNED DECIMAL", "- 12", "-12"],
  ["DECIMAL", "0x10", "1"],
  ["DECIMAL", "12.5", "1"],
])
  constant(["256", "1", base], d => {
    host.clipboard(pasted);
    d.key("valueEdit", "Ctrl+A");
    d.key("valueEdit", "Ctrl+V");
    equal(d.text("valueEdit"), left, `${base}: ${pasted}`);
    d.reject();
  });
constant(["8", "0", "HEXADECIMAL"], d => {
  host.clipboard("0xA5 5A");
  d.key("valueEdit", "End");
  d.key("valueEdit", "Ctrl+V");
  equal(d.text("valueEdit"), "A55A", "pasted behind the 0 that stands there first");
  host.clipboard("1 2 3");
  d.key("valueEdit", "Left");
  d.key("valueEdit", "Ctrl+V");
  d.key("valueEdit", "9");
  equal(d.text("valueEdit"), "A551239A", "the cursor stands behind what was pasted");
  d.reject();
});

// --- OK -----------------------------------------------------------------------------------------

for (const [bits, value, base, result] of [
  ["8", "", "DECIMAL", "0"],
  ["8", "", "SIGNED DECIMAL", "0"],
  ["8", "000", "BINARY", "0"],
  ["8", "0255", "DECIMAL", "255"],
  ["4", "0000f", "HEXADECIMAL", "f"],
  ["8", "-128", "SIGNED DECIMAL", "-128"],
  ["8", "127", "SIGNED DECIMAL", "127"],
  ["4", "5", "SIGNED DECIMAL", "5"],
  ["2", "-1", "SIGNED DECIMAL", "-1"],
  ["1", "1", "BINARY", "1"],
  ["8.9", "255", "DECIMAL", "255"],
])
  equal(constant([bits, value, base], d => d.accept()), [bits, result, base], `${value} in ${bits}`);

for (const [bits, value, base, needed] of [
  ["8", "256", "DECIMAL", 9],
  ["8.9", "0256", "DECIMAL", 9],
  ["8", "-129", "SIGNED DECIMAL", 9],
  ["8", "128", "SIGNED DECIMAL", 9],
  ["3", "5", "SIGNED DECIMAL", 4],
  ["1", "-1", "SIGNED DECIMAL", 2],
  ["256", `1${"0".repeat(64)}`, "HEXADECIMAL", 257],
  ["{width}", "1", "BINARY", 1],
])
  equal(constant([bits, value, base], d => {
    d.tab("Analog Interface");
    refused(d, needed, () => d.press("OK"));
    equal([d.tab(), d.focused(), d.get("valueEdit", "selectedText")],
      ["Digital", "valueEdit", value.replace(/^0+/, "")]);
    d.set("numBitsEdit", "256");
    d.type("valueEdit", "1");
    d.accept();
  }), ["256", "1", base], `${value} needs more than ${bits}`);

// By keyboard alone: a value that is too wide, then a wider pattern for it.
equal(box([["4", "9", "DECIMAL"], [4, 7, 5, 5e-12, 60], families], d => {
  equal(d.focused(), "numBitsEdit");
  d.key(null, "Up");
  d.key(null, "Tab");
  for (const key of "255")
    d.key(null, key);
  refused(d, 8, () => d.key(null, "Return"));
  d.key(null, "Shift+Tab");
  for (const key of "12")
    d.key(null, key);
  d.key(null, "Tab");
  d.key(null, "Tab");
  equal(d.focused(), "baseCombo");
  d.key(null, "Down");
  d.key(null, "Down");
  equal(d.text("valueEdit"), "FF");
  d.key(null, "Shift+Tab");
  d.key(null, "Ctrl+Tab");
  equal(d.tab(), "Analog Interface");
  d.key(null, "Return");
}), ["12", "FF", "HEXADECIMAL", "", "", "", "", "", "", "4", "7", "5", "5p", "60"]);

// --- the second page ----------------------------------------------------------------------------

const lvds = box([["1", "0", "BINARY"], [4, 7, 5, 5e-12, 60], families], d => {
  equal(d.tabs(), ["Digital", "Analog Interface"]);
  d.tab(1);
  check(d.visible("outputCombo") && !d.visible("inputCombo"), "a constant has outputs only");
  d.set("technologyCombo", "LVDS");
  d.type("outputResistanceEdit", "{Rdrive}");
  d.accept();
});
equal(lvds.slice(9), ["13", "15", "2.5", "5p", "{Rdrive}"]);
equal(GetAnalogInterface(lvds), [13, 15, 2.5, 5e-12, 0]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")]) {
  host.onDialog(d => { d.type("valueEdit", "1"); leave(d); });
  equal(host.call("DigitalConstantDialog", ["8", "3", "BINARY"]), { made: false, type: null, values: [] });
}

// --- what a script may hand in ------------------------------------------------------------------

equal(box([[]], d => d.accept()),
  ["1", "0", "DECIMAL", "", "", "", "", "", "", "0", "0", "5", "5p", "100"]);
equal(constant(["8", "1", "OCTAL"], d => d.accept()), ["8", "1", "DECIMAL"]);
equal(constant(["x", "12x", "DECIMAL"], d => { d.set("numBitsEdit", 4); d.accept(); }),
  ["4", "12x", "DECIMAL"], "what is not a number counts as 0");
constant(["8", "12x", "DECIMAL"], d => {
  d.set("baseCombo", "HEXADECIMAL");
  equal(d.text("valueEdit"), "0");
  d.reject();
});
equal(constant(["8", "\uFFFD;\n1", "BINARY"], d => d.accept())[0], "8");
equal(box([new Array(1e6).fill("1"), new Array(1e6).fill(1), ["a;b", ";;;;;;;", "x"]],
  d => d.accept()).slice(0, 3), ["1", "1", "BINARY"], "a base is also known by its number");

const million = "1".repeat(1e6);
for (const [base, other, needed] of [
  ["DECIMAL", "HEXADECIMAL", 3321925], ["HEXADECIMAL", "DECIMAL", 3999997],
  ["BINARY", "DECIMAL", 1000000], ["SIGNED DECIMAL", "BINARY", 3321926],
])
  constant(["256", million, base], d => {
    const start = host.processTime();
    refused(d, needed, () => d.set("baseCombo", other));
    equal(d.text("baseCombo"), base, "what is too wide to convert keeps its base");
    refused(d, needed, () => d.press("OK"));
    check(host.processTime() - start < 20000, `a million digits are refused in ${host.processTime() - start} ms`);
    check(d.text("valueEdit") === million, "and stay");
    d.reject();
  });
