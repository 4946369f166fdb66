// Parts as a library has them. Each line is a name of a part: the name; the part's place in the parts
// tree; its identity; its type, which is "model" where only a model library has it. Lines of one
// identity are names of one part, the first of them the one that is shown.
(() => {
  const lines = [];
  let identity = 100;
  const part = (names, place, type = "symbol") => {
    ++identity;
    for (const name of [].concat(names))
      lines.push(`${name};${place};${identity};${type}`);
  };
  part(["Ground", "GND", "0 V"], "Symbols|Ground");
  part(["Ideal resistor", "R"], "Passives|Resistors");
  part(["Potentiometer", "Trimmer"], "Passives|Resistors");
  part(["Ideal capacitor", "C"], "Passives|Capacitors");
  part(["Ideal inductor", "L"], "Passives|Inductors");
  part(["Mutual inductor", "Coupled coils"], "Passives|Inductors");
  part(["Transformer, ideal", "Ideal transformer"], "Magnetics|Transformers");
  part(["Transformer, saturable", "Current transformer"], "Magnetics|Transformers");
  for (const [value, alias] of [["10 µF", "10uF"], ["22 µF", "22uF"], ["47 µF", "47uF"], ["100 µF", "100uF"]])
    part([`Ceramic ${value} 25 V X7R`, `MLCC ${alias}`], "Passives|Capacitors|Ceramic");
  for (const value of ["100 µF 35 V", "220 µF 35 V", "470 µF 25 V", "1000 µF 25 V"])
    part(`Electrolytic ${value}`, "Passives|Capacitors|Electrolytic");
  for (const inductance of ["1 µH 40 A", "2.2 µH 25 A", "4.7 µH 18 A", "10 µH 12 A", "22 µH 8 A"])
    part(`Power inductor ${inductance}`, "Passives|Inductors|Power");
  part(["Signal diode", "D-100V"], "Semiconductors|Diodes");
  part(["Schottky 40 V 3 A", "SB40-3"], "Semiconductors|Diodes|Schottky");
  part(["Schottky 100 V 10 A", "SB100-10"], "Semiconductors|Diodes|Schottky");
  for (const voltage of ["3.3", "5.1", "12", "24"])
    part([`Zener ${voltage} V`, `Z${voltage.replace(".", "V")}`], "Semiconductors|Diodes|Zener");
  part(["NPN small signal", "BJT NPN 45 V"], "Semiconductors|Bipolar");
  part(["PNP small signal", "BJT PNP 45 V"], "Semiconductors|Bipolar");
  for (const device of include("power_mosfets.js")) {
    const [number, , voltage] = device.split(";");
    part([number, `NMOS ${voltage} V ${number.split("-")[1]}`], `Semiconductors|MOSFET|${voltage} V`,
         voltage >= 600 ? "model" : "symbol");
  }
  part(["Op amp, general purpose", "GP opamp"], "Analog|Operational amplifiers");
  part(["Op amp, rail to rail", "RRIO opamp"], "Analog|Operational amplifiers");
  part(["Op amp, low noise", "1 nV opamp"], "Analog|Operational amplifiers", "model");
  part(["Comparator, open drain"], "Analog|Comparators");
  part(["Comparator, push-pull, 7 ns"], "Analog|Comparators", "model");
  part(["Shunt reference 2.5 V", "Adjustable reference"], "Analog|References");
  part(["Optocoupler", "Opto-isolator"], "Analog|Isolation");
  part(["PWM controller, current mode", "CM controller"], "Power control|PWM", "model");
  part(["PWM controller, voltage mode", "VM controller"], "Power control|PWM", "model");
  part(["Gate driver, half bridge", "HB driver"], "Power control|Drivers");
  return lines;
})()
