// The dialogs of simple sources and of a potentiometer: what is loaded, typed and given back.

const none = { made: false, type: null, values: [] };
function call(name, args, act) {
  host.onDialog(act);
  return host.call(name, ...args);
}

for (const [button, value] of [["zeroButton", 0], ["plusFiveButton", 5], ["plusTwelveButton", 12], ["plusFifteenButton", 15]]) {
  equal(call("DCSourceDialog", [[3.3]], d => { d.click(button); d.accept(); }).values, [value]);
  equal(call("DCSourceDialogStr", [["{vdd}"]], d => { d.click(button); d.accept(); }).values, [String(value)]);
}
for (const [name, given, key, result] of [
  ["DCSourceDialog", [3.3], "7", [7]], ["DCSourceDialogStr", ["{vdd}"], "7", ["7"]],
  ["DCSourceDialog", [3.3], "", [3.3]], ["DCSourceDialogStr", ["{vdd}"], "", ["{vdd}"]],
  ["DCSourceDialog", [], "", [0]],
])
  equal(call(name, [given], d => {
    equal(d.focused(), "dcEdit");
    if (key)
      d.key(null, key); // all is selected
    d.key(null, "Return");
  }).values, result);
equal(call("ACSourceDialog", [[1, 90]], d => {
  d.set("MagnitudeSpinner", "2.5");
  d.key("phaseSpinner", "Up");
  d.accept();
}).values, [2.5, 100]);
equal(call("ACSourceDialogStr", [["1", "{p}"]], d => { d.set("MagnitudeSpinner", "{2*a}"); d.accept(); }).values, ["{2*a}", "{p}"]);
equal(call("ACSourceDialog", [[1, 90]], d => { d.set("MagnitudeSpinner", "{a}"); d.accept(); }).values, [0, 90]);
equal(call("EditPotDialog", [[10e3, 0.5, 1, 0.05]], d => {
  d.set("spinner2", "2");
  d.set("spinner3", "1");
  d.set("checkBox1", false);
  d.accept();
}).values, [10e3, 1, 0, 0.5], "the wiper stays on its track");
equal(call("EditPotDialog", [[1e3]], d => d.accept()).values, [1e3, 0.5, 0, 0.05], "what is not given");
for (const name of ["ACSourceDialog", "DCSourceDialogStr", "EditPotDialog"])
  equal(call(name, [name.endsWith("Str") ? ["1"] : [1]], d => d.key(null, "Escape")), none);
