#include "Services/Expressions/ScriptExpression.h"

#include "Call/HostFunctions.h"
#include "HostSupport/Numbers.h"
#include "Services/Functions/Functions.h"

#include <QVector>

#include <algorithm>
#include <cstring>

namespace {

constexpr const ExpressionFunction* functions[] = {
    &lengthFunction, &strStrFunction, &parseSimExpressionFunction, &testExpressionUsesMFunction};

/// What is done in order: a value is put on the stack, or a function takes its arguments from there
/// and puts its result in their place.
struct Step {
  const ExpressionFunction* function = nullptr; ///< null for a value
  ScriptVector value;
};

bool isLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         character == '_';
}
bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

/// Goes through an expression, by turns for a value and for what stands behind one.
class Reader {
public:
  explicit Reader(const QByteArray& text) : m_text(text) {}

  std::vector<Step> read() {
    do {
      skipBlanks();
      m_wantsValue ? readValue() : readBehindValue();
      skipBlanks();
    } while (m_at < m_text.size());
    if (m_wantsValue || !m_open.isEmpty())
      fail("ends too early");
    return std::move(m_steps);
  }

private:
  struct Open {
    const ExpressionFunction* function;
    int commas;
  };

  [[noreturn]] void fail(const char* fault) const {
    throw CallError(QStringLiteral("the script expression %1, at character %2")
                        .arg(QLatin1String(fault))
                        .arg(QString::fromUtf8(m_text.left(m_at)).size() + 1));
  }

  char next() const { return m_at < m_text.size() ? m_text.at(m_at) : '\0'; }
  void skipBlanks() {
    while (next() && std::strchr(" \t\r\n", next()))
      ++m_at;
  }

  void readValue() {
    if (next() == '\'')
      readText();
    else if (isLetter(next()))
      readCall();
    else
      readNumber();
  }

  void putValue(ScriptVector value, int end) {
    m_steps.push_back({nullptr, std::move(value)});
    m_at = end;
    m_wantsValue = false;
  }

  void readText() {
    const int end = m_text.indexOf('\'', m_at + 1);
    if (end < 0)
      fail("has a text without an end");
    putValue(ScriptVector::ofStrings({m_text.mid(m_at + 1, end - m_at - 1)}), end + 1);
  }

  void readNumber() {
    const char* start = m_text.constData() + m_at;
    char* end = nullptr;
    const double value = sp_ConvertEngToReal(start, &end);
    if (end == start)
      fail(next() ? "has something that is no value" : "ends too early");
    putValue(ScriptVector::ofReals({value}), m_at + int(end - start));
  }

  void readCall() {
    int end = m_at;
    while (end < m_text.size() && (isLetter(m_text.at(end)) || isDigit(m_text.at(end))))
      ++end;
    const QByteArray name = m_text.mid(m_at, end - m_at);
    const auto* function = std::find_if(std::begin(functions), std::end(functions),
                                        [&name](const auto* each) { return name == each->name; });
    if (function == std::end(functions))
      fail("names something that it cannot call");
    m_at = end;
    skipBlanks();
    if (next() != '(')
      fail("has a function without arguments");
    ++m_at;
    m_open.append({*function, 0});
  }

  void readBehindValue() {
    if (m_open.isEmpty() || (next() != ',' && next() != ')'))
      fail("goes on behind a value");
    Open& open = m_open.last();
    const bool isLast = open.commas + 1 == open.function->arguments;
    if (isLast != (next() == ')'))
      fail("has a function with a wrong number of arguments");
    ++m_at;
    if (isLast)
      m_steps.push_back({m_open.takeLast().function, {}});
    else
      ++open.commas;
    m_wantsValue = !isLast;
  }

  const QByteArray& m_text;
  int m_at = 0;
  bool m_wantsValue = true;
  QVector<Open> m_open;
  std::vector<Step> m_steps;
};

ScriptVector call(const ExpressionFunction& called, const std::vector<ScriptVector>& arguments) {
  const QString name = QLatin1String(called.name);
  const Provider function = hostFunction(name);
  if (!function)
    throw CallError(QStringLiteral("%1: nobody serves it").arg(name));
  try {
    return asArgument(function(arguments));
  } catch (const CallError& refusal) {
    throw CallError(QStringLiteral("%1: %2").arg(name, QString::fromUtf8(refusal.what())));
  }
}

} // namespace

ScriptVector evaluateScriptExpression(const QByteArray& expression) {
  std::vector<ScriptVector> stack;
  for (Step& step : Reader(expression).read()) {
    if (!step.function) {
      stack.push_back(std::move(step.value));
      continue;
    }
    const auto first = stack.end() - step.function->arguments;
    ScriptVector result = call(*step.function, {first, stack.end()});
    stack.erase(first, stack.end());
    stack.push_back(std::move(result));
  }
  return stack.front();
}
