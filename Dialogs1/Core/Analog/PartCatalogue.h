#pragma once

#include "Core/Frame/Texts.h"

#include <array>
#include <string>
#include <string_view>

/// The parts that a script offers, each a line "name;place in the tree;identity;type" or several:
/// lines of one identity are names of one part, which is shown under the first of them. What is
/// missing is empty, or 0.
///
/// Names are folded and sorted once, so that a search is one pass over their bytes that copies none
/// of them.
class PartCatalogue {
public:
  /// Lines of the catalogue, each for a part, in the order of the names that parts are shown under.
  using Lines = std::vector<int>;

  PartCatalogue() = default;
  /// A view of the lines, which have to outlive this.
  explicit PartCatalogue(const Texts& lines);

  int count() const { return static_cast<int>(m_lines.count()); }

  /// The first line of each part, without those that are of the model library unless they are
  /// wanted.
  Lines parts(bool withModels) const;
  /// The first line of each shown name that `text` is in, in any letter case. An empty text is in
  /// all names.
  void search(const QString& text, bool withModels, Lines* found);

  /// The name that the part of a line is shown under.
  QString shownName(int line) const;
  /// The levels of the line's place in the tree, " -> " between.
  QString path(int line) const;
  /// The identity as the line has it.
  YString identity(int line) const;
  /// The longest of the names that parts are shown under.
  QStringList longestNames() const;

private:
  enum Field { Name, Path, Identity, Type, fieldCount };

  std::string_view field(int line, Field wanted) const;
  std::string_view foldedName(int line) const;
  int& rankOf(int line) { return m_ranks[static_cast<std::size_t>(line)]; }
  int rankOf(int line) const { return m_ranks[static_cast<std::size_t>(line)]; }

  void foldNames();
  Lines firstLines();
  void rank(Lines firstLines);
  void findSameNames();

  void take(int line, bool withModels);
  void takeMatches(const std::string& wanted, bool withModels);
  void collect(Lines* found);
  int lineAt(std::size_t offset, int from) const;

  Texts m_lines;
  std::string m_folded;              ///< names, each with a 0 behind it
  std::vector<std::size_t> m_starts; ///< of each name, and the end
  std::array<std::size_t, 256> m_frequencies{};
  std::vector<char> m_isModel;
  std::vector<int> m_ranks;     ///< by line: the place of its part among the sorted ones
  Lines m_firstLines;           ///< by rank
  std::vector<int> m_sameNames; ///< by line: the rank that stands for all parts of that name
  std::vector<int> m_found;     ///< by such a rank: the line that a search found first
};
