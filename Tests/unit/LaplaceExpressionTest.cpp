#include "HostSupport/LaplaceExpression.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <string>

namespace {

using Complex = std::complex<double>;
using Coefficients = std::vector<double>;

std::string repeated(const std::string& text, int count) {
  std::string result;
  for (; count > 0; --count)
    result += text;
  return result;
}

void expectNear(const Coefficients& actual, const Coefficients& expected, const char* text) {
  ASSERT_EQ(actual.size(), expected.size()) << text;
  for (std::size_t i = 0; i < actual.size(); ++i) {
    if (std::isnan(expected[i]))
      EXPECT_TRUE(std::isnan(actual[i])) << text << ", power " << i;
    else
      EXPECT_NEAR(actual[i], expected[i], 1e-12 * std::abs(expected[i])) << text << ", power " << i;
  }
}

TEST(LaplaceExpression, RationalPolynomials) {
  const double nan = std::nan("");
  const struct {
    const char* text;
    Coefficients numerator, denominator;
  } cases[] = {
      {"1/(1+s)", {1}, {1, 1}},
      {"1 / (1 + S*4.7k*10u)", {1}, {1, 0.047}},
      {"s", {0, 1}, {1}},
      {"0", {0}, {1}},
      {"s-s", {0}, {1}},
      {"10k*s/(s^2 + 1k*s + 1Meg)", {0, 1e4}, {1e6, 1e3, 1}},
      {"(s+1)*(s+2)/((s+3)**2)", {2, 3, 1}, {9, 6, 1}},
      {"-s^2", {0, 0, -1}, {1}},
      {"2^3^2*s", {0, 512}, {1}},
      {"s^-2*3", {3}, {0, 0, 1}},
      {"pow(s+1, 3)", {1, 3, 3, 1}, {1}},
      {"1/(s+1) - 2/(s+1)", {-1}, {1, 1}},
      {"1/s + 1/(s+1)", {1, 2}, {0, 1, 1}},
      {"1/(1/s + 1)", {0, 1}, {1, 1}},
      {"s^3/s", {0, 0, 1}, {1}},
      {"(s+2)/4", {0.5, 0.25}, {1}},
      {"1/(1+s/(2*pi*1kHz))", {1}, {1, 1 / (2 * M_PI * 1e3)}},
      {"1/(s^2+sqrt(2)*s+1)", {1}, {1, std::sqrt(2), 1}},
      {"4^0.5*s\r\n\t + -+-1", {1, 2}, {1}},
      {"1/(1+s*{R*{C}})", {1}, {1, nan}},
      {"2us*s", {0, 2e-6}, {1}},
  };
  for (const auto& row : cases) {
    const LaplaceExpression expression(row.text);
    EXPECT_EQ(expression.fault(), LaplaceFault::None) << row.text;
    expectNear(expression.numerator(), row.numerator, row.text);
    expectNear(expression.denominator(), row.denominator, row.text);
  }
}

TEST(LaplaceExpression, FaultsAreNamed) {
  const struct {
    const char* text;
    LaplaceFault fault;
    std::size_t position;
    const char* name = "";
  } cases[] = {
      {nullptr, LaplaceFault::Syntax, 0},
      {" ", LaplaceFault::Syntax, 1},
      {"1/", LaplaceFault::Syntax, 2},
      {"1+*s", LaplaceFault::Syntax, 2},
      {"s s", LaplaceFault::Syntax, 2},
      {"2s", LaplaceFault::Syntax, 0},
      {"1/(2pi*s)", LaplaceFault::Syntax, 3},
      {"1/(1+1e10*s)^20/(1+1e10*s)^20", LaplaceFault::Value, 0},
      {"4k7*s", LaplaceFault::Syntax, 2},
      {"()", LaplaceFault::Syntax, 1},
      {"(1,2)", LaplaceFault::Syntax, 2},
      {"1,2", LaplaceFault::Syntax, 1},
      {"sqrt", LaplaceFault::Syntax, 0},
      {"sqrt()", LaplaceFault::Syntax, 5},
      {"sqrt(s,s)", LaplaceFault::Syntax, 8},
      {"pow(s)", LaplaceFault::Syntax, 5},
      {"table(1,2)", LaplaceFault::Syntax, 9},
      {"1;s", LaplaceFault::Syntax, 1},
      {"\xc3\xa9", LaplaceFault::Syntax, 0},
      {"1/(s+1", LaplaceFault::Parentheses, 6},
      {"foo(s))+", LaplaceFault::Parentheses, 6},
      {")(", LaplaceFault::Parentheses, 0},
      {"{a", LaplaceFault::Parentheses, 2},
      {"s}", LaplaceFault::Parentheses, 1},
      {"1+foo(s)+", LaplaceFault::UnknownName, 2, "foo"},
      {"1/(1+s*Tau_1)", LaplaceFault::UnknownName, 7, "Tau_1"},
      {"s(1)", LaplaceFault::UnknownName, 0, "s"},
      {"1e400", LaplaceFault::Value, 0},
      {"1/0", LaplaceFault::Value, 0},
      {"sqrt(s)/(1-1)", LaplaceFault::Value, 0},
      {"0^-1", LaplaceFault::Value, 0},
      {"ln(0)", LaplaceFault::Value, 0},
      {"s+sqrt(-1)", LaplaceFault::Value, 0},
      {"(1e200*s+1)*(1e200*s-1)", LaplaceFault::Value, 0},
      {"(1e300*s+1e300)*(1e300*s-1e300)", LaplaceFault::Value, 0},
      {"table(1k,-1,0)", LaplaceFault::Value, 0},
      {"table(1k,1,0,1k,1,0)", LaplaceFault::Value, 0},
      {"table(-1,1,0)", LaplaceFault::Value, 0},
      {"table(s,1,0)", LaplaceFault::Value, 0},
  };
  for (const auto& row : cases) {
    const LaplaceExpression expression(row.text);
    const std::string text = row.text ? row.text : "(null)";
    EXPECT_EQ(expression.fault(), row.fault) << text;
    EXPECT_EQ(expression.position(), row.position) << text;
    EXPECT_EQ(expression.unknownName(), row.name) << text;
    EXPECT_FALSE(expression.isRational()) << text;
    EXPECT_TRUE(std::isnan(expression.at({0, 1}).real())) << text;
  }
}

// The same steps, once as polynomials and once in the complex plane.
TEST(LaplaceExpression, ValuesInThePlane) {
  const Complex s(0.3, 1.7);
  const double part = (s.imag() / (2 * M_PI) - 0.2) / 0.2;
  const struct {
    const char* text;
    Complex value;
  } cases[] = {
      {"s^-3", 1.0 / (s * s * s)},
      {"s^0.5", std::sqrt(s)},
      {"exp(-s*2)/(1+s)", std::exp(-2.0 * s) / (1.0 + s)},
      {"tanh(sqrt(s))/sqrt(s)", std::tanh(std::sqrt(s)) / std::sqrt(s)},
      {"2^s", std::pow(2.0, s)},
      {"log(s)-ln(s)+log10(s)", std::log10(s)},
      {"table(0.2,2,0,0.4,4,90,9,0,0)", std::polar(2 + 2 * part, part * M_PI / 2)},
      {"table(9,3,0)", 3},
      {"table(0,3,0,0.1,5,180)", -5},
  };
  for (const auto& row : cases) {
    const LaplaceExpression expression(row.text);
    EXPECT_EQ(expression.fault(), LaplaceFault::None) << row.text;
    EXPECT_LT(std::abs(expression.at(s) - row.value), 1e-12 * (1 + std::abs(row.value)))
        << row.text;
  }
  for (const char* text :
       {"(s+1)^7/(s^2-3*s+{0}^0)", "1/s-1/(s+1)+s/(s^2+2)", "1/(1+1/(1+1/(s+1)))"}) {
    const LaplaceExpression expression(text);
    ASSERT_TRUE(expression.isRational()) << text;
    const auto polynomial = [s](const Coefficients& coefficients) {
      Complex value;
      for (auto each = coefficients.rbegin(); each != coefficients.rend(); ++each)
        value = value * s + *each;
      return value;
    };
    const Complex value = polynomial(expression.numerator()) / polynomial(expression.denominator());
    EXPECT_LT(std::abs(expression.at(s) - value), 1e-12 * std::abs(value)) << text;
  }
}

TEST(LaplaceExpression, WhatIsTooLargeForALumpedNetworkIsStillAnExpression) {
  const struct {
    std::string text;
    std::size_t coefficients; ///< 0: none
  } cases[] = {
      {"s^49", 50},
      {"s^50", 0},
      {"s^1e9", 0},
      {"(s+1)^-49", 1},
      {"(s+1)^50", 0},
      {"s^0.5", 0},
      {"s^-1e9", 0},
      {"s^s", 0},
      {"(s^25+1)^2", 0},
      {"s^{n}", 0},
      {"1^1e9", 1},
      {"exp(s)", 0},
      {"(s*1n)^40", 0}, // its coefficient is too small to be told from none
      {repeated("s*", 48) + "s", 50},
  };
  for (const auto& row : cases) {
    const LaplaceExpression expression(row.text.c_str());
    EXPECT_EQ(expression.fault(), LaplaceFault::None) << row.text;
    EXPECT_EQ(expression.numerator().size(), row.coefficients) << row.text;
  }
}

TEST(LaplaceExpression, NothingTypedTakesLongOrOverflows) {
  constexpr int many = 100000;
  const std::string texts[] = {
      repeated("(", many) + "s" + repeated(")", many),
      repeated("sqrt(", many) + "s" + repeated(")", many),
      repeated("1/(1+", many) + "s" + repeated(")", many),
      repeated("-", many) + "s",
      repeated("s^", many) + "s",
      repeated("(1+s)^49+", many) + "1",
      repeated("{", many) + repeated("}", many),
      "table(" + repeated("1,", 3 * many) + "1,1,1)",
      repeated("(", many),
      repeated("1+", many),
      repeated("9", many) + "*s",
  };
  for (const std::string& text : texts) {
    const auto started = std::chrono::steady_clock::now();
    const LaplaceExpression expression(text.c_str());
    expression.at({0, 1});
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(20))
        << text.substr(0, 20);
  }
  EXPECT_EQ(LaplaceExpression(texts[0].c_str()).numerator(), (Coefficients{0, 1}));
}

} // namespace
