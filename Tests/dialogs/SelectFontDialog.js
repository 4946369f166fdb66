// SelectFontDialog: fonts in, fonts out.

function chosen(arg, act) {
  host.onDialog(act || (d => d.accept()));
  return host.call("SelectFontDialog", ...(arg === undefined ? [] : [arg]));
}
const none = { made: false, type: null, values: [] };
const font = text => ({ made: true, type: "string", values: [text] });

// What nobody touched comes back, the colour whatever it is, the old form with semicolons.
for (const [given, back] of [
  ["12;0;0;0;0;255;DejaVu Sans"],
  ["9;1;0;1;1;16711680;DejaVu Sans Mono"],
  ["12 1 0 1 0 65280 DejaVu Sans Mono", "12;1;0;1;0;65280;DejaVu Sans Mono"],
  ["-12;0;0;0;0;4278190335;DejaVu Sans", "12;0;0;0;0;4278190335;DejaVu Sans"],
])
  equal(chosen(given), font(back || given), given);
equal(chosen(["12;0;0;0;0;0;DejaVu Sans", "ignored"]), font("12;0;0;0;0;0;DejaVu Sans"));

// Picked, and by keyboard alone.
equal(chosen("12;0;0;0;0;7;DejaVu Sans", d => {
  d.pick({ family: "DejaVu Sans Mono", pointSize: 20, underline: true });
  d.accept();
}), font("20;0;0;1;0;7;DejaVu Sans Mono"));
equal(chosen("12;0;0;0;0;7;DejaVu Sans", d => {
  d.key(null, "Alt+S"); // Size
  d.key(null, "Ctrl+A");
  d.key(null, "1");
  d.key(null, "8");
  d.key(null, "Alt+U"); // Underline
  d.key(null, "Return");
}), font("18;0;0;1;0;7;DejaVu Sans"));

for (const leave of [d => d.key(null, "Escape"), d => d.close(), d => d.press("Cancel")])
  equal(chosen("12;0;0;0;0;7;DejaVu Sans", d => { d.pick({ pointSize: 30 }); leave(d); }), none);

// Names: the host's fonts, an option's, and the default one where there is none of that name.
const standard = chosen("Standard");
check(/^\d+;0;0;0;0;0;./.test(standard.values[0]), standard.values[0]);
for (const other of [undefined, "", [], "No such font", " 12;1;0;0;0;0;DejaVu Sans"])
  equal(chosen(other), standard, `default for ${other}`);
check(chosen("Fixed").made, "the fixed font");
host.option("FontNotes", "14;1;0;0;0;255;DejaVu Sans");
equal(chosen("Notes"), font("14;1;0;0;0;255;DejaVu Sans"));
host.option("FontNotes", null);

// Odd sizes and texts open all the same.
for (const odd of ["0;0;0;0;0;0;DejaVu Sans", "99999999999;1;1;1;1;1;x", "-", "9", "9;x", ";".repeat(100000),
                   "9;0;0;0;0;0;" + "x".repeat(100000), "9;0;0;0;0;0;<b>\n&"])
  check(chosen(odd).made, `opens for ${odd.slice(0, 20)}`);
equal(chosen(new Array(1000000).fill("12;0;0;0;0;0;DejaVu Sans")), font("12;0;0;0;0;0;DejaVu Sans"));
