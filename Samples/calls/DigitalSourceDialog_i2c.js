// Family: Digital
// An I2C write at 100 kHz: start, address 0x50, acknowledge, data 0xA5, acknowledge, stop. The bus is
// pulled up, so that a one is resistive.
const rows = [];
let time = 0;
const put = (scl, sda) => {
  rows.push(`${time.toFixed(1)}u\t${scl ? "1r" : "0s"}\t${sda ? "1r" : "0s"}`);
  time += 2.5;
};
const sendBit = bit => { put(0, bit); put(1, bit); put(1, bit); put(0, bit); };
const sendByte = byte => {
  for (let mask = 128; mask; mask >>= 1)
    sendBit(byte & mask);
  sendBit(0); // acknowledge
};
put(1, 1); put(1, 0);       // start
sendByte(0x50 << 1);
sendByte(0xA5);
put(0, 0); put(1, 0); put(1, 1); // stop
DigitalSourceDialog(["scl|sda", rows.join("\n")], [], []);
