// Family: Generic
// A report that a script has written, with the simulated efficiency of a converter.
// Opens: no dialog
const report = host.tempDir() + "/efficiency.html";
host.writeFile(report, `<h3>Efficiency at 230 V</h3>
<table border="1" cellspacing="0" cellpadding="4">
<tr><th>Load</th><th>10 %</th><th>25 %</th><th>50 %</th><th>100 %</th></tr>
<tr><td>Simulated</td><td>81.2 %</td><td>87.9 %</td><td>90.4 %</td><td>89.6 %</td></tr>
<tr><td>Wanted</td><td>79 %</td><td>86 %</td><td>88 %</td><td>88 %</td></tr>
</table>
<p>All loads are within what was asked for.</p>`);
ViewFormattedFile([report, "Efficiency"]);
