// DefineCounterDialog: bits and count tied to each other, the second page, ways out.

const families = include("../../Samples/data/logic_families.js");
const sheet = [0, 0, 5, 5e-12, 100]; // what the second page returns when no argument loads it
const none = { made: false, type: null, values: [] };
const bits = "numBitsEdit", count = "maxCountEdit", max = "cbMaxCount";

function box(device, act) {
  host.onDialog(act);
  return host.call("DefineCounterDialog", device);
}
// Bits, count, its limit; box checked, box enabled, count enabled.
const state = d => [d.value(bits), d.value(count), d.get(count, "max"), d.checked(max), d.enabled(max), d.enabled(count)];

// --- loading ------------------------------------------------------------------------------------

for (const [device, shown] of [
  [[8, 255], [8, 255, 255, true, true, false]],
  [[8, 100], [8, 100, 255, false, true, true]],
  [[4], [4, 15, 15, true, true, false]],
  [[4, 100], [4, 15, 15, true, true, false]],
  [[10, 1000], [10, 1000, 1023, false, true, true]],
  [[31, 2147483647], [31, 2147483647, 2147483647, true, true, false]],
  [[31, 7], [31, 7, 2147483647, false, true, true]],
  [[32], [32, 4294967295, 4294967295, true, false, false]],
  [[32, 7], [32, 4294967295, 4294967295, true, false, false]],
  [[1000, 0], [32, 4294967295, 4294967295, true, false, false]],
  [[-1, -1], [1, 1, 1, true, true, false]],
  [[NaN, NaN, NaN], [8, 255, 255, true, true, false]],
  [[], [8, 255, 255, true, true, false]],
]) {
  equal(box(device, d => {
    equal(state(d), shown, `loaded ${device}`);
    d.accept();
  }).values, [shown[0], shown[1], 0, 1e-8, 0, 0, 1e-8, 1e-8, 0, ...sheet], `result of ${device}`);
}

// What this box does not show passes through it, but for the load time, which no argument loads.
equal(box([8, 99, 2, 3e-9, 1, 1, 4e-9, 5e-9, 1], d => {
  equal([d.name, d.title, d.tabs()], ["DefineCounterDialog", "Define Counter", ["Digital", "Analog Interface"]]);
  for (const w of ["featuresGroupBox", "cbParallelLoad", "cbUpDown", "resetDelayEdit", "resetDelayLabel", "dataLoadTime",
                   "dataLoadTimeLabel"])
    check(!d.visible(w), w);
  d.accept();
}).values, [8, 99, 2, 3e-9, 1, 1, 4e-9, 1e-8, 1, ...sheet]);

// --- the coupling, at every key -----------------------------------------------------------------

equal(box([8, 100], d => {
  equal(d.focused(), bits, "the user starts in the first field");
  const seen = [];
  for (const key of ["1", "6", "Backspace", "Backspace", "1", "0"]) {
    d.key(null, key);
    seen.push([d.value(count), d.get(count, "max")]);
  }
  equal(seen, [[1, 1], [100, 65535], [1, 1], [100, 255], [1, 1], [100, 1023]], "the count comes back");
  equal(d.text(bits), "10", "typing rewrites nothing");
  d.key(null, "Tab");
  equal(state(d), [10, 100, 1023, false, true, true]);
  d.set(bits, "6");
  d.set(bits, "8");
  equal(d.value(count), 63, "fewer bits that stay have cut it");
  d.accept();
}).values.slice(0, 2), [8, 63]);

// Bits that go beyond 31 and back while they are typed cost no choice; taken, they do.
box([8, 100], d => {
  d.type(bits, "32");
  equal(state(d).slice(1), [4294967295, 4294967295, true, false, false]);
  d.key(bits, "Backspace");
  equal(state(d), [3, 7, 7, false, true, true]);
  d.type(bits, "40");
  equal(d.value(count), 4294967295, "as far as the field goes");
  d.key(bits, "Tab");
  equal(d.value(bits), 32);
  d.set(bits, "8");
  equal(state(d), [8, 255, 255, true, true, false]);
  d.reject();
});

// Steps are taken at once.
box([5, 31], d => {
  const seen = [];
  for (const key of ["Up", "Up", "Down", "Down", "Down", "Down"]) {
    d.key(bits, key);
    seen.push(d.value(count));
  }
  equal(seen, [63, 127, 63, 31, 15, 7]);
  d.reject();
});

for (const odd of ["{N}", "many", ""]) {
  box([8, 100], d => {
    d.set(bits, odd);
    equal([d.value(count), d.get(count, "max")], [100, 255], `"${odd}" is not a number of bits`);
    d.reject();
  });
}

equal(box([8, 255], d => {
  check(!d.enabled(count), "the maximum is not typed");
  d.set(max, false);
  check(d.enabled(count));
  d.set(count, "100");
  check(!d.checked(max));
  d.set(max, true);
  equal([d.value(count), d.enabled(count)], [255, false]);
  d.set(max, false);
  d.set(count, "999");
  equal([d.value(count), d.checked(max)], [255, false], "the count is held to its limit");
  d.set(count, "{N}");
  d.set(bits, "4");
  equal([d.text(count), d.get(count, "max")], ["{N}", 15], "an expression stands");
  d.accept();
}).values.slice(0, 2), [4, 0]);

// --- by keyboard alone --------------------------------------------------------------------------

const made = families => {
  host.onDialog(d => {
    d.key(null, "4");
    d.key(null, "Alt+M");
    d.key(null, "Alt+T");
    d.key(null, "9");
    d.key(null, "Alt+K");
    d.key(null, "5");
    d.key(null, "Tab");
    d.key(null, "Down");
    d.key(null, "Ctrl+Tab");
    equal(d.tab(), "Analog Interface");
    d.key("technologyCombo", "Down");
    d.key(null, "Shift+Tab");
    d.key(null, "Left");
    equal(d.tab(), "Digital");
    d.key(null, "Return");
  });
  return DefineCounterDialog([8, 255], [0, 2, 5, 1e-12, 50], families);
};
equal(made(families), [4, 9, 1, 5, 0, 0, 1e-8, 1e-8, 0, 4, 7, 5, 1e-12, 50]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel"), d => d.key(bits, "Escape")])
  equal(box([8], d => {
    d.type(bits, "4");
    leave(d);
  }), none);

// --- what a script may hand in ------------------------------------------------------------------

box(new Array(1e6).fill(3), d => {
  equal([d.value(bits), d.value(count)], [3, 3]);
  d.accept();
});
let refused = "";
try { DefineCounterDialog(); } catch (error) { refused = error.message; }
check(refused.includes("DefineCounterDialog"), refused);
