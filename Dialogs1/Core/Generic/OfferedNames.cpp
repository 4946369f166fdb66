#include "Core/Generic/OfferedNames.h"

#include <algorithm>
#include <numeric>

template <class Row, class Condition>
static int firstRow(const Row& first, const Row& end, Condition condition) {
  const Row found = std::find_if(first, end, condition);
  return found == end ? -1 : static_cast<int>(found - first);
}

OfferedNames::OfferedNames(const QStringList& names, Order order)
    : m_names(names), m_places(static_cast<std::size_t>(names.size())) {
  std::iota(m_places.begin(), m_places.end(), 0);
  if (order == Order::AsGiven)
    return;
  std::stable_sort(m_places.begin(), m_places.end(),
                   [&](int a, int b) { return names.at(a) < names.at(b); });
  // Copies that follow each other in memory: a pass over them takes a third of the time.
  std::transform(m_places.begin(), m_places.end(), m_names.begin(), [&](int place) {
    const QString& name = names.at(place);
    return QString(name.constData(), name.size());
  });
}

int OfferedNames::rowOfPlace(int place) const {
  return firstRow(m_places.begin(), m_places.end(), [place](int other) { return other == place; });
}

int OfferedNames::rowOfName(const QString& name) const {
  return firstRow(m_names.begin(), m_names.end(), [&](const QString& other) {
    return other.compare(name, Qt::CaseInsensitive) == 0;
  });
}

int OfferedNames::firstRowBeginningWith(const QString& text) const {
  for (const Qt::CaseSensitivity comparison : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
    const int row = firstRow(m_names.begin(), m_names.end(), [&](const QString& name) {
      return name.startsWith(text, comparison);
    });
    if (row >= 0)
      return row;
  }
  return -1;
}
