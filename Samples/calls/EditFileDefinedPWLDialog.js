// Family: Pwl
// A load step that an oscilloscope has recorded: time counts from the trigger.
EditFileDefinedPWLDialog(
  [
    "* Load step, channel 2, 5 A/div",
    "START_DATA REPEAT_COUNT=3 SHIFT_FIRST_TO_ZERO",
    "-2u\t0.5",
    "-0.1u\t0.5",
    "0\t0.52",
    "0.2u\t9.8",
    "0.5u\t10.4",
    "1u\t10.1",
    "* ringing as measured on the board",
    "2u\tfile=\"ringing.txt\"",
    "10u\t10",
    "10.2u\t0.5",
    "20u\t0.5"
  ],
  ["0", "0", "1", "load_step.txt", "Disk", "0", "I_load", "load_step|startup"],
  ["Edit File Defined PWL Source", "Time", "Current", "3002"]
);
