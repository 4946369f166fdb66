#include "Core/Pwl/PointsFile.h"

#include "HostSupport/Numbers.h"

#include <QCoreApplication>

#include <algorithm>
#include <string>

namespace {

constexpr std::string_view startWord = "START_DATA";
constexpr QLatin1String repeatWord("REPEAT_COUNT=");
constexpr QLatin1String shiftWord("SHIFT_FIRST_TO_ZERO");
constexpr QLatin1String csvWord("FORMAT=CSV");
constexpr QLatin1String referenceWord("file=\"");

// White space or a comma, in which the fields of a line stand.
constexpr std::string_view separators = " \t\n\v\f\r,";

std::string_view firstField(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(separators), line.size()));
  return line.substr(0, line.find_first_of(separators));
}

/// Keywords are compared without regard to case.
bool startsWith(std::string_view text, std::string_view word) {
  const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; };
  return text.size() >= word.size() &&
         std::equal(word.begin(), word.end(), text.begin(),
                    [upper](char a, char b) { return upper(a) == upper(b); });
}

} // namespace

QString textOf(std::string_view line) {
  return QString::fromUtf8(line.data(), static_cast<int>(line.size()));
}

PointRow::Kind kindOfPointsLine(std::string_view line) {
  const std::string_view field = firstField(line);
  if (startsWith(field, "*"))
    return PointRow::Kind::Comment;
  return startsWith(field, startWord) ? PointRow::Kind::StartData : PointRow::Kind::Point;
}

PwlPoint fieldsOfPointsLine(std::string_view line) {
  const std::string_view field = firstField(line);
  // Counted from the start of the line: one that is indented keeps its time in the second field,
  // where the user sees that something is wrong.
  QString rest = textOf(line.substr(field.size())).trimmed();
  const auto isComma = [](QChar character) { return character == QLatin1Char(','); };
  rest.remove(0, int(std::find_if_not(rest.cbegin(), rest.cend(), isComma) - rest.cbegin()));
  return {textOf(field), rest.trimmed()};
}

PointRow readPointsLine(std::string_view line) {
  PointRow row;
  row.kind = kindOfPointsLine(line);
  if (row.kind == PointRow::Kind::Comment) {
    row.x = textOf(line);
  } else if (row.kind == PointRow::Kind::StartData) {
    row.x = textOf(line).simplified();
  } else {
    const PwlPoint fields = fieldsOfPointsLine(line);
    row.x = fields.x;
    row.y = fields.y;
  }
  return row;
}

bool hasNegativeTime(std::string_view line) {
  const std::string_view field = firstField(line);
  double time = 0;
  return startsWith(field, "-") && sp_IsEngNumber(std::string(field).c_str(), &time) && time < 0;
}

StartData readStartData(const QString& line) {
  StartData data;
  data.isCsv = line.contains(csvWord, Qt::CaseInsensitive);
  data.shiftsToZero = line.contains(shiftWord, Qt::CaseInsensitive);
  for (const QString& word : line.split(QLatin1Char(' ')))
    if (word.startsWith(repeatWord, Qt::CaseInsensitive)) {
      data.repeatCount = word.mid(repeatWord.size());
      break;
    }
  return data;
}

QString writeStartData(int repeatCount, bool shiftsToZero, bool isCsv) {
  QString line = textOf(startWord);
  if (repeatCount > 0)
    line += QLatin1Char(' ') + repeatWord + QString::number(repeatCount);
  if (shiftsToZero)
    line += QLatin1Char(' ') + shiftWord;
  if (isCsv)
    line += QLatin1Char(' ') + csvWord;
  return line;
}

QString fieldSeparator(bool isCsv) {
  return isCsv ? QStringLiteral(", ") : QStringLiteral("\t");
}

QString faultOfEncoding(std::string_view firstLine) {
  const std::string_view mark = firstLine.substr(0, 2);
  return mark == "\xFF\xFE" || mark == "\xFE\xFF"
             ? QCoreApplication::translate("PointsFile", "it is UTF-16 text; save it as UTF-8")
             : QString();
}

std::string_view withoutByteOrderMark(std::string_view firstLine) {
  static constexpr std::string_view mark = "\xEF\xBB\xBF";
  return firstLine.substr(startsWith(firstLine, mark) ? mark.size() : 0);
}

QString unquoted(const QString& fileName) {
  const bool isQuoted = fileName.size() > 2 && fileName.startsWith(QLatin1Char('"')) &&
                        fileName.endsWith(QLatin1Char('"'));
  return isQuoted ? fileName.mid(1, fileName.size() - 2) : fileName;
}

QString writeFileSourceOptions(const FileSourceOptions& options) {
  const auto flag = [](bool isSet) { return isSet ? QStringLiteral("1") : QStringLiteral("0"); };
  const bool isQuoted = !options.isOnDisk && options.fileName.contains(QLatin1Char(' '));
  return QStringList{options.delay,
                     flag(options.isPeriodic),
                     flag(options.isIdleBeforePop),
                     isQuoted ? QLatin1Char('"') + options.fileName + QLatin1Char('"')
                              : options.fileName,
                     options.isOnDisk ? QStringLiteral("Disk") : QStringLiteral("F11"),
                     flag(options.isBackwardCompatible)}
      .join(QLatin1Char(';'));
}

QString pathOfReference(const QString& text) {
  QString path = text.trimmed();
  if (path.startsWith(referenceWord, Qt::CaseInsensitive))
    path.remove(0, referenceWord.size());
  if (path.endsWith(QLatin1Char('"')))
    path.chop(1);
  return path;
}

QString referenceTo(const QString& path) {
  return referenceWord + path + QLatin1Char('"');
}
