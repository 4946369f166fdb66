#include "ServedEntries.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QFileInfo>

#include <algorithm>
#include <functional>
#include <limits>
#include <malloc.h>

// Calls each function, command and entry hundreds of times in one process and cancels its dialog:
// memory must not go on growing. Counted in bytes that the program holds, not in pages, so that it
// is exact; a sanitizer's quarantine would spoil it, and the test is left out there.
// KV_OPENINGS=10000 calls all of them at least that often, which takes its time.

namespace {

constexpr int callsInRound = 300;
// Caches fill in their own time, with the first dialog above all; what leaks grows in each round.
constexpr int mostRounds = 12;
// The smallest block of the heap has 32 bytes.
constexpr std::size_t allowedPerCall = 16;

std::size_t heldBytes() {
  return mallinfo2().uordblks;
}

/// A call that is repeated; whether it opens a dialog that it waits for.
struct Call {
  std::string name;
  bool opensDialog;
  std::function<void()> make;
};

/// Makes the call and cancels its dialog; the least that was held after one of the last half.
std::size_t leastHeld(const Call& call, int times) {
  TestHost& host = TestHost::instance();
  std::size_t least = std::numeric_limits<std::size_t>::max();
  for (int i = 0; i < times; ++i) {
    bool opened = false;
    host.driver().beginScope();
    if (call.opensDialog)
      host.driver().onDialog([&opened](QWidget* dialog) {
        opened = true;
        static_cast<QDialog*>(dialog)->reject();
      });
    call.make();
    host.driver().endScope();
    host.closeDetachedWindows();
    EXPECT_EQ(opened, call.opensDialog) << "call " << i;
    if (i >= times / 2)
      least = std::min(least, heldBytes());
  }
  return least;
}

void expectNoGrowth(const Call& call) {
  const int given = qEnvironmentVariableIntValue("KV_OPENINGS");
  const int times = given > 0 ? given / 2 : callsInRound;
  const std::size_t allowed = allowedPerCall * static_cast<std::size_t>(times);
  std::size_t before = leastHeld(call, times);
  std::size_t after = before;
  bool grows = true;
  for (int round = 1; round < mostRounds && grows && !testing::Test::HasFatalFailure(); ++round) {
    after = leastHeld(call, times);
    grows = after > before + allowed;
    std::printf("%s: %zu bytes held after %d calls, %zu after as many more\n", call.name.c_str(),
                before, round * times, after);
    before = after;
  }
  EXPECT_FALSE(grows) << call.name;
  EXPECT_TRUE(TestHost::instance().driver().failures().isEmpty());
}

/// A sample of a command runs as it is.
Call callOf(const QString& sample) {
  const SampleCall call = TestHost::instance().callIn(sample);
  const bool opens = TestHost::opensDialog(sample);
  if (call.function && call.function->kind != FunctionInfo::Kind::Command)
    return {call.function->name.toStdString(), opens,
            [call] { callHandler(*call.function, call.arguments); }};
  return {QFileInfo(sample).baseName().toStdString(), opens,
          [sample] { TestHost::instance().engine().runFile(sample); }};
}

Call callOf(const DynFuncDefRecord& record) {
  const ServedEntry* entry = servedEntry(record.name);
  EXPECT_TRUE(entry) << "ServedEntries.cpp does not say how to call " << record.name;
  return {record.name, entry && entry->opensDialog,
          [entry, record] { entry ? entry->call(record.entry, 0) : void(); }};
}

} // namespace

TEST(OpenAndCancel, MemoryDoesNotGrow) {
  TestHost& host = TestHost::instance();
  // What all dialogs share, of fonts above all, is made with the first of them.
  host.runSample(TestHost::sampleFiles().first(), [](DialogActions& dialog) { dialog.reject(); });
  for (const QString& sample : TestHost::allSampleFiles())
    if (host.table().find(QFileInfo(sample).baseName())) // one call of each
      expectNoGrowth(callOf(sample));
  for (const LoadedModule* module : {&host.module(), &host.echoModule()})
    for (const DynFuncDefRecord& record : module->served)
      expectNoGrowth(callOf(record));
}
