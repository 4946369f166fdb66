// Family: Generic
// The model libraries that a simulation searches, the first that has a model coming first.
AddRemoveDialogNew(
  ["/models/user.lib"],
  ["/models/analog.lib", "/models/digital.lib", "/models/power/mosfets.lib", "/models/power/igbts.lib", "/models/user.lib"],
  ["Model Libraries", "&Search these", "&Installed libraries", "", "pathnames"],
  "vertical"
);
