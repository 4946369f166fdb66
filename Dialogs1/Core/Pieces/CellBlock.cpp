#include "Core/Pieces/CellBlock.h"

#include <QRegularExpression>

#include <algorithm>
#include <numeric>

namespace {

constexpr QChar byteOrderMark = QChar::ByteOrderMark;
constexpr QLatin1Char quote('"');
constexpr QLatin1Char blank(' ');

bool isLine(const QString& text, int at) {
  const QStringRef rest = text.midRef(at, 20).trimmed();
  return rest.startsWith(QLatin1Char('*')) ||
         rest.startsWith(QLatin1String("START_DATA"), Qt::CaseInsensitive);
}

/// A number, an expression, or a reference to a file: no heading begins so.
bool isValue(const QString& cell) {
  static const QRegularExpression value(QStringLiteral("^([-+.]?\\d|[-+.]|\\{|file=)"),
                                        QRegularExpression::CaseInsensitiveOption);
  return cell.contains(value) || isLine(cell, 0);
}

bool hasDecimalComma(const QString& cell) {
  static const QRegularExpression number(QStringLiteral("^[-+]?\\d+,\\d+([eE][-+]?\\d+)?$"));
  return cell.contains(number);
}

QChar separatorOf(const QString& text) {
  for (QChar separator : {QLatin1Char('\t'), QLatin1Char(';'), QLatin1Char(',')})
    if (text.contains(separator))
      return separator;
  return blank;
}

class BlockReader {
public:
  explicit BlockReader(const QString& text) : m_text(text), m_separator(separatorOf(text)) {}

  QVector<QStringList> rows() {
    QVector<QStringList> rows;
    while (m_at < m_text.size())
      rows.append(row());
    return rows;
  }

private:
  bool isAtEnd() const { return m_at >= m_text.size() || m_text.at(m_at) == QLatin1Char('\n'); }

  QStringList row() {
    QStringList cells;
    if (isLine(m_text, m_at) || m_separator == blank)
      cells = line();
    else
      do
        cells.append(cell());
      while (!isAtEnd() && m_text.at(m_at++) == m_separator);
    ++m_at; // the line break
    return cells;
  }

  QStringList line() {
    const int start = m_at;
    while (!isAtEnd())
      ++m_at;
    const QString whole = m_text.mid(start, m_at - start).trimmed();
    const QStringList words = whole.split(blank, Qt::SkipEmptyParts);
    const bool arePair = words.size() == 2 && isValue(words.at(0)) && isValue(words.at(1));
    return arePair && !isLine(whole, 0) ? words : QStringList{whole};
  }

  QString cell() {
    while (!isAtEnd() && m_text.at(m_at) == blank && m_separator != blank)
      ++m_at;
    if (!isAtEnd() && m_text.at(m_at) == quote)
      return quoted();
    const int start = m_at;
    int depth = 0;
    for (; !isAtEnd() && (depth > 0 || m_text.at(m_at) != m_separator); ++m_at)
      depth += m_text.at(m_at) == QLatin1Char('{')                ? 1
               : m_text.at(m_at) == QLatin1Char('}') && depth > 0 ? -1
                                                                  : 0;
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

} // namespace

int CellBlock::cells() const {
  return std::accumulate(rows.begin(), rows.end(), 0,
                         [](int sum, const QStringList& row) { return sum + row.size(); });
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
  for (const QStringList& row : qAsConst(block.rows))
    for (const QString& cell : row)
      if (block.decimalComma.isEmpty() && hasDecimalComma(cell))
        block.decimalComma = cell;
  return block;
}
