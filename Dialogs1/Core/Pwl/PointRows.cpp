#include "Core/Pwl/PointRows.h"

#include "Core/Pwl/PointsFile.h"

#include <QSet>

#include <algorithm>
#include <iterator>
#include <numeric>

using Kind = PointRow::Kind;

static PointRow rowAtFault(std::string_view line, const QString& fault) {
  if (kindOfPointsLine(line) == Kind::StartData)
    return {Kind::StartData, textOf(line).trimmed(), QString(), fault};
  const PwlPoint fields = fieldsOfPointsLine(line);
  return {Kind::Point, fields.x, fields.y, fault};
}

PointRow PointRows::at(int row) const {
  return isLine(row) ? readPointsLine(lineOf(row)) : m_edited.value(m_places.value(row));
}

Kind PointRows::kindAt(int row) const {
  return isLine(row) ? kindOfPointsLine(lineOf(row)) : at(row).kind;
}

PointRow PointRows::shapeOf(int row) const {
  return isLine(row) ? PointRow{kindAt(row), {}, {}, {}} : at(row);
}

bool PointRows::hasCell(int row, int column) const {
  return shapeOf(row).hasCell(column);
}

bool PointRows::isSelectable(int row, int column) const {
  return shapeOf(row).isSelectable(column);
}

void PointRows::setLines(const LineStore& lines, const SyntaxMessages& messages) {
  m_lines = lines;
  m_places.resize(lines.size());
  std::iota(m_places.begin(), m_places.end(), 0);
  for (const SyntaxMessage& message : messages.all()) {
    const int line = message.lineNumber.toInt();
    if (line > 0 && line <= count())
      set(line - 1, rowAtFault(lines.at(line - 1), toolTipOf(*messages.atLine(line))));
  }
}

bool PointRows::readAs(const LineStore& lines) const {
  int row = lines.size() == count() ? 0 : -1;
  while (row >= 0 && row < count() && at(row) == readPointsLine(lines.at(row)))
    ++row;
  return row == count();
}

void PointRows::remove(int first, int rows) {
  m_places.remove(first, rows);
}

void PointRows::set(int row, const PointRow& value) {
  m_places[row] = --m_lastKey;
  m_edited.insert(m_lastKey, value);
}

void PointRows::setText(int row, int column, const QString& text) {
  PointRow edited = at(row);
  (column == 0 ? edited.x : edited.y) = text;
  set(row, edited);
}

bool PointRows::adapt(int row) {
  const PointRow before = at(row);
  const QString text = before.x.simplified();
  const Kind kind = text.startsWith(QLatin1Char('*')) ? Kind::Comment : Kind::Point;
  const bool isText = before.kind == Kind::Point || before.kind == Kind::Comment;
  if (!isText || (before.kind == kind && before.fault.isEmpty()))
    return false;
  set(row, {kind, text, before.y, QString()});
  return true;
}

PointRows::Change PointRows::changeSince(const State& before) const {
  Change change;
  if (!(before.lines == m_lines)) {
    change.lines.emplace(before.lines, m_lines);
    change.before = before.places;
    change.after = m_places;
    return change;
  }
  const auto [a, b] =
      std::mismatch(before.places.begin(), before.places.end(), m_places.begin(), m_places.end());
  change.first = int(a - before.places.begin());
  const auto lastA = std::make_reverse_iterator(a);
  const auto lastB = std::make_reverse_iterator(b);
  const auto ends = std::mismatch(before.places.rbegin(), lastA, m_places.rbegin(), lastB);
  std::copy(a, ends.first.base(), std::back_inserter(change.before));
  std::copy(b, ends.second.base(), std::back_inserter(change.after));
  return change;
}

bool PointRows::fits(const Change& change, bool isUndone) const {
  const int rows = (isUndone ? change.after : change.before).size();
  return change.lines || change.first + rows <= count();
}

void PointRows::apply(const Change& change, bool isUndone) {
  const QVector<int>& from = isUndone ? change.after : change.before;
  const QVector<int>& to = isUndone ? change.before : change.after;
  if (change.lines) {
    m_lines = isUndone ? change.lines->first : change.lines->second;
    m_places = to;
    return;
  }
  const int common = std::min(from.size(), to.size());
  std::copy(to.begin(), to.begin() + common, m_places.begin() + change.first);
  m_places.remove(change.first + common, from.size() - common);
  m_places.insert(change.first + common, to.size() - common, blankPlace);
  std::copy(to.begin() + common, to.end(), m_places.begin() + change.first + common);
}

void PointRows::forget(const Change& change, bool isUndone) {
  const QVector<int>& lost = isUndone ? change.after : change.before;
  const QVector<int>& kept = isUndone ? change.before : change.after;
  const QSet<int> alive(kept.begin(), kept.end());
  for (int place : lost)
    if (place < blankPlace && !alive.contains(place))
      m_edited.remove(place);
}

int PointRows::completeRows(int first) const {
  int row = first;
  while (row < count() && at(row).isFilled())
    ++row;
  return std::max(row - first, 0);
}

int PointRows::filledRowsFrom(int row) const {
  int filled = 0;
  for (; row < count(); ++row)
    filled += !at(row).isBlank();
  return filled;
}

PwlPoints PointRows::points(int first) const {
  PwlPoints found;
  for (int row = first; row < count(); ++row) {
    const PointRow point = at(row);
    if (!point.isFilled())
      break;
    found.append({point.x, point.y});
  }
  return found;
}

bool PointRows::isPoint(int row) const {
  const PointRow point = at(row);
  return point.kind == Kind::Point && point.isFilled();
}

int PointRows::countPoints(int most) const {
  int points = 0;
  for (int row = 0; row < count() && points < most; ++row)
    points += isPoint(row);
  return points;
}

int PointRows::rowsInUse() const {
  int row = count();
  while (row > 0 && kindAt(row - 1) != Kind::Comment && !at(row - 1).isFilled())
    --row;
  return row;
}

int PointRows::startDataRow() const {
  for (int row = 0; row < count(); ++row)
    if (kindAt(row) == Kind::StartData)
      return row;
  return -1;
}

QByteArray PointRows::lineAt(int row, const QString& separator) const {
  PointRow line = at(row);
  const bool isComment = line.kind == Kind::Comment;
  if (isComment && isLine(row))
    return {lineOf(row).data(), static_cast<int>(lineOf(row).size())};
  const bool isWhole = line.kind == Kind::StartData && line.fault.isEmpty();
  if (isWhole || line.x.isEmpty())
    return line.x.toUtf8();
  if (!isComment)
    line.x += separator;
  return (line.x + line.y).toUtf8();
}

bool PointRows::mayInsert(int rows, int most) const {
  // Looks at the lines only where the number of rows leaves a doubt.
  return count() + rows <= most || (m_counted == Counted::Points && countPoints() + rows <= most);
}

bool PointRows::mayDelete(int least) const {
  return m_counted == Counted::Points ? countPoints(least + 1) > least : completeRows() > least + 1;
}

int PointRows::faultFrom(int row, int step) const {
  while (row >= 0 && row < count() && (isLine(row) || at(row).fault.isEmpty()))
    row += step;
  return row >= 0 && row < count() ? row : -1;
}

bool PointRows::isRemovable(int first, int rows) const {
  for (int row = first; row < first + rows; ++row)
    if (kindAt(row) == Kind::StartData)
      return false;
  return true;
}
