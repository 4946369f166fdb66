// Family: Analog
// An output capacitor that is charged before the transient begins.
EditReactiveDialog(
  ["470u", "12"],
  ["Capacitor C5", "E6", "capacitor", "false", "true", "false", "false"],
  ["esr", "esl"],
  ["22m", "4n"]
);
