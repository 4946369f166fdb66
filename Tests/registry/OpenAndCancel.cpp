#include "TestHost.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <malloc.h>

// Thousands of openings of each function's dialog in one process, cancelled: in the second half of
// them memory must not grow. Counted in bytes that the program holds, not in pages, so that it is
// exact; a sanitizer's quarantine would spoil it, and the test is left out there. KV_OPENINGS=10000
// opens all of them that often, which takes its time.

namespace {

constexpr int fewestOpenings = 600;
constexpr int mostOpenings = 2000;
constexpr qint64 longest = 3000; // milliseconds, for a dialog that takes its time to open
// The smallest block of the heap has 32 bytes; caches of Qt's go on filling a little.
constexpr std::size_t allowedPerOpening = 16;

std::size_t heldBytes() {
  return mallinfo2().uordblks;
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

  std::vector<std::size_t> held; // after each opening
  QElapsedTimer time;
  time.start();
  const int fewest = times > 0 ? times : fewestOpenings;
  const int most = times > 0 ? times : mostOpenings;
  held.reserve(static_cast<std::size_t>(most));
  for (int i = 0; i < fewest || (i < most && time.elapsed() < longest); ++i) {
    QWidget* opened = nullptr;
    const auto watching = QObject::connect(&host.driver(), &DialogDriver::dialogReady,
                                           [&](QWidget* dialog) { opened = dialog; });
    host.driver().beginScope();
    host.driver().onDialog([](QWidget* dialog) { static_cast<QDialog*>(dialog)->reject(); });
    const CallResult result = callHandler(*info, arguments);
    host.driver().endScope();
    QObject::disconnect(watching);
    ASSERT_TRUE(opened) << "opening " << i;
    held.push_back(heldBytes());
  }
  // The least of each half: caches come and go.
  const auto half = held.begin() + static_cast<std::ptrdiff_t>(held.size() / 2);
  const std::size_t before = *std::min_element(held.begin() + (half - held.begin()) / 2, half);
  const std::size_t after = *std::min_element(half + (held.end() - half) / 2, held.end());
  std::printf("%s: %zu openings, %zu bytes held at first, %zu at the end\n", qPrintable(function),
              held.size(), before, after);
  EXPECT_LT(after, before + allowedPerOpening * held.size() / 2) << function.toStdString();
  EXPECT_TRUE(host.driver().failures().isEmpty());
}

} // namespace

TEST(OpenAndCancel, MemoryDoesNotGrow) {
  const int given = qEnvironmentVariableIntValue("KV_OPENINGS");
  for (const QString& sample : TestHost::sampleFiles())
    if (TestHost::instance().table().find(QFileInfo(sample).baseName())) // one call of each
      openAndCancel(sample, given);
}
