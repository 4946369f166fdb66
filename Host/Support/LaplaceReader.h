#pragma once

#include "HostSupport/LaplaceStep.h"

#include <string>
#include <string_view>
#include <vector>

/// Reads the text of a Laplace expression into steps. Operators that wait for their right operand
/// stand in a list, so that no depth of brackets costs more than memory.
class LaplaceReader {
public:
  explicit LaplaceReader(std::string_view text);

  std::vector<LaplaceStep> steps;
  LaplaceFault fault = LaplaceFault::None;
  std::size_t position = 0; ///< of the fault
  std::string unknownName;
  bool hasUnknown = false;

private:
  using Kind = LaplaceStep::Kind;

  /// An operator that waits, or a bracket that is open.
  struct Waiting {
    enum class What { Operator, Bracket };
    What what = What::Operator;
    Kind kind = Kind::Number; ///< of an operator, or of the call that the bracket belongs to
    int function = -1;
    int commas = 0;
    bool isCall = false;
  };

  bool isBalanced();
  void readAll();
  void readOperand();
  void readNumber();
  void readBraces();
  void readName();
  void readOperator();
  void open(Waiting bracket);
  void close();
  void comma();
  void call(const Waiting& bracket);
  void finishDownTo(int precedence, bool isRightFirst);
  void add(Kind kind, double number = 0);
  void skipBlanks();
  void fail(LaplaceFault what);
  char next() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }

  std::string_view m_text;
  std::size_t m_at = 0;
  bool m_wantsOperand = true;
  std::vector<Waiting> m_waiting;
};
