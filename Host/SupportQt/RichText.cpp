#include "HostSupportQt/RichText.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageReader>
#include <QPainter>
#include <QRegularExpression>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>
#include <vector>

namespace {

constexpr int deepestTables = 8; // the time for nested tables doubles with each level
constexpr int deepestElements = 1000;
constexpr int mostPictures = 1000;     // the time for more grows with their square
constexpr int widestSpan = 20480;      // Qt's own limit
constexpr double largestSpace = 1000;  // pixels; sums of larger ones leave the range of the layout
constexpr int mostCellsInLabel = 1000; // whose size is found by laying it out several times
constexpr qint64 mostPixelsInLabel = 1'000'000;

struct Tag {
  QString name;       ///< in small letters
  QString attributes; ///< as written
  bool isEnd;
};

/// Elements that have no end, or whose end may be left out.
bool endsByItself(const QString& element) {
  static const char* const names[] = {"area", "base",  "body", "br",    "col",  "dd",    "dt",
                                      "head", "hr",    "html", "img",   "link", "li",    "meta",
                                      "p",    "tbody", "td",   "tfoot", "th",   "thead", "tr"};
  return std::any_of(std::begin(names), std::end(names),
                     [&element](const char* name) { return element == QLatin1String(name); });
}

/// The number of columns or rows that a cell asks for. An entity could spell any.
int spanOf(const Tag& cell, const char* attribute) {
  const int at = cell.attributes.indexOf(QLatin1String(attribute), 0, Qt::CaseInsensitive);
  if (at < 0)
    return 1;
  static const QRegularExpression value(QStringLiteral("=[\\s\"']*(&|\\d+)"));
  const QString digits = value.match(cell.attributes, at).captured(1);
  if (digits == QLatin1String("&") || digits.size() > 5)
    return widestSpan;
  return std::clamp(digits.toInt(), 1, widestSpan);
}

/// Counts the cells of a table as the layout makes them: each row has as many as the longest one.
class TableGrid {
public:
  void addRow() {
    for (Span& span : m_spans)
      --span.rows;
    m_spans.erase(std::remove_if(m_spans.begin(), m_spans.end(),
                                 [](const Span& span) { return span.rows <= 0; }),
                  m_spans.end());
    m_columns = 0;
    for (const Span& span : m_spans)
      m_columns += span.columns;
    ++m_rows;
  }

  void addCell(int columns, int rows) {
    m_columns += columns;
    m_mostColumns = std::max(m_mostColumns, m_columns);
    m_mostRows = std::max(m_mostRows, m_rows + rows - 1);
    if (rows > 1)
      m_spans.push_back({columns, rows});
  }

  qint64 cells() const { return std::max(m_mostRows, m_rows) * m_mostColumns; }

private:
  struct Span {
    qint64 columns;
    int rows;
  };
  std::vector<Span> m_spans; ///< cells that reach into the rows below
  qint64 m_columns = 0;
  qint64 m_mostColumns = 0;
  qint64 m_rows = 0;
  qint64 m_mostRows = 0;
};

/// Follows the tags of a text as far as they decide how long its layout takes.
class Outline {
public:
  enum Fault { None, Depth, Cells, Pictures };

  explicit Outline(int mostCells) : m_mostCells(mostCells) {}

  Fault add(const Tag& tag) {
    if (tag.name == QLatin1String("table"))
      return addTable(tag.isEnd);
    if (!endsByItself(tag.name))
      return addElement(tag.isEnd);
    if (tag.isEnd)
      return None;
    if (tag.name == QLatin1String("img"))
      return ++m_pictures > mostPictures ? Pictures : None;
    return addPart(tag);
  }

private:
  Fault addTable(bool isEnd) {
    if (!isEnd) {
      m_tables.emplace_back();
    } else if (m_tables.size() > 1) {
      m_closedCells += m_tables.back().cells();
      m_tables.pop_back();
    }
    return m_tables.size() > deepestTables + 1 ? Depth : None;
  }

  Fault addElement(bool isEnd) {
    m_elements = std::max(0, m_elements + (isEnd ? -1 : 1));
    return m_elements > deepestElements ? Depth : None;
  }

  Fault addPart(const Tag& tag) {
    TableGrid& table = m_tables.back();
    if (tag.name == QLatin1String("tr"))
      table.addRow();
    else if (tag.name == QLatin1String("td") || tag.name == QLatin1String("th"))
      table.addCell(spanOf(tag, "colspan"), spanOf(tag, "rowspan"));
    return m_closedCells + table.cells() > m_mostCells ? Cells : None;
  }

  int m_mostCells;
  int m_elements = 0;
  int m_pictures = 0;
  qint64 m_closedCells = 0;
  std::vector<TableGrid> m_tables = std::vector<TableGrid>(1); ///< the first for cells in none
};

/// The next tag at or behind `*at`, which is moved behind it; false where there is none.
bool nextTag(const QString& text, int* at, Tag* tag) {
  for (int open = text.indexOf(QLatin1Char('<'), *at); open >= 0;
       open = text.indexOf(QLatin1Char('<'), open + 1)) {
    const bool isEnd = text.midRef(open + 1).startsWith(QLatin1Char('/'));
    const int name = open + (isEnd ? 2 : 1);
    int end = name;
    while (end < text.size() && text.at(end).isLetterOrNumber())
      ++end;
    if (end == name)
      continue;
    const int close = text.indexOf(QLatin1Char('>'), end);
    *tag = {text.mid(name, end - name).toLower(), text.mid(end, std::min(close - end, 1000)),
            isEnd};
    *at = end;
    return true;
  }
  return false;
}

Outline::Fault outlineFault(const QString& text, int mostCells) {
  Outline outline(mostCells);
  Tag tag;
  for (int at = 0; nextTag(text, &at, &tag);)
    if (const Outline::Fault fault = outline.add(tag))
      return fault;
  return Outline::None;
}

bool isTooLarge(const QVariant& property) {
  return property.type() == QVariant::Double && property.toDouble() > largestSpace;
}

QSize sizeOf(QByteArray bytes) {
  QBuffer buffer(&bytes);
  return QImageReader(&buffer).size(); // before the memory for it is taken
}

bool hasAtMost(const QSize& size, qint64 mostPixels) {
  return qint64(size.width()) * size.height() <= mostPixels;
}

/// Whether a picture may be shown in a label: one without a name is none.
bool isOurs(const QString& name) {
  if (name.startsWith(QLatin1String("data:"), Qt::CaseInsensitive))
    return hasAtMost(sizeOf(dataOf(QUrl(name))), mostPixelsInLabel);
  return name.isEmpty() || name.startsWith(QLatin1String(":/")) ||
         name.startsWith(QLatin1String("qrc:"));
}

/// A text that is read but not laid out, and asks nobody for its pictures and style sheets.
class ReadDocument : public QTextDocument {
public:
  explicit ReadDocument(const QString& text) { setHtml(text); }

  bool hasLargeSpaces() const {
    return anyFormat([](const QTextFormat& format) {
      const auto properties = format.properties();
      return (format.isFrameFormat() || format.isTableCellFormat()) &&
             std::any_of(properties.begin(), properties.end(), isTooLarge);
    });
  }

  bool asksForFiles() const { return m_asked || anyFormat(isForeignPicture); }

  /// Takes out those that stand in the text as letters do.
  void removeForeignPictures() {
    QTextCursor cursor(this);
    for (int at = characterCount() - 1; at >= 0; --at) {
      if (characterAt(at) != QChar::ObjectReplacementCharacter)
        continue;
      cursor.setPosition(at);
      cursor.setPosition(at + 1, QTextCursor::KeepAnchor);
      if (isForeignPicture(cursor.charFormat()))
        cursor.removeSelectedText();
    }
  }

protected:
  QVariant loadResource(int, const QUrl& name) override {
    m_asked = m_asked || !isOurs(name.toString());
    return QByteArray(" "); // not null: nobody is to look further
  }

private:
  template <class Test> bool anyFormat(const Test& test) const {
    const QVector<QTextFormat> formats = allFormats();
    return std::any_of(formats.begin(), formats.end(), test);
  }

  static bool isForeignPicture(const QTextFormat& format) {
    return !isOurs(format.property(QTextFormat::ImageName).toString()) ||
           !isOurs(format.property(QTextFormat::BackgroundImageUrl).toString());
  }

  bool m_asked = false;
};

QImage emptyFrame() {
  QImage frame(16, 16, QImage::Format_ARGB32_Premultiplied);
  frame.fill(Qt::transparent);
  QPainter painter(&frame);
  painter.setPen(Qt::gray);
  painter.drawRect(frame.rect().adjusted(0, 0, -1, -1));
  return frame;
}

QString faultText(const char* fault) {
  return QCoreApplication::translate("RichText", fault);
}

} // namespace

QString layoutFault(const QString& text, int mostCells) {
  switch (outlineFault(text, mostCells)) {
  case Outline::Depth:
    return faultText("its elements are nested too deep");
  case Outline::Cells:
    return faultText("its tables have more than %1 cells").arg(mostCells);
  case Outline::Pictures:
    return faultText("it has more than %1 pictures").arg(mostPictures);
  case Outline::None:
    break;
  }
  // Only tables add up what they are asked for, and reading the text twice takes its time.
  const bool hasTable = text.contains(QLatin1String("<table"), Qt::CaseInsensitive);
  return hasTable && ReadDocument(text).hasLargeSpaces()
             ? faultText("a table in it asks for more than %1 pixels between its cells")
                   .arg(largestSpace)
             : QString();
}

bool isTooLargeSheet(const QString& sheet) {
  static const QRegularExpression large(QStringLiteral("(?<![#.\\da-fA-F])\\d{5,}"));
  return sheet.contains(large);
}

QString harmlessText(const QString& text) {
  if (!Qt::mightBeRichText(text))
    return text;
  if (!layoutFault(text, mostCellsInLabel).isEmpty())
    return Qt::convertFromPlainText(text);
  ReadDocument document(text);
  if (!document.asksForFiles())
    return text;
  document.removeForeignPictures();
  const QString rest = document.toHtml();
  return ReadDocument(rest).asksForFiles() ? Qt::convertFromPlainText(document.toPlainText())
                                           : rest;
}

QByteArray dataOf(const QUrl& url) {
  const QByteArray data = url.path(QUrl::FullyEncoded).toLatin1();
  const int comma = data.indexOf(',');
  const QByteArray payload = QByteArray::fromPercentEncoding(data.mid(comma + 1));
  return data.left(comma).endsWith(";base64") ? QByteArray::fromBase64(payload) : payload;
}

QImage pictureOf(const QByteArray& bytes, qint64 mostPixels) {
  const QImage picture = hasAtMost(sizeOf(bytes), mostPixels) ? QImage::fromData(bytes) : QImage();
  return picture.isNull() ? emptyFrame() : picture;
}

int longestWord(const QString& text) {
  int longest = 0;
  int length = 0;
  for (const QChar character : text) {
    length = character.isSpace() ? 0 : length + 1;
    longest = std::max(longest, length);
  }
  return longest;
}
