// DefineCounterDialog_V2: what it has beyond DefineCounterDialog.

const sheet = [0, 0, 5, 5e-12, 100];
const none = { made: false, type: null, values: [] };
const resets = ["radioButton", "radioButton_2", "radioButton_3"];

function box(device, act) {
  host.onDialog(act);
  return host.call("DefineCounterDialog_V2", device);
}
const fields = d => [d.enabled("resetDelayEdit"), d.enabled("dataLoadTime")];

// Fields that mean nothing are disabled, from the start and as the user chooses.
for (const reset of [0, 1, 2])
  for (const load of [0, 1])
    equal(box([8, 99, reset, 3e-9, load, 1, 4e-9, 5e-9, 1], d => {
      equal([d.name, d.title], ["DefineCounterDialog_V2", "Define Counter"]);
      check(d.visible("featuresGroupBox") && d.visible("dataLoadTimeLabel"));
      equal(fields(d), [reset !== 0, load === 1], `reset ${reset}, load ${load}`);
      equal(d.text("dataLoadTime"), "10n", "no argument loads it");
      d.accept();
    }).values, [8, 99, reset, 3e-9, load, 1, 4e-9, 1e-8, 1, ...sheet]);

equal(box([8], d => {
  const seen = [];
  d.key("radioButton", "Down");
  seen.push(fields(d));
  d.key("cbParallelLoad", "Space");
  seen.push(fields(d));
  d.click("radioButton");
  seen.push(fields(d));
  d.key("radioButton", "Down");
  d.key("radioButton_2", "Down");
  equal(seen, [[true, false], [true, true], [false, true]]);
  d.set("dataLoadTime", "2n");
  d.key("cbUpDown", "Space");
  d.key(null, "Return");
}).values, [8, 255, 2, 1e-8, 1, 1, 1e-8, 2e-9, 0, ...sheet]);

// Up to 256 bits; none beyond 31 has a count of its own.
for (const [bits, count] of [[31, 5], [32, 4294967295], [256, 2 ** 256 - 1], [257, 2 ** 256 - 1]])
  box([8, 5], d => {
    d.set("numBitsEdit", String(bits));
    equal([d.value("numBitsEdit"), d.value("maxCountEdit")], [Math.min(bits, 256), count]);
    equal([d.checked("cbMaxCount"), d.enabled("cbMaxCount")], [bits > 31, bits <= 31]);
    d.reject();
  });

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")])
  equal(box([8], d => {
    d.click(resets[1]);
    leave(d);
  }), none);
