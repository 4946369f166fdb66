// Family: Pwl
// The output capacitance of a 600 V superjunction MOSFET, read off its data sheet, as charge against
// drain voltage: most of the charge is moved below 50 V.
ConvertPassiveToBRENNIXDialog("capacitor", [
  "0 9.8n 5 5.6n 10 4.1n 15 3.2n 20 2.4n 25 1.1n 30 480p 40 250p 50 190p 75 140p 100 115p 200 78p 300 66p 400 60p",
  "0 0 20 97.3n 30 112n 400 152n",
  "0", "400"
]);
