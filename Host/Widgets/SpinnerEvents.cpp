#include "HostSupportQt/Colours.h"
#include "HostWidgets/Spinner.h"
#include "SpinnerPrivate.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHoverEvent>
#include <QMenu>
#include <QStyleOptionSpinBox>
#include <QStylePainter>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace {

constexpr int notch = 120;          ///< wheel units of one step
constexpr int mostNotches = 100;    ///< a wheel event beyond this is no user's
constexpr int preferredLength = 10; ///< characters that a field is wide by itself
constexpr int smallestLength = 4;

/// Text colour of what is not a number.
QColor badTextColour(const QPalette& palette, QPalette::ColorGroup group) {
  const QColor& base = palette.color(group, QPalette::Base);
  const QColor colour = sp_WrongColour(base);
  return group == QPalette::Disabled ? sp_MixedColour(colour, base, 0.5) : colour;
}

QSize sizeFor(const Spinner* spinner, const QLineEdit* edit, const QStyleOptionSpinBox& option,
              int length) {
  const QSize content(spinner->fontMetrics().horizontalAdvance(QLatin1Char('0')) * length + 2,
                      edit->sizeHint().height());
  return spinner->style()->sizeFromContents(QStyle::CT_SpinBox, &option, content, spinner);
}

} // namespace

void Spinner::Private::initStyleOption(QStyleOptionSpinBox* option) const {
  option->initFrom(q);
  option->frame = true;
  option->buttonSymbols = QAbstractSpinBox::UpDownArrows;
  option->subControls = QStyle::SC_SpinBoxFrame | QStyle::SC_SpinBoxEditField |
                        QStyle::SC_SpinBoxUp | QStyle::SC_SpinBoxDown;
  const bool held = pressed != QStyle::SC_None && pressed == hovered;
  option->activeSubControls = held || pressed == QStyle::SC_None ? hovered : QStyle::SC_None;
  if (held)
    option->state |= QStyle::State_Sunken;
  const bool disables = q->style()->styleHint(QStyle::SH_SpinControls_DisableOnBounds, option, q);
  option->stepEnabled = QAbstractSpinBox::StepNone;
  if (!disables || canStep(true))
    option->stepEnabled |= QAbstractSpinBox::StepUpEnabled;
  if (!disables || canStep(false))
    option->stepEnabled |= QAbstractSpinBox::StepDownEnabled;
}

void Spinner::Private::placeEdit() {
  QStyleOptionSpinBox option;
  initStyleOption(&option);
  edit->setGeometry(
      q->style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, q));
}

QString Spinner::Private::objection() const {
  const QString counting = format(q->value(), precision);
  const QString shown = edit->fontMetrics().elidedText(
      edit->text().left(100).simplified(), Qt::ElideRight, 40 * edit->fontMetrics().xHeight());
  if (kind == Kind::Bad)
    return Spinner::tr("“%1” is not a number. The value is %2.").arg(shown, counting);
  if (kind == Kind::Expression && q->numbersOnly)
    return Spinner::tr("“%1” does not count: this field takes no expressions. The value is %2.")
        .arg(shown, counting);
  if (kind == Kind::Empty && q->numbersOnly)
    return Spinner::tr("The field is empty. The value is %1.").arg(counting);
  return {};
}

void Spinner::Private::showKind() {
  const QString message = objection();
  if (message.isEmpty() && !markedBad)
    return;
  markedBad = !message.isEmpty();
  QPalette palette;
  if (markedBad)
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
      palette.setColor(group, QPalette::Text, badTextColour(q->palette(), group));
  edit->setPalette(palette);
  // Marked up here, so that a text that looks like markup is shown as it is.
  edit->setToolTip(markedBad ? QStringLiteral("<p>%1</p>").arg(message.toHtmlEscaped()) : message);
  edit->setAccessibleDescription(message);
}

QStyle::SubControl Spinner::Private::arrowAt(const QPoint& position) const {
  QStyleOptionSpinBox option;
  initStyleOption(&option);
  const QStyle::SubControl control =
      q->style()->hitTestComplexControl(QStyle::CC_SpinBox, &option, position, q);
  return control == QStyle::SC_SpinBoxUp || control == QStyle::SC_SpinBoxDown ? control
                                                                              : QStyle::SC_None;
}

void Spinner::Private::hover(QStyle::SubControl control) {
  if (control == hovered)
    return;
  hovered = control;
  q->update();
}

void Spinner::Private::release() {
  repeat.stop();
  pressed = QStyle::SC_None;
  q->update();
}

int Spinner::Private::repeatInterval() const {
  // A series crosses decades in a second, so it gets less faster than plain steps.
  const bool modest = q->step125 || isOwned(pressed == QStyle::SC_SpinBoxUp);
  const int rate = q->style()->styleHint(QStyle::SH_SpinBox_ClickAutoRepeatRate, nullptr, q);
  const double fastest = rate / (modest ? 2.0 : 5.0);
  return std::max(10, static_cast<int>(std::max(rate * std::pow(0.9, repeats), fastest)));
}

bool Spinner::Private::editKeyPress(QKeyEvent* event) {
  const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
  const bool up = event->key() == Qt::Key_Up || event->key() == Qt::Key_PageUp;
  switch (event->key()) {
  case Qt::Key_Up:
  case Qt::Key_Down:
  case Qt::Key_PageUp:
  case Qt::Key_PageDown: {
    if (modifiers != Qt::NoModifier && modifiers != Qt::ControlModifier)
      return false;
    const bool page = event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
    event->accept();
    if (event->type() == QEvent::KeyPress)
      step(up, 1, page || modifiers == Qt::ControlModifier ? Span::Coarse : Span::Single);
    return true;
  }
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (event->type() == QEvent::KeyPress)
      finish();
    return false; // it goes on to the dialog's default button
  default:
    break;
  }
  // Numbers have a point in every locale, whatever the keypad writes.
  if (event->type() == QEvent::KeyPress && event->modifiers() == Qt::KeypadModifier &&
      event->text() == QLatin1String(",")) {
    edit->insert(QStringLiteral("."));
    return true;
  }
  return false;
}

bool Spinner::Private::editEvent(QEvent* event) {
  switch (event->type()) {
  case QEvent::ShortcutOverride: // a menu's shortcut must not take the arrows from the field
  case QEvent::KeyPress:
    return editKeyPress(static_cast<QKeyEvent*>(event));
  case QEvent::FocusIn: {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (!q->selectOnEntry && (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason))
      QTimer::singleShot(0, edit, &QLineEdit::deselect);
    q->update();
    return false;
  }
  case QEvent::FocusOut:
    wheelRest = 0;
    q->update();
    // A context menu is part of the field; a window that goes down has been answered already.
    if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason &&
        !q->window()->isHidden())
      finish();
    return false;
  case QEvent::Drop:
    // Text may be dropped into a field that the user never enters.
    QTimer::singleShot(0, q, [this] {
      if (!edit->hasFocus())
        finish();
    });
    return false;
  case QEvent::ContextMenu:
    contextMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
    return true;
  default:
    return false;
  }
}

void Spinner::Private::contextMenu(const QPoint& globalPosition) {
  QMenu* menu = edit->createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addSeparator();
  QAction* stepUp = menu->addAction(Spinner::tr("&Step up"));
  stepUp->setEnabled(canStep(true));
  QObject::connect(stepUp, &QAction::triggered, q, &Spinner::pressUp);
  QAction* stepDown = menu->addAction(Spinner::tr("Step d&own"));
  stepDown->setEnabled(canStep(false));
  QObject::connect(stepDown, &QAction::triggered, q, &Spinner::pressDown);
  menu->popup(globalPosition);
}

QSize Spinner::sizeHint() const {
  ensurePolished();
  QStyleOptionSpinBox option;
  d->initStyleOption(&option);
  return sizeFor(this, d->edit, option, preferredLength);
}

QSize Spinner::minimumSizeHint() const {
  ensurePolished();
  QStyleOptionSpinBox option;
  d->initStyleOption(&option);
  return sizeFor(this, d->edit, option, smallestLength);
}

bool Spinner::event(QEvent* event) {
  switch (event->type()) {
  case QEvent::HoverEnter:
  case QEvent::HoverMove:
    d->hover(d->arrowAt(static_cast<QHoverEvent*>(event)->pos()));
    break;
  case QEvent::HoverLeave:
    d->hover(QStyle::SC_None);
    break;
  case QEvent::Hide:
    d->release();
    break;
  case QEvent::Show:
    d->keepNotation();
    break;
  default:
    break;
  }
  return QWidget::event(event);
}

bool Spinner::eventFilter(QObject* watched, QEvent* event) {
  return watched == d->edit && d->editEvent(event);
}

void Spinner::paintEvent(QPaintEvent*) {
  QStyleOptionSpinBox option;
  d->initStyleOption(&option);
  QStylePainter(this).drawComplexControl(QStyle::CC_SpinBox, option);
}

void Spinner::resizeEvent(QResizeEvent*) {
  d->placeEdit();
}

void Spinner::mousePressEvent(QMouseEvent* event) {
  const QStyle::SubControl arrow = d->arrowAt(event->pos());
  if (event->button() != Qt::LeftButton || arrow == QStyle::SC_None) {
    event->ignore();
    return;
  }
  d->hovered = d->pressed = arrow;
  d->repeats = 0;
  d->repeat.start(style()->styleHint(QStyle::SH_SpinBox_ClickAutoRepeatThreshold, nullptr, this),
                  this);
  update();
  d->step(arrow == QStyle::SC_SpinBoxUp, 1, Private::Span::Single);
}

void Spinner::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton)
    d->release();
}

void Spinner::mouseMoveEvent(QMouseEvent* event) {
  d->hover(d->arrowAt(event->pos()));
}

void Spinner::leaveEvent(QEvent* event) {
  d->hover(QStyle::SC_None);
  QWidget::leaveEvent(event);
}

void Spinner::timerEvent(QTimerEvent* event) {
  if (event->timerId() != d->repeat.timerId()) {
    QWidget::timerEvent(event);
    return;
  }
  // A dialog that a step has opened gets the release of the button: it will never arrive here.
  const QWidget* modal = QApplication::activeModalWidget();
  const bool up = d->pressed == QStyle::SC_SpinBoxUp;
  if (!isEnabled() || (modal && modal != window()) || !d->canStep(up)) {
    d->release();
    return;
  }
  ++d->repeats;
  d->repeat.start(d->repeatInterval(), this);
  if (d->hovered != d->pressed)
    return; // the pointer has left the arrow; it may come back
  int count = 1;
  if (!step125 && !d->isOwned(up))
    count = d->repeats > 80 ? 100 : d->repeats > 30 ? 10 : 1;
  d->step(up, count, Private::Span::Single);
}

void Spinner::wheelEvent(QWheelEvent* event) {
  // A page is scrolled through many fields: only the one that the user has entered turns.
  if (!d->edit->hasFocus()) {
    event->ignore();
    return;
  }
  event->accept();
  const int delta = event->angleDelta().y();
  if (event->phase() == Qt::ScrollMomentum || delta == 0)
    return;
  if ((delta > 0) != (d->wheelRest > 0))
    d->wheelRest = 0;
  d->wheelRest += delta;
  const int steps = d->wheelRest / notch;
  d->wheelRest -= steps * notch;
  if (steps != 0)
    d->step(steps > 0, std::min(std::abs(steps), mostNotches),
            event->modifiers() & Qt::ControlModifier ? Private::Span::Coarse
                                                     : Private::Span::Single);
}

void Spinner::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  switch (event->type()) {
  case QEvent::StyleChange:
  case QEvent::FontChange:
    updateGeometry();
    d->placeEdit();
    break;
  case QEvent::LayoutDirectionChange:
    d->placeEdit();
    break;
  case QEvent::PaletteChange:
    d->showKind();
    break;
  case QEvent::EnabledChange:
    if (!isEnabled())
      d->release();
    break;
  default:
    break;
  }
  update();
}
