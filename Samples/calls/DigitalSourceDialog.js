// Family: Digital
// A UART frame, 0x55 at 115,200 baud, with the line that enables the transceiver's driver.
const bit = 1 / 115200;
const frame = [0, 1, 0, 1, 0, 1, 0, 1, 0, 1]; // start bit, eight data bits from the lowest, stop bit
const rows = ["0 1s 0s", `${(bit / 2).toExponential(9)} 1s 1s`];
frame.forEach((level, i) => rows.push(`${((i + 1) * bit).toExponential(9)} ${level}s 1s`));
rows.push(`${(12 * bit).toExponential(9)} 1s 0s`);
DigitalSourceDialog(
  ["txd|tx_enable", rows.join("\n")],
  [9, 11, 3.3, 5e-12, 50],
  include("../data/logic_families.js")
);
