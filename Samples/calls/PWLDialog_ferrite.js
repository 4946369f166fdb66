// Family: Pwl
// A ferrite inductor, 10 uH up to 20 A, that saturates behind: flux linkage against current, the
// same in both directions.
PWLDialog(
  ["-60", "-288u", "-30", "-260u", "-20", "-200u", "20", "200u", "30", "260u", "60", "288u"],
  ["Define PWL Inductor", "Current", "Flux Linkage", "continuous", "3001", "2", "256", "1"],
  [1, 12.5, 1],
  [""]
);
