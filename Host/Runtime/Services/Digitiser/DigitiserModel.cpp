#include "Services/Digitiser/DigitiserModel.h"

#include "HostSupport/Numbers.h"
#include "HostSupportQt/Text.h"
#include "Services/Digitiser/Thinning.h"

#include <QUndoCommand>

#include <algorithm>
#include <cmath>

namespace {

constexpr int undoLimit = 1000;

bool isLeft(const QPointF& a, const QPointF& b) {
  return a.x() < b.x();
}

int inserted(QVector<QPointF>* points, const QPointF& point) {
  const auto place = std::upper_bound(points->begin(), points->end(), point, isLeft);
  const int index = static_cast<int>(place - points->begin());
  points->insert(index, point);
  return index;
}

GraphAxis axisOf(int mark) {
  return mark < MarkY1 ? XAxis : YAxis;
}

} // namespace

bool DigitiserState::operator==(const DigitiserState& other) const {
  return places == other.places && texts == other.texts && scales == other.scales &&
         points == other.points && unclearLeft == other.unclearLeft &&
         unclearRight == other.unclearRight;
}

bool DigitiserState::isEmpty() const {
  return *this == DigitiserState();
}

/// A state and the one before it; the vectors of points are shared.
class DigitiserModel::Change : public QUndoCommand {
public:
  Change(DigitiserModel* model, const QString& text, DigitiserState after)
      : QUndoCommand(text), m_model(model), m_gesture(model->m_gesture), m_before(model->m_state),
        m_after(std::move(after)) {}

  void undo() override { m_model->apply(m_before); }
  void redo() override { m_model->apply(m_after); }
  int id() const override { return m_gesture; }
  bool mergeWith(const QUndoCommand* other) override {
    m_after = static_cast<const Change*>(other)->m_after;
    setObsolete(m_after == m_before);
    return true;
  }

private:
  DigitiserModel* m_model;
  int m_gesture;
  DigitiserState m_before;
  DigitiserState m_after;
};

void DigitiserModel::beginGesture() {
  ++m_gesture;
  m_typedMark = -1;
}

DigitiserModel::DigitiserModel(const QImage& picture, QObject* parent)
    : QObject(parent), m_picture(picture) {
  m_stack.setUndoLimit(undoLimit);
}

QString DigitiserModel::markName(int mark) {
  static const char* const names[markCount] = {"X1", "X2", "Y1", "Y2"};
  return QLatin1String(names[mark]);
}

void DigitiserModel::apply(const DigitiserState& state) {
  m_state = state;
  m_map.reset();
  m_values.clear();
  m_map = mapOf(state);
  if (m_map)
    m_values = graphValues(*m_map, m_state.points);
  emit changed();
}

void DigitiserModel::push(const QString& text, DigitiserState after) {
  if (after == m_state)
    return;
  chooseAgain(&after);
  m_stack.push(new Change(this, text, std::move(after)));
}

/// Other axes have other straight lines between values: a trace that stands as it was made gets
/// the points that the new ones ask for.
void DigitiserModel::chooseAgain(DigitiserState* after) const {
  if (after->traces.isEmpty() || (after->places == m_state.places &&
                                  after->texts == m_state.texts && after->scales == m_state.scales))
    return;
  const std::optional<GraphMap> map = mapOf(*after);
  for (const DigitiserState::Traced& trace : qAsConst(after->traces)) {
    const QVector<QPointF> old = chosenPoints(trace.line, trace.options, m_map ? &*m_map : nullptr);
    const auto begin =
        std::search(after->points.begin(), after->points.end(), old.begin(), old.end());
    if (begin == after->points.end())
      continue;
    const int place = static_cast<int>(begin - after->points.begin());
    const auto points = after->points;
    after->points = points.mid(0, place) +
                    chosenPoints(trace.line, trace.options, map ? &*map : nullptr) +
                    points.mid(place + old.size());
  }
}

/// The picture's edge belongs to it: axes often lie there.
QPointF DigitiserModel::inside(const QPointF& point) const {
  return {qBound(0.0, point.x(), double(m_picture.width())),
          qBound(0.0, point.y(), double(m_picture.height()))};
}

// ---- the axes -----------------------------------------------------------------------------------

std::optional<GraphMap> DigitiserModel::mapOf(const DigitiserState& state) {
  if (axisFault(state, XAxis) || axisFault(state, YAxis))
    return std::nullopt;
  return GraphMap::fromAxes(axisMarks(state, XAxis), axisMarks(state, YAxis));
}

std::optional<double> DigitiserModel::markValue(const DigitiserState& state, int mark) {
  double value = 0;
  if (!sp_IsEngNumber(toYs(state.texts[static_cast<std::size_t>(mark)]).c_str(), &value) ||
      !std::isfinite(value))
    return std::nullopt;
  return value;
}

AxisMarks DigitiserModel::axisMarks(const DigitiserState& state, GraphAxis axis) {
  const std::size_t first = axis == XAxis ? MarkX1 : MarkY1;
  return {state.places[first].value_or(QPointF()), state.places[first + 1].value_or(QPointF()),
          markValue(state, static_cast<int>(first)).value_or(0),
          markValue(state, static_cast<int>(first + 1)).value_or(0), state.scales[axis]};
}

/// What is wrong with an axis; an empty text where it is merely not complete yet.
std::optional<QString> DigitiserModel::axisFault(const DigitiserState& state, GraphAxis axis) {
  const int first = axis == XAxis ? MarkX1 : MarkY1;
  const QString names[] = {markName(first), markName(first + 1)};
  bool isComplete = true;
  for (const int mark : {first, first + 1}) {
    const QString& typed = state.texts[static_cast<std::size_t>(mark)];
    const auto value = markValue(state, mark);
    if (!typed.trimmed().isEmpty() && !value)
      return tr("The value of %1 is not a number: type it like 4.7k or 100p.").arg(markName(mark));
    if (value && *value <= 0 && state.scales[axis] == AxisScale::Logarithmic)
      return tr("The value of %1 must be above 0 on a logarithmic axis.").arg(markName(mark));
    isComplete = isComplete && value && state.places[static_cast<std::size_t>(mark)];
  }
  if (!isComplete)
    return QString();
  switch (faultOf(axisMarks(state, axis))) {
  case AxisFault::None:
    return std::nullopt;
  case AxisFault::SamePlace:
    return tr("%1 and %2 lie at the same place: move one of them along the axis.")
        .arg(names[0], names[1]);
  case AxisFault::SameValue:
    return tr("%1 and %2 have the same value: type two different ones.").arg(names[0], names[1]);
  case AxisFault::NotPositive:
  case AxisFault::NoNumber:
    break;
  }
  return tr("The values of %1 and %2 are out of range.").arg(names[0], names[1]);
}

DigitiserModel::Advice DigitiserModel::advice() const {
  for (const GraphAxis axis : {XAxis, YAxis}) {
    const auto fault = axisFault(m_state, axis);
    if (fault && !fault->isEmpty())
      return {*fault, true};
  }
  for (int mark = 0; mark < markCount; ++mark) {
    const auto index = static_cast<std::size_t>(mark);
    const QString axis = axisOf(mark) == XAxis ? tr("X") : tr("Y");
    if (!m_state.places[index])
      return {
          tr("Mark %1: click where the value on the %2 axis is known.").arg(markName(mark), axis)};
    if (m_state.texts[index].trimmed().isEmpty())
      return {tr("Type the value of the %1 axis at %2.").arg(axis, markName(mark))};
  }
  if (!m_map)
    return {tr("Both axes run in the same direction: move the marks of one of them."), true};
  if (m_state.points.isEmpty())
    return {tr("Click points on the curve, or press Trace and click the curve to follow its "
               "colour.")};
  const auto finite =
      std::count_if(m_state.points.begin(), m_state.points.end(), [this](const QPointF& point) {
        const QPointF value = m_map->toValues(point);
        return std::isfinite(value.x()) && std::isfinite(value.y());
      });
  if (finite < m_state.points.size())
    return {tr("Points are so far from the marks that their values are out of range."), true};
  if (m_state.unclearLeft || m_state.unclearRight)
    return {tr("Where the trace stopped, another line goes on as likely: click the curve beyond "
               "that place, or add points by hand."),
            false, true};
  if (!isComplete())
    return {tr("One more point with another X is needed.")};
  return {tr("Drag points that are off the curve, add more, or press OK.")};
}

// ---- changes ------------------------------------------------------------------------------------

void DigitiserModel::placeMark(int mark, const QPointF& at) {
  DigitiserState after = m_state;
  after.places[static_cast<std::size_t>(mark)] = inside(at);
  push(tr("Place %1").arg(markName(mark)), std::move(after));
}

void DigitiserModel::removeMark(int mark) {
  beginGesture();
  DigitiserState after = m_state;
  after.places[static_cast<std::size_t>(mark)].reset();
  push(tr("Remove %1").arg(markName(mark)), std::move(after));
  beginGesture();
}

void DigitiserModel::setMarkText(int mark, const QString& text) {
  if (m_typedMark != mark) {
    beginGesture();
    m_typedMark = mark;
  }
  DigitiserState after = m_state;
  after.texts[static_cast<std::size_t>(mark)] = text;
  push(tr("Value of %1").arg(markName(mark)), std::move(after));
}

void DigitiserModel::setScale(GraphAxis axis, AxisScale scale) {
  beginGesture();
  DigitiserState after = m_state;
  after.scales[axis] = scale;
  push(tr("Scale"), std::move(after));
  beginGesture();
}

int DigitiserModel::addPoint(const QPointF& at) {
  DigitiserState after = m_state;
  const int index = inserted(&after.points, inside(at));
  after.unclearLeft = after.unclearRight = std::nullopt; // the user goes on by hand
  push(tr("Add Point"), std::move(after));
  return index;
}

int DigitiserModel::movePoint(int index, const QPointF& to) {
  DigitiserState after = m_state;
  after.points.remove(index);
  const int moved = inserted(&after.points, inside(to));
  push(tr("Move Point"), std::move(after));
  return moved;
}

void DigitiserModel::removePoints(QVector<int> indices) {
  beginGesture();
  std::sort(indices.begin(), indices.end());
  DigitiserState after = m_state;
  after.points.clear();
  for (int i = 0; i < m_state.points.size(); ++i)
    if (!std::binary_search(indices.begin(), indices.end(), i))
      after.points.append(m_state.points[i]);
  push(indices.size() == 1 ? tr("Remove Point") : tr("Remove Points"), std::move(after));
  beginGesture();
}

void DigitiserModel::clearPoints() {
  beginGesture();
  DigitiserState after = m_state;
  after.points.clear();
  after.traces.clear();
  after.unclearLeft = after.unclearRight = std::nullopt;
  push(tr("Remove All Points"), std::move(after));
  beginGesture();
}

/// Beyond where the last trace stopped and asked, keeps what that has found.
static void carryOn(const DigitiserState& state, const QPoint& seed, Trace* trace) {
  QVector<QPointF>& line = trace->line;
  if (state.unclearRight && seed.x() > state.unclearRight->x()) {
    const auto begin = std::upper_bound(line.begin(), line.end(), *state.unclearRight, isLeft);
    line.erase(line.begin(), begin);
    trace->unclearLeft = state.unclearLeft;
  } else if (state.unclearLeft && seed.x() < state.unclearLeft->x()) {
    const auto end = std::lower_bound(line.begin(), line.end(), *state.unclearLeft, isLeft);
    line.erase(end, line.end());
    trace->unclearRight = state.unclearRight;
  }
}

bool DigitiserModel::trace(const QPoint& seed, const TraceOptions& options) {
  Trace found = traceCurve(m_picture, seed, options);
  carryOn(m_state, seed, &found);
  if (found.line.isEmpty())
    return false;
  beginGesture();
  DigitiserState after = m_state;
  after.points.clear();
  const auto& old = m_state.points;
  // The order from left to right holds: what is before, the trace, what is behind.
  const QVector<QPointF> chosen = chosenPoints(found.line, options, m_map ? &*m_map : nullptr);
  const auto begin = std::lower_bound(old.begin(), old.end(), found.line.first(), isLeft);
  const auto end = std::upper_bound(old.begin(), old.end(), found.line.last(), isLeft);
  std::copy(old.begin(), begin, std::back_inserter(after.points));
  after.points += chosen;
  std::copy(end, old.end(), std::back_inserter(after.points));
  const auto isCovered = [&](const DigitiserState::Traced& trace) {
    return !isLeft(trace.line.last(), found.line.first()) &&
           !isLeft(found.line.last(), trace.line.first());
  };
  after.traces.erase(std::remove_if(after.traces.begin(), after.traces.end(), isCovered),
                     after.traces.end());
  after.traces.append({found.line, options});
  after.unclearLeft = found.unclearLeft;
  after.unclearRight = found.unclearRight;
  push(tr("Trace"), std::move(after));
  m_traceSeed = seed;
  m_traceGesture = m_gesture;
  beginGesture();
  return true;
}

void DigitiserModel::retrace(const TraceOptions& options) {
  const int last = m_stack.index() - 1;
  if (last < 0 || m_stack.canRedo() || m_stack.command(last)->id() != m_traceGesture)
    return;
  m_stack.undo();
  if (!trace(m_traceSeed, options)) // other options may find nothing: the last result stands
    m_stack.redo();
}
