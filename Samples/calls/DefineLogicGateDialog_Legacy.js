// Family: Digital
// A two-input NOR of a discrete TTL family.
// Reopens: 0
DefineLogicGateDialog_Legacy([2, 3, 12e-9, 0]);
