// What the host's numeric functions refuse, and with which words.

#include "Services/HostServices.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

ScriptVector curve(std::vector<double> y, std::vector<double> x) {
  ScriptVector vector = ScriptVector::ofReals(std::move(y));
  vector.references = std::move(x);
  return vector;
}

ScriptVector reals(std::vector<double> values) {
  return ScriptVector::ofReals(std::move(values));
}

const ScriptVector line = curve({1, 2}, {0, 1});
const ScriptVector text = ScriptVector::ofStrings({"capacitor"});

CallResult call(const char* name, const std::vector<ScriptVector>& arguments) {
  return HostServices::service(QString::fromLatin1(name)).own(arguments);
}

} // namespace

TEST(NumericFunctions, refusesWithASentence) {
  const struct {
    const char* function;
    std::vector<ScriptVector> arguments;
    const char* message;
  } cases[] = {
      {"interp", {line}, "takes 2 to 4 arguments, 1 was given."},
      {"integ", {}, "takes 1 argument, none was given."},
      {"YFromX", {line, line, line, line}, "takes 2 to 3 arguments, 4 were given."},
      {"integ",
       {text},
       "argument 1 (curve) must be a real vector with x values, a text was given."},
      {"integ",
       {reals({1, 2})},
       "argument 1 (curve) must be a real vector with x values, one without was given."},
      {"integ",
       {curve({1, notANumber}, {0, 1})},
       "argument 1 (curve) must hold numbers of at most 1e+150, nan was given."},
      {"PWLCurveFit",
       {curve({1, 2}, {0, -infinity}), reals({2})},
       "argument 1 (curve) must hold numbers of at most 1e+150, -inf was given."},
      {"YFromX", {line, text}, "argument 2 (x) must be a number, a text was given."},
      {"YFromX", {line, reals({})}, "argument 2 (x) must be a number, an empty vector was given."},
      {"YFromX",
       {line, reals({1}), reals({2})},
       "argument 3 (order) must be 1, linear, 2 was given."},
      {"PWLCurveFit",
       {line, reals({0.9})},
       "argument 2 (segments) must be from 1 to 2147483647, 0.9 was given."},
      {"PWLCurveFit",
       {line, reals({notANumber})},
       "argument 2 (segments) must hold numbers of at most 1e+150, nan was given."},
      {"PWLCurveFit",
       {line, reals({2}), reals({1})},
       "argument 3 (kind) must be a text, a number was given."},
      {"interp",
       {line, reals({1e9})},
       "argument 2 (points) must be from 0 to 1000000, 1e+09 was given."},
      {"interp",
       {line, reals({0}), reals({1})},
       "argument 4 (interval and offset) must be more than 0 where no number of points is given, "
       "0 was given."},
      {"interp",
       {line, reals({0}), reals({1}), reals({0.5, -1})},
       "argument 4 (interval and offset) must be 0 or more, -1 was given."},
      {"interp",
       {line, reals({0}), reals({1}), reals({1e-9, 0})},
       "argument 4 (interval and offset) must be enough for 1000000 points at most, 1e-09 was "
       "given."},
  };
  for (const auto& c : cases)
    try {
      call(c.function, c.arguments);
      ADD_FAILURE() << c.message;
    } catch (const CallError& error) {
      EXPECT_STREQ(error.what(), c.message);
    }
}

TEST(NumericFunctions, takesWhatDialogsPass) {
  const CallResult spaced = call("interp", {line, reals({0}), reals({1}), reals({0.5, 0.25})});
  EXPECT_EQ(spaced.references, (std::vector<double>{0.25, 0.75}));
  EXPECT_EQ(spaced.reals, (std::vector<double>{1.25, 1.75}));

  const ScriptVector nothing = curve({}, {});
  for (const auto& arguments :
       {std::pair("interp", std::vector<ScriptVector>{nothing, reals({1000}), reals({1})}),
        std::pair("YFromX", std::vector<ScriptVector>{nothing, reals({1})}),
        std::pair("integ", std::vector<ScriptVector>{nothing}),
        std::pair("PWLCurveFit", std::vector<ScriptVector>{nothing, reals({2}), text})}) {
    const CallResult result = call(arguments.first, arguments.second);
    EXPECT_TRUE(result.made() && result.reals.empty()) << arguments.first;
  }
  // A number of segments with a fraction, and one that no curve has.
  EXPECT_EQ(call("PWLCurveFit", {curve({0, 1, 5}, {0, 1, 2}), reals({1.9})}).reals,
            (std::vector<double>{0, 5}));
  EXPECT_EQ(call("PWLCurveFit", {line, reals({1e9})}).reals, line.reals);
}
