#include "Services/Expressions/SimExpression.h"

#include "HostSupport/Numbers.h"

#include <QString>
#include <QVector>

#include <algorithm>
#include <climits>
#include <cstring>

namespace {

using Kind = SimToken::Kind;

struct Arguments {
  int least;
  int most;
};

constexpr Arguments anyArguments = {0, INT_MAX};

const struct {
  const char* name;
  Arguments arguments;
} functions[] = {
    {"abs", {1, 1}},   {"acos", {1, 1}},      {"acosh", {1, 1}},       {"arctan", {1, 1}},
    {"asin", {1, 1}},  {"asinh", {1, 1}},     {"atan", {1, 1}},        {"atan2", {2, 2}},
    {"atanh", {1, 1}}, {"buf", {1, 1}},       {"ceil", {1, 1}},        {"cos", {1, 1}},
    {"cosh", {1, 1}},  {"ddt", {1, 1}},       {"exp", {1, 1}},         {"floor", {1, 1}},
    {"hypot", {2, 2}}, {"idt", {1, 3}},       {"if", {3, 3}},          {"int", {1, 1}},
    {"inv", {1, 1}},   {"limit", {3, 3}},     {"ln", {1, 1}},          {"log", {1, 1}},
    {"log10", {1, 1}}, {"max", {1, INT_MAX}}, {"min", {1, INT_MAX}},   {"nint", {1, 1}},
    {"pow", {2, 2}},   {"pwr", {2, 2}},       {"pwrs", {2, 2}},        {"round", {1, 1}},
    {"sdt", {1, 1}},   {"sgn", {1, 1}},       {"sign", {1, 2}},        {"sin", {1, 1}},
    {"sinh", {1, 1}},  {"sqrt", {1, 1}},      {"stp", {1, 1}},         {"tan", {1, 1}},
    {"tanh", {1, 1}},  {"trunc", {1, 1}},     {"table", {3, INT_MAX}}, {"u", {1, 1}},
    {"uramp", {1, 1}},
};

/// Longer ones first: the first that fits is taken.
const char* const binaryOperators[] = {"**", "&&", "||", "==", "!=", "<=", ">=", "+", "-",
                                       "*",  "/",  "^",  "%",  "<",  ">",  "&",  "|"};

constexpr const char* blanks = " \t\r\n";
constexpr const char* unaryOperators = "+-!~";

bool isOneOf(char character, const char* characters) {
  return character && std::strchr(characters, character);
}
bool isDigit(char character) {
  return character >= '0' && character <= '9';
}
char toSmall(char letter) {
  return letter >= 'A' && letter <= 'Z' ? char(letter - 'A' + 'a') : letter;
}
/// Every letter beyond ASCII may stand in a name.
bool startsName(char character) {
  const char small = toSmall(character);
  return (small >= 'a' && small <= 'z') || isOneOf(character, "_#$@") ||
         static_cast<unsigned char>(character) >= 0x80;
}
bool continuesName(char character) {
  return startsName(character) || isDigit(character) || character == '.';
}
/// Nodes and sources are named by netlists, which forbid little: "in+", "U1.out", "bus[3]".
bool isOfNode(char character) {
  return character && !isOneOf(character, " \t\r\n,(){}\"'=;");
}

Arguments argumentsOf(const std::string& function) {
  for (const auto& each : functions)
    if (isSimName(function, each.name))
      return each.arguments;
  return anyArguments;
}

/// How many nodes the name takes, as a voltage or a current: 0 for anything else.
int nodesOf(const std::string& function) {
  return isSimName(function, "v") ? 2 : isSimName(function, "i") ? 1 : 0;
}

/// Goes through an expression, by turns for an operand and for what stands behind one. What is open
/// stands on a stack of its own: brackets may be nested in any depth.
class Reader {
public:
  explicit Reader(const std::string& text) : m_text(text) {}

  bool read() {
    m_open.push_back({0, {1, 1}});
    for (skipBlanks(); m_at < m_text.size(); skipBlanks())
      if (!(m_wantsOperand ? readOperand() : readBehindOperand()))
        return false;
    return !m_wantsOperand && m_open.size() == 1 && m_open.back().conditions == 0;
  }

  std::vector<SimToken> tokens;

private:
  struct Open {
    char end; ///< 0 around everything
    Arguments arguments;
    int commas = 0;
    int conditions = 0; ///< that wait for their other case
  };

  char next() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
  void skipBlanks() {
    while (isOneOf(next(), blanks))
      ++m_at;
  }

  bool take(Kind kind, std::size_t length, bool wantsOperand) {
    tokens.push_back({kind, m_text.substr(m_at, length)});
    m_at += length;
    m_wantsOperand = wantsOperand;
    return true;
  }

  template <class Test> std::size_t lengthWhile(Test belongs) const {
    std::size_t end = m_at;
    while (end < m_text.size() && belongs(m_text[end]))
      ++end;
    return end - m_at;
  }

  bool readOperand() {
    const char first = next();
    if (isOneOf(first, unaryOperators))
      return take(Kind::Operator, 1, true);
    if (first == '(' || first == '{')
      return open(first, {1, 1});
    if (first == ')')
      return isEmptyCall() && close();
    if (first == '"')
      return readText();
    if (startsName(first))
      return readName();
    return (isDigit(first) || first == '.') && readNumber();
  }

  bool readNumber() {
    const char* start = m_text.c_str() + m_at;
    char* end = nullptr;
    sp_ConvertEngToReal(start, &end);
    return end != start && take(Kind::Number, std::size_t(end - start), false);
  }

  bool readText() {
    const std::size_t end = m_text.find('"', m_at + 1);
    return end != std::string::npos && take(Kind::Text, end + 1 - m_at, false);
  }

  bool readName() {
    take(Kind::Name, lengthWhile(continuesName), false);
    skipBlanks();
    if (next() != '(')
      return true;
    tokens.back().kind = Kind::Function;
    const std::string& name = tokens.back().text;
    if (const int most = nodesOf(name))
      return readNodes(most);
    return open('(', argumentsOf(name));
  }

  bool readNodes(int most) {
    take(Kind::Bracket, 1, true);
    for (int count = 1; count <= most; ++count) {
      skipBlanks();
      const std::size_t length = lengthWhile(isOfNode);
      if (length == 0)
        return false;
      take(Kind::Node, length, false);
      skipBlanks();
      if (next() == ')')
        return take(Kind::Bracket, 1, false);
      if (next() != ',')
        return false;
      take(Kind::Comma, 1, true);
    }
    return false;
  }

  bool readBehindOperand() {
    Open& open = m_open.back();
    switch (next()) {
    case ')':
    case '}':
      return close();
    case ',':
      if (open.arguments.most == 1 || open.conditions > 0)
        return false;
      ++open.commas;
      return take(Kind::Comma, 1, true);
    case '?':
      ++open.conditions;
      return take(Kind::Operator, 1, true);
    case ':':
      return open.conditions-- > 0 && take(Kind::Operator, 1, true);
    }
    return readBinaryOperator();
  }

  bool readBinaryOperator() {
    const auto fits = [this](const char* sign) {
      return m_text.compare(m_at, std::strlen(sign), sign) == 0;
    };
    const auto* sign = std::find_if(std::begin(binaryOperators), std::end(binaryOperators), fits);
    return sign != std::end(binaryOperators) && take(Kind::Operator, std::strlen(*sign), true);
  }

  bool open(char bracket, Arguments arguments) {
    m_open.push_back({bracket == '{' ? '}' : ')', arguments});
    return take(Kind::Bracket, 1, true);
  }

  bool isEmptyCall() const {
    return m_open.back().arguments.least == 0 && m_open.back().commas == 0 &&
           tokens.back().kind == Kind::Bracket;
  }

  bool close() {
    const Open& open = m_open.back();
    const int count = open.commas + 1;
    if (open.end != next() || open.conditions > 0 || count < open.arguments.least ||
        count > open.arguments.most)
      return false;
    m_open.pop_back();
    return take(Kind::Bracket, 1, false);
  }

  const std::string& m_text;
  std::size_t m_at = 0;
  bool m_wantsOperand = true;
  std::vector<Open> m_open;
};

} // namespace

/// What a name, a number or a node has beyond ASCII.
static bool isOfLetters(const SimToken& token) {
  if (token.kind == Kind::Text)
    return true;
  const auto codes = QString::fromStdString(token.text).toUcs4();
  return std::all_of(codes.begin(), codes.end(), [](uint code) {
    return code < 0x80 || QChar::isLetterOrNumber(code) || QChar::isMark(code);
  });
}

std::optional<std::vector<SimToken>> readSimExpression(const std::string& expression) {
  Reader reader(expression);
  if (!reader.read() || !std::all_of(reader.tokens.begin(), reader.tokens.end(), isOfLetters))
    return std::nullopt;
  return std::move(reader.tokens);
}

std::string writeSimExpression(const std::vector<SimToken>& tokens) {
  std::string text;
  Kind before = Kind::Bracket;
  for (const SimToken& token : tokens) {
    if (token.kind == Kind::Operator && before == Kind::Operator)
      text += ' ';
    text += token.text;
    before = token.kind;
  }
  return text;
}

bool isSimName(const std::string& name, const std::string& other) {
  return std::equal(name.begin(), name.end(), other.begin(), other.end(),
                    [](char a, char b) { return toSmall(a) == toSmall(b); });
}
