// What is counted is a whole number in every dialog, and steps by one.

for (const [name, ...fields] of [
  ["ConvertPassiveToBRENNIXDialog", "numSegSpinner"],
  ["DefineADCDialog", "numBitsEdit"],
  ["DefineArithmeticLogicUnitDialog", "portASizeEdit", "portBSizeEdit"],
  ["DefineCounterDialog", "maxCountEdit", "numBitsEdit"],
  ["DefineCounterDialog_V2", "numBitsEdit"],
  ["DefineDACDialog", "numBitsEdit"],
  ["DefineDeMultiplexerDialog", "numInputsEdit"],
  ["DefineLogicGateDialog", "spinner3", "invertedInputsEdit"],
  ["DefineMultiplexerDialog", "numInputsEdit"],
  ["DefineRegisterDialog", "spinner5"],
  ["DefineRipperDialog", "spinner4", "spinner5"],
  ["DefineShiftRegDialog", "spinner1"],
  ["DigitalConstantDialog", "numBitsEdit"],
  ["EditFileDefinedPWLDialog", "spinnerRepeatCount"],
]) {
  host.onDialog(d => {
    for (const field of fields) {
      d.set(field, "3.5");
      const typed = d.text(field);
      d.key(field, "Up");
      equal([typed, d.text(field)], ["4", "5"], `${name}, ${field}`);
    }
    d.reject();
  });
  include(`../../Samples/calls/${name}.js`);
}

// A script's number is rounded as a user's; a text of its own that nobody has changed goes back as it is.
for (const [act, expected] of [
  [() => DefineADCDialog([7.6]), [8]],
  [() => DigitalConstantDialog(["8.9", "255", "DECIMAL"]), ["8.9", "255", "DECIMAL"]],
]) {
  host.onDialog(d => d.accept());
  equal(act().slice(0, expected.length), expected);
}
