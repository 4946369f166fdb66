#include "Drive/WidgetValues.h"

#include "Drive/DriveError.h"
#include "Drive/InputPlayer.h"
#include "Drive/WidgetFinder.h"
#include "HostSupport/Numbers.h"
#include "HostSupportQt/Text.h"
#include "HostWidgets/RadioGroup.h"
#include "HostWidgets/Spinner.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QFont>
#include <QGroupBox>
#include <QIcon>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QRadioButton>
#include <QRect>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QToolButton>

#include <cmath>
#include <limits>
#include <optional>

namespace {

std::optional<QString> textOf(const QWidget* widget) {
  if (const auto* spinner = qobject_cast<const Spinner*>(widget))
    return spinner->text();
  if (const auto* line = qobject_cast<const QLineEdit*>(widget))
    return line->text();
  if (const auto* plain = qobject_cast<const QPlainTextEdit*>(widget))
    return plain->toPlainText();
  if (const auto* rich = qobject_cast<const QTextEdit*>(widget))
    return rich->toPlainText();
  if (const auto* spinBox = qobject_cast<const QAbstractSpinBox*>(widget))
    return spinBox->text();
  if (const auto* combo = qobject_cast<const QComboBox*>(widget))
    return combo->currentText();
  if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
    return button->text();
  if (const auto* label = qobject_cast<const QLabel*>(widget))
    return label->text();
  if (const auto* box = qobject_cast<const QGroupBox*>(widget))
    return box->title();
  if (const auto* progress = qobject_cast<const QProgressBar*>(widget))
    return progress->text();
  if (const auto* tabs = qobject_cast<const QTabWidget*>(widget))
    return tabs->tabText(tabs->currentIndex());
  if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
    return view->currentIndex().data().toString();
  const QVariant text = widget->property("text");
  return text.isValid() ? std::optional(text.toString()) : std::nullopt;
}

void requireEditable(const QWidget* widget, bool isReadOnly) {
  if (isReadOnly)
    throw DriveError(QStringLiteral("%1 is read-only").arg(describeWidget(widget)));
}

void setText(QWidget* widget, const QVariant& value) {
  const QPointer<QWidget> guard(widget);
  InputPlayer::replaceText(widget, typedText(value));
  if (guard)
    InputPlayer::leave(widget);
}

/// A click on a widget that has to be there afterwards.
void clickStaying(QWidget* widget) {
  const QPointer<QWidget> guard(widget);
  const QString name = describeWidget(widget);
  InputPlayer::click(widget);
  if (!guard)
    throw DriveError(QStringLiteral("%1 is gone after the click on it").arg(name));
}

void setCombo(QComboBox* combo, const QVariant& value) {
  if (isNumber(value)) {
    pickEntry(combo, toIndex(value));
    return;
  }
  const int row = combo->findText(value.toString(), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (row >= 0) {
    pickEntry(combo, row);
  } else if (combo->isEditable()) {
    setText(combo, value);
  } else {
    QStringList entries;
    for (int i = 0; i < combo->count(); ++i)
      entries.append(combo->itemText(i));
    throw DriveError(QStringLiteral("%1 has no entry \"%2\"; %3")
                         .arg(describeWidget(combo), value.toString(), shortList(entries)));
  }
}

void setButton(QAbstractButton* button, bool on) {
  if (!button->isCheckable())
    throw DriveError(QStringLiteral("%1 cannot be checked").arg(describeWidget(button)));
  // a box with a third state may take two clicks
  const auto* box = qobject_cast<QCheckBox*>(button);
  const auto isReached = [&] {
    return box ? box->checkState() == (on ? Qt::Checked : Qt::Unchecked)
               : button->isChecked() == on;
  };
  for (int click = 0; click < 2 && !isReached(); ++click)
    clickStaying(button);
  if (!isReached())
    throw DriveError(QStringLiteral("%1 cannot be brought to %2 by a click")
                         .arg(describeWidget(button),
                              on ? QStringLiteral("checked") : QStringLiteral("unchecked")));
}

void setGroupBox(QGroupBox* box, const QVariant& value) {
  auto* group = qobject_cast<RadioGroup*>(box);
  if (group && isNumber(value) && !box->isCheckable()) {
    QAbstractButton* button = group->buttons().value(toIndex(value));
    if (!button)
      throw DriveError(
          QStringLiteral("%1 has no button %2").arg(describeWidget(box), typedText(value)));
    requireUsable(button);
    setButton(button, true);
    return;
  }
  if (!box->isCheckable())
    throw DriveError(QStringLiteral("%1 cannot be checked").arg(describeWidget(box)));
  if (box->isChecked() != value.toBool())
    clickStaying(box);
  if (box->isChecked() != value.toBool())
    throw DriveError(QStringLiteral("%1 did not change by a click").arg(describeWidget(box)));
}

/// Pages first, then steps; from an end, where the value is not a whole number of steps away.
void setSlider(QAbstractSlider* slider, const QVariant& value) {
  const int target = toIndex(value);
  if (target < slider->minimum() || target > slider->maximum())
    throw DriveError(QStringLiteral("%1 goes from %2 to %3")
                         .arg(describeWidget(slider))
                         .arg(slider->minimum())
                         .arg(slider->maximum()));
  InputPlayer::focus(slider);
  const QPointer<QWidget> guard(slider);
  const QString name = describeWidget(slider);
  const auto play = [&](int key) {
    InputPlayer::pressKey(slider->window(), key, Qt::NoModifier, QString());
    if (!guard)
      throw DriveError(QStringLiteral("%1 is gone after a step").arg(name));
  };
  const int single = qMax(1, slider->singleStep());
  if ((target - slider->value()) % single != 0)
    play((target - slider->minimum()) % single == 0 ? Qt::Key_Home : Qt::Key_End);
  while (slider->value() != target) {
    const int before = slider->value();
    const int distance = std::abs(target - before);
    const bool isUp = (target > before) != slider->invertedControls();
    const int page = slider->pageStep();
    if (page > single && page % single == 0 && distance >= page)
      play(isUp ? Qt::Key_PageUp : Qt::Key_PageDown);
    else if (distance >= single)
      play(isUp ? Qt::Key_Up : Qt::Key_Down);
    if (std::abs(target - slider->value()) >= distance)
      throw DriveError(
          QStringLiteral("%1 cannot be stepped to %2").arg(describeWidget(slider)).arg(target));
  }
}

QTabBar* barOf(QWidget* tabs) {
  auto* widget = qobject_cast<QTabWidget*>(tabs);
  return widget ? widget->tabBar() : qobject_cast<QTabBar*>(tabs);
}

int tabIndex(const QTabBar* bar, const QVariant& captionOrIndex) {
  if (isNumber(captionOrIndex)) {
    const int index = toIndex(captionOrIndex);
    return index >= 0 && index < bar->count() ? index : -1;
  }
  for (int i = 0; i < bar->count(); ++i)
    if (isCaption(bar->tabText(i), captionOrIndex.toString()))
      return i;
  return -1;
}

/// A tab that does not fit into the bar is scrolled to by the bar's arrows.
void scrollToTab(QTabBar* bar, int index) {
  const auto arrows = bar->findChildren<QToolButton*>();
  const auto isHidden = [&] {
    const QPoint middle = bar->tabRect(index).center();
    bool isCovered = !bar->rect().contains(middle);
    for (const QToolButton* arrow : arrows)
      isCovered |= arrow->isVisible() && arrow->geometry().contains(middle);
    return isCovered;
  };
  for (int step = 0; step < bar->count() && isHidden(); ++step) {
    const bool isLeft = bar->tabRect(index).center().x() < 0;
    QToolButton* next = nullptr;
    for (QToolButton* arrow : arrows)
      if (arrow->isVisible() && (arrow->arrowType() == Qt::LeftArrow) == isLeft)
        next = arrow;
    if (!next || !next->isEnabled())
      break;
    InputPlayer::click(next);
  }
}

} // namespace

bool isNumber(const QVariant& value) {
  switch (int(value.type())) {
  case QMetaType::Int:
  case QMetaType::UInt:
  case QMetaType::LongLong:
  case QMetaType::ULongLong:
  case QMetaType::Double:
    return true;
  default:
    return false;
  }
}

QString typedText(const QVariant& value) {
  constexpr int allDigits = 15;
  return isNumber(value) ? toQs(sp_ConvertRealToPlain(value.toDouble(), allDigits))
                         : value.toString();
}

int toIndex(const QVariant& value) {
  const double number = value.toDouble();
  if (!isNumber(value) || !(std::abs(number) <= std::numeric_limits<int>::max()) ||
      number != std::floor(number))
    throw DriveError(QStringLiteral("\"%1\" is not a whole number").arg(typedText(value)));
  return int(number);
}

QString widgetText(const QWidget* widget) {
  if (const auto text = textOf(widget))
    return *text;
  throw DriveError(QStringLiteral("%1 has no text").arg(describeWidget(widget)));
}

bool hasWidgetText(const QWidget* widget) {
  return textOf(widget).has_value();
}

QWidget* valueWidget(QWidget* inCell) {
  if (!inCell || hasWidgetText(inCell))
    return inCell;
  const auto parts = inCell->findChildren<QWidget*>();
  for (QWidget* part : parts)
    if (hasWidgetText(part))
      return part;
  return inCell;
}

QVariant widgetValue(const QWidget* widget) {
  if (const auto* spinner = qobject_cast<const Spinner*>(widget))
    return spinner->value();
  for (const char* property : {"value", "realValue"}) {
    const QVariant value = widget->property(property);
    if (value.isValid())
      return value;
  }
  if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
    if (button->isCheckable())
      return button->isChecked() ? 1 : 0;
  if (const auto* combo = qobject_cast<const QComboBox*>(widget))
    return combo->currentIndex();
  double number = 0;
  if (const auto text = textOf(widget); text && sp_IsEngNumber(*text, &number))
    return number;
  throw DriveError(QStringLiteral("%1 has no value").arg(describeWidget(widget)));
}

bool isWidgetChecked(const QWidget* widget) {
  const auto* button = qobject_cast<const QAbstractButton*>(widget);
  if (button && button->isCheckable())
    return button->isChecked();
  const auto* box = qobject_cast<const QGroupBox*>(widget);
  if (box && box->isCheckable())
    return box->isChecked();
  throw DriveError(QStringLiteral("%1 cannot be checked").arg(describeWidget(widget)));
}

/// What a field says of its text stands on its line edit, which is a part of it.
static QVariant toldByEdit(const QWidget* field, const QByteArray& property) {
  if (property != "toolTip" && property != "accessibleDescription")
    return {};
  const QWidget* edit = field->focusProxy();
  return edit && edit->parentWidget() == field ? edit->property(property.constData()) : QVariant();
}

QVariant widgetProperty(const QWidget* widget, const QString& property) {
  const QMetaObject* meta = widget->metaObject();
  if (property == QLatin1String("className"))
    return QString::fromUtf8(meta->className());
  if (property == QLatin1String("heightForWidth"))
    return widget->heightForWidth(widget->width());
  const QByteArray name = property.toUtf8();
  if (const QVariant told = toldByEdit(widget, name); !told.toString().isEmpty())
    return told;
  const int index = meta->indexOfProperty(name.constData());
  const QVariant value = widget->property(name.constData());
  if (index < 0 && !value.isValid()) {
    if (property == QLatin1String("text")) // the plain text of an edit that calls it otherwise
      return widgetText(widget);
    QStringList known;
    for (int i = meta->propertyCount(); i-- > 0;)
      known.append(QString::fromLatin1(meta->property(i).name()));
    throw DriveError(QStringLiteral("%1 has no property \"%2\"; %3")
                         .arg(describeWidget(widget), property, shortList(known)));
  }
  if (index >= 0 && (meta->property(index).isEnumType() || meta->property(index).isFlagType()))
    return value.toInt();
  const auto map = [](int x, int y, const char* first, const char* second) {
    return QVariantMap{{QString::fromLatin1(first), x}, {QString::fromLatin1(second), y}};
  };
  switch (int(value.type())) {
  case QMetaType::QColor:
    return value.value<QColor>().name();
  case QMetaType::QKeySequence:
    return value.value<QKeySequence>().toString(QKeySequence::PortableText);
  case QMetaType::QIcon: // whether there is one
    return !value.value<QIcon>().isNull();
  case QMetaType::QSize:
    return map(value.toSize().width(), value.toSize().height(), "width", "height");
  case QMetaType::QPoint:
    return map(value.toPoint().x(), value.toPoint().y(), "x", "y");
  case QMetaType::QRect: {
    const QRect rect = value.toRect();
    QVariantMap sides = map(rect.x(), rect.y(), "x", "y");
    sides.insert(map(rect.width(), rect.height(), "width", "height"));
    return sides;
  }
  case QMetaType::QFont: {
    const auto font = value.value<QFont>();
    return QVariantMap{{QStringLiteral("family"), font.family()},
                       {QStringLiteral("pointSize"), font.pointSizeF()},
                       {QStringLiteral("bold"), font.bold()},
                       {QStringLiteral("italic"), font.italic()},
                       {QStringLiteral("underline"), font.underline()},
                       {QStringLiteral("strikeOut"), font.strikeOut()}};
  }
  default:
    return value;
  }
}

void requireUsable(const QWidget* widget) {
  if (!widget->isVisible())
    throw DriveError(QStringLiteral("%1 is hidden").arg(describeWidget(widget)));
  if (!widget->isEnabled())
    throw DriveError(QStringLiteral("%1 is disabled").arg(describeWidget(widget)));
}

void pickEntry(QWidget* comboBox, int row) {
  auto* combo = qobject_cast<QComboBox*>(comboBox);
  if (!combo || row < 0 || row >= combo->count())
    throw DriveError(QStringLiteral("%1 has no entry %2; there are %3")
                         .arg(describeWidget(comboBox))
                         .arg(row)
                         .arg(combo ? combo->count() : 0));
  const QModelIndex entry =
      combo->model()->index(row, combo->modelColumn(), combo->rootModelIndex());
  if (!(entry.flags() & Qt::ItemIsEnabled) || !(entry.flags() & Qt::ItemIsSelectable))
    throw DriveError(QStringLiteral("entry \"%1\" of %2 is disabled")
                         .arg(combo->itemText(row), describeWidget(combo)));
  InputPlayer::closePopups();
  InputPlayer::focus(combo);
  InputPlayer::pressKey(combo->window(), Qt::Key_Down, Qt::AltModifier, QString());
  QAbstractItemView* list = combo->view();
  if (!InputPlayer::waitFor([list] { return list->isVisible(); }))
    throw DriveError(QStringLiteral("the list of %1 does not open").arg(describeWidget(combo)));
  list->scrollTo(entry);
  InputPlayer::settle();
  const QRect rect = list->visualRect(entry) & list->viewport()->rect();
  if (rect.isEmpty()) {
    InputPlayer::closePopups();
    throw DriveError(QStringLiteral("entry \"%1\" of %2 is hidden")
                         .arg(combo->itemText(row), describeWidget(combo)));
  }
  const QPointer<QWidget> guard(list);
  const QString name = describeWidget(combo);
  InputPlayer::clickAt(list->viewport(), rect);
  if (!InputPlayer::waitFor([&guard] { return !guard || !guard->isVisible(); }))
    throw DriveError(QStringLiteral("the list of %1 does not close").arg(name));
}

QStringList tabCaptions(const QWidget* tabs) {
  QStringList captions;
  if (const QTabBar* bar = barOf(const_cast<QWidget*>(tabs)))
    for (int i = 0; i < bar->count(); ++i)
      captions.append(plainCaption(bar->tabText(i)));
  return captions;
}

bool bringTab(QWidget* tabs, const QVariant& captionOrIndex) {
  QTabBar* bar = barOf(tabs);
  const int index = bar ? tabIndex(bar, captionOrIndex) : -1;
  if (index < 0)
    return false;
  if (!bar->isTabEnabled(index) || !bar->isTabVisible(index))
    throw DriveError(QStringLiteral("tab \"%1\" is disabled or hidden").arg(bar->tabText(index)));
  scrollToTab(bar, index);
  const QPointer<QTabBar> guard(bar);
  InputPlayer::clickAt(bar, bar->tabRect(index) & bar->rect());
  if (guard && bar->currentIndex() != index)
    throw DriveError(
        QStringLiteral("tab \"%1\" did not come to the front").arg(bar->tabText(index)));
  return true;
}

void setWidget(QWidget* widget, const QVariant& value) {
  if (qobject_cast<Spinner*>(widget)) {
    setText(widget, value);
  } else if (auto* line = qobject_cast<QLineEdit*>(widget)) {
    requireEditable(widget, line->isReadOnly());
    setText(widget, value);
  } else if (auto* spinBox = qobject_cast<QAbstractSpinBox*>(widget)) {
    requireEditable(widget, spinBox->isReadOnly());
    setText(widget, value);
  } else if (auto* plain = qobject_cast<QPlainTextEdit*>(widget)) {
    requireEditable(widget, plain->isReadOnly());
    setText(widget, value);
  } else if (auto* rich = qobject_cast<QTextEdit*>(widget)) {
    requireEditable(widget, rich->isReadOnly());
    setText(widget, value);
  } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
    setCombo(combo, value);
  } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
    setButton(button, value.toBool());
  } else if (auto* box = qobject_cast<QGroupBox*>(widget)) {
    setGroupBox(box, value);
  } else if (auto* slider = qobject_cast<QAbstractSlider*>(widget)) {
    setSlider(slider, value);
  } else if (barOf(widget)) {
    if (!bringTab(widget, value))
      throw DriveError(
          QStringLiteral("%1 has no tab \"%2\"; %3")
              .arg(describeWidget(widget), typedText(value), shortList(tabCaptions(widget))));
  } else {
    throw DriveError(QStringLiteral("%1 takes no value").arg(describeWidget(widget)));
  }
}
