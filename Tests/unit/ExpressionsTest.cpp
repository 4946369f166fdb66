// The expressions of circuits, and the strict ones of scripts that ask about them.

#include "HostSupport/KelvarinException.h"
#include "HostSupport/Registry.h"
#include "Services/Expressions/SimExpression.h"
#include "Services/HostServices.h"
#include "vecdll_dynexport.h"

#include <gtest/gtest.h>

#include <random>

namespace {

std::string repeated(const char* text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i)
    all += text;
  return all;
}

std::string written(const std::string& expression) {
  const auto tokens = readSimExpression(expression);
  return tokens ? writeSimExpression(*tokens) : "nothing";
}

/// What modules find, as a text: the number, or why there is none.
std::string evaluated(const std::string& expression) {
  const auto evaluate =
      reinterpret_cast<double (*)(const YString&)>(sp_FindDynFunc(dyn_EvaluateExpression.name));
  try {
    return YString(evaluate(YString(expression.c_str()))).c_str();
  } catch (const KelvarinException& error) {
    return error.message();
  }
}

std::string evaluatedText(const char* expression) {
  const auto evaluate = reinterpret_cast<YString (*)(const YString&)>(
      sp_FindDynFunc(dyn_EvaluateStringExpression.name));
  try {
    return evaluate(YString(expression)).c_str();
  } catch (const KelvarinException& error) {
    return error.message();
  }
}

const int deep = 100'000;

} // namespace

TEST(SimExpression, readsWhatTheSimulatorTakes) {
  const struct {
    std::string expression;
    const char* written;
  } cases[] = {
      {"V(IN1) * V(IN2)", "V(IN1)*V(IN2)"},
      {"v( in+ , U1.out )\n- I(V1#p)", "v(in+,U1.out)-I(V1#p)"},
      {"10kOhm+4.7Meg/1e-3-.5u", "10kOhm+4.7Meg/1e-3-.5u"},
      {"a ? b ? c : d : e ? f : g", "a?b?c:d:e?f:g"},
      {"if(V(1)>=0 && !x, -a**2, a^-2)", "if(V(1)>=0&& !x,-a**2,a^ -2)"},
      {"{2*Rload} % (m | ~n)", "{2*Rload}%(m| ~n)"},
      {"a+++b", "a+ + +b"},
      {"table(V(in), 0, 0, 1, 5)", "table(V(in),0,0,1,5)"},
      {"mine(1, \"file name\") + mine()", "mine(1,\"file name\")+mine()"},
      {"\xc2\xb5_r == i != v", "\xc2\xb5_r==i!=v"},
      {"max(a,b,c) + V (1)", "max(a,b,c)+V(1)"},
      {"\"2\u00b7x\" == a", "\"2\u00b7x\"==a"},
      // what does not parse
      {"", "nothing"},
      {" \n", "nothing"},
      {"V(a", "nothing"},
      {"V()", "nothing"},
      {"V(a,)", "nothing"},
      {"V(a,b,c)", "nothing"},
      {"V(a b)", "nothing"},
      {"I(a,b)", "nothing"},
      {"V((a))", "nothing"},
      {")a(", "nothing"},
      {"(a", "nothing"},
      {"(a}", "nothing"},
      {"a)", "nothing"},
      {"()", "nothing"},
      {"a,b", "nothing"},
      {"(a,b)", "nothing"},
      {"a b", "nothing"},
      {"a +", "nothing"},
      {"* a", "nothing"},
      {"a = b", "nothing"},
      {"a ? b", "nothing"},
      {"a : b", "nothing"},
      {"a ? b : c : d", "nothing"},
      {"a : b ? c", "nothing"},
      {"(a ? b)", "nothing"},
      {"(a ? b) : c", "nothing"},
      {"mine(a ? b, c)", "nothing"},
      {"mine(a,)", "nothing"},
      {"sin()", "nothing"},
      {"sin(a, b)", "nothing"},
      {"pow(a)", "nothing"},
      {"pow(a, b, c)", "nothing"},
      {"1k5", "nothing"},
      {"2.5.3", "nothing"},
      {"0x1F", "nothing"},
      {".", "nothing"},
      {"a'b", "nothing"},
      {"\"open", "nothing"},
      {std::string("a\0b", 3), "nothing"},
      {"gain\u00b7V(1)", "nothing"},
      {"x\u2013y", "nothing"},
      {"2\u00d7x", "nothing"},
      {"M\u200b+1", "nothing"},
      {"a\u2009*b", "nothing"},
      {"\xff", "nothing"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(written(c.expression), c.written) << c.expression;
    if (std::string(c.written) != "nothing") {
      EXPECT_EQ(written(c.written), c.written);
    }
  }
}

TEST(SimExpression, hasNoLimitOfItsOwn) {
  for (const char* const brackets : {"(", "{", "mine("}) {
    const char* const end = *brackets == '{' ? "}" : ")";
    const std::string nested = repeated(brackets, deep) + "1" + repeated(end, deep);
    EXPECT_EQ(written(nested), nested);
    EXPECT_EQ(written(nested + end), "nothing");
    EXPECT_EQ(written(repeated(brackets, deep)), "nothing");
  }
  EXPECT_EQ(written(repeated("1?", deep) + "1" + repeated(":1", deep)).size(), 4u * deep + 1);
  EXPECT_EQ(written(repeated("-", deep) + "1").size(), 2u * deep);
}

TEST(SimExpression, comesBackFromWhatItHasWritten) {
  const char* const pieces[] = {"a",  "1k", "V(n)", "f(", "(", ")", ",", "+", "-",
                                "**", "?",  ":",    "!",  "<", "&", " ", "{", "}"};
  std::mt19937 random(13);
  int read = 0;
  for (int round = 0; round < 200'000; ++round) {
    std::string text;
    for (unsigned i = 0; i <= round % 8u; ++i)
      text += pieces[random() % std::size(pieces)];
    const auto tokens = readSimExpression(text);
    if (!tokens)
      continue;
    ++read;
    const auto again = readSimExpression(writeSimExpression(*tokens));
    ASSERT_TRUE(again) << text;
    ASSERT_EQ(again->size(), tokens->size()) << text;
  }
  EXPECT_GT(read, 2000);
}

TEST(ScriptExpression, isOfCallsTextsAndNumbers) {
  const HostServices services(nullptr);
  const struct {
    std::string expression;
    const char* value;
  } cases[] = {
      {"4.7k", "4700"},
      {" -2 ", "-2"},
      {"length('a text')", "1"},
      {"length(ParseSimExpression('V(a)\n*2', '', '', 'spice'))", "1"},
      {"length(ParseSimExpression('V(a', '', '', 'SPICE'))", "0"},
      {"StrStr('abc', 'c')", "2"},
      {"StrStr('\xc3\xa9"
       "b', 'b')",
       "1"},
      {"StrStr('abc', 'd')", "-1"},
      {"StrStr(ParseSimExpression('2* LOG (x)', 'log,+++', '', 'spice'), '+++')", "2"},
      {"StrStr(ParseSimExpression('log+\"log\"+log10(V(log))', 'log,+++', '', 'spice'), '+++')",
       "-1"},
      {"StrStr(ParseSimExpression('a+++b', 'log,+++', '', 'spice'), '+++')", "-1"},
      {"_TestExpressionUsesM('2*m')", "1"},
      {"_TestExpressionUsesM('(M)')", "1"},
      {"_TestExpressionUsesM('V(m)+m(1)+1m+m1+\"m\"')", "0"},
      {"_TestExpressionUsesM('M+')", "0"},
      // what is no such expression
      {"", "the script expression ends too early, at character 1"},
      {"1 2", "the script expression goes on behind a value, at character 3"},
      {"1 + 2", "the script expression goes on behind a value, at character 3"},
      {"length('a'", "the script expression ends too early, at character 11"},
      {"length('a)", "the script expression has a text without an end, at character 8"},
      {"length()", "the script expression has something that is no value, at character 8"},
      {"length('a', 'b')",
       "the script expression has a function with a wrong number of arguments, at character 11"},
      {"StrStr('a')",
       "the script expression has a function with a wrong number of arguments, at character 11"},
      {"integ(1)", "the script expression names something that it cannot call, at character 1"},
      {"length", "the script expression has a function without arguments, at character 7"},
      {"'text'", "dyn_EvaluateExpression: the expression's value is not one number"},
      {"ParseSimExpression('(', '', '', 'spice')",
       "dyn_EvaluateExpression: the expression's value is not one number"},
      {"StrStr(1, 'a')", "StrStr: argument 1 (text) must be one text, a number was given."},
      {"StrStr(ParseSimExpression('', '', '', 'spice'), 'a')",
       "StrStr: argument 1 (text) must be one text, a vector of 0 was given."},
      {"ParseSimExpression('a', 'b', '', 'spice')",
       "ParseSimExpression: argument 2 (replacements) must be pairs \"from,to\", \"b\" was given."},
      {"ParseSimExpression('a', '', '', 'other')",
       "ParseSimExpression: argument 4 (dialect) must be \"spice\", \"other\" was given."},
  };
  for (const auto& c : cases)
    EXPECT_EQ(evaluated(c.expression), c.value) << c.expression;
  const std::string nested = repeated("length(", deep) + "1" + repeated(")", deep);
  EXPECT_EQ(evaluated(nested), "1");
  EXPECT_NE(evaluated(repeated("length(", deep)), "1");

  EXPECT_EQ(evaluatedText("ParseSimExpression('log(x) + 1', 'log,ln', '', 'spice')"), "ln(x)+1");
  EXPECT_EQ(evaluatedText("StrStr('ab', 'b')"), "1");
  EXPECT_EQ(evaluatedText("ParseSimExpression('(', '', '', 'spice')"),
            "dyn_EvaluateStringExpression: the expression's value is not one text");
}

TEST(ScriptExpression, runsNothingThatSomebodyHasPutIntoATextOfIt) {
  HostServices services(nullptr);
  int calls = 0;
  CallResult one;
  one.type = CallResult::Type::Real;
  one.reals = {1};
  for (const char* name : {"length", "StrStr", "ParseSimExpression", "_TestExpressionUsesM"})
    services.provide(QLatin1String(name), [&](const std::vector<ScriptVector>&) {
      ++calls;
      return one;
    });
  const std::string scripts[] = {"length(ParseSimExpression('E', '', '', 'spice'))",
                                 "StrStr(ParseSimExpression('E', 'log,+++', '', 'spice'), '+++')",
                                 "_TestExpressionUsesM('E')"};
  const char* const texts[] = {
      "'",
      "a'b",
      "a''b",
      "','",
      "a', length('b'), '",
      "a', '', '', 'spice')) length(ParseSimExpression('b",
      "a', '', '', 'spice')), length(ParseSimExpression('b",
      "a', '', '', 'spice'), ParseSimExpression('b",
      "a', '', '', StrStr('b",
      "a') _TestExpressionUsesM('b",
      "a'), _TestExpressionUsesM('b",
      "a', '', '', 'spice'), StrStr('a', 'b",
  };
  for (const std::string& script : scripts) {
    EXPECT_EQ(evaluated(script), "1");
    calls = 0;
    for (const char* text : texts) {
      std::string spliced = script;
      spliced.replace(spliced.find('E', script.find('\'')), 1, text);
      EXPECT_EQ(evaluated(spliced).find("the script expression "), 0u) << spliced;
    }
    EXPECT_EQ(calls, 0) << script;
  }
}
