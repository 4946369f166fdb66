#include "Core/Analog/SelectionTable.h"

#include "HostSupport/Parsing.h"

#include <algorithm>
#include <string>

// What a table can show in reasonable time.
static constexpr int mostCells = 200;

static QStringList cellsOf(const char* line) {
  YArray<YString> fields;
  sp_SplitLine(line, ';', &fields, mostCells);
  QStringList cells;
  for (const YString& field : fields)
    cells.append(
        QString::fromUtf8(field.c_str()).replace(QLatin1String("\\n"), QLatin1String("\n")));
  return cells;
}

TableOptions::TableOptions(const Texts& words) {
  static const QString highlightWord = QStringLiteral("highlight-");
  for (unsigned place = 0; place < words.count(); ++place) {
    if (words.is(place, "noRowNumbers"))
      hasRowNumbers = false;
    else if (words.is(place, "noHeader"))
      hasHeader = false;
    else if (words.is(place, "exclusive"))
      isExclusive = true;
    else if (words.text(place).contains(highlightWord))
      highlight = words.text(place).mid(highlightWord.size());
  }
}

SelectionTable::SelectionTable(const Texts& lines, bool hasHeader) {
  for (unsigned line = 0; line < lines.count(); ++line) {
    m_rows.append(cellsOf(lines.raw(line)));
    m_width = std::max(m_width, m_rows.last().size());
  }
  for (QStringList& row : m_rows)
    while (row.size() < m_width)
      row.append(QString());
  if (hasHeader && !m_rows.isEmpty())
    m_header = m_rows.takeFirst();
}

YString tableKey(const Texts& lines) {
  std::string key;
  for (unsigned line = lines.count(); line-- > 0;)
    key.append("_").append(lines.raw(line));
  return YString(key);
}
