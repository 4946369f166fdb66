// Family: Generic
// What a design check found, beside the schematic while its user works on it.
// Opens: no dialog
ViewFormattedText([
  `<h3>Flyback converter: design check</h3>
  <table border="1" cellspacing="0" cellpadding="4">
  <tr><th align="left">Part</th><th align="left">Stress</th><th align="left">Limit</th></tr>
  <tr><td>Q1, drain voltage</td><td>548 V</td><td>600 V</td></tr>
  <tr><td>D2, reverse voltage</td><td>91 V</td><td>100 V</td></tr>
  <tr><td>T1, flux density</td><td><b>0.34 T</b></td><td>0.32 T</td></tr>
  </table>
  <p>T1 is driven beyond its limit at the lowest input voltage. See the
  <a href="https://example.org/flux-density">notes on flux density</a>.</p>`,
  "Design Check",
]);
