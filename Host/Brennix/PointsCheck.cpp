#include "PointsCheck.h"

#include "HostSupport/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <unordered_set>
#include <utility>

namespace {

constexpr std::string_view startWord = "START_DATA";
constexpr std::string_view repeatWord = "REPEAT_COUNT=";
constexpr std::string_view shiftWord = "SHIFT_FIRST_TO_ZERO";
constexpr std::string_view csvWord = "FORMAT=CSV";
constexpr std::string_view referenceWord = "file=\"";
constexpr double mostRepeats = 1000;
constexpr int neededPoints = 2;

bool isSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

/// Keywords are compared without regard to case.
bool startsWith(std::string_view text, std::string_view word) {
  const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; };
  return text.size() >= word.size() &&
         std::equal(word.begin(), word.end(), text.begin(),
                    [upper](char a, char b) { return upper(a) == upper(b); });
}

bool isWord(std::string_view text, std::string_view word) {
  return text.size() == word.size() && startsWith(text, word);
}

std::string_view withoutIndent(std::string_view text) {
  std::size_t blanks = 0;
  while (blanks < text.size() && isSpace(text[blanks]))
    ++blanks;
  return text.substr(blanks);
}

// ---- lines and fields ---------------------------------------------------------------------------

/// The lines of a text, which LF, CRLF or CR end.
class Lines {
public:
  explicit Lines(std::string_view text) : m_rest(text) {}

  bool next(std::string_view* line) {
    if (m_rest.empty())
      return false;
    const std::size_t end = std::min(m_rest.find_first_of("\n\r"), m_rest.size());
    *line = m_rest.substr(0, end);
    m_rest.remove_prefix(end);
    m_rest.remove_prefix(startsWith(m_rest, "\r\n") ? 2 : !m_rest.empty());
    return true;
  }

private:
  std::string_view m_rest;
};

/// The words of a start data line, which stand between blanks.
bool nextWord(std::string_view* rest, std::string_view* word) {
  *rest = withoutIndent(*rest);
  const auto end = std::find_if(rest->begin(), rest->end(), isSpace);
  *word = rest->substr(0, static_cast<std::size_t>(end - rest->begin()));
  rest->remove_prefix(word->size());
  return !word->empty();
}

bool isReference(std::string_view field) {
  const auto same = [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b - 'A' + 'a' : b); };
  return field.size() >= referenceWord.size() &&
         std::equal(referenceWord.begin(), referenceWord.end(), field.begin(), same);
}

/// Where the field at the start of `text` ends. Braces and the quotes of a reference keep blanks
/// and commas together; one that is not closed takes the rest.
std::size_t endOfField(std::string_view text) {
  std::size_t i = 0;
  if (isReference(text))
    i = std::min(text.find('"', referenceWord.size()), text.size());
  int depth = 0;
  for (; i < text.size(); ++i) {
    if (text[i] == '{')
      ++depth;
    else if (text[i] == '}' && depth > 0)
      --depth;
    else if (depth == 0 && (isSpace(text[i]) || text[i] == ','))
      break;
  }
  return i;
}

/// A data line, of which only two fields count. Commas may have an empty field between them.
struct DataLine {
  std::array<std::string_view, 2> fields;
  int count = 0;
  bool hasComma = false;

  explicit DataLine(std::string_view text) {
    text = withoutIndent(text);
    bool more = !text.empty();
    while (more) {
      const std::size_t end = endOfField(text);
      if (count < 2)
        fields[static_cast<std::size_t>(count)] = text.substr(0, end);
      ++count;
      text = withoutIndent(text.substr(end));
      more = !text.empty();
      if (more && text.front() == ',') {
        hasComma = true;
        text = withoutIndent(text.substr(1));
      }
    }
  }
  bool isPoint() const { return !fields[0].empty() && !fields[1].empty(); }
};

// ---- fields -------------------------------------------------------------------------------------

enum class FieldKind { Number, Expression, Neither };

/// One in braces that are closed at its end and not before.
bool isExpression(std::string_view field) {
  if (field.size() < 3 || field.front() != '{' || field.back() != '}')
    return false;
  int depth = 0;
  for (const char c : field.substr(0, field.size() - 1)) {
    depth += (c == '{') - (c == '}');
    if (depth == 0)
      return false;
  }
  return depth == 1 && !withoutIndent(field.substr(1, field.size() - 2)).empty();
}

FieldKind readField(std::string_view field, double* value) {
  if (isExpression(field))
    return FieldKind::Expression;
  if (field.find('\0') != std::string_view::npos)
    return FieldKind::Neither;
  return sp_IsEngNumber(std::string(field).c_str(), value) ? FieldKind::Number : FieldKind::Neither;
}

// ---- the file -----------------------------------------------------------------------------------

class PointsCheck {
public:
  explicit PointsCheck(const FileProbe& canRead) : m_canRead(canRead) {}

  QVector<Fault> run(std::string_view contents) {
    if (startsWith(contents, "\xEF\xBB\xBF"))
      contents.remove_prefix(3);
    readKeywords(contents);
    Lines lines(contents);
    std::string_view line;
    while (lines.next(&line)) {
      ++m_line;
      checkLine(withoutIndent(line));
    }
    if (m_isBlank)
      m_faults.append({FaultNumber::FileEmpty, 0, QStringLiteral("The file is empty.")});
    else if (m_points < neededPoints)
      m_faults.append({FaultNumber::TooFewPoints, 0,
                       QStringLiteral("A source needs %1 data points or more; the file has %2.")
                           .arg(neededPoints)
                           .arg(m_points)});
    return m_faults;
  }

private:
  /// What the start data line says holds for all lines, wherever it stands.
  void readKeywords(std::string_view contents) {
    Lines lines(contents);
    std::string_view line;
    while (lines.next(&line)) {
      std::string_view rest = withoutIndent(line);
      if (!startsWith(rest, startWord))
        continue;
      for (std::string_view word; nextWord(&rest, &word);) {
        m_isCsv = m_isCsv || isWord(word, csvWord);
        m_shifts = m_shifts || isWord(word, shiftWord);
      }
      return;
    }
  }

  void checkLine(std::string_view line) {
    if (line.empty())
      return;
    m_isBlank = false;
    if (line.front() == '*')
      return;
    if (startsWith(line, startWord))
      checkStartLine(line);
    else
      checkDataLine(DataLine(line));
  }

  void checkStartLine(std::string_view line) {
    if (m_hasStartLine) {
      report(FaultNumber::SecondStartLine, "There is a start data line further up.");
      return;
    }
    m_hasStartLine = true;
    std::string_view word;
    nextWord(&line, &word);
    bool isKnown = isWord(word, startWord);
    std::array<bool, 3> seen{};
    while (isKnown && nextWord(&line, &word)) {
      const int keyword = isWord(word, csvWord)          ? 0
                          : isWord(word, shiftWord)      ? 1
                          : startsWith(word, repeatWord) ? 2
                                                         : -1;
      isKnown = keyword >= 0 && !std::exchange(seen[static_cast<std::size_t>(keyword)], true) &&
                (keyword != 2 || isRepeatCount(word.substr(repeatWord.size())));
    }
    if (!isKnown)
      report(FaultNumber::StartKeyword,
             "The start data line does not take \"%1\" here. It takes REPEAT_COUNT= with a whole "
             "number from 0 to 1000, SHIFT_FIRST_TO_ZERO, and FORMAT=CSV, each once.",
             word);
  }

  static bool isRepeatCount(std::string_view text) {
    double count = -1;
    return readField(text, &count) == FieldKind::Number && count >= 0 && count <= mostRepeats &&
           count == std::floor(count);
  }

  void checkDataLine(const DataLine& line) {
    const bool isFirst = !std::exchange(m_hasData, true);
    m_points += line.isPoint() && m_points < neededPoints;
    const std::string_view time = line.fields[0];
    if (line.count > 2)
      report(FaultNumber::TooManyFields, "The line has more than two fields, a time and a value.");
    else if (!line.isPoint() && !startsWith(time, "{"))
      report(FaultNumber::MissingField, "The line has one field; it needs a time and a value.");
    else if (checkTime(time, isFirst) && checkValue(line.fields[1]) && m_isCsv && !line.hasComma)
      report(FaultNumber::NoComma, "With FORMAT=CSV, a comma stands between time and value.");
  }

  bool checkTime(std::string_view field, bool isFirst) {
    double time = 0;
    if (!checkNumber(field, "The time \"%1\" is not a number.", &time))
      return false;
    if (std::isnan(time)) // an expression
      return true;
    const double before = std::exchange(m_time, time);
    if (time <= before)
      return report(FaultNumber::TimeNotIncreasing,
                    "The time \"%1\" is not after that of the point before it.", field);
    if (isFirst && time < 0 && !m_shifts)
      return report(FaultNumber::NegativeTime,
                    "The first time, \"%1\", is negative. SHIFT_FIRST_TO_ZERO in the start data "
                    "line takes it as 0.",
                    field);
    return true;
  }

  bool checkValue(std::string_view field) {
    if (!isReference(field)) {
      double value = 0;
      return field.empty() ? report(FaultNumber::MissingField,
                                    "The line has one field; it needs a time and a value.")
                           : checkNumber(field, "The value \"%1\" is not a number.", &value);
    }
    const std::string_view path = field.substr(referenceWord.size());
    if (path.find('"') != path.size() - 1 || path.size() < 2)
      return report(FaultNumber::SuperDataPoint,
                    "A super data point is written as file=\"…\" with the path of its file.");
    if (!canRead(path.substr(0, path.size() - 1)))
      return report(FaultNumber::SuperDataPoint,
                    "The file of the super data point, \"%1\", cannot "
                    "be read.",
                    path.substr(0, path.size() - 1));
    return true;
  }

  /// `*value` is NaN for an expression.
  bool checkNumber(std::string_view field, const char* fault, double* value) {
    const FieldKind kind = readField(field, value);
    if (kind == FieldKind::Neither)
      return report(FaultNumber::NoNumber, fault, field);
    if (kind == FieldKind::Expression)
      *value = std::nan("");
    else if (std::isinf(*value))
      return report(FaultNumber::OutOfRange, "The number \"%1\" is too large.", field);
    return true;
  }

  bool canRead(std::string_view path) {
    if (m_read.count(path))
      return true; // points that repeat a file do not cost a look each
    if (!m_canRead(QString::fromUtf8(path.data(), static_cast<int>(path.size()))))
      return false;
    m_read.insert(path);
    return true;
  }

  /// False, for those who report and give up.
  bool report(FaultNumber number, const char* text, std::string_view quoted = {}) {
    if (m_faults.size() >= mostFaults)
      return false;
    QString whole = QString::fromUtf8(text);
    whole.replace(QStringLiteral("%1"), quotable(quoted));
    m_faults.append({number, m_line, whole});
    return false;
  }

  const FileProbe& m_canRead;
  QVector<Fault> m_faults;
  std::unordered_set<std::string_view> m_read;
  int m_line = 0;
  int m_points = 0; ///< no further than needed
  double m_time = -HUGE_VAL;
  bool m_isBlank = true;
  bool m_hasData = false;
  bool m_hasStartLine = false;
  bool m_isCsv = false;
  bool m_shifts = false;
};

} // namespace

QVector<Fault> checkPoints(std::string_view contents, const FileProbe& canRead) {
  return PointsCheck(canRead).run(contents);
}
