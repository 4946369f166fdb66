#include "TestHost.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <limits>
#include <malloc.h>

// Opens each function's dialog hundreds of times in one process and cancels it: memory must not go
// on growing. Counted in bytes that the program holds, not in pages, so that it is exact; a
// sanitizer's quarantine would spoil it, and the test is left out there. KV_OPENINGS=10000 opens
// all of them at least that often, which takes its time.

namespace {

constexpr int openingsInRound = 300;
// Caches fill in their own time, with the first dialog above all; what leaks grows in each round.
constexpr int mostRounds = 12;
// The smallest block of the heap has 32 bytes.
constexpr std::size_t allowedPerOpening = 16;

std::size_t heldBytes() {
  return mallinfo2().uordblks;
}

/// Opens and cancels the dialog; the least that was held after one of the last half of openings.
std::size_t leastHeld(const FunctionInfo& function, const std::vector<ScriptVector>& arguments,
                      int openings) {
  TestHost& host = TestHost::instance();
  std::size_t least = std::numeric_limits<std::size_t>::max();
  for (int i = 0; i < openings; ++i) {
    QWidget* opened = nullptr;
    const auto watching = QObject::connect(&host.driver(), &DialogDriver::dialogReady,
                                           [&](QWidget* dialog) { opened = dialog; });
    host.driver().beginScope();
    host.driver().onDialog([](QWidget* dialog) { static_cast<QDialog*>(dialog)->reject(); });
    const CallResult result = callHandler(function, arguments);
    host.driver().endScope();
    QObject::disconnect(watching);
    EXPECT_TRUE(opened) << "opening " << i;
    if (i >= openings / 2)
      least = std::min(least, heldBytes());
  }
  return least;
}

void openAndCancel(const QString& sample, int times) {
  TestHost& host = TestHost::instance();
  QFile file(sample);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  // The call is taken from the sample once and repeated, so that the script engine's own memory
  // stays out of the count.
  QString function;
  QString argumentsJson;
  const auto connection = QObject::connect(&host.engine(), &ScriptEngine::called,
                                           [&](const QString& name, const QString& arguments) {
                                             function = name;
                                             argumentsJson = arguments;
                                           });
  host.runSample(sample, [](DialogActions& dialog) { dialog.reject(); });
  QObject::disconnect(connection);
  const FunctionInfo* info = host.table().find(function);
  ASSERT_TRUE(info);
  if (info->kind != FunctionInfo::Kind::Legacy)
    return;
  std::vector<ScriptVector> arguments;
  const QJsonArray given = QJsonDocument::fromJson(argumentsJson.toUtf8()).array();
  for (const QJsonValue& argument : given) {
    const QJsonArray elements = argument.isArray() ? argument.toArray() : QJsonArray{argument};
    ScriptVector vector;
    for (const QJsonValue& element : elements) {
      if (element.isString()) {
        vector.type = UserString;
        vector.strings.push_back(element.toString().toUtf8());
      } else {
        vector.reals.push_back(element.toDouble());
      }
    }
    arguments.push_back(vector);
  }

  const int openings = times > 0 ? times / 2 : openingsInRound;
  const std::size_t allowed = allowedPerOpening * static_cast<std::size_t>(openings);
  std::size_t before = leastHeld(*info, arguments, openings);
  std::size_t after = before;
  bool grows = true;
  for (int round = 1; round < mostRounds && grows && !testing::Test::HasFatalFailure(); ++round) {
    after = leastHeld(*info, arguments, openings);
    grows = after > before + allowed;
    std::printf("%s: %zu bytes held after %d openings, %zu after as many more\n",
                qPrintable(function), before, round * openings, after);
    before = after;
  }
  EXPECT_FALSE(grows) << function.toStdString();
  EXPECT_TRUE(host.driver().failures().isEmpty());
}

} // namespace

TEST(OpenAndCancel, MemoryDoesNotGrow) {
  const int given = qEnvironmentVariableIntValue("KV_OPENINGS");
  // What all dialogs share, of fonts above all, is made with the first of them.
  TestHost::instance().runSample(TestHost::sampleFiles().first(),
                                 [](DialogActions& dialog) { dialog.reject(); });
  for (const QString& sample : TestHost::sampleFiles())
    if (TestHost::instance().table().find(QFileInfo(sample).baseName())) // one call of each
      openAndCancel(sample, given);
}
