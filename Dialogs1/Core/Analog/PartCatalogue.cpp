#include "Core/Analog/PartCatalogue.h"

#include "Core/Frame/Integers.h"
#include "Core/Pieces/PlaceTable.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace {

constexpr int nothing = -1;
constexpr std::size_t longestCount = 50;

bool isPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

char foldedPlain(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

QString textOf(std::string_view bytes) {
  return QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
}

/// Letter by letter, so that what is found in a folded text is in the text itself.
std::string foldedText(const QString& text) {
  QVector<uint> letters = text.toUcs4();
  for (uint& letter : letters)
    letter = QChar::toCaseFolded(letter);
  return QString::fromUcs4(letters.constData(), letters.size()).toStdString();
}

/// A byte of UTF-8 where it stands in the order of UTF-16, which is that of sorted lists: letters
/// of two units come before the last ones of one.
unsigned collated(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0xF0 ? byte - 2U : byte >= 0xEE ? byte + 5U : byte;
}

/// A name on its way through a sort: of most, the first bytes say it all.
struct SortedName {
  static constexpr std::size_t prefixLength = 8;

  SortedName(std::string_view itsName, int itsLine) : name(itsName), line(itsLine) {
    for (std::size_t i = 0; i < prefixLength; ++i)
      prefix = prefix << 8 | (i < name.size() ? collated(name[i]) : 0);
  }
  bool operator<(const SortedName& other) const {
    if (prefix != other.prefix)
      return prefix < other.prefix;
    const std::size_t common = std::min(name.size(), other.name.size());
    for (std::size_t i = prefixLength; i < common; ++i)
      if (name[i] != other.name[i])
        return collated(name[i]) < collated(other.name[i]);
    return name.size() != other.name.size() ? name.size() < other.name.size() : line < other.line;
  }

  std::uint64_t prefix = 0;
  std::string_view name;
  int line;
};

/// Looks for a text in a longer one by the rarest of its bytes; where that is not rare, by two of
/// them at their distance, a block at a time.
class Finder {
public:
  Finder(std::string_view text, std::string_view wanted,
         const std::array<std::size_t, 256>& frequencies)
      : m_text(text), m_wanted(wanted) {
    std::vector<std::size_t> places(wanted.size());
    std::iota(places.begin(), places.end(), 0);
    const auto frequency = [&](std::size_t place) {
      return frequencies[static_cast<unsigned char>(wanted[place])];
    };
    const auto second = places.begin() + (places.size() > 1 ? 1 : 0);
    std::nth_element(places.begin(), second, places.end(),
                     [&](std::size_t x, std::size_t y) { return frequency(x) < frequency(y); });
    m_rarest = places.front();
    m_nextRarest = *second;
    m_isPossible = frequency(m_rarest) > 0;
    m_isRare = wanted.size() == 1 || frequency(m_rarest) < text.size() / (4 * blockLength);
  }

  /// Where it stands, at `from` or behind; `npos` for nowhere.
  std::size_t next(std::size_t from) const {
    if (!m_isPossible)
      return std::string_view::npos;
    const std::size_t end = m_text.size() - std::min(m_text.size(), m_wanted.size() - 1);
    if (m_isRare)
      return nextIn(from, end);
    for (; from < end; from += blockLength) {
      if (from + blockLength < end && !mayBeIn(from))
        continue;
      const std::size_t found = nextIn(from, std::min(from + blockLength, end));
      if (found != std::string_view::npos)
        return found;
    }
    return std::string_view::npos;
  }

private:
  static constexpr std::size_t blockLength = 64;

  /// Where it begins, before `end`.
  std::size_t nextIn(std::size_t from, std::size_t end) const {
    while (from < end) {
      const void* found =
          std::memchr(m_text.data() + from + m_rarest, m_wanted[m_rarest], end - from);
      if (!found)
        break;
      from = static_cast<std::size_t>(static_cast<const char*>(found) - m_text.data()) - m_rarest;
      if (std::memcmp(m_text.data() + from, m_wanted.data(), m_wanted.size()) == 0)
        return from;
      ++from;
    }
    return std::string_view::npos;
  }

  /// Whether it may begin in the block; written so that compilers take many bytes at once.
  bool mayBeIn(std::size_t block) const {
    const char* const first = m_text.data() + block + m_rarest;
    const char* const second = m_text.data() + block + m_nextRarest;
    const char a = m_wanted[m_rarest];
    const char b = m_wanted[m_nextRarest];
    unsigned char any = 0;
    for (std::size_t i = 0; i < blockLength; ++i)
      any |= static_cast<unsigned char>((first[i] == a) & (second[i] == b));
    return any != 0;
  }

  std::string_view m_text;
  std::string_view m_wanted;
  std::size_t m_rarest = 0;
  std::size_t m_nextRarest = 0;
  bool m_isRare = false;     ///< one byte alone says enough
  bool m_isPossible = false; ///< each of its bytes stands somewhere
};

} // namespace

PartCatalogue::PartCatalogue(const Texts& lines)
    : m_lines(lines), m_isModel(lines.count()), m_ranks(lines.count()), m_sameNames(lines.count()) {
  for (int line = 0; line < count(); ++line) {
    const std::string_view type = field(line, Type);
    m_isModel[static_cast<std::size_t>(line)] =
        sp_CompareNoCase(YString(type.data(), type.size()), "model") == 0;
  }
  foldNames();
  rank(firstLines());
  findSameNames();
}

std::string_view PartCatalogue::field(int line, Field wanted) const {
  std::string_view rest = m_lines.raw(static_cast<unsigned>(line));
  for (int place = Name; place < wanted; ++place) {
    const std::size_t end = rest.find(';');
    if (end == std::string_view::npos)
      return {};
    rest.remove_prefix(end + 1);
  }
  return wanted == Type ? rest : rest.substr(0, rest.find(';'));
}

std::string_view PartCatalogue::foldedName(int line) const {
  const auto place = static_cast<std::size_t>(line);
  const std::size_t start = m_starts[place];
  return std::string_view(m_folded).substr(start, m_starts[place + 1] - start - 1);
}

void PartCatalogue::foldNames() {
  m_starts.reserve(m_lines.count() + std::size_t{1});
  for (int line = 0; line < count(); ++line) {
    m_starts.push_back(m_folded.size());
    const std::string_view name = field(line, Name);
    if (isPlain(name))
      std::transform(name.begin(), name.end(), std::back_inserter(m_folded), foldedPlain);
    else
      m_folded += foldedText(textOf(name));
    m_folded += '\0';
  }
  m_starts.push_back(m_folded.size());
  for (char c : m_folded)
    ++m_frequencies[static_cast<unsigned char>(c)];
}

PartCatalogue::Lines PartCatalogue::firstLines() {
  std::vector<int> identities;
  identities.reserve(m_lines.count());
  for (int line = 0; line < count(); ++line)
    identities.push_back(leadingInteger(identity(line)));
  PlaceTable known(m_lines.count());
  const UnitHash start;
  Lines firstLines;
  for (int line = 0; line < count(); ++line) {
    const int own = identities[static_cast<std::size_t>(line)];
    UnitHash hash = start;
    hash.add(static_cast<std::uint32_t>(own));
    // For now the first line stands where the part's rank will be.
    rankOf(line) = known.insert(line, hash.value(), [&](int other) {
      return identities[static_cast<std::size_t>(other)] == own;
    });
    if (rankOf(line) == line)
      firstLines.push_back(line);
  }
  return firstLines;
}

void PartCatalogue::rank(Lines firstLines) {
  std::vector<SortedName> names;
  names.reserve(firstLines.size());
  for (int line : firstLines)
    names.emplace_back(field(line, Name), line);
  std::sort(names.begin(), names.end());
  std::vector<int> ranks(m_lines.count());
  m_firstLines.clear();
  for (const SortedName& name : names) {
    ranks[static_cast<std::size_t>(name.line)] = static_cast<int>(m_firstLines.size());
    m_firstLines.push_back(name.line);
  }
  for (int& firstLine : m_ranks)
    firstLine = ranks[static_cast<std::size_t>(firstLine)];
}

void PartCatalogue::findSameNames() {
  PlaceTable known(m_firstLines.size());
  const UnitHash start;
  std::vector<int> sameNames;
  for (std::size_t place = 0; place < m_firstLines.size(); ++place) {
    const std::string_view name = foldedName(m_firstLines[place]);
    UnitHash hash = start;
    for (char c : name)
      hash.add(static_cast<unsigned char>(c));
    sameNames.push_back(known.insert(static_cast<int>(place), hash.value(), [&](int other) {
      return foldedName(m_firstLines[static_cast<std::size_t>(other)]) == name;
    }));
  }
  for (int line = 0; line < count(); ++line)
    m_sameNames[static_cast<std::size_t>(line)] = sameNames[static_cast<std::size_t>(rankOf(line))];
  m_found.assign(m_firstLines.size(), nothing);
}

PartCatalogue::Lines PartCatalogue::parts(bool withModels) const {
  Lines lines;
  for (int line : m_firstLines)
    if (withModels || !m_isModel[static_cast<std::size_t>(line)])
      lines.push_back(line);
  return lines;
}

void PartCatalogue::search(const QString& text, bool withModels, Lines* found) {
  const std::string wanted = foldedText(text);
  if (wanted.empty())
    for (int line = 0; line < count(); ++line)
      take(line, withModels);
  else if (wanted.find('\0') == std::string::npos) // which stands between names, and in none
    takeMatches(wanted, withModels);
  collect(found);
}

void PartCatalogue::take(int line, bool withModels) {
  const auto place = static_cast<std::size_t>(line);
  int& found = m_found[static_cast<std::size_t>(m_sameNames[place])];
  if (found == nothing && (withModels || !m_isModel[place]))
    found = line;
}

void PartCatalogue::takeMatches(const std::string& wanted, bool withModels) {
  const Finder finder(m_folded, wanted, m_frequencies);
  int line = 0;
  for (std::size_t at = finder.next(0); at != std::string_view::npos;) {
    line = lineAt(at, line);
    take(line, withModels);
    at = finder.next(m_starts[static_cast<std::size_t>(++line)]);
  }
}

/// The line whose name an offset is in, none before `from`. Matches are near to each other or far
/// apart: the steps grow.
int PartCatalogue::lineAt(std::size_t offset, int from) const {
  auto first = m_starts.begin() + from;
  std::ptrdiff_t step = 1;
  while (m_starts.end() - first > step && first[step] <= offset) {
    first += step;
    step *= 2;
  }
  const auto end = m_starts.end() - first > step ? first + step : m_starts.end();
  return static_cast<int>(std::upper_bound(first, end, offset) - m_starts.begin()) - 1;
}

void PartCatalogue::collect(Lines* found) {
  found->clear();
  bool isSorted = true;
  for (std::size_t place = 0; place < m_found.size(); ++place) {
    const int line = m_found[place];
    if (line == nothing)
      continue;
    found->push_back(line);
    // Of parts whose names differ in letter case alone another one may have been found.
    isSorted = isSorted && rankOf(line) == static_cast<int>(place);
    m_found[place] = nothing;
  }
  if (!isSorted)
    std::sort(found->begin(), found->end(), [this](int a, int b) { return rankOf(a) < rankOf(b); });
}

QString PartCatalogue::shownName(int line) const {
  return textOf(field(m_firstLines[static_cast<std::size_t>(rankOf(line))], Name));
}

QString PartCatalogue::path(int line) const {
  return textOf(field(line, Path)).replace(QLatin1Char('|'), QLatin1String(" -> "));
}

YString PartCatalogue::identity(int line) const {
  const std::string_view text = field(line, Identity);
  return {text.data(), text.size()};
}

QStringList PartCatalogue::longestNames() const {
  Lines lines = m_firstLines;
  const auto end = lines.begin() + static_cast<int>(std::min(lines.size(), longestCount));
  const auto length = [this](int line) { return foldedName(line).size(); };
  std::nth_element(lines.begin(), end, lines.end(),
                   [&](int a, int b) { return length(a) > length(b); });
  QStringList names;
  for (auto line = lines.begin(); line != end; ++line)
    names.append(shownName(*line));
  return names;
}
