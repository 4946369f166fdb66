#include "Core/Analog/TestTree.h"

#include "HostSupport/Parsing.h"

#include <QHash>

// Trees are drawn, and go, level by level within each other. What is deeper stands in the last one.
static constexpr int deepest = 100;

TestTree::TestTree(const Texts& lines) {
  QHash<QPair<int, QString>, int> known; // parent and folded text
  YArray<YString> levels;
  for (unsigned line = 0; line < lines.count(); ++line) {
    sp_SplitLine(lines.raw(line), ';', &levels, deepest);
    int parent = -1;
    for (const YString& level : levels) {
      int& node = known[{parent, QString::fromUtf8(level.c_str()).toCaseFolded()}];
      if (node == 0) { // numbered from 1, so that a new entry is none
        m_nodes.push_back({parent, level});
        node = static_cast<int>(m_nodes.size());
      }
      parent = node - 1;
    }
  }
}

static void appendLeaves(const std::vector<std::vector<int>>& children, int node,
                         std::vector<int>* leaves) {
  if (children[static_cast<std::size_t>(node)].empty())
    leaves->push_back(node);
  for (int child : children[static_cast<std::size_t>(node)])
    appendLeaves(children, child, leaves);
}

std::vector<int> TestTree::leaves() const {
  std::vector<std::vector<int>> children(m_nodes.size());
  std::vector<int> top;
  for (std::size_t node = 0; node < m_nodes.size(); ++node) {
    const int parent = m_nodes[node].parent;
    (parent < 0 ? top : children[static_cast<std::size_t>(parent)])
        .push_back(static_cast<int>(node));
  }
  std::vector<int> found;
  for (int node : top)
    appendLeaves(children, node, &found);
  return found;
}

YString TestTree::path(int node) const {
  YString path;
  for (; node >= 0; node = m_nodes[static_cast<std::size_t>(node)].parent)
    path = m_nodes[static_cast<std::size_t>(node)].text.concat(";").concat(path);
  return path;
}
