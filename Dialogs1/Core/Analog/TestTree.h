#pragma once

#include "Core/Frame/Texts.h"

/// Tests in folders, as a script's lines name them: levels from the root to the test, with
/// semicolons between. Letter case does not tell two levels apart; the first one's stays.
class TestTree {
public:
  struct Node {
    int parent; ///< -1 at the top; a parent stands before its children
    YString text;
  };

  TestTree() = default;
  explicit TestTree(const Texts& lines);

  const std::vector<Node>& nodes() const { return m_nodes; }
  /// The nodes without children, in the order of the tree.
  std::vector<int> leaves() const;
  /// The levels that lead to a node, a semicolon behind each.
  YString path(int node) const;

private:
  std::vector<Node> m_nodes;
};
