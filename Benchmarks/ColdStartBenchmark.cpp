#include <benchmark/benchmark.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>

// A cold process that shows the same box of four numbers: dialoghost with a script, against a bare
// Qt program. Each writes a line once the box has been painted; the clock stops there.

namespace {

/// Starts the program; the seconds until it has written something, or below 0 if it failed.
double secondsToFirstOutput(char* const* arguments) {
  int ends[2];
  if (pipe(ends) != 0)
    return -1;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addclose(&actions, ends[0]);
  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  const bool started =
      posix_spawn(&child, arguments[0], &actions, nullptr, arguments, environ) == 0;
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  char byte = 0;
  const bool painted = started && read(ends[0], &byte, 1) == 1;
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  while (painted && read(ends[0], &byte, 1) == 1)
    continue;
  close(ends[0]);
  int status = 1;
  if (started)
    waitpid(child, &status, 0);
  return painted && status == 0 ? taken.count() : -1;
}

void run(benchmark::State& state, char* const* arguments) {
  for (auto _ : state) {
    const double seconds = secondsToFirstOutput(arguments);
    if (seconds < 0) {
      state.SkipWithError("the program failed");
      return;
    }
    state.SetIterationTime(seconds);
  }
}

void bareProgram(benchmark::State& state) {
  char program[] = KV_BARE_DIALOG;
  char* arguments[] = {program, nullptr};
  run(state, arguments);
}

void dialoghostEval(benchmark::State& state) {
  char program[] = KV_DIALOGHOST;
  char verb[] = "eval";
  char text[] = "host.onDialog(d => { print('painted'); d.reject(); });"
                "ValueDialog([1, 2, 3, 4], ['a', 'b', 'c', 'd'])";
  char* arguments[] = {program, verb, text, nullptr};
  run(state, arguments);
}

BENCHMARK(bareProgram)->Unit(benchmark::kMillisecond)->MinTime(2)->UseManualTime();
BENCHMARK(dialoghostEval)->Unit(benchmark::kMillisecond)->MinTime(2)->UseManualTime();

} // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
