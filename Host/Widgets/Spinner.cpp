#include "HostWidgets/Spinner.h"

#include "HostSupport/Numbers.h"
#include "HostSupportQt/GuiThread.h"
#include "HostSupportQt/Text.h"
#include "HostWidgets/Accessibility.h"
#include "SpinnerPrivate.h"
#include "SpinnerSteps.h"
#include "SpinnerText.h"

#include <QMetaMethod>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double largest = std::numeric_limits<double>::max();
constexpr int coarseCount = 10;
constexpr int exactDigits = 15;   ///< every whole number of this size is shown in full
constexpr int shownDigits = 12;   ///< a number that needs more is shown rounded
constexpr int mostDigits = 17;    ///< that a double can need
constexpr int largestSuffix = 12; ///< power of ten of "T"

/// Digits left of the point, as the number is written.
int wholeDigits(double value, bool engMode) {
  if (!std::isfinite(value) || value == 0)
    return 1;
  const int power = static_cast<int>(std::floor(std::log10(std::fabs(value))));
  const int suffix = engMode ? std::min(power - ((power % 3) + 3) % 3, largestSuffix) : 0;
  return std::clamp(power - suffix + 1, 1, mostDigits);
}

/// A limit may have been written directly: one that says nothing is the end of the range.
double limit(double value, double unlimited) {
  return std::isnan(value) ? unlimited : std::clamp(value, -largest, largest);
}

} // namespace

Spinner::Private::Private(Spinner* spinner) : q(spinner) {
  installFieldAccessibility(); // first: Qt asks once what the edit is, and keeps the answer
  edit = new QLineEdit(spinner);
  edit->setFrame(false);
  edit->setMaxLength(std::numeric_limits<int>::max()); // an expression comes back whole
  edit->setText(QStringLiteral("0"));
  reportedText = edit->text();
  edit->installEventFilter(q);
  // Without the focus a text ends as a reader has put it.
  QObject::connect(edit, &QLineEdit::editingFinished, q, [this] {
    if (!edit->hasFocus() && !q->window()->isHidden())
      finish();
  });
  QObject::connect(edit, &QLineEdit::textChanged, q,
                   [this](const QString& text) { textChanged(text); });
}

Spinner::Private::Kind Spinner::Private::kindOf(const QString& text, double* value) const {
  const QStringRef trimmed = QStringRef(&text).trimmed();
  if (trimmed.isEmpty())
    return Kind::Empty;
  if (trimmed.size() > 1 && trimmed.startsWith(QLatin1Char('{')) &&
      trimmed.endsWith(QLatin1Char('}')))
    return Kind::Expression;
  double read = 0;
  if (!sp_IsEngNumber(readableNumber(text), &read))
    return Kind::Bad;
  *value = limit(read, read);
  return Kind::Number;
}

double Spinner::Private::lowest() const {
  const double value = limit(q->min, -largest);
  return q->wholeNumber ? std::ceil(value) : value;
}

double Spinner::Private::highest() const {
  const double value = limit(q->max, largest);
  return q->wholeNumber ? std::floor(value) : value;
}

double Spinner::Private::taken(double value) const {
  // `max` last: it counts where the two contradict each other.
  return std::min(std::max(q->wholeNumber ? std::round(value) : value, lowest()), highest()) + 0.0;
}

QString Spinner::Private::format(double value, int digits) const {
  if (q->wholeNumber)
    digits = std::max(digits, exactDigits);
  digits = std::max(digits, wholeDigits(value, q->engMode));
  return toQs(q->engMode ? sp_ConvertRealToJSEng(value, digits)
                         : sp_ConvertRealToPlain(value, digits));
}

QString Spinner::Private::exactText() const {
  const QString shown = edit->text();
  double read = 0;
  if (kind != Kind::Number || (sp_IsEngNumber(shown, &read) && read == number) ||
      author == Author::Program)
    return shown;
  if (author == Author::User)
    return readableNumber(shown);
  QString text = shown;
  for (int digits = precision + 1; digits <= mostDigits && read != number; ++digits) {
    text = format(number, digits);
    sp_IsEngNumber(text, &read);
  }
  return text;
}

void Spinner::Private::write(double value) {
  number = value;
  kind = Kind::Number;
  author = Author::Ours;
  writtenEngMode = q->engMode;
  const QScopedValueRollback<Author> guard(setting, Author::Ours);
  if (const QString text = format(value, precision); text != edit->text()) {
    edit->setText(text);
    rewritings.clear();
  }
  untyped = {edit->text(), value, author};
}

void Spinner::Private::rewrite(double value, const QString& text, Author by) {
  const Rewriting rewriting{{edit->text(), number, author}, {text, value, by}};
  const bool undoable = kind == Kind::Number && text != edit->text();
  number = value;
  kind = Kind::Number;
  author = by;
  writtenEngMode = q->engMode;
  if (text != edit->text()) {
    const QScopedValueRollback<Author> guard(setting, Author::Ours);
    edit->selectAll();
    edit->insert(text);
  }
  if (undoable)
    rewritings.push_back(rewriting);
  if (by != Author::User)
    untyped = rewriting.after;
}

bool Spinner::Private::undone(const QString& text) {
  const Written* found = nullptr;
  for (auto each = rewritings.rbegin(); each != rewritings.rend() && !found; ++each) {
    if (each->after.text == lastText && each->before.text == text)
      found = &each->before;
    else if (each->before.text == lastText && each->after.text == text)
      found = &each->after;
  }
  // What was typed over a text of ours has been undone: who had typed it could not redo anything.
  if (!found && untyped && untyped->text == text && edit->isRedoAvailable())
    found = &*untyped;
  if (!found)
    return false;
  number = found->number;
  author = found->author;
  kind = Kind::Number;
  if (author != Author::User)
    untyped = Written(*found);
  return true;
}

QString Spinner::Private::stepText(double from, double to) const {
  const auto reads = [this](const QString& text, double value) {
    double read = 0;
    return kindOf(text, &read) == Kind::Number && read == value;
  };
  // Where every digit was on show, none gets lost.
  if (reads(edit->text(), from))
    for (int digits = precision; digits <= shownDigits; ++digits)
      if (QString text = format(to, digits); reads(text, to))
        return text;
  int digits = precision;
  while (digits < exactDigits && to != from && format(to, digits) == format(from, digits))
    ++digits;
  return format(to, digits);
}

void Spinner::Private::textChanged(const QString& text) {
  if (setting != Author::Ours && !undone(text)) {
    author = setting;
    kind = kindOf(text, &number);
  }
  lastText = text;
  showKind();
  q->update(); // the arrows show whether a step is possible
  announceValue();
  emit q->textChanged(text);
}

bool Spinner::Private::applyLimits(bool undoable) {
  if (kind == Kind::Expression)
    return false;
  double& held = kind == Kind::Number ? number : finished;
  const double value = taken(held);
  if (value == held)
    return false;
  if (kind != Kind::Number)
    held = value;
  else if (undoable)
    rewrite(value, format(value, precision));
  else
    write(value);
  showKind();
  return true;
}

void Spinner::Private::finish() {
  // The field shows the text that it gives.
  if (kind == Kind::Number && author == Author::User)
    rewrite(number, readableNumber(edit->text()), Author::User);
  // What a program has given stands until the user changes it.
  if (author != Author::Program)
    applyLimits(true);
  report();
}

void Spinner::Private::report() {
  if (kind == Kind::Number)
    finished = number;
  const QString text = edit->text();
  const double value = q->value();
  if (text == reportedText && value == reportedValue)
    return;
  reportedText = text;
  reportedValue = value;
  emit q->changed(text);
}

void Spinner::Private::keepNotation() {
  if (writtenEngMode != q->engMode)
    notation();
}

void Spinner::Private::notation() {
  if (kind != Kind::Number || author != Author::Ours)
    return;
  // The same value in another notation is no change.
  const bool wasReported = edit->text() == reportedText;
  write(number);
  if (wasReported)
    reportedText = edit->text();
}

bool Spinner::Private::isOwned(bool up) const {
  return q->isSignalConnected(
      QMetaMethod::fromSignal(up ? &Spinner::incrementing : &Spinner::decrementing));
}

bool Spinner::Private::canStep(bool up) const {
  if (kind == Kind::Expression)
    return false;
  const double value = taken(q->value());
  if (up ? value >= highest() : value <= lowest())
    return false;
  return q->step125 || isOwned(up) || (std::isfinite(q->increment) && q->increment > 0);
}

double Spinner::Private::stepped(double from, bool up, int count, Span span) const {
  const double stride = q->wholeNumber ? std::max(1.0, std::round(q->increment)) : q->increment;
  if (!q->step125) {
    if (span == Span::Coarse)
      count *= coarseCount;
    return plainStep(from, stride, up ? count : -count);
  }
  const SeriesLimits limits{stride, q->wholeNumber ? 1.0 : SeriesLimits().smallest};
  double value = from;
  for (int i = 0; i < count; ++i)
    value = taken(span == Span::Coarse ? nextDecade(value, up, limits)
                                       : nextInSeries(value, up, limits));
  return value;
}

void Spinner::Private::step(bool up, int count, Span span) {
  if (kind == Kind::Expression)
    return;
  const double from = taken(q->value());
  double to = from;
  if (isOwned(up)) {
    // The owner knows no coarse steps: its own are as large as it wants them.
    for (int i = 0; i < (span == Span::Coarse ? 1 : count); ++i)
      up ? emit q->incrementing(&to) : emit q->decrementing(&to);
  } else if (canStep(up)) {
    to = stepped(from, up, count, span);
    // A step that only takes a rounding off would not be seen.
    if (q->step125 && format(taken(to), exactDigits) == edit->text())
      to = stepped(to, up, 1, span);
  }
  to = std::isnan(to) ? from : taken(to);
  if (kind != Kind::Number || number != to)
    rewrite(to, stepText(from, to));
  if (edit->hasFocus())
    edit->selectAll();
  report();
}

Spinner::Spinner(QWidget* parent, const char* objectName)
    : QWidget(sp_GuiParent(parent, "Spinner")), d(std::make_unique<Private>(this)) {
  setObjectName(QLatin1String(objectName));
  setFocusPolicy(Qt::StrongFocus);
  setFocusProxy(d->edit);
  setSizePolicy(QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed, QSizePolicy::SpinBox));
  setAttribute(Qt::WA_Hover);
}

Spinner::~Spinner() {
  d->edit->disconnect(this); // its parts are gone when the edit loses the focus
}

double Spinner::value() const {
  switch (d->kind) {
  case Private::Kind::Number:
    return d->number;
  case Private::Kind::Expression:
    return 0;
  case Private::Kind::Empty:
  case Private::Kind::Bad:
    break;
  }
  return d->finished;
}

std::optional<double> Spinner::number() const {
  if (isExpression())
    return std::nullopt;
  return d->taken(value());
}

QString Spinner::text() const {
  d->keepNotation();
  return d->edit->text();
}

QString Spinner::stringValue() const {
  d->keepNotation();
  return d->exactText();
}

bool Spinner::isExpression() const {
  return d->kind == Private::Kind::Expression;
}

bool Spinner::isAcceptable() const {
  return d->kind == Private::Kind::Number || (isExpression() && !numbersOnly);
}

int Spinner::precision() const {
  return d->precision;
}

QString Spinner::placeholderText() const {
  return d->edit->placeholderText();
}

void Spinner::setMin(double value) {
  min = limit(value, min);
  checkMaxMin();
}

void Spinner::setMax(double value) {
  max = limit(value, max);
  checkMaxMin();
}

void Spinner::setIncrement(double value) {
  increment = value;
  update();
}

void Spinner::setEngMode(bool on) {
  engMode = on;
  d->notation();
}

void Spinner::setStep125(bool on) {
  step125 = on;
  update();
}

void Spinner::setWholeNumber(bool on) {
  wholeNumber = on;
  checkMaxMin();
}

void Spinner::setPrecision(int digits) {
  d->precision = std::clamp(digits, 1, 17);
  d->notation();
}

void Spinner::setNumbersOnly(bool on) {
  numbersOnly = on;
  d->showKind();
}

void Spinner::setPlaceholderText(const QString& text) {
  d->edit->setPlaceholderText(text);
}

void Spinner::checkMaxMin() {
  update();
  if (d->applyLimits(false))
    d->report();
}

void Spinner::selectAll() {
  d->edit->selectAll();
}

void Spinner::setValue(double value) {
  if (std::isnan(value))
    return;
  d->keepNotation();
  value = d->taken(value);
  if (d->kind == Private::Kind::Number && d->number == value)
    return;
  d->write(value);
  d->report();
}

void Spinner::setText(const QString& text) {
  if (text != d->edit->text()) {
    d->rewritings.clear(); // the edit forgets what could be undone
    d->untyped.reset();
    const QScopedValueRollback<Private::Author> guard(d->setting, Private::Author::Program);
    d->edit->setText(text);
    if (d->kind == Private::Kind::Number)
      d->untyped = {text, d->number, Private::Author::Program};
  }
  d->report();
}

void Spinner::pressUp() {
  d->step(true, 1, Private::Span::Single);
}

void Spinner::pressDown() {
  d->step(false, 1, Private::Span::Single);
}
