// Family: Digital
// The analog interface in what a counter's dialog has returned.
// Opens: no dialog
GetAnalogInterface([4, 9, 2, 15e-9, 0, 0, 10e-9, 10e-9, 0, 4, 7, 5, 3.5e-12, 60]);
