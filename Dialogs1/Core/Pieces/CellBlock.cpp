#include "Core/Pieces/CellBlock.h"

#include <QRegularExpression>

#include <algorithm>
#include <numeric>

namespace {

constexpr QChar byteOrderMark = QChar::ByteOrderMark;
constexpr QLatin1Char quote('"');
constexpr QLatin1Char blank(' ');
constexpr QLatin1Char lineEnd('\n');

bool isStartLine(const QString& cell) {
  return cell.startsWith(QLatin1String("START_DATA"), Qt::CaseInsensitive);
}

/// A number, an expression, or a reference to a file: no heading begins so.
bool isValue(const QString& cell) {
  static const QRegularExpression value(QStringLiteral("^([-+.]?\\d|[-+.]|\\{|file=)"),
                                        QRegularExpression::CaseInsensitiveOption);
  return cell.contains(value) || isCommentCell(cell) || isStartLine(cell);
}

/// Such as 1,5, 1,5k, ,5 and 1.000,5.
bool hasDecimalComma(const QString& cell) {
  static const QRegularExpression number(QStringLiteral(
      "^[-+]?(\\d{1,3}(\\.\\d{3})+|\\d*),\\d+([eE][-+]?\\d+)?\\s*[A-Za-z\\x{b5}]*$"));
  return cell.contains(number);
}

/// Of the quote at `at`; itself where the line, up to `end`, closes none.
int closingQuote(const QString& text, int at, int end) {
  const auto closing = std::find(text.begin() + at + 1, text.begin() + end, quote);
  return closing == text.begin() + end ? at : static_cast<int>(closing - text.begin());
}

/// Where a cell that begins at `at` ends: at the separator or at `end`, that of its line. What
/// stands in braces, and in quotes that are closed in the line, separates nothing.
int endOfCell(const QString& text, int at, int end, QChar separator) {
  int depth = 0;
  for (; at < end && (depth > 0 || text.at(at) != separator); ++at) {
    const QChar next = text.at(at);
    if (next == quote)
      at = closingQuote(text, at, end);
    depth += next == QLatin1Char('{') ? 1 : next == QLatin1Char('}') && depth > 0 ? -1 : 0;
  }
  return at;
}

bool hasSeparator(const QString& line, QChar separator) {
  return endOfCell(line, 0, line.size(), separator) < line.size();
}

QStringList cellsOfLine(const QString& line, QChar separator) {
  QStringList cells;
  for (int at = 0; at <= line.size(); ++at) {
    const int end = endOfCell(line, at, line.size(), separator);
    cells.append(line.mid(at, end - at));
    at = end;
  }
  return cells;
}

/// Without tabs, semicolons and commas, two values and what follows them; else one cell.
QStringList cellsBetweenBlanks(const QString& line) {
  QStringList cells = cellsOfLine(line.simplified(), blank);
  cells.removeAll(QString());
  const bool isPair = cells.size() > 1 && isValue(cells.at(0)) && isValue(cells.at(1));
  return isPair ? cells : QStringList{line};
}

bool isWhole(const QString& line) {
  return isCommentCell(line) || isStartLine(line);
}

class BlockReader {
public:
  explicit BlockReader(const QString& text) : m_text(text), m_separator(separator()) {}

  QVector<QStringList> rows() {
    QVector<QStringList> rows;
    while (m_at < m_text.size())
      rows.append(row());
    return rows;
  }

private:
  bool isAtEnd() const { return m_at >= m_text.size() || m_text.at(m_at) == lineEnd; }

  int endOfLine() const {
    const int end = m_text.indexOf(lineEnd, m_at);
    return end < 0 ? m_text.size() : end;
  }

  QChar separator() const {
    const QStringList lines = m_text.split(lineEnd);
    for (QChar separator : {QLatin1Char('\t'), QLatin1Char(';'), QLatin1Char(',')})
      if (std::any_of(lines.begin(), lines.end(), [separator](const QString& line) {
            return !isWhole(line.trimmed()) && hasSeparator(line, separator);
          }))
        return separator;
    return blank;
  }

  QStringList row() {
    const int end = endOfLine();
    const QString line = m_text.mid(m_at, end - m_at).trimmed();
    const bool hasBlanksOnly = m_separator == blank || m_separator == QLatin1Char(',');
    QStringList cells;
    const bool isQuoted = line.startsWith(quote);
    if (isWhole(line) || (hasBlanksOnly && !isQuoted && !hasSeparator(line, QLatin1Char(',')))) {
      cells = isWhole(line) ? QStringList{line} : cellsBetweenBlanks(line);
      m_at = end;
    } else {
      do
        cells.append(cell());
      while (!isAtEnd() && m_text.at(m_at++) == m_separator);
    }
    ++m_at; // the line break
    return cells;
  }

  QString cell() {
    while (!isAtEnd() && m_text.at(m_at) == blank)
      ++m_at;
    if (!isAtEnd() && m_text.at(m_at) == quote)
      return quoted();
    const int start = m_at;
    m_at = endOfCell(m_text, m_at, endOfLine(), m_separator);
    return m_text.mid(start, m_at - start).trimmed();
  }

  QString quoted() {
    QString cell;
    for (++m_at; m_at < m_text.size(); ++m_at) {
      if (m_text.at(m_at) == quote && (++m_at >= m_text.size() || m_text.at(m_at) != quote))
        break;
      cell.append(m_text.at(m_at));
    }
    while (!isAtEnd() && m_text.at(m_at) != m_separator)
      cell.append(m_text.at(m_at++));
    return cell.simplified();
  }

  const QString& m_text;
  QChar m_separator;
  int m_at = 0;
};

/// A number with a decimal comma in a cell, or in a row of them with blanks between, which read as
/// cells at the commas.
QString decimalCommaIn(const QVector<QStringList>& rows) {
  for (const QStringList& row : rows) {
    for (const QString& cell : row)
      if (hasDecimalComma(cell))
        return cell;
    const QStringList words = row.join(QLatin1Char(',')).split(blank, Qt::SkipEmptyParts);
    if (words.size() > 1 && std::all_of(words.begin(), words.end(), hasDecimalComma))
      return words.first();
  }
  return QString();
}

} // namespace

int CellBlock::cells() const {
  return std::accumulate(rows.begin(), rows.end(), 0,
                         [](int sum, const QStringList& row) { return sum + row.size(); });
}

bool isCommentCell(const QString& cell) {
  return cell.startsWith(QLatin1Char('*'));
}

CellBlock cellsOfBlock(const QString& text) {
  QString plain = text;
  plain.remove(byteOrderMark).replace(QLatin1String("\r\n"), QLatin1String("\n"));
  plain.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  CellBlock block;
  block.rows = BlockReader(plain).rows();
  const auto anyValue = [&block](int row) {
    return std::any_of(block.rows.at(row).begin(), block.rows.at(row).end(), isValue);
  };
  const bool isBlank = !block.rows.isEmpty() && block.rows.first().join(QString()).isEmpty();
  block.hadHeading = block.rows.size() > 1 && !isBlank && !anyValue(0) && anyValue(1);
  if (block.hadHeading)
    block.rows.removeFirst();
  const auto isStart = [](const QStringList& row) { return isStartLine(row.value(0)); };
  const auto kept = std::remove_if(block.rows.begin(), block.rows.end(), isStart);
  block.startLines = static_cast<int>(block.rows.end() - kept);
  block.rows.erase(kept, block.rows.end());
  block.decimalComma = decimalCommaIn(block.rows);
  return block;
}
