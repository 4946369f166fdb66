#include "Properties/EditModelDialog.h"

#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("EditModelDialog", 2, "SS", StringVectorResult,
                                        runDialogFunction<EditModelDialog, UserString>);

// A usual line of a model, and as many of them as leave room for the other on a small screen.
static constexpr int shownColumns = 60;
static constexpr int shownLines = 7;

EditModelDialog::EditModelDialog() : KelvarinDialog(nullptr, "EditModelDialog", true, {}) {
  form.setupUi(this);
  connect(form.localModelEdit, &TextEdit::textChanged, this,
          &EditModelDialog::localModelEdit_textChanged);
  for (TextEdit* edit : {form.globalModelEdit, form.localModelEdit}) {
    QFont font = edit->font();
    font.setStyleHint(QFont::Monospace); // columns stay columns where the form's font is missing
    edit->setFont(font);
    const QFontMetrics metrics(font);
    edit->setMinimumSize(shownColumns * metrics.averageCharWidth(),
                         shownLines * metrics.lineSpacing());
  }
}

void EditModelDialog::initialiseDialog() {
  dimsSavingEnabled = true;
  // A model that is loaded is not the user's first keystroke.
  const Updating guard(this);
  KelvarinDialog::initialiseDialog();
  // The user starts at what is chosen.
  (form.rbUseLocalModel->isChecked() ? form.rbUseLocalModel : form.rbUseGlobalLibraryModel)
      ->setFocus(Qt::TabFocusReason);
}

void EditModelDialog::localModelEdit_textChanged() {
  if (!updating)
    form.rbUseLocalModel->setChecked(true);
}
