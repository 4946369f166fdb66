// Family: Pwl
// A load that steps from half an ampere to ten within 200 ns, again and again.
PWLDialog(
  ["0", "0.5", "10u", "0.5", "10.2u", "10", "30u", "{Imax}", "30.2u", "0.5", "50u", "0.5"],
  ["Define PWL Source", "Time", "Current", "", "3001", "1", "256", "", "1"],
  [0, 0, 0, 5]
);
