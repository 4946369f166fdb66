// EditWaveformDialog and EditWaveformStrDialog: the form, what follows every key, ways out.

const none = { made: false, type: null, values: [] };
// Shape, delay, rise, fall, width, period, damping, phase, frequency, duty.
const square = 0, triangle = 1, sawtooth = 2, sine = 3, pulse = 5, onePulse = 6, exponential = 7, step = 8;
const numbers = shape => [shape, 0, 500e-9, 500e-9, 50e-6, 100e-6, 0, 0, 10e3, 50.5];
const texts = shape => [`${shape}`, "0", "100n", "100n", "49.9u", "100u", "0", "0", "10k", "50"];
const call = (name, args, act) => { host.onDialog(act); return host.call(name, ...args); };
const box = (args, act) => call("EditWaveformDialog", args, act).values;
const textBox = (args, act) => call("EditWaveformStrDialog", args, act).values;
const timing = d => ["riseEdit", "fallEdit", "widthEdit", "periodEdit", "frequencyEdit", "dutyEdit"].map(w => d.text(w));
const boxes = d => [d.checked("cbEqualRiseAndFall"), d.checked("cbDefaultRiseAndFall")];

// --- in numbers ---------------------------------------------------------------------------------

equal(box([[]], d => {
  equal([d.title, d.name], ["Edit Waveform", "EditWaveformDialog"]);
  equal(timing(d), ["500n", "500n", "50u", "100u", "10k", "50.5"], "as the form has it");
  equal(boxes(d), [true, true]);
  check(!d.visible("cbSourceIdle") && !d.visible("picturePane"));
  d.accept();
}), [0, 0, 500e-9, 500e-9, 50e-6, 100e-6, 0, 0, 10e3, 50.5, 0, 1, 0, 0.5, 1, 0, 0]);

// Every key is followed, and the keys on the way to a value cost no other field anything.
near(box([numbers(pulse)], d => {
  const seen = [];
  d.type("widthEdit", "");
  for (const key of ["2", "0", "u"]) {
    d.key("widthEdit", key);
    seen.push([d.text("periodEdit"), d.text("dutyEdit"), d.text("riseEdit")]);
  }
  equal(seen, [["100u", "100", "1u"], ["100u", "100", "1u"], ["100u", "20.2", "200n"]]);
  d.key("widthEdit", "Tab");
  d.type("frequencyEdit", "20");
  equal(d.text("periodEdit"), "50m");
  d.key("frequencyEdit", "k");
  equal(timing(d), ["100n", "100n", "10u", "50u", "20k", "20.2"]);
  d.key("frequencyEdit", "Tab");
  d.set("frequencyEdit", "0");
  equal(timing(d), ["100n", "100n", "10u", "50u", "20k", "20.2"], "no frequency is no change");
  d.set("periodEdit", "1u");
  equal(d.text("periodEdit"), "10u", "no shorter than the width");
  d.accept();
})[5], 10e-6, 1e-12);

// Typed there and back again is no change, a click takes what is being typed.
box([numbers(pulse)], d => {
  d.type("riseEdit", "6");
  equal(boxes(d), [true, false]);
  d.type("riseEdit", "500n");
  d.key("riseEdit", "Tab");
  equal(boxes(d), [true, true]);
  d.set("fallEdit", "2u");
  equal([...boxes(d), d.text("riseEdit")], [false, false, "500n"]);
  d.type("riseEdit", "3u");
  d.key("riseEdit", "Alt+L");
  equal([d.text("fallEdit"), d.checked("cbEqualRiseAndFall")], ["3u", true]);
  d.key("riseEdit", "Alt+E");
  equal([...boxes(d), d.text("riseEdit"), d.text("fallEdit")], [true, true, "500n", "500n"]);
  d.set("cbEqualRiseAndFall", false);
  equal(boxes(d), [false, false]);
  d.reject();
});

// Levels, both ways; the words of argument 2 and its length say which are trusted.
for (const [levels, words, shown] of [
  [[1, 4, 0, 9, 9], ["INITIALPULSE"], ["1", "4", "2.5", "3"]],
  [[1, 4, 0, 9], [], ["1", "4", "2.5", "3"]],
  [[1, 4, 0, 9, 8], ["x", ""], ["5", "13", "9", "8"]],
])
  box([numbers(pulse), levels, words], d => {
    const all = () => ["initialEdit", "pulseEdit", "offsetEdit", "amplitudeEdit"].map(w => d.text(w));
    equal(all(), shown);
    d.type("offsetEdit", "0");
    d.type("amplitudeEdit", "2");
    equal(all(), ["-1", "1", "0", "2"]);
    d.set("pulseEdit", "3");
    equal(all(), ["-1", "3", "1", "4"]);
    d.reject();
  });

// A source that stands still is always idle; its box comes back as it was.
box([numbers(pulse), [], ["Brennix"]], d => {
  const idle = () => [d.checked("cbSourceIdle"), d.enabled("cbSourceIdle")];
  equal(idle(), [false, true]);
  for (const shape of ["rbSinglePulse", "rbStep"]) {
    d.click(shape);
    equal(idle(), [true, false]);
  }
  d.click("rbExp");
  equal(idle(), [false, true]);
  d.reject();
});
host.option("DisplayPwlIdleInPop", "true");
box([numbers(onePulse), [], ["brennix"]], d => {
  check(!d.checked("cbSourceIdle") && d.enabled("cbSourceIdle"));
  d.reject();
});
host.option("DisplayPwlIdleInPop", null);

// Delay or phase: what one was is nothing to the other.
equal(box([[sine, 90, 0, 0, 0, 1, 0, 1, 1, 50]], d => {
  equal([d.text("delayLabel"), d.text("delayEdit"), d.get("delayEdit", "max")], ["&Phase", "90", 360]);
  d.key("delayEdit", "Up");
  equal(d.text("delayEdit"), "97.5");
  d.click("rbPhase");
  equal(d.text("delayEdit"), "97.5", "it was a phase before");
  d.click("rbDelay");
  equal([d.text("delayLabel"), d.text("delayEdit"), d.get("delayEdit", "min")], ["&Delay", "0", -1e12]);
  d.set("delayEdit", "1k");
  d.click("rbPhase");
  d.set("delayEdit", "45");
  d.click("rbStep");
  equal([d.checked("rbDelay"), d.enabled("rbPhase"), d.text("delayEdit")], [true, false, "0"]);
  d.accept();
})[7], 0);

box([numbers(exponential)], d => {
  equal([d.text("riseLabel"), d.text("fallLabel"), d.enabled("riseEdit"), d.enabled("fallEdit")], ["&Rise TC", "&Fall TC", true, false]);
  d.click("rbPulse");
  equal([d.text("riseLabel"), d.enabled("fallEdit")], ["&Rise", true]);
  d.reject();
});

// --- in texts -----------------------------------------------------------------------------------

const untouched = [...texts(pulse), "0", "1", "0", "500m", "1", "0", "0"];
equal(textBox([texts(pulse)], d => { equal(boxes(d), [true, true]); d.accept(); }), untouched);

// Each shape remembers its own values.
textBox([texts(pulse)], d => {
  const before = timing(d);
  d.click("rbSinglePulse");
  equal(timing(d).slice(0, 3), ["49.9n", "49.9n", "49.9u"]);
  d.set("widthEdit", "{w}");
  check(!d.enabled("cbDefaultRiseAndFall"));
  d.click("rbPulse");
  equal(timing(d), before);
  d.click("rbSinglePulse");
  equal(d.text("widthEdit"), "{w}");
  d.click("rbTriangle");
  equal([d.text("dutyLabel"), d.text("dutyEdit"), d.text("riseEdit")], ["Rise/Fall/%", "50", "50u"]);
  d.click("rbSawtooth");
  equal([d.text("dutyLabel"), d.text("dutyEdit")], ["Dut&y/%", "99.9"]);
  d.reject();
});
textBox([texts(pulse), [], ["brennix"]], d => {
  d.click("rbSawtooth");
  equal(timing(d), ["100u", "0", "0", "100u", "10k", "100"]);
  d.reject();
});

// An expression stands, and keeps back what cannot be computed; one for the period has no place.
equal(textBox([texts(pulse), ["{a}", "{b}", "0", "2", "3"]], d => {
  d.type("frequencyEdit", "{1/Ts");
  check(d.enabled("periodEdit"), "not yet an expression");
  d.key("frequencyEdit", "}");
  equal([d.enabled("periodEdit"), d.enabled("dutyEdit"), d.enabled("cbDefaultRiseAndFall")], [false, false, false]);
  d.key("frequencyEdit", "Backspace");
  check(d.enabled("periodEdit"));
  d.set("frequencyEdit", "{1/Ts}");
  d.set("widthEdit", "10k u");
  equal(d.text("widthEdit"), "10k u", "nonsense is the user's to mend");
  d.set("widthEdit", "12u");
  d.set("offsetEdit", "7");
  equal([d.text("initialEdit"), d.text("pulseEdit")], ["{a}", "{b}"]);
  d.accept();
}), [...texts(pulse).slice(0, 4), "12u", "100u", "0", "0", "{1/Ts}", "50", "{a}", "{b}", "0", "7", "3", "0", "0"]);
textBox([texts(pulse)], d => {
  d.set("periodEdit", "{Ts}");
  equal(timing(d)[3], "100u");
  d.set("dutyEdit", "20");
  equal(timing(d)[2], "19.9u");
  d.set("widthEdit", "29.9u");
  equal(timing(d)[5], "30");
  d.set("riseEdit", "{tr}");
  equal([d.text("fallEdit"), ...boxes(d)], ["{tr}", true, false]);
  d.reject();
});
equal(textBox([["5", "{td}", "{r}", "1n", "{w}", "1", "{x}", "0", "1Meg", "{d}"]], d => {
  equal(boxes(d), [false, false]);
  d.accept();
}).slice(1, 10), ["{td}", "{r}", "1n", "{w}", "1u", "{x}", "0", "1Meg", "{d}"]);

// The hint of a host that is too old, until it is not wanted any more.
host.system("version", [8, 30]);
let hints = 0;
for (const answer of ["Ok", "Ok, don't show this message again", null])
  textBox([texts(pulse)], d => {
    if (answer)
      host.onDialog(message => {
        ++hints;
        equal(message.title, "Multi-core operation");
        message.press(answer);
      });
    d.click("cbVisibleParameters");
    d.reject();
  });
equal([hints, host.config("Hints", "EditWaveformDispParamsMsg")], [2, "false"]);

// --- the picture --------------------------------------------------------------------------------

const picture = d => [d.visible("Plotter:0"), d.visible("picturePane")];
textBox([texts(pulse)], d => {
  equal(picture(d), [false, false]);
  d.key(null, "Alt+G");
  equal(picture(d), [true, true]);
  const slowest = [];
  d.type("frequencyEdit", "");
  for (const key of "20k") {
    const before = host.now();
    d.key("frequencyEdit", key);
    slowest.push(host.now() - before);
  }
  check(Math.max(...slowest) < 100, `${slowest} ms for a key`);
  equal(d.get("Plotter:0", "xMaximum"), 100e-6, "two periods");
  d.key("frequencyEdit", "Tab");
  d.set("delayEdit", "{td}");
  equal(picture(d), [false, true], "not known");
  d.set("delayEdit", "5u");
  d.set("cbOffUntilDelay", true);
  near(d.get("Plotter:0", "xMinimum"), -7.5e-6, 1e-9);
  d.set("pulseEdit", "20");
  check(d.get("Plotter:0", "yMaximum") > 20);
  d.reject();
});
textBox([texts(sine)], d => {
  equal(picture(d), [true, true], "it is remembered");
  d.press("Graph");
  d.reject();
});

// --- what a script may hand in, and ways out ----------------------------------------------------

for (const odd of [[NaN, NaN, NaN, NaN, NaN, NaN, NaN, NaN, NaN, NaN], [99, 1e300, -1, -1, -1, -1, -1, 99, -1, -1],
                   [5, 0, 1, 1, 1, 0, 0, 0, 0, 0], [5, 0, 0, 0, 1e308, 1e-308, 0, 0, 1e308, 1e308]])
  for (let shape = 0; shape < 9; ++shape)
    box([odd, odd, odd.map(String)], d => {
      d.click("QRadioButton:" + shape);
      d.press("Graph");
      d.press("Graph");
      for (const field of ["widthEdit", "dutyEdit", "riseEdit", "periodEdit", "frequencyEdit"])
        for (const text of ["1e400", "", "-5", "0"])
          if (d.enabled(field))
            d.set(field, text);
      d.accept();
    }).slice(2, 6).forEach(value => check(value >= 0, `${odd} with shape ${shape}: ${value}`));

for (const leave of [d => d.reject(), d => d.close(), d => d.press("Cancel"), d => d.key("widthEdit", "Escape")])
  for (const name of ["EditWaveformDialog", "EditWaveformStrDialog"])
    equal(call(name, [name.includes("Str") ? texts(pulse) : numbers(pulse)], d => {
      d.type("widthEdit", "1u");
      leave(d);
    }), none);
equal(textBox([texts(pulse)], d => { d.type("widthEdit", "9.9u"); d.key("widthEdit", "Return"); }).slice(4, 10),
  ["9.9u", "100u", "0", "0", "10k", "10"], "Return takes what was typed");
