// DefineMultiplexerDialog and DefineDeMultiplexerDialog: one form, two captions.

const families = include("../../Samples/data/logic_families.js");
const sheet = [0, 0, 5, 5e-12, 100]; // what the second page returns when no argument loads it
const none = { made: false, type: null, values: [] };
const functions = [["DefineMultiplexerDialog", "Edit Multiplexer Dialog", "Number of inputs"],
                   ["DefineDeMultiplexerDialog", "Edit Demultiplexer Dialog", "Number of outputs"]];

for (const [name, title, caption] of functions) {
  const box = (device, act) => {
    host.onDialog(act);
    return host.call(name, device);
  };

  for (const [device, values] of [
    [[], [4, 0, 0, 0, 0]],
    [[16, 3e-9, 4e-9, 2, 1], [16, 3e-9, 4e-9, 2, 1]],
    [[2.6, -1, -1, 3, 3], [3, 0, 0, 0, 0]],
    [[0, 0, 0, 1, 2], [1, 0, 0, 1, 2]],
    [[NaN, NaN, NaN, NaN, NaN], [4, 0, 0, 0, 0]],
    [new Array(1e6).fill(2), [2, 2, 2, 2, 2]],
  ])
    equal(box(device, d => {
      equal([d.name, d.title, d.text("ioSizeLabel")], [name, title, caption]);
      d.accept();
    }).values, [...values, 0, 0, 0, 0, ...sheet], `${name}: ${device.slice(0, 5)}`);

  // By keyboard alone, on both pages.
  host.onDialog(d => {
    equal(d.focused(), "numInputsEdit");
    for (const key of ["Up", "Tab", "Up", "Up", "Tab", "5", "n", "Tab", "Down", "Down", "Tab", "Down", "Ctrl+Tab"])
      d.key(null, key);
    equal(d.tab(), "Analog Interface");
    d.key("outputCombo", "Down");
    d.key(null, "Return");
  });
  equal(host.call(name, [8], [4, 7, 5, 1e-12, 50], families).values,
        [9, 2e-9, 5e-9, 2, 1, 0, 0, 0, 0, 4, 8, 5, 1e-12, 50]);

  for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel")])
    equal(box([8], d => {
      d.type("numInputsEdit", "4");
      leave(d);
    }), none);
}
