#include "Core/Pwl/PointRows.h"

#include "Core/Pwl/PointsFile.h"

#include <algorithm>
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

bool PointRows::hasCell(int row, int column) const {
  return (isLine(row) ? PointRow{kindAt(row), {}, {}, {}} : at(row)).hasCell(column);
}

void PointRows::setLines(const LineStore& lines, const SyntaxMessages& messages) {
  m_lines = lines;
  m_edited.clear();
  m_places.resize(lines.size());
  std::iota(m_places.begin(), m_places.end(), 0);
  for (const SyntaxMessage& message : messages.all()) {
    const int line = message.lineNumber.toInt();
    if (line > 0 && line <= count())
      set(line - 1, rowAtFault(lines.at(line - 1), toolTipOf(*messages.atLine(line))));
  }
}

void PointRows::remove(int first, int rows) {
  for (int row = first; row < first + rows && !m_edited.isEmpty(); ++row)
    m_edited.remove(m_places.at(row));
  m_places.remove(first, rows);
}

void PointRows::set(int row, const PointRow& value) {
  int& place = m_places[row];
  if (place >= blankPlace)
    place = --m_lastKey;
  m_edited.insert(place, value);
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

int PointRows::completeRows(int first) const {
  int row = first;
  while (row < count() && at(row).isFilled())
    ++row;
  return std::max(row - first, 0);
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

bool PointRows::isRemovable(int first, int rows) const {
  const int start = startDataRow();
  return start < first || start >= first + rows;
}
