#pragma once

#include "Drive/DialogActions.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

/// Brings every page of the dialog's tabs and stacks to the front, those inside of other pages too,
/// and lets `look` see each; `page` says which it is. A dialog without pages is looked at once. The
/// pages that were in front are there again afterwards.
void onEveryPage(DialogActions& dialog, const std::function<void(const std::string& page)>& look);

/// What the widgets of a dialog hold, those of all pages: texts, states, entries, rows, selections.
QString stateOf(const QWidget* dialog);

/// How many widgets were changed, by what the user changes in them.
struct Changes {
  std::map<std::string, int> made;
  std::set<std::string> offered; ///< what there was to change, on whichever page

  int count() const;
  std::string words() const; ///< "3: box 1, field 2"
  /// What was offered and could be changed nowhere; empty where there is none.
  std::string missed() const;
};

/// Changes what a user could change, on every page: types into fields, steps numbers, picks other
/// entries, ticks boxes, selects and edits rows, moves sliders. `variant` varies what is put in.
Changes changeFields(DialogActions& dialog, int variant = 0);

/// A button, or a row of a list with F2 for it: what changes the dialog at once or opens another.
struct Opener {
  std::string name;
  QString widget;
  std::function<void(DialogActions& dialog)> prepare;
  std::function<void(DialogActions& dialog)> use;
};

/// Those of the page in front. What ends the dialog, asks for help or works on files does not
/// count.
std::vector<Opener> openers(DialogActions& dialog);
/// Uses them on every page; in what they open, all is changed and accepted. Returns how many
/// changed what the dialog holds.
int useOpeners(DialogActions& dialog);

/// Serves up to `most` dialogs that `action` opens; fewer are no failure.
void servingDialogs(const std::function<void(DialogActions&)>& serve,
                    const std::function<void()>& action, int most = 4);
