#include "LaplaceReader.h"

#include "AsciiText.h"
#include "HostSupport/Numbers.h"
#include "LaplaceFunctions.h"

#include <cmath>
#include <limits>

namespace {

using Kind = LaplaceStep::Kind;

constexpr double pi = 3.14159265358979323846;
constexpr std::size_t columnsOfTable = 3; ///< frequency, magnitude, phase

int precedenceOf(Kind kind) {
  switch (kind) {
  case Kind::Add:
  case Kind::Subtract:
    return 1;
  case Kind::Multiply:
  case Kind::Divide:
    return 2;
  case Kind::Negate:
    return 3;
  default:
    return 4;
  }
}

bool startsNumber(char c) {
  return isAsciiDigit(c) || c == '.';
}

bool startsName(char c) {
  return isAsciiLetter(c) || c == '_';
}

} // namespace

LaplaceReader::LaplaceReader(std::string_view text) : m_text(text) {
  if (!isBalanced())
    fail(LaplaceFault::Parentheses);
  else
    readAll();
  if (fault != LaplaceFault::None)
    steps.clear();
}

/// Whether every bracket has its other one. A fault of the brackets is told before all others,
/// which often follow from it.
bool LaplaceReader::isBalanced() {
  std::size_t round = 0;
  std::size_t curly = 0;
  for (m_at = 0; m_at < m_text.size(); ++m_at) {
    const char c = m_text[m_at];
    if ((c == '}' && curly == 0) || (c == ')' && curly == 0 && round == 0))
      return false;
    curly += (c == '{') - (c == '}');
    if (curly == 0)
      round += (c == '(') - (c == ')');
  }
  return round == 0 && curly == 0;
}

void LaplaceReader::readAll() {
  m_at = 0;
  for (skipBlanks(); m_at < m_text.size() && fault == LaplaceFault::None; skipBlanks()) {
    if (m_wantsOperand)
      readOperand();
    else
      readOperator();
  }
  if (fault != LaplaceFault::None)
    return;
  if (m_wantsOperand)
    fail(LaplaceFault::Syntax);
  else
    finishDownTo(0, false);
}

void LaplaceReader::readOperand() {
  const char c = next();
  if (startsNumber(c)) {
    readNumber();
  } else if (startsName(c)) {
    readName();
  } else if (c == '{') {
    readBraces();
  } else if (c == '(') {
    open({Waiting::What::Bracket});
  } else if (c == '-') {
    ++m_at;
    m_waiting.push_back({Waiting::What::Operator, Kind::Negate});
  } else if (c == '+') {
    ++m_at;
  } else {
    fail(LaplaceFault::Syntax);
  }
}

void LaplaceReader::readNumber() {
  const char* const start = m_text.data() + m_at;
  char* end = nullptr;
  const double value = sp_ConvertEngToReal(start, &end);
  if (end == start)
    return fail(LaplaceFault::Syntax);
  // As units and suffixes they would be seconds and pico, yet who writes 2s or 2pi means a product.
  const char* letters = end;
  while (letters > start && isAsciiLetter(letters[-1]))
    --letters;
  std::string name(letters, static_cast<const char*>(end));
  std::transform(name.begin(), name.end(), name.begin(), asciiLower);
  const bool isProduct = name == "s" || name == "pi";
  if (isProduct || !std::isfinite(value))
    return fail(isProduct ? LaplaceFault::Syntax : LaplaceFault::Value);
  m_at += std::size_t(end - start);
  add(Kind::Number, value);
}

void LaplaceReader::readBraces() {
  int depth = 0;
  do {
    depth += (next() == '{') - (next() == '}');
    ++m_at;
  } while (depth > 0);
  hasUnknown = true;
  add(Kind::Number, std::numeric_limits<double>::quiet_NaN());
}

void LaplaceReader::readName() {
  const std::size_t start = m_at;
  std::string name;
  for (; startsName(next()) || isAsciiDigit(next()); ++m_at)
    name += asciiLower(next());
  const std::size_t end = m_at;
  skipBlanks();
  const bool isCall = next() == '(';
  const int function = laplaceFunctionIndex(name);
  if (!isCall && name == "s")
    return add(Kind::S);
  if (!isCall && name == "pi")
    return add(Kind::Number, pi);
  if (isCall && function >= 0)
    return open({Waiting::What::Bracket, Kind::Function, function, 0, true});
  if (isCall && name == "pow")
    return open({Waiting::What::Bracket, Kind::Power, -1, 0, true});
  if (isCall && name == "table")
    return open({Waiting::What::Bracket, Kind::Table, -1, 0, true});
  m_at = start;
  if (function >= 0 || name == "pow" || name == "table")
    return fail(LaplaceFault::Syntax); // a function without its brackets
  unknownName = m_text.substr(start, end - start);
  fail(LaplaceFault::UnknownName);
}

void LaplaceReader::readOperator() {
  const char c = next();
  const bool isDoubleStar = c == '*' && m_text.substr(m_at, 2) == "**";
  Waiting found;
  switch (c) {
  case ')':
    return close();
  case ',':
    return comma();
  case '+':
    found.kind = Kind::Add;
    break;
  case '-':
    found.kind = Kind::Subtract;
    break;
  case '*':
    found.kind = isDoubleStar ? Kind::Power : Kind::Multiply;
    break;
  case '/':
    found.kind = Kind::Divide;
    break;
  case '^':
    found.kind = Kind::Power;
    break;
  default:
    return fail(LaplaceFault::Syntax);
  }
  finishDownTo(precedenceOf(found.kind), found.kind == Kind::Power);
  m_waiting.push_back(found);
  m_at += isDoubleStar ? 2 : 1;
  m_wantsOperand = true;
}

void LaplaceReader::open(Waiting bracket) {
  m_waiting.push_back(bracket);
  ++m_at;
}

void LaplaceReader::close() {
  finishDownTo(0, false);
  const Waiting bracket = m_waiting.back(); // there is one: the brackets are balanced
  m_waiting.pop_back();
  if (bracket.isCall)
    call(bracket);
  ++m_at;
}

void LaplaceReader::comma() {
  finishDownTo(0, false);
  if (m_waiting.empty() || !m_waiting.back().isCall)
    return fail(LaplaceFault::Syntax);
  ++m_waiting.back().commas;
  m_wantsOperand = true;
  ++m_at;
}

void LaplaceReader::call(const Waiting& bracket) {
  const int operands = bracket.commas + 1;
  const bool isRight = bracket.kind == Kind::Table ? operands % columnsOfTable == 0
                                                   : operands == (bracket.kind == Kind::Power) + 1;
  if (!isRight)
    return fail(LaplaceFault::Syntax);
  add(bracket.kind);
  steps.back().operands = operands;
  steps.back().function = bracket.function;
}

/// Those that wait bind at least as strongly as what comes now, and so they go first.
void LaplaceReader::finishDownTo(int precedence, bool isRightFirst) {
  while (!m_waiting.empty() && m_waiting.back().what == Waiting::What::Operator) {
    const Kind kind = m_waiting.back().kind;
    if (precedenceOf(kind) < precedence || (isRightFirst && precedenceOf(kind) == precedence))
      return;
    add(kind);
    m_waiting.pop_back();
  }
}

void LaplaceReader::add(Kind kind, double number) {
  LaplaceStep step;
  step.kind = kind;
  step.number = number;
  steps.push_back(step);
  m_wantsOperand = false;
}

void LaplaceReader::skipBlanks() {
  while (m_at < m_text.size() && isBlank(next()))
    ++m_at;
}

void LaplaceReader::fail(LaplaceFault what) {
  if (fault == LaplaceFault::None)
    position = m_at;
  fault = what;
}
