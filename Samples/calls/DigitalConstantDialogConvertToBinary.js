// Family: Digital
// The eight bits of -20, the lowest first: what each output of a constant is tied to.
// Opens: no dialog
DigitalConstantDialogConvertToBinary(["8", "-20", "SIGNED DECIMAL"]);
