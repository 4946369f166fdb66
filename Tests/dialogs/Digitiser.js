// Points from the picture of a graph, by keyboard alone, through the dialog that asks for them.

const folder = new Error().stack.match(/file:\/\/(.*)\/Tests\/dialogs\//)[1] + '/Samples/data/';

// What the pictures show: axes of 0.1 V to 1 kV and 10 pF to 10 nF, and this curve.
const capacitance = v => 38e-12 + 2.6e-9 / Math.pow(1 + v / 1.1, 0.55) / (1 + Math.pow(v / 55, 3.2));
const flat = (v, c) => [120 + 640 * (Math.log10(v) + 1) / 4, 530 - 480 * (Math.log10(c) + 11) / 3];
// The scan is turned by 1.6 degrees, and a little skewed.
const turned = ([x, y]) => {
  const a = 1.6 * Math.PI / 180, u = x - 430 + 0.006 * (y - 310), v = y - 310;
  return [430 + u * Math.cos(a) - v * Math.sin(a), 310 + u * Math.sin(a) + v * Math.cos(a)];
};

const suffixes = {G: 1e9, Meg: 1e6, k: 1e3, '': 1, m: 1e-3, u: 1e-6, n: 1e-9, p: 1e-12, f: 1e-15};
const number = text => {
  const [, digits, suffix] = text.match(/^([-+.\d]+(?:e[-+]?\d+)?)(\w*)$/);
  return parseFloat(digits) * suffixes[suffix];
};

// The cross hair starts in the middle of the picture, and moves by one pixel or ten.
let at;
function moveTo(d, [x, y]) {
  const move = (distance, back, forth) => {
    const key = distance < 0 ? back : forth;
    for (let n = Math.floor(Math.abs(distance) / 10); n > 0; --n)
      d.key('picture', 'Shift+' + key);
    for (let n = Math.abs(distance) % 10; n > 0; --n)
      d.key('picture', key);
  };
  const to = [Math.floor(x), Math.floor(y)];
  move(to[0] - at[0], 'Left', 'Right');
  move(to[1] - at[1], 'Up', 'Down');
  at = to;
}

function calibrate(d, place) {
  at = [430, 310];
  d.set('xScale', 'Logarithmic');
  d.set('yScale', 'Logarithmic');
  const marks = [['x1', 0.1, 1e-11, '100m'], ['x2', 1000, 1e-11, '1k'], ['y1', 0.1, 1e-11, '10p'],
                 ['y2', 0.1, 1e-8, '10nF']];
  for (const [name, v, c, text] of marks) {
    check(d.checked(name + 'Button'), name + ' is the next mark');
    moveTo(d, place(flat(v, c)));
    d.key('picture', 'Return');
    equal(d.focused(), name + 'Value', 'a mark wants its value');
    d.type(name + 'Value', text);
    d.key(name + 'Value', 'Return');
    equal(d.focused(), 'picture', 'and then the picture');
  }
  check(d.checked('pointButton'), 'with its axes complete, points are next');
}

function trace(d, place) {
  calibrate(d, place);
  d.click('traceButton');
  moveTo(d, place(flat(8, capacitance(8))));
  d.key('picture', 'Return');
}

// Runs `act` on the digitiser that the conversion dialog opens for a picture; the table's rows after.
function digitise(file, act) {
  let rows;
  host.onDialog(c => {
    host.onDialog(f => {
      f.pick(file.startsWith('/') ? file : folder + file);
      f.accept();
    });
    host.onDialog(act);
    c.click('digitizeButton');
    rows = c.table('inputTable');
    c.reject();
  });
  ConvertPassiveToBRENNIXDialog('capacitor');
  return rows.filter(row => row[0] !== '').map(row => row.map(number)); // without the blank one
}

for (const [file, place] of [['output-capacitance.png', p => p], ['output-capacitance-scan.jpg', turned]]) {
  const rows = digitise(file, d => {
    check(!d.enabled('okButton'), 'nothing to accept yet');
    trace(d, place);
    check(d.enabled('okButton'), 'traced: ' + d.text('advice'));
    equal(d.rows('points') > 10, true, d.rows('points') + ' points are shown');
    d.accept();
  });
  check(rows[0][0] < 0.11 && rows[rows.length - 1][0] > 900, file + ': traced from frame to frame');
  for (const [v, c] of rows)
    near(c, capacitance(v), 0.05, file + ' at ' + v + ' V');
  check(rows.every((row, i) => i === 0 || row[0] > rows[i - 1][0]), 'by ascending voltage');
}

// Points by hand; everything can be taken back; Escape asks before it throws away.
digitise('output-capacitance.png', d => {
  calibrate(d, p => p);
  const cells = () => d.table('points').map(row => row.map(number));
  moveTo(d, flat(10, 1e-9));
  d.key('picture', 'Return');
  near(cells()[0][0], 10, 0.02, 'where the cross hair is');
  moveTo(d, flat(1, 1e-10));
  d.key('picture', 'Return');
  check(d.enabled('okButton'), 'two points will do');
  near(cells()[0][1], 1e-10, 0.02, 'by ascending x');

  // In hand, a point follows the arrow keys; a table row takes it up as well.
  d.key('picture', 'Return');
  d.key('picture', 'Shift+Right');
  near(cells()[0][0], Math.pow(10, 10 / 160), 0.02, 'ten pixels to the right');
  d.key('picture', 'Escape');
  check(d.isOpen, 'Escape puts the point down first');
  d.key(null, 'Ctrl+Z');
  near(cells()[0][0], 1, 0.02, 'and back');
  d.choose('points', [1]);
  d.key('picture', 'Delete');
  equal(d.rows('points'), 1, 'the row chosen is gone');
  check(!d.enabled('okButton'), 'one point is not enough');
  d.key(null, 'Ctrl+Z');
  equal(d.rows('points'), 2, 'and back');

  // A wrong value says so, and typing it is undone as one.
  d.type('x1Value', '0');
  check(d.text('advice').includes('above 0'), d.text('advice'));
  check(!d.enabled('okButton'), 'no axis, no values');
  d.key('x1Value', 'Ctrl+Z');
  equal(d.text('x1Value'), '100m', 'the value before');
  check(d.enabled('okButton'), 'as before');

  host.onDialog(m => m.press('Cancel'));
  d.key('picture', 'Escape');
  check(d.isOpen, 'thought better of it');
  host.onDialog(m => m.press('Discard'));
  d.key('picture', 'Escape');
});

// Nothing to lose, nothing asked; a file that is not a picture is said.
equal(digitise('output-capacitance.png', d => d.reject()).length, 0, 'given up: the table stays');
const bogus = host.tempDir() + '/bogus.png';
host.writeFile(bogus, 'not a picture');
equal(digitise(bogus, m => {
  check(m.message().text.includes('is not a picture that can be read'), m.message().text);
  m.accept();
}).length, 0, 'no picture: the table stays');

// The whole road: from a scan of a data sheet to the charge of a capacitor in a schematic.
host.onDialog(box => {
  host.onDialog(converter => {
    host.onDialog(f => { f.pick(folder + 'output-capacitance-scan.jpg'); f.accept(); });
    host.onDialog(d => { trace(d, turned); d.accept(); });
    converter.click('digitizeButton');
    converter.set('limitGroupBox', true);
    converter.set('limitValueSpinner', '400');
    converter.set('numSegSpinner', '8');
    converter.click('convertButton');
    converter.press('Ok');
  });
  box.click('componentUnitEntryButton');
  box.accept();
});
const result = PWLDialog([], ['Define PWL Capacitor Coss', 'Voltage', 'Charge'], [], ['']);
const charge = result.slice(0, -1).map(number);
equal(charge.length, 18, 'eight segments have nine points');
const integral = (from, to) => {
  let sum = 0;
  const steps = 20000, ratio = Math.pow(to / from, 1 / steps); // capacitance falls by decades
  for (let i = 0, v = from; i < steps; ++i, v *= ratio)
    sum += capacitance(v * Math.sqrt(ratio)) * v * (ratio - 1);
  return sum;
};
near(charge[16], 400, 1e-3, 'up to the limit');
near(charge[17] - charge[1], integral(charge[0], 400), 0.01, 'the charge of the whole curve');
for (let i = 2; i < charge.length; i += 2)
  check(charge[i] > charge[i - 2] && charge[i + 1] > charge[i - 1], 'charge rises with voltage');
