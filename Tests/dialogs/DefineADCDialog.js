// DefineADCDialog: conversion time and rate tied to each other, the keyboard, ways out.

const families = include("../../Samples/data/logic_families.js");
const sheet = [0, 0, 5, 5e-12, 100]; // what the second page returns when no argument loads it
const none = { made: false, type: null, values: [] };
const time = "convertTimeEdit", rate = "maxConvRateEdit";

function box(device, act) {
  host.onDialog(act);
  return host.call("DefineADCDialog", device);
}
const timing = d => [d.value(time), d.value(rate)];

// --- loading ------------------------------------------------------------------------------------

for (const [device, result] of [
  [[], [1, 0, 2e6, 5, 0, 0]],
  [[12, 1e-6, 2e6, -1.5, 3, 1], [12, 1e-6, 2e6, -1.5, 3, 1]],
  [[33, -1, -1, -1, -1, 7], [32, 0, 0, -1, -1, 1]],
  [[NaN, NaN, NaN, NaN, NaN], [1, 0, 2e6, 5, 0, 0]],
  // A rate that the time does not reach is loaded last, and moves the time.
  [[8, 1e-7], [8, 1e-7, 1e7, 5, 0, 0]],
  [[8, 1e-6, 500e3], [8, 2e-6, 500e3, 5, 0, 0]],
  [[8, 1e-320, 0], [8, 1e-320, 0, 5, 0, 0]],
]) {
  const loaded = box(device, d => d.accept()).values;
  equal(loaded, [...result, 0, 0, 0, ...sheet], `loaded ${device}`);
  equal(box(loaded, d => d.accept()).values.slice(0, 6), result, `reopened ${device}`);
}

// --- the coupling, at every key -----------------------------------------------------------------

for (const [device, edit, text, result] of [
  [[8, 4e-6, 500e3], time, "1u", [1e-6, 1e6]],
  [[8, 4e-6, 500e3], time, "3u", [3e-6, 500e3]],
  [[8, 1e-6, 5e6], rate, "2Meg", [1e-6, 2e6]],
  [[8, 1e-6, 5e6], rate, "500k", [2e-6, 500e3]],
  [[8, 1e-6, 5e6], time, "0", [0, 5e6]],
  [[8, 1e-6, 5e6], rate, "-5", [1e-6, 0]],
  [[8, 1e-6, 5e6], rate, "{F}", [1e-6, 0]],
  [[8, 1e-6, 5e6], time, "soon", [1e-6, 5e6]],
  [[8, 1e-6, 5e6], time, "3n", [3e-9, 1 / 3e-9]],
]) {
  const values = box(device, d => {
    d.set(edit, text);
    equal(timing(d), result, `${device}, ${text}`);
    d.accept();
  }).values;
  equal(values.slice(1, 3), result, `result of ${device}, ${text}`);
}

box([8, 1e-6, 5e6], d => {
  const seen = [];
  d.type(rate, "");
  for (const key of ["5", "0", "0", "k", "Backspace", "Backspace", "Backspace", "Backspace"]) {
    d.key(rate, key);
    seen.push(d.value(time));
  }
  equal(seen, [0.2, 0.02, 0.002, 2e-6, 0.002, 0.02, 0.2, 1e-6], "the time follows and comes back");
  d.type(rate, "4Meg");
  equal([d.text(time), d.text(rate)], ["1u", "4Meg"], "what was typed on the way has cost nothing");
  d.key(rate, "Tab");
  d.set(rate, "250k");
  d.set(rate, "4Meg");
  equal(d.value(time), 4e-6, "a rate that has been left has");
  const rates = [];
  d.type(time, "1");
  for (const key of ["0", "n", "Backspace"]) {
    d.key(time, key);
    rates.push(d.value(rate));
  }
  equal(rates, [4e6, 1e8, 4e6], "the rate follows a time alike");
  d.reject();
});

// Steps are taken at once, and do not fight.
box([8, 1e-6, 1e6], d => {
  const seen = [];
  for (const key of ["Down", "Down", "Up", "Up", "Up"]) {
    d.key(rate, key);
    seen.push(timing(d));
  }
  for (const key of ["Down", "Down", "Down", "Up"]) {
    d.key(time, key);
    seen.push(timing(d));
  }
  equal(seen, [[2e-6, 5e5], [5e-6, 2e5], [5e-6, 5e5], [5e-6, 1e6], [5e-6, 2e6],
               [2e-6, 2e6], [1e-6, 2e6], [5e-7, 2e6], [1e-6, 2e6]]);
  d.reject();
});

// An expression stands.
equal(box([8, 1e-6, 5e6], d => {
  d.set(rate, "{FMAX}");
  d.set(time, "1n");
  equal([d.text(rate), d.text(time)], ["{FMAX}", "1n"]);
  d.set(time, "{T}");
  d.set(rate, "1");
  equal([d.text(rate), d.text(time)], ["1", "{T}"]);
  d.accept();
}).values.slice(1, 3), [0, 1]);

// --- by keyboard alone --------------------------------------------------------------------------

host.onDialog(d => {
  equal([d.name, d.title, d.tabs()], ["DefineADCDialog", "Define A-D Converter", ["Digital", "Analog Interface"]]);
  equal(d.focused(), "numBitsEdit");
  d.key(null, "9");
  d.key(null, "Tab");
  d.key(null, "Space");
  for (const [key, digit] of [["Alt+I", "3"], ["Alt+R", "2"], ["Alt+T", "4"], ["Alt+M", "6"], ["Alt+V", "5"], ["Alt+F", "7"]]) {
    d.key(null, key);
    d.key(null, digit);
  }
  d.key(null, "Ctrl+Tab");
  d.key("technologyCombo", "Down");
  d.key(null, "Return");
});
equal(DefineADCDialog([8], [0, 2, 5, 1e-12, 50], families), [9, 5, 6, 7, 2, 1, 0, 0, 0, 4, 7, 5, 1e-12, 50]);

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel"), d => d.key(rate, "Escape")])
  equal(box([8], d => {
    d.type(rate, "4");
    leave(d);
  }), none);

box(new Array(1e6).fill(3), d => d.accept());
