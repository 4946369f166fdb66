#include "Analog/EditWaveformStrDialog.h"

#include "Core/Analog/WaveformTexts.h"
#include "Frame/ScriptFunction.h"
#include "HostSupport/HostSupport.h"
#include "HostSupportQt/HostSupportQt.h"

#include <QMessageBox>
#include <QPushButton>

#include <utility>

static const ScriptFunction declaration("EditWaveformStrDialog", 1, "SSS", StringVectorResult,
                                        runDialogFunction<EditWaveformStrDialog, UserString>);

namespace {

constexpr const char* hintSection = "Hints";
constexpr const char* hintSetting = "EditWaveformDispParamsMsg";

bool isHintWanted() {
  int major = 0;
  int minor = 0;
  YString wanted;
  cfgman_GetConfigSetting(hintSection, hintSetting, &wanted);
  return sp_GetVersionValues(&major, &minor) && std::pair(major, minor) < std::pair(8, 31) &&
         wanted != "false";
}

} // namespace

EditWaveformStrDialog::EditWaveformStrDialog() : WaveformDialog("EditWaveformStrDialog") {
  // The period is what the frequency makes it: an expression has its place there.
  form.periodEdit->setNumbersOnly(true);
  connect(form.cbVisibleParameters, &QCheckBox::clicked, this,
          &EditWaveformStrDialog::cbVisibleParameters_clicked);
}

std::unique_ptr<Waveform> EditWaveformStrDialog::makeWaveform(bool isBrennix) const {
  return std::make_unique<WaveformTexts>(isBrennix);
}

void EditWaveformStrDialog::showShape(WaveShape shape) {
  WaveformDialog::showShape(shape);
  form.dutyLabel->setText(shape == WaveShape::Triangle ? tr("Rise/Fall/%") : tr("Dut&y/%"));
}

void EditWaveformStrDialog::cbVisibleParameters_clicked(bool isChecked) {
  if (!isChecked || !isHintWanted())
    return;
  QMessageBox box(QMessageBox::Information, tr("Multi-core operation"),
                  tr("<html><p>The feature to display parameters is new for version 8.3 and is not "
                     "supported by earlier versions. Be aware that if the source is edited by "
                     "version 8.2 or earlier the displayed text will not be correct. This may be "
                     "misleading</p></html>"),
                  QMessageBox::NoButton, this);
  QPushButton* ok = box.addButton(tr("Ok"), QMessageBox::AcceptRole);
  box.setDefaultButton(ok);
  box.setEscapeButton(ok);
  const QPushButton* never =
      box.addButton(tr("Ok, don't show this message again"), QMessageBox::AcceptRole);
  box.exec();
  if (box.clickedButton() == never)
    cfgman_WriteConfigSetting(hintSection, hintSetting, "false");
}
