#include "Frame/KelvarinDialog.h"

#include "Frame/LineFields.h"
#include "HostSupport/Arguments.h"
#include "HostSupport/Numbers.h"
#include "HostSupportQt/HostSupportQt.h"
#include "HostWidgets/Accessibility.h"
#include "HostWidgets/Spinner.h"

#include <QApplication>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QVariant>

#include <algorithm>
#include <set>

namespace {

/// The dialogs there are. A window that nobody waits for may be open when the host unloads the
/// module; it goes with the code that it runs. At the program's end there is nothing to do.
class OpenDialogs {
public:
  ~OpenDialogs() {
    while (qApp && !m_dialogs.empty())
      delete *m_dialogs.begin();
  }
  void add(KelvarinDialog* dialog) { m_dialogs.insert(dialog); }
  void remove(KelvarinDialog* dialog) { m_dialogs.erase(dialog); }

private:
  std::set<KelvarinDialog*> m_dialogs;
};

OpenDialogs openDialogs;

/// An element as a number, whatever the script has passed: of a text the number that it stands for.
double realOf(const UserArgument& argument, std::size_t element = 0) {
  return argument.type == UserReal
             ? static_cast<const double*>(argument.data)[element]
             : sp_ConvertEngToReal(static_cast<const char* const*>(argument.data)[element]);
}

/// Whether a field ends up in the result, by itself or as a part of a composite.
bool fillsResult(const QWidget* field, const QWidget* dialog) {
  for (const QWidget* each = field; each && each != dialog; each = each->parentWidget()) {
    const QVariant element = each->property("outElementIndex");
    if (element.isValid() && element.toInt() >= 0)
      return true;
  }
  return false;
}

/// Ctrl+Return is OK everywhere, also where Return means something in a list.
void acceptByCtrlReturn(QPushButton* okButton) {
  for (int key : {Qt::Key_Return, Qt::Key_Enter})
    QObject::connect(new QShortcut(QKeySequence(Qt::CTRL + key), okButton->window()),
                     &QShortcut::activated, okButton, [okButton] {
                       if (okButton->isVisible())
                         okButton->click();
                     });
}

/// Tab stops at the checked one of buttons of which one is checked, and at no other.
void stopTabAt(QRadioButton* checked) {
  const auto isAlike = [](const QRadioButton* button) {
    return button->autoExclusive() && !button->group(); // a group looks after its own
  };
  if (!isAlike(checked) || checked->isHidden())
    return;
  for (auto* button :
       checked->parentWidget()->findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly))
    if (isAlike(button))
      button->setFocusPolicy(Qt::FocusPolicy(button == checked
                                                 ? button->focusPolicy() | Qt::TabFocus
                                                 : button->focusPolicy() & ~Qt::TabFocus));
}

void stopTabAtChecked(const QWidget* dialog) {
  for (auto* button : dialog->findChildren<QRadioButton*>()) {
    QObject::connect(button, &QRadioButton::toggled, button, [button](bool checked) {
      if (checked)
        stopTabAt(button);
    });
    if (button->isChecked())
      stopTabAt(button);
  }
}

/// In a result of reals an expression has no place: the fields that fill it say so.
void takeNumbersOnly(const QWidget* dialog) {
  for (auto* spinner : dialog->findChildren<Spinner*>())
    if (fillsResult(spinner, dialog))
      spinner->setNumbersOnly(true);
}

} // namespace

KelvarinDialog::KelvarinDialog(QWidget* parent, const char* objectName, bool modal,
                               Qt::WindowFlags extraFlags)
    : WaitingDialog(sp_GuiParent(parent, objectName),
                    Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                        extraFlags | (modal ? Qt::WindowFlags() : Qt::WindowStaysOnTopHint)),
      resultData(new UserReturnData{}) {
  installFieldAccessibility();
  setObjectName(QString::fromLatin1(objectName));
  setModal(modal);
  new LineFields(this);
  openDialogs.add(this);
}

KelvarinDialog::~KelvarinDialog() {
  openDialogs.remove(this);
}

int KelvarinDialog::helpContextId() {
  return -1;
}

void KelvarinDialog::initialiseDialog() {
  di_InitialiseDialog(this, scriptArgs);
}

void KelvarinDialog::readDialog(UserDataType type, bool accepted) {
  di_ReadDialog(scriptArgs, resultData.get(), this, type, accepted);
}

void KelvarinDialog::prepareDialog(UserFunctionInterface*, UserDataType) {
  stopTabAtChecked(this);
  const QObjectList buttons = qtsp_QueryList(this, "QPushButton", nullptr, true, true);
  for (QObject* object : buttons) {
    auto* button = static_cast<QPushButton*>(object);
    const QString name = button->objectName();
    if (name == QLatin1String("okButton")) {
      connect(button, &QPushButton::clicked, this, [this, button] { commitAndAccept(button); });
      acceptByCtrlReturn(button);
    } else if (name == QLatin1String("cancelButton"))
      connect(button, &QPushButton::clicked, this, [this] { cancelClicked(); });
    else if (name == QLatin1String("helpButton")) {
      if (sp_HasHelp())
        connect(button, &QPushButton::clicked, this, [this] { helpClicked(); });
      else
        button->hide();
    }
  }
}

YString KelvarinDialog::dimsKey() {
  return YString();
}

bool KelvarinDialog::applyStoredSize() {
  return false;
}

void KelvarinDialog::helpClicked() {
  const int number = helpContextId();
  if (number > -1)
    sp_RunHelp(YString(number), nullptr);
}

void KelvarinDialog::okClicked() {
  accept();
}

void KelvarinDialog::cancelClicked() {
  reject();
}

bool KelvarinDialog::runDialog(UserFunctionInterface* args, UserDataType type) {
  scriptArgs = args;
  prepareDialog(args, type);
  initialiseDialog();
  if (type == UserReal)
    takeNumbersOnly(this);
  const bool accepted = exec() == QDialog::Accepted;
  readDialog(type, accepted);
  scriptArgs = nullptr;
  return accepted;
}

void KelvarinDialog::accept() {
  finishField();
  QDialog::accept();
}

void KelvarinDialog::finishField() {
  if (QWidget* field = focusWidget())
    field->clearFocus();
}

void KelvarinDialog::commitAndAccept(QWidget* okButton) {
  // OK by keyboard leaves the focus in the field; taking it finishes what was typed there, be it a
  // number or a table cell that is still open.
  okButton->setFocus(Qt::OtherFocusReason);
  okClicked();
}

const UserArgument* KelvarinDialog::argument(int index) const {
  if (!scriptArgs || index < 0 || index >= std::min(scriptArgs->argCount, maxUserArguments))
    return nullptr;
  const UserArgument& found = scriptArgs->args[index];
  const bool isVector = found.type == UserReal || found.type == UserString;
  return isVector && found.count > 0 && found.data ? &found : nullptr;
}

double KelvarinDialog::getReal(int index) const {
  double value = 0;
  getReal(index, &value);
  return value;
}

bool KelvarinDialog::getReal(int index, double* out) const {
  const UserArgument* found = argument(index);
  if (found)
    *out = realOf(*found);
  return found;
}

YString KelvarinDialog::getString(int index) const {
  YString text;
  getString(index, &text);
  return text;
}

bool KelvarinDialog::getString(int index, YString* out) const {
  const UserArgument* found = argument(index);
  if (!found)
    return false;
  *out = found->type == UserReal ? YString(realOf(*found))
                                 : YString(*static_cast<const char* const*>(found->data));
  return true;
}

bool KelvarinDialog::getRealVector(int index, const double** reals, unsigned* count) const {
  return sp_GetRealIfVector(scriptArgs, index, reals, count);
}

bool KelvarinDialog::getStringVector(int index, const char* const** strings,
                                     unsigned* count) const {
  return sp_GetStringIfVector(scriptArgs, index, strings, count);
}

unsigned KelvarinDialog::copyReals(int index, double* out, unsigned byteSize) const {
  const UserArgument* found = argument(index);
  if (!found)
    return 0;
  const unsigned count = std::min<unsigned>(byteSize / sizeof(double), found->count);
  for (unsigned element = 0; element < count; ++element)
    out[element] = realOf(*found, element);
  return count;
}

char* KelvarinDialog::hostString(const QString& text) const {
  return hostString(Tocs(text));
}

char* KelvarinDialog::hostString(const char* text) const {
  return scriptArgs->hostString(text);
}

double* KelvarinDialog::makeRealResult(int count) const {
  return scriptArgs->makeRealResult(scriptArgs, count, nullptr);
}

char** KelvarinDialog::makeStringResult(int count) const {
  return scriptArgs->makeStringResult(scriptArgs, count);
}

void KelvarinDialog::setRealResult(double value) const {
  if (double* slot = makeRealResult(1))
    *slot = value;
}

void KelvarinDialog::setStringResult(const YString& value) const {
  if (char** slot = makeStringResult(1))
    *slot = hostString(value.c_str());
}

void KelvarinDialog::showEvent(QShowEvent* event) {
  describeByToolTips(this);
  QDialog::showEvent(event);
  if (dimsSavingEnabled)
    sp_RestoreWidgetDims(this, dimsKey());
}

void KelvarinDialog::hideEvent(QHideEvent* event) {
  if (dimsSavingEnabled)
    sp_SaveWidgetDims(this, dimsKey());
  QWidget::hideEvent(event);
}
