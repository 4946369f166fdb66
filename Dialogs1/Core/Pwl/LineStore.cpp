#include "Core/Pwl/LineStore.h"

void LineStore::append(const char* line) {
  m_text.append(line);
  m_ends.append(m_text.size());
}

std::string_view LineStore::at(int index) const {
  const int start = index > 0 ? m_ends.at(index - 1) : 0;
  return {m_text.constData() + start, static_cast<std::size_t>(m_ends.at(index) - start)};
}

QByteArray LineStore::joined() const {
  QByteArray text;
  text.reserve(m_text.size() + size());
  for (int i = 0; i < size(); ++i) {
    if (i > 0)
      text.append('\n');
    text.append(at(i).data(), static_cast<int>(at(i).size()));
  }
  return text;
}
