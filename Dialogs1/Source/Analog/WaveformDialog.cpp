#include "Analog/WaveformDialog.h"

#include "HostSupport/Options.h"
#include "HostSupportQt/HostSupportQt.h"

#include <algorithm>
#include <cmath>

namespace {

enum Argument { Timing, Levels, Words };
constexpr unsigned trustedLevels = 5; // with fewer of them offset and amplitude were not passed

constexpr double longestDelay = 1e12;
constexpr double shortestDelayStep = 1e-9;
constexpr double wholeTurn = 360; // degrees
constexpr double phaseStep = 7.5;

constexpr unsigned axisLines = 3;
constexpr unsigned withLabels = 2;
constexpr double levelMargin = 0.08; // of the axis, above and below the curve

void showNumber(Spinner* spinner, const std::optional<double>& number) {
  if (number && spinner->number() != number)
    spinner->setValue(*number);
}

std::optional<double> levelIn(const Spinner* spinner) {
  return spinner->isAcceptable() ? spinner->number() : std::nullopt;
}

bool hasWord(const Texts& words, const char* word) {
  for (unsigned i = words.count(); i > 0; --i)
    if (words.is(i - 1, word))
      return true;
  return false;
}

void fitLevels(Axis* axis, std::vector<double> levels) {
  const auto isEndless = [](double value) { return !std::isfinite(value); };
  levels.erase(std::remove_if(levels.begin(), levels.end(), isEndless), levels.end());
  if (levels.empty())
    return;
  const auto [low, high] = std::minmax_element(levels.begin(), levels.end());
  const double margin = *high * levelMargin - *low * levelMargin;
  axis->setAxisParams(*low - margin, *high + margin, axisLines, 0, 0, withLabels);
}

} // namespace

WaveformDialog::WaveformDialog(const char* name) : KelvarinDialog(nullptr, name, true, {}) {
  form.setupUi(this);
  // The form's own name is that of one of the two dialogs.
  setObjectName(QString::fromLatin1(name));
  connectFields();
}

void WaveformDialog::connectFields() {
  for (WaveField field : waveFields) {
    connect(spinnerOf(field), &Spinner::textChanged, this, [this, field] { follow(field); });
    connect(spinnerOf(field), &Spinner::changed, this, [this, field] { settle(field); });
  }
  for (Spinner* edit : {form.initialEdit, form.pulseEdit}) {
    connect(edit, &Spinner::textChanged, this, &WaveformDialog::followPulse);
    connect(edit, &Spinner::changed, this, &WaveformDialog::followPulse);
  }
  for (Spinner* edit : {form.offsetEdit, form.amplitudeEdit}) {
    connect(edit, &Spinner::textChanged, this, &WaveformDialog::followOffset);
    connect(edit, &Spinner::changed, this, &WaveformDialog::followOffset);
  }
  for (Spinner* edit : {form.delayEdit, form.dampingEdit}) {
    connect(edit, &Spinner::textChanged, form.picturePane, &PicturePane::refresh);
    connect(edit, &Spinner::changed, form.picturePane, &PicturePane::refresh);
  }
  connect(form.cbOffUntilDelay, &QCheckBox::toggled, form.picturePane, &PicturePane::refresh);
  connect(form.waveShapeGroupBox, &RadioGroup::clicked, this,
          &WaveformDialog::waveShapeGroupBox_clicked);
  connect(form.delayOptionsGroupBox, &RadioGroup::clicked, this,
          &WaveformDialog::delayOptionsGroupBox_clicked);
  connect(form.cbEqualRiseAndFall, &QCheckBox::clicked, this, [this](bool isChecked) {
    takeTyped();
    waveform->setEqualEdges(isChecked);
    showWaveform(*waveform);
  });
  connect(form.cbDefaultRiseAndFall, &QCheckBox::clicked, this, [this](bool isChecked) {
    takeTyped();
    waveform->setDefaultEdges(isChecked);
    showWaveform(*waveform);
  });
}

void WaveformDialog::initialiseDialog() {
  {
    const Updating guard(this);
    KelvarinDialog::initialiseDialog();
    const Texts words = texts(Words);
    const bool isBrennix = hasWord(words, "brennix");
    waveform = makeWaveform(isBrennix);
    waveform->open(loadedTiming());
    applyShape();
    applyDelayMode();
    showWaveform(*waveform);
    loadLevels(hasWord(words, "initialpulse"));
    form.cbSourceIdle->setVisible(isBrennix);
  }
  startPicture();
}

WaveTiming WaveformDialog::loadedTiming() const {
  WaveTiming timing;
  timing.shape = waveShapeOf(form.waveShapeGroupBox->selectedId());
  for (WaveField field : waveFields)
    timing.enter(field, valueOf(field));
  return timing;
}

void WaveformDialog::loadLevels(bool trustPulse) {
  const double* reals = nullptr;
  unsigned count = 0;
  getRealVector(Levels, &reals, &count);
  const bool hasOffset = std::max(count, texts(Levels).count()) >= trustedLevels;
  WaveLevels loaded = levels();
  trustPulse || !hasOffset ? loaded.followPulse() : loaded.followOffset();
  showLevels(loaded);
}

void WaveformDialog::startPicture() {
  plot = form.picturePane->addPlot(tr("Waveform"), tr("Time/s"));
  plot->initializeAxes(time, level);
  setTabOrder(form.cbVisibleParameters, plot);
  setTabOrder(plot, form.pictureButton);
  form.picturePane->start(form.pictureButton, [this] { return drawPicture(); });
}

Spinner* WaveformDialog::spinnerOf(WaveField field) const {
  switch (field) {
  case WaveField::Rise:
    return form.riseEdit;
  case WaveField::Fall:
    return form.fallEdit;
  case WaveField::Width:
    return form.widthEdit;
  case WaveField::Period:
    return form.periodEdit;
  case WaveField::Frequency:
    return form.frequencyEdit;
  case WaveField::Duty:
    break;
  }
  return form.dutyEdit;
}

WaveValue WaveformDialog::valueOf(WaveField field) const {
  const Spinner* spinner = spinnerOf(field);
  if (spinner->isExpression() && !spinner->numbersOnly)
    return WaveValue(spinner->text());
  return spinner->number().value_or(0); // what the result would have
}

void WaveformDialog::waveShapeGroupBox_clicked() {
  const WaveShape shape = waveShapeOf(form.waveShapeGroupBox->selectedId());
  if (updating || shape == waveform->timing().shape)
    return;
  const Updating guard(this);
  takeTyped();
  waveform->setShape(shape);
  applyShape();
  showWaveform(*waveform);
}

void WaveformDialog::delayOptionsGroupBox_clicked() {
  if (updating || form.rbPhase->isChecked() == isPhase)
    return;
  applyDelayMode();
  form.picturePane->refresh();
}

void WaveformDialog::follow(WaveField field) {
  if (updating)
    return;
  typing = field;
  const WaveValue typed = valueOf(field);
  const auto trial = waveform->clone();
  if (!(typed == trial->timing()[field]))
    trial->edit(field, typed);
  showWaveform(*trial, spinnerOf(field));
}

void WaveformDialog::takeTyped() {
  if (!typing)
    return;
  if (const WaveValue typed = valueOf(*typing); !(typed == waveform->timing()[*typing]))
    waveform->edit(*typing, typed);
  typing.reset();
}

void WaveformDialog::settle(WaveField field) {
  if (updating)
    return;
  typing = field;
  takeTyped();
  showWaveform(*waveform);
}

void WaveformDialog::showWaveform(const Waveform& now, Spinner* typed) {
  const Updating guard(this);
  shown = now.timing();
  for (WaveField field : waveFields)
    showField(shown, field, spinnerOf(field) == typed);
  form.cbEqualRiseAndFall->setChecked(shown.hasEqualEdges);
  form.cbDefaultRiseAndFall->setChecked(shown.hasDefaultEdges);
  enableFields(now);
  form.picturePane->refresh();
}

void WaveformDialog::showField(const WaveTiming& timing, WaveField field, bool isTyped) {
  Spinner* spinner = spinnerOf(field);
  spinner->min = timing.limitsOf(field).min;
  spinner->max = timing.limitsOf(field).max;
  if (isTyped)
    return;
  const WaveValue& value = timing[field];
  if (value.isExpression())
    spinner->setText(value.expression);
  else if (!(valueOf(field) == value))
    spinner->setValue(value.number);
  spinner->checkMaxMin();
}

void WaveformDialog::enableFields(const Waveform& now) {
  const auto enable = [&now](std::initializer_list<QWidget*> widgets, WaveControl control) {
    setEnabled(widgets, now.isEnabled(control));
  };
  enable({form.riseEdit, form.riseLabel}, WaveControl::Rise);
  enable({form.fallEdit, form.fallLabel}, WaveControl::Fall);
  enable({form.widthEdit, form.widthLabel}, WaveControl::Width);
  enable({form.periodEdit, form.periodLabel}, WaveControl::Period);
  enable({form.frequencyEdit, form.frequencyLabel}, WaveControl::Frequency);
  enable({form.dutyEdit, form.dutyLabel}, WaveControl::Duty);
  enable({form.dampingEdit, form.dampingLabel}, WaveControl::Damping);
  enable({form.rbDelay, form.rbPhase, form.cbOffUntilDelay}, WaveControl::Start);
  enable({form.cbEqualRiseAndFall}, WaveControl::EqualEdges);
  enable({form.cbDefaultRiseAndFall}, WaveControl::DefaultEdges);
}

void WaveformDialog::applyShape() {
  const WaveShape shape = waveform->timing().shape;
  const bool isSingle = shape == WaveShape::OnePulse || shape == WaveShape::Step;
  if (isSingle && form.rbPhase->isChecked()) {
    form.rbDelay->setChecked(true);
    applyDelayMode();
  }
  showShape(shape);
  if (sp_GetBoolOption("DisplayPwlIdleInPop"))
    return;
  form.cbSourceIdle->setEnabled(!isSingle);
  if (!isSingle && idleBefore) {
    form.cbSourceIdle->setChecked(*idleBefore);
    idleBefore.reset();
  } else if (isSingle) {
    idleBefore = idleBefore.value_or(form.cbSourceIdle->isChecked());
    form.cbSourceIdle->setChecked(true);
  }
}

void WaveformDialog::showShape(WaveShape shape) {
  const bool isExponential = shape == WaveShape::ExponentialPulse;
  form.riseLabel->setText(isExponential ? tr("&Rise TC") : tr("&Rise"));
  form.fallLabel->setText(isExponential ? tr("&Fall TC") : tr("&Fall"));
}

void WaveformDialog::applyDelayMode() {
  isPhase = form.rbPhase->isChecked();
  form.delayLabel->setText(isPhase ? tr("&Phase") : tr("&Delay"));
  form.delayEdit->setStep125(!isPhase);
  form.delayEdit->setIncrement(isPhase ? phaseStep : shortestDelayStep);
  if (isVisible()) // a phase is no time; what a script passed is what it calls it
    form.delayEdit->setValue(0);
  form.delayEdit->setMin(isPhase ? 0 : -longestDelay);
  form.delayEdit->setMax(isPhase ? wholeTurn : longestDelay);
}

WaveLevels WaveformDialog::levels() const {
  return {levelIn(form.initialEdit), levelIn(form.pulseEdit), levelIn(form.offsetEdit),
          levelIn(form.amplitudeEdit)};
}

void WaveformDialog::showLevels(const WaveLevels& now) {
  const Updating guard(this);
  showNumber(form.initialEdit, now.initial);
  showNumber(form.pulseEdit, now.pulse);
  showNumber(form.offsetEdit, now.offset);
  showNumber(form.amplitudeEdit, now.amplitude);
  form.picturePane->refresh();
}

void WaveformDialog::followPulse() {
  if (updating)
    return;
  WaveLevels now = levels();
  now.followPulse();
  showLevels(now);
}

void WaveformDialog::followOffset() {
  if (updating)
    return;
  WaveLevels now = levels();
  now.followOffset();
  showLevels(now);
}

WaveSettings WaveformDialog::pictured() const {
  WaveTiming seen = shown;
  for (WaveField field : waveFields) // what is not a number hides one, as an expression does
    if (spinnerOf(field)->isEnabled() && !spinnerOf(field)->isAcceptable())
      seen[field] = WaveValue(QStringLiteral("{?}"));
  WaveSettings settings(seen);
  settings.delay = form.delayEdit->number();
  if (isPhase && !isPeriodic(shown.shape)) // a phase is no time
    settings.delay = 0;
  settings.damping = form.dampingEdit->number();
  settings.isPhase = isPhase;
  settings.isOffUntilDelay = form.cbOffUntilDelay->isChecked();
  const WaveLevels now = levels();
  if (now.offset && now.amplitude) {
    settings.initial = now.initial;
    settings.pulse = now.pulse;
  }
  return settings;
}

QString WaveformDialog::drawPicture() {
  const WaveCurve curve = waveCurve(pictured());
  switch (curve.lack) {
  case WaveCurve::Lack::Hidden:
    return tr("The waveform is not known: an expression stands for a value that it needs.");
  case WaveCurve::Lack::NoFrequency:
    return tr("The waveform is not known: what repeats needs a frequency above 0.");
  case WaveCurve::Lack::None:
    break;
  }
  time.setAxisParams(curve.x.front(), curve.x.back(), axisLines, 0, 0, withLabels);
  fitLevels(&level, curve.y);
  plot->setCurveData(0, curve.x.data(), curve.y.data(), qint64(curve.x.size()),
                     QPen(Qt::red, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  return QString();
}
