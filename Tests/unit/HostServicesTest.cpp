// Providers that are no scripts, in the place of the host's own.

#include "Services/HostServices.h"

#include "Call/HostFunctions.h"
#include "HostSupport/KelvarinException.h"
#include "HostSupport/Registry.h"
#include "graphimagecapture_dynexport.h"
#include "vecdll_dynexport.h"

#include <gtest/gtest.h>

namespace {

const QString integ = QStringLiteral("integ");

CallResult reals(std::vector<double> y, std::vector<double> x = {}) {
  CallResult result;
  result.type = CallResult::Type::Real;
  result.reals = std::move(y);
  result.references = std::move(x);
  return result;
}

Provider giving(const CallResult& result) {
  return [result](const std::vector<ScriptVector>&) { return result; };
}

/// The entry as a module finds it; null where it is unresolved.
template <class Signature> auto found(const DynEntry<Signature>& entry) {
  return reinterpret_cast<typename DynEntry<Signature>::Function>(sp_FindDynFunc(entry.name));
}

template <class Action> std::string raised(Action action) {
  try {
    action();
  } catch (const KelvarinException& error) {
    return error.message();
  }
  return "nothing";
}

} // namespace

TEST(HostServices, asksTheProviderOfAnEntry) {
  HostServices services(nullptr);
  const QString name = QLatin1String(dyn_EvaluateExpression.name);
  services.provide(name, [](const std::vector<ScriptVector>& arguments) {
    return reals({arguments.at(0).strings.at(0).size() / 2.0});
  });
  const auto evaluate = found(dyn_EvaluateExpression);
  ASSERT_TRUE(evaluate);
  EXPECT_EQ(evaluate(YString("abc")), 1.5);

  CallResult text;
  text.type = CallResult::Type::String;
  text.strings = {"2"};
  for (const CallResult& wrong : {CallResult(), reals({}), reals({1, 2}), text}) {
    services.provide(name, giving(wrong));
    EXPECT_EQ(raised([&] { evaluate(YString("1")); }),
              "dyn_EvaluateExpression: its provider must give a number");
  }
  services.withdraw(name);
  EXPECT_FALSE(found(dyn_EvaluateExpression));
  EXPECT_EQ(raised([&] { evaluate(YString("1")); }), "dyn_EvaluateExpression: nobody serves it");
  services.restore(name);
  EXPECT_EQ(found(dyn_EvaluateExpression)(YString("2")), 2);
}

TEST(HostServices, takesCurvesFromAProvider) {
  HostServices services(nullptr);
  const QString name = QLatin1String(dyn_GraphImageCapture.name);
  const auto capture = found(dyn_GraphImageCapture);
  GraphImageCaptureRecord picture, settled;
  KvVector<double> x, y;
  services.provide(name, giving(CallResult()));
  EXPECT_FALSE(capture(picture, &settled, &x, &y));
  services.provide(name, giving(reals({3, 4}, {1, 2})));
  EXPECT_TRUE(capture(picture, &settled, &x, &y));
  EXPECT_EQ(x.values(), (std::vector<double>{1, 2}));
  EXPECT_EQ(y.values(), (std::vector<double>{3, 4}));
  services.provide(name, giving(reals({3, 4}, {1})));
  EXPECT_EQ(raised([&] { capture(picture, &settled, &x, &y); }),
            "dyn_GraphImageCapture: its provider must give y and x, as many of both");
}

TEST(HostServices, endWithWhoChangedThemLast) {
  ScriptVector line = ScriptVector::ofReals({1, 1});
  line.references = {0, 2};
  auto first = std::make_unique<HostServices>(nullptr);
  first->provide(integ, giving(reals({5})));
  EXPECT_EQ(hostFunction(integ)({}), reals({5}));
  auto second = std::make_unique<HostServices>(nullptr);
  EXPECT_EQ(hostFunction(integ)({}), reals({5}));
  second->provide(integ, giving(reals({6})));
  first.reset();
  EXPECT_EQ(hostFunction(integ)({}), reals({6}));
  second->withdraw(integ);
  EXPECT_FALSE(hostFunction(integ));
  second.reset();
  EXPECT_EQ(hostFunction(integ)({line}), reals({0, 2}, {0, 2}));
}
