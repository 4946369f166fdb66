#include "HostWidgets/RadioGroup.h"

#include "BoundElement.h"
#include "HostSupport/Numbers.h"
#include "HostSupportQt/GuiThread.h"
#include "HostSupportQt/Text.h"
#include "RadioCheck.h"

#include <QChildEvent>
#include <QLayout>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace {

RadioGroup* nearestGroup(const QWidget* widget) {
  for (QWidget* parent = widget->parentWidget(); parent; parent = parent->parentWidget())
    if (auto* group = qobject_cast<RadioGroup*>(parent))
      return group;
  return nullptr;
}

using Stretched = std::vector<std::pair<QLayout*, QRect>>;

/// Gives every button its place, also where nothing has been shown yet. `stretched` receives the
/// layouts that need their former geometry afterwards.
void placeChildren(QWidget* container, Stretched* stretched) {
  QLayout* layout = container->layout();
  if (layout && container->isVisible()) {
    layout->activate();
  } else if (layout) {
    // Not by `activate`, which would fix the minimum size of what has no parent yet.
    const QSize size = container->size().expandedTo(layout->totalMinimumSize());
    stretched->emplace_back(layout, layout->geometry());
    layout->setGeometry(QRect(QPoint(0, 0), size));
  }
  for (QObject* child : container->children())
    if (auto* widget = qobject_cast<QWidget*>(child))
      if (!widget->isWindow() && !widget->children().isEmpty())
        placeChildren(widget, stretched);
}

constexpr double maxPosition = 1 << 20;

struct Place {
  QRadioButton* button;
  QRect rect;
};

/// Reading order: rows from top to bottom, in a row left to right. Buttons whose middles are within
/// the height of a row's first one share that row.
QList<QRadioButton*> inReadingOrder(std::vector<Place> places) {
  std::stable_sort(places.begin(), places.end(),
                   [](const Place& a, const Place& b) { return a.rect.top() < b.rect.top(); });
  QList<QRadioButton*> ordered;
  for (auto row = places.begin(); row != places.end();) {
    const int bottom = row->rect.bottom();
    const auto end = std::find_if(row, places.end(), [bottom](const Place& place) {
      return place.rect.center().y() > bottom;
    });
    const auto next = std::max(end, row + 1);
    std::stable_sort(row, next,
                     [](const Place& a, const Place& b) { return a.rect.left() < b.rect.left(); });
    std::for_each(row, next, [&ordered](const Place& place) { ordered.append(place.button); });
    row = next;
  }
  return ordered;
}

} // namespace

RadioGroup::RadioGroup(QWidget* parent)
    : QGroupBox(sp_GuiParent(parent, "RadioGroup")), m_exclusion(new QButtonGroup(this)) {}

double RadioGroup::valueAt(int position) const {
  return position >= 0 && position < m_values.size() ? m_values[position] : position;
}

double RadioGroup::value() const {
  return valueAt(selectedId());
}

void RadioGroup::setValue(double value) {
  const auto mapped = std::find(m_values.cbegin(), m_values.cend(), value);
  if (mapped != m_values.cend())
    setSelectedId(static_cast<int>(mapped - m_values.cbegin()));
  else if (value >= m_values.size() && value <= maxPosition && value == std::floor(value))
    setSelectedId(static_cast<int>(value));
}

int RadioGroup::selectedId() const {
  const QList<QRadioButton*> all = buttons();
  if (all.isEmpty())
    return m_pendingId;
  const auto checked = std::find_if(all.cbegin(), all.cend(),
                                    [](const QRadioButton* button) { return button->isChecked(); });
  return checked == all.cend() ? -1 : static_cast<int>(checked - all.cbegin());
}

void RadioGroup::setSelectedId(int position) {
  const QList<QRadioButton*> all = buttons();
  if (all.isEmpty()) {
    m_pendingId = std::max(position, -1);
  } else if (position < 0) {
    for (QRadioButton* button : all)
      setRadioChecked(button, false);
  } else if (position < all.size()) {
    setRadioChecked(all[position], true);
  }
  stopTabAtChecked();
}

void RadioGroup::stopTabAtChecked() {
  // Qt does so only once the user has been in the group. A checked button that is not shown is no
  // place to stop at.
  const auto isShown = [](const QRadioButton* button) {
    return button && button->isChecked() && !button->isHidden();
  };
  const bool anyShown = std::any_of(m_known.cbegin(), m_known.cend(), isShown);
  for (QRadioButton* button : m_known) {
    if (!button || button->focusPolicy() == Qt::NoFocus)
      continue;
    const bool stops = !anyShown || isShown(button);
    button->setFocusPolicy(Qt::FocusPolicy(stops ? button->focusPolicy() | Qt::TabFocus
                                                 : button->focusPolicy() & ~Qt::TabFocus));
  }
}

void RadioGroup::setMapping(const QString& values) {
  m_mapping = values;
  m_values.clear();
  if (values.trimmed().isEmpty())
    return;
  const QVector<QStringRef> entries = values.splitRef(QLatin1Char(','));
  m_values.reserve(entries.size());
  for (const QStringRef& entry : entries) {
    double value = m_values.size(); // an entry that is not a number stands for its position
    sp_IsEngNumber(entry.toString(), &value);
    m_values.append(value);
  }
}

QString RadioGroup::stringValue() const {
  return toQs(sp_ConvertRealToPlain(value(), 15));
}

void RadioGroup::setStringValue(const QString& text) {
  double number = 0;
  if (sp_IsEngNumber(text, &number))
    setValue(number);
}

QList<QRadioButton*> RadioGroup::buttons() const {
  // What is adopted here belongs to the group from its making; only the moment is late.
  const_cast<RadioGroup*>(this)->adoptButtons();
  return m_positions.isEmpty() ? sortedButtons() : m_positions;
}

bool RadioGroup::initialiseWidget(UserFunctionInterface* call) {
  return loadBoundElement(this, call);
}

QList<QRadioButton*> RadioGroup::sortedButtons() const {
  // A layout gives a hidden button no place, yet it has its position in the form.
  std::vector<std::pair<QRadioButton*, QSizePolicy>> hidden;
  for (QRadioButton* button : m_known) {
    if (!button->isHidden())
      continue;
    hidden.emplace_back(button, button->sizePolicy());
    QSizePolicy policy = button->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    button->setSizePolicy(policy);
  }
  Stretched stretched;
  placeChildren(const_cast<RadioGroup*>(this), &stretched);

  std::vector<Place> places;
  places.reserve(static_cast<std::size_t>(m_known.size()));
  for (QRadioButton* button : m_known) {
    QRect rect(button->mapTo(this, QPoint(0, 0)), button->size());
    // A mirrored form keeps its positions: they are part of what scripts see. Only layouts mirror.
    if (layout() && layoutDirection() == Qt::RightToLeft)
      rect.moveLeft(width() - rect.right());
    places.push_back({button, rect});
  }
  for (const auto& [layout, rect] : stretched)
    if (rect.isValid())
      layout->setGeometry(rect);
  for (const auto& [button, policy] : hidden)
    button->setSizePolicy(policy);
  return inReadingOrder(std::move(places));
}

void RadioGroup::adoptButtons() {
  QList<QRadioButton*> found;
  const QList<QWidget*> descendants = findChildren<QWidget*>();
  for (QWidget* widget : descendants) {
    if (nearestGroup(widget) != this)
      continue;
    if (auto* button = qobject_cast<QRadioButton*>(widget))
      found.append(button);
    else
      widget->installEventFilter(this);
  }
  // Guarded pointers: a new button may stand where a deleted one was.
  if (std::equal(found.cbegin(), found.cend(), m_known.cbegin(), m_known.cend()))
    return;

  m_known = QVector<QPointer<QRadioButton>>(found.cbegin(), found.cend());
  m_positions.clear();
  for (QRadioButton* button : found) {
    if (!button->group())
      m_exclusion->addButton(button, 0); // to find a number of its own, it would look at all others
    connect(button, &QRadioButton::clicked, this, &RadioGroup::buttonClicked, Qt::UniqueConnection);
  }
  // A button that has been checked meanwhile is the later word.
  const bool anyChecked = std::any_of(
      found.cbegin(), found.cend(), [](const QRadioButton* button) { return button->isChecked(); });
  if (anyChecked)
    m_pendingId = -1;
  else if (m_pendingId < found.size())
    setSelectedId(std::exchange(m_pendingId, -1));
}

void RadioGroup::adoptLater() {
  // A child is announced before it is made: what it is shows only later.
  if (std::exchange(m_adoptionPosted, true))
    return;
  QTimer::singleShot(0, this, [this] {
    m_adoptionPosted = false;
    adoptButtons();
  });
}

void RadioGroup::buttonClicked() {
  emit clicked(selectedId());
}

void RadioGroup::childEvent(QChildEvent* event) {
  QGroupBox::childEvent(event);
  if (event->child()->isWidgetType())
    adoptLater();
}

bool RadioGroup::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ChildAdded || event->type() == QEvent::ChildRemoved)
    adoptLater();
  return QGroupBox::eventFilter(watched, event);
}

void RadioGroup::showEvent(QShowEvent* event) {
  QGroupBox::showEvent(event);
  adoptButtons();
  if (m_positions.isEmpty())
    m_positions = sortedButtons();
  stopTabAtChecked();
}
