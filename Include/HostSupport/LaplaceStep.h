#pragma once

/// What is wrong with a Laplace expression; the numbers are those that the checker library gives.
enum class LaplaceFault {
  None = 0,
  Syntax = 1,
  Parentheses = 2,
  UnknownName = 4, ///< a function that there is not, or a name that stands for nothing
  Value = 6,       ///< a constant that cannot be: a quotient by 0, one that no number holds
};

/// One step of an expression, in the order of computing: operands stand before what takes them.
struct LaplaceStep {
  enum class Kind { Number, S, Negate, Add, Subtract, Multiply, Divide, Power, Function, Table };
  Kind kind = Kind::Number;
  double number = 0; ///< NaN for what only the simulator knows
  int operands = 0;  ///< of a table: how many numbers it has
  int function = -1; ///< which of the functions that there are
};
