// AddRemoveDialogNew tells "nothing selected" from cancel; the rest stands in AddRemoveDialog.js.

function box(act) {
  host.onDialog(act);
  return host.call("AddRemoveDialogNew", ["x"], ["a", "b"]);
}
equal(box(d => { d.doubleClick("selectedItemsListBox", 0); d.accept(); }).values, ["0"]);
equal(box(d => d.reject()), { made: false, type: null, values: [] });
equal(box(d => { d.key(null, "Return"); d.key(null, "Alt+O"); }).values, ["2", "x", "a"]);
