#include "Core/Generic/AddRemoveLists.h"

#include "Core/Pieces/PlaceTable.h"

#include <algorithm>
#include <numeric>

namespace {

uint folded(uint letter) {
  if (letter < 0x80)
    return letter >= 'A' && letter <= 'Z' ? letter + ('a' - 'A') : letter;
  return QChar::toCaseFolded(letter);
}

/// The different texts among many. What is equal is QString's comparison alone to say; its
/// `toCaseFolded` would not do, as it lets letters grow ("ß" to "ss").
class DistinctTexts {
public:
  DistinctTexts(const QStringList& texts, Qt::CaseSensitivity comparison)
      : m_texts(texts), m_comparison(comparison), m_table(static_cast<std::size_t>(texts.size())) {}

  /// False if a text like text `place` is in already.
  bool insert(int place) {
    const QString& text = m_texts.at(place);
    return place == m_table.insert(place, hash(text), [&](int other) {
      return m_texts.at(other).compare(text, m_comparison) == 0;
    });
  }

private:
  /// The same for texts that compare as equal in either way.
  std::uint64_t hash(const QString& text) const {
    UnitHash hash = m_hash;
    for (int i = 0; i < text.size(); ++i) {
      uint letter = text.at(i).unicode();
      if (QChar::isHighSurrogate(letter) && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
        letter = QChar::surrogateToUcs4(ushort(letter), text.at(++i).unicode());
      hash.add(folded(letter));
    }
    return hash.value();
  }

  const QStringList& m_texts;
  Qt::CaseSensitivity m_comparison;
  PlaceTable m_table;
  UnitHash m_hash;
};

void moveToEnd(AddRemoveLists::Items* from, AddRemoveLists::Items* to, const RowBlocks& blocks) {
  AddRemoveLists::Items left;
  left.reserve(from->size());
  auto next = from->cbegin();
  for (const RowBlock& block : blocks) {
    const auto first = from->cbegin() + block.first;
    const auto end = from->cbegin() + block.last + 1;
    left.insert(left.end(), next, first);
    to->insert(to->end(), first, end);
    next = end;
  }
  left.insert(left.end(), next, from->cend());
  from->swap(left);
}

} // namespace

AddRemoveLists::AddRemoveLists(const QStringList& selected, const QStringList& available,
                               Qt::CaseSensitivity comparison)
    : m_texts(selected + available), m_selected(static_cast<std::size_t>(selected.size())) {
  std::iota(m_selected.begin(), m_selected.end(), 0);
  DistinctTexts distinct(m_texts, comparison);
  for (int item = 0; item < m_texts.size(); ++item)
    if (distinct.insert(item) && item >= selected.size())
      m_available.push_back(item);
}

void AddRemoveLists::add(RowBlocks rows) {
  moveToEnd(&m_available, &m_selected, tidied(std::move(rows)));
}

void AddRemoveLists::remove(RowBlocks rows) {
  moveToEnd(&m_selected, &m_available, tidied(std::move(rows)));
}

RowBlocks AddRemoveLists::move(RowBlocks rows, int step) {
  RowBlocks blocks = tidied(std::move(rows));
  const int count = static_cast<int>(m_selected.size());
  for (RowBlock& block : blocks) {
    const int neighbour = step < 0 ? block.first - 1 : block.last + 1;
    if (neighbour < 0 || neighbour >= count)
      continue;
    // The block moves by its neighbour's going round to its other side.
    const auto first = m_selected.begin() + std::min(neighbour, block.first);
    const auto end = m_selected.begin() + std::max(neighbour, block.last) + 1;
    std::rotate(first, step < 0 ? first + 1 : end - 1, end);
    block = {block.first + step, block.last + step};
  }
  return blocks;
}
