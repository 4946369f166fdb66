#include "HostSupportQt/RichText.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageReader>
#include <QPainter>
#include <QRegularExpression>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLength>
#include <QUrl>

#include <algorithm>
#include <vector>

namespace {

constexpr int deepestTables = 8; // the time for nested tables doubles with each level
constexpr int deepestElements = 1000;
constexpr int deepestQuotes = 50; // of Markdown, whose reader calls itself
// The time for more of these grows with their square.
constexpr int mostPictures = 1000;
constexpr int mostFloats = 1000;
constexpr int mostListItems = 5000;
constexpr int mostTables = 5000;
constexpr qint64 mostRuleMatches = 1'000'000; // rules of style sheets times elements
constexpr int mostRulesInSheet = 100;
constexpr int widestSpan = 20480; // Qt's own limit
constexpr int mostCellsInDocument = 20000;
constexpr int mostCellsInLabel = 1000; // whose size is found by laying it out several times
constexpr qint64 mostPixelsInLabel = 1'000'000;

// ---- tags, as Qt reads them ---------------------------------------------------------------------

struct Tag {
  QString name;                                ///< in small letters
  QVector<QPair<QString, QString>> attributes; ///< names in small letters
  bool isEnd = false;
};

/// Takes a text apart by the rules of Qt's own reader: blanks may stand before a name, names may be
/// quoted, and entities may spell any letter of them.
class TagReader {
public:
  explicit TagReader(const QString& text) : m_text(text) {}

  /// False at the end of the text.
  bool next(Tag* tag) {
    for (;;) {
      m_at = m_text.indexOf(QLatin1Char('<'), m_at);
      if (m_at < 0)
        return false;
      ++m_at;
      skipBlanks();
      if (!startsWith("!"))
        break;
      const bool isComment = startsWith("!--");
      const int end = m_text.indexOf(isComment ? QLatin1String("-->") : QLatin1String(">"), m_at);
      m_at = end < 0 ? m_text.size() : end;
    }
    *tag = Tag();
    tag->isEnd = startsWith("/");
    m_at += tag->isEnd;
    tag->name = word().toLower().trimmed();
    if (!tag->isEnd)
      readAttributes(tag);
    return true;
  }

  /// The text up to the end tag of a style sheet.
  QStringRef sheet() const {
    const int end = m_text.indexOf(QLatin1String("</style"), m_at, Qt::CaseInsensitive);
    return m_text.midRef(m_at, end < 0 ? -1 : end - m_at);
  }

private:
  bool startsWith(const char* mark) const {
    return m_text.midRef(m_at, 3).startsWith(QLatin1String(mark));
  }

  void skipBlanks() {
    while (m_at < m_text.size() && m_text.at(m_at).isSpace())
      ++m_at;
  }

  void readAttributes(Tag* tag) {
    while (m_at < m_text.size()) {
      skipBlanks();
      if (startsWith(">") || startsWith("/>"))
        return;
      const QString name = word().toLower();
      QString value;
      skipBlanks();
      if (startsWith("=")) {
        ++m_at;
        skipBlanks();
        value = word();
      }
      if (name.isEmpty())
        return;
      tag->attributes.append({name, value});
    }
  }

  QString word() {
    QString found;
    const bool isQuoted = startsWith("\"") || startsWith("'");
    const QChar quote = isQuoted ? m_text.at(m_at++) : QChar();
    for (; m_at < m_text.size(); ++m_at) {
      const QChar letter = m_text.at(m_at);
      if (isQuoted ? letter == quote : endsWord(letter))
        break;
      found += letter == QLatin1Char('&') ? entity() : letter;
    }
    m_at += isQuoted;
    return found;
  }

  bool endsWord(QChar letter) const {
    return letter.isSpace() || letter == QLatin1Char('>') || letter == QLatin1Char('<') ||
           letter == QLatin1Char('=') || startsWith("/>");
  }

  /// One that stands for a number; the others spell no letter of a name.
  QChar entity() {
    static const QRegularExpression number(QStringLiteral("&#(x?)([0-9a-fA-F]{1,7});?"));
    const auto match = number.match(m_text, m_at, QRegularExpression::NormalMatch,
                                    QRegularExpression::AnchoredMatchOption);
    if (!match.hasMatch())
      return m_text.at(m_at);
    m_at += match.capturedLength() - 1;
    return QChar(match.captured(2).toUInt(nullptr, match.captured(1).isEmpty() ? 10 : 16) & 0xffff);
  }

  const QString& m_text;
  int m_at = 0;
};

/// Elements that have no end, or whose end may be left out.
bool endsByItself(const QString& element) {
  static const char* const names[] = {"area",  "base", "br",    "col",  "dd",    "dt",
                                      "hr",    "img",  "li",    "link", "meta",  "p",
                                      "tbody", "td",   "tfoot", "th",   "thead", "tr"};
  return std::any_of(std::begin(names), std::end(names),
                     [&element](const char* name) { return element == QLatin1String(name); });
}

/// The greatest number of columns or rows that a cell asks for.
int spanOf(const Tag& cell, const char* attribute) {
  int span = 1;
  for (const auto& [name, value] : cell.attributes)
    if (name == QLatin1String(attribute)) {
      bool isNumber = false;
      const qlonglong asked = value.toLongLong(&isNumber);
      span = std::max(span, isNumber ? int(std::clamp<qlonglong>(asked, 1, widestSpan)) : 1);
    }
  return span;
}

bool mayFloat(const Tag& tag) {
  return std::any_of(tag.attributes.begin(), tag.attributes.end(), [](const auto& attribute) {
    return attribute.first == QLatin1String("align") || attribute.first == QLatin1String("style") ||
           attribute.first == QLatin1String("class") || attribute.first == QLatin1String("id");
  });
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
  enum Fault { None, Depth, Cells, Pictures, Floats, ListItems, Tables, Rules };

  explicit Outline(int mostCells) : m_mostCells(mostCells) {}

  Fault read(const QString& text) {
    TagReader reader(text);
    Tag tag;
    while (reader.next(&tag)) {
      if (tag.name == QLatin1String("style") && !tag.isEnd)
        m_rules += reader.sheet().count(QLatin1Char('{'));
      if (const Fault fault = tag.isEnd ? close(tag.name) : open(tag))
        return fault;
    }
    return m_rules * m_elements > mostRuleMatches ? Rules : None;
  }

private:
  Fault open(const Tag& tag) {
    ++m_elements;
    const bool isTable = tag.name == QLatin1String("table");
    const bool isPicture = tag.name == QLatin1String("img");
    if ((isTable || isPicture) && mayFloat(tag) && ++m_floats > mostFloats)
      return Floats;
    if (isPicture && ++m_pictures > mostPictures)
      return Pictures;
    if (tag.name == QLatin1String("li") && ++m_listItems > mostListItems)
      return ListItems;
    if (isTable) {
      if (++m_allTables > mostTables)
        return Tables;
      m_tables.emplace_back();
    }
    if (!endsByItself(tag.name))
      m_open.append(tag.name);
    return isTooDeep() ? Depth : addCells(tag);
  }

  bool isTooDeep() const {
    return m_tables.size() > deepestTables + 1 || m_open.size() > deepestElements;
  }

  /// An end closes all that was opened inside, and one of what is not open closes nothing.
  Fault close(const QString& name) {
    const int from = m_open.lastIndexOf(name);
    for (int i = m_open.size() - 1; from >= 0 && i >= from; --i) {
      if (m_open.at(i) == QLatin1String("table")) {
        m_closedCells += m_tables.back().cells();
        m_tables.pop_back();
      }
      m_open.removeLast();
    }
    return None;
  }

  Fault addCells(const Tag& tag) {
    TableGrid& table = m_tables.back();
    if (tag.name == QLatin1String("tr"))
      table.addRow();
    else if (tag.name == QLatin1String("td") || tag.name == QLatin1String("th"))
      table.addCell(spanOf(tag, "colspan"), spanOf(tag, "rowspan"));
    return m_closedCells + table.cells() > m_mostCells ? Cells : None;
  }

  int m_mostCells;
  qint64 m_elements = 0;
  qint64 m_rules = 0;
  int m_floats = 0;
  int m_pictures = 0;
  int m_listItems = 0;
  int m_allTables = 0;
  qint64 m_closedCells = 0;
  QStringList m_open;
  std::vector<TableGrid> m_tables = std::vector<TableGrid>(1); ///< the first for cells in none
};

// ---- what Qt has made of a text -----------------------------------------------------------------

/// Sizes in pixels; sums of larger ones leave the range of the layout, or what a window may have.
struct LargestSizes {
  double space;
  double font;
};
constexpr LargestSizes largestInDocument = {2000, 500};
constexpr LargestSizes largestInLabel = {600, 60};

bool isFixedAbove(const QTextLength& length, double limit) {
  return length.type() == QTextLength::FixedLength && length.rawValue() > limit;
}

bool isTooLarge(const QTextFormat& format, const LargestSizes& largest) {
  const QMap<int, QVariant> properties = format.properties();
  for (auto property = properties.begin(); property != properties.end(); ++property) {
    const bool isFont = property.key() == QTextFormat::FontPointSize ||
                        property.key() == QTextFormat::FontPixelSize;
    const double limit = isFont ? largest.font : largest.space;
    if (property->type() == QVariant::TextLength
            ? isFixedAbove(property->value<QTextLength>(), limit)
            : (property->type() == QVariant::Double ||
               (isFont && property->type() == QVariant::Int)) &&
                  property->toDouble() > limit)
      return true;
  }
  const QVector<QTextLength> columns = format.toTableFormat().columnWidthConstraints();
  return std::any_of(columns.begin(), columns.end(), [&largest](const QTextLength& width) {
    return isFixedAbove(width, largest.space);
  });
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

  bool asksForMoreThan(const LargestSizes& largest) const {
    return anyFormat([&largest](const QTextFormat& format) { return isTooLarge(format, largest); });
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

QString textOf(Outline::Fault fault, int mostCells) {
  switch (fault) {
  case Outline::Depth:
    return faultText("its elements are nested too deep");
  case Outline::Cells:
    return faultText("its tables have more than %1 cells").arg(mostCells);
  case Outline::Pictures:
    return faultText("it has more than %1 pictures").arg(mostPictures);
  case Outline::Floats:
    return faultText("text flows around more than %1 places").arg(mostFloats);
  case Outline::ListItems:
    return faultText("its lists have more than %1 items").arg(mostListItems);
  case Outline::Tables:
    return faultText("it has more than %1 tables").arg(mostTables);
  case Outline::Rules:
    return faultText("its style sheets have too many rules");
  case Outline::None:
    break;
  }
  return QString();
}

QString faultOf(const QString& text, int mostCells, const LargestSizes& largest) {
  if (const Outline::Fault fault = Outline(mostCells).read(text))
    return textOf(fault, mostCells);
  return ReadDocument(text).asksForMoreThan(largest)
             ? faultText("it asks for spaces, pictures or letters that are too large")
             : QString();
}

/// What the marks of Markdown ask for, at the most.
Outline::Fault markdownOutline(const QString& text) {
  if (text.count(QLatin1Char('|')) > mostCellsInDocument)
    return Outline::Cells;
  if (text.count(QLatin1String("![")) > mostPictures)
    return Outline::Pictures;
  static const QRegularExpression item(QStringLiteral("^[ \\t>]*([-*+]|\\d+[.)])[ \\t]"),
                                       QRegularExpression::MultilineOption);
  static const QRegularExpression nested(
      QStringLiteral("^([ \\t]*([->*+]|\\d+[.)])){%1}").arg(deepestQuotes),
      QRegularExpression::MultilineOption);
  if (text.count(item) > mostListItems)
    return Outline::ListItems;
  return text.contains(nested) ? Outline::Depth : Outline::None;
}

} // namespace

QString markdownFault(const QString& text) {
  if (const Outline::Fault fault = markdownOutline(text))
    return textOf(fault, mostCellsInDocument);
  return faultOf(text, mostCellsInDocument, largestInDocument);
}

QString layoutFault(const QString& text) {
  return faultOf(text, mostCellsInDocument, largestInDocument);
}

bool isTooLargeSheet(const QString& sheet) {
  static const QRegularExpression large(QStringLiteral("(?<![#.\\da-fA-F])\\d{5,}"));
  return sheet.contains(large) || sheet.count(QLatin1Char('{')) > mostRulesInSheet;
}

QString harmlessText(const QString& text) {
  if (!Qt::mightBeRichText(text))
    return text;
  if (!faultOf(text, mostCellsInLabel, largestInLabel).isEmpty())
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
    length = character.isSpace() && character != QChar::Nbsp ? 0 : length + 1;
    longest = std::max(longest, length);
  }
  return longest;
}
