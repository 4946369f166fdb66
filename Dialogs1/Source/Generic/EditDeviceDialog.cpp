#include "Generic/EditDeviceDialog.h"

#include "Frame/ScriptFunction.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/CaptionLabel.h"
#include "Pieces/Captions.h"
#include "Pieces/ListRows.h"

#include <QScopedValueRollback>
#include <QShortcut>

static const ScriptFunction declaration("EditDeviceDialog", 2, "SSSS", StringVectorResult,
                                        runDialogFunction<EditDeviceDialog, UserString>);

namespace {

enum Argument { Settings, Names };
enum Setting { CurrentName, CurrentIndex, WindowTitle, Caption };
enum ResultElement { Name, Index, ParameterCount };

} // namespace

EditDeviceDialog::EditDeviceDialog(const char* objectName)
    : KelvarinDialog(nullptr, objectName, true, {}) {
  form.setupUi(this);
  using Self = EditDeviceDialog;
  connect(form.editBox, &QLineEdit::textChanged, this, &Self::editBox_textChanged);
  connect(form.parametersButton, &QPushButton::clicked, this, &Self::parametersButton_clicked);
  connect(form.listBox, &QListWidget::itemClicked, this, &Self::listBox_clicked);
  connect(form.listBox, &QListWidget::itemDoubleClicked, this, &Self::listBox_doubleClicked);
  connect(form.listBox, &QListWidget::itemSelectionChanged, this, &Self::listBox_selectionChanged);
  connect(form.selectAllButton, &QPushButton::clicked, this, &Self::selectAllButton_clicked);
  auto* down = new QShortcut(Qt::Key_Down, form.editBox, nullptr, nullptr, Qt::WidgetShortcut);
  connect(down, &QShortcut::activated, this, &Self::editBox_down);
}

void EditDeviceDialog::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  KelvarinDialog::prepareDialog(args, type);
  dialogData = std::make_unique<EditDeviceDialogData>(this, args, type);
}

void EditDeviceDialog::initialiseDialog() {
  const Texts settings = texts(Settings);
  load(settings.text(WindowTitle, tr("Select device")),
       settings.has(Caption) ? settings.text(Caption) : tr("Select device"),
       OfferedNames::Order::Ascending);
  setShown({form.multiLabel, form.selectAllButton}, false);

  QString name = settings.text(CurrentName);
  if (name.isEmpty() && !settings.text(CurrentIndex).isEmpty()) {
    const int row = offered.rowOfPlace(settings.number(CurrentIndex));
    name = row < 0 ? QString() : offered.names().at(row);
  }
  start(name, offered.nearestRow(name));
  const bool hasParameters = ParametersDialog::arePassed(scriptArgs);
  form.parametersButton->setVisible(hasParameters);
  if (hasParameters)
    parameters()->view()->initialiseWidget(scriptArgs);
}

void EditDeviceDialog::load(const QString& title, const QString& caption,
                            OfferedNames::Order order) {
  dimsSavingEnabled = true;
  setWindowTitle(shownCaption(title));
  captionField(form.label, form.editBox, caption);
  form.listBox->setAccessibleName(form.editBox->accessibleName());

  offered = OfferedNames(texts(Names).all(), order);
  form.listBox->addItems(offered.names());
  makeRowsUniform(form.listBox);
}

void EditDeviceDialog::start(const QString& text, int row) {
  const QScopedValueRollback<bool> guard(listUpdating, true);
  selectRow(row);
  form.editBox->setText(text);
  form.editBox->setFocus(Qt::TabFocusReason);
  form.editBox->selectAll();
}

void EditDeviceDialog::readDialog(UserDataType, bool accepted) {
  if (!accepted)
    return;
  const QModelIndexList selected = form.listBox->selectionModel()->selectedIndexes();
  const int row =
      selected.isEmpty() ? offered.rowOfName(form.editBox->text()) : selected.first().row();
  const int place = row < 0 ? -1 : offered.place(row);

  char** result = makeStringResult(ParameterCount + 1 + parameters()->view()->vectorSize());
  if (!result)
    return;
  // A name on offer goes back byte for byte, even one that is no valid text.
  result[Name] = selected.isEmpty() ? hostString(form.editBox->text())
                                    : hostString(texts(Names).raw(static_cast<unsigned>(place)));
  result[Index] = hostString(YString(place).c_str());
  parameters()->writeCountAndValues(scriptArgs, result + ParameterCount);
}

void EditDeviceDialog::editBox_textChanged(const QString& text) {
  if (listUpdating)
    return;
  const QScopedValueRollback<bool> guard(listUpdating, true);
  selectRow(offered.nearestRow(text));
}

void EditDeviceDialog::parametersButton_clicked() {
  if (parameters())
    parameters()->exec();
}

void EditDeviceDialog::editBox_down() {
  form.listBox->setFocus(Qt::OtherFocusReason);
  if (!form.listBox->selectionModel()->hasSelection())
    form.listBox->setCurrentRow(0);
}

void EditDeviceDialog::listBox_clicked(QListWidgetItem* item) {
  const QScopedValueRollback<bool> guard(listUpdating, true);
  form.editBox->setText(item->text());
}

void EditDeviceDialog::listBox_selectionChanged() {
  // The arrow keys, and typing in the list, do what a click does.
  QListWidgetItem* item = form.listBox->currentItem();
  if (!listUpdating && item && item->isSelected())
    listBox_clicked(item);
}

void EditDeviceDialog::listBox_doubleClicked() {
  okClicked();
}

void EditDeviceDialog::selectAllButton_clicked() {
  form.listBox->selectAll();
}

void EditDeviceDialog::selectRow(int row) {
  if (row < 0)
    form.listBox->clearSelection(); // a name of the user's own
  else
    form.listBox->setCurrentRow(row);
}
