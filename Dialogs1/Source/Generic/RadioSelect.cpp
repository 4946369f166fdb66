#include "Generic/RadioSelect.h"

#include "Core/Frame/Integers.h"
#include "Core/Pieces/ObjectNames.h"
#include "Frame/ScriptFunction.h"
#include "Generic/RowBox.h"
#include "HostSupport/Numbers.h"
#include "HostSupportQt/HostSupportQt.h"
#include "Pieces/Captions.h"

#include <QRadioButton>

namespace {

enum Argument { Number, Captions, Settings, HelpNumber };
enum Setting { Title, Heading, Option };

constexpr unsigned defaultButtons = 6;

} // namespace

static int runRadioSelect(UserFunctionInterface* call) {
  if (!refusesRowCount(Texts(call, Captions).count()))
    return runDialogFunction<RadioSelect, UserReal>(call);
  // A script that could not ask takes it as if the user had said no.
  if (double* result = call->makeRealResult(call, 1, nullptr))
    *result = 0;
  return 0;
}

static const ScriptFunction declaration("RadioSelect", 0, "RSSS", RealVectorResult, runRadioSelect);

static QString standInCaption(unsigned index) {
  return RadioSelect::tr("Button %1").arg(index + 1);
}

RadioSelect::RadioSelect(QWidget* parent) : KelvarinDialog(parent, "RadioSelect", true, {}) {
  form.setupUi(this);
}

int RadioSelect::helpContextId() {
  return helpNumber.isEmpty() ? -1 : truncatedToInt(sp_ConvertEngToReal(helpNumber));
}

void RadioSelect::prepareDialog(UserFunctionInterface* args, UserDataType type) {
  helpNumber = getString(HelpNumber);
  form.helpButton->setVisible(helpContextId() > -1);
  KelvarinDialog::prepareDialog(args, type);
}

void RadioSelect::initialiseDialog() {
  const Texts settings = texts(Settings);
  load(settings.text(Title, windowTitle()), settings.text(Heading), settings.text(Option));

  const Texts passed = texts(Captions);
  QStringList captions;
  for (unsigned i = 0; i < (passed.isEmpty() ? defaultButtons : passed.count()); ++i)
    captions.append(passed.isEmpty() ? standInCaption(i) : passed.text(i));
  fillGroup(captions, truncatedToInt(getReal(Number)));
}

void RadioSelect::load(const QString& title, const QString& heading, const QString& option) {
  setWindowTitle(title);
  setObjectName(toQs(hashedObjectName("RadioSelect", toYs(title))));
  dimsSavingEnabled = true;

  form.label->setCaption(heading);
  if (heading.isEmpty()) {
    form.verticalLayout->removeWidget(form.label);
    form.label->hide();
  }
  hasCheckBox = !option.isEmpty();
  captionButton(form.checkBox, option);
  form.checkBox->setVisible(hasCheckBox);
}

void RadioSelect::fillGroup(const QStringList& captions, int number) {
  QRadioButton* first = nullptr;
  for (int i = 0; i < captions.size(); ++i) {
    auto* button = new QRadioButton(form.radioGroup1);
    captionButton(button, captions.at(i));
    button->setObjectName(QStringLiteral("RadioButton%1").arg(i));
    if (button->text().isEmpty())
      button->setAccessibleName(standInCaption(static_cast<unsigned>(i)));
    form.radioGroup1Layout->addWidget(button);
    const bool checked = number == i + 1;
    button->setChecked(checked);
    if (!first || checked)
      first = button;
  }
  form.radioGroup1Layout->addStretch(1);
  scrollWhenLarge(form.radioGroup1);
  if (first)
    first->setFocus(Qt::TabFocusReason);
}

void RadioSelect::readDialog(UserDataType, bool accepted) {
  const double value = accepted ? number() : 0;
  const bool both = hasCheckBox && value != 0;
  double* result = makeRealResult(both ? 2 : 1);
  if (!result)
    return;
  result[0] = value;
  if (both)
    result[1] = form.checkBox->isChecked() ? 1 : 0;
}

std::optional<int> askForChoice(QWidget* over, const QString& title, const QStringList& choices,
                                int row) {
  RadioSelect dialog(over);
  dialog.prepareDialog(nullptr, UserReal);
  dialog.load(title, QString(), QString());
  dialog.fillGroup(choices, row + 1);
  if (dialog.exec() != QDialog::Accepted || dialog.number() == 0)
    return std::nullopt;
  return dialog.number() - 1;
}
