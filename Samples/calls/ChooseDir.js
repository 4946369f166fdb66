// Family: Application
// Where the model libraries of a foundry are to be installed.
// Reopens: 0
ChooseDir("/usr/local", "Choose Library Directory");
