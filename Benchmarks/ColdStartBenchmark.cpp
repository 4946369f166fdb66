#include <benchmark/benchmark.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

// A cold process that shows four numbers once: dialoghost with its script, against a bare Qt
// program.

namespace {

void runProcess(benchmark::State& state, char* const* arguments) {
  for (auto _ : state) {
    pid_t child = 0;
    int status = 0;
    if (posix_spawn(&child, arguments[0], nullptr, nullptr, arguments, environ) != 0 ||
        waitpid(child, &status, 0) != child || status != 0) {
      state.SkipWithError("the program failed");
      return;
    }
  }
}

void bareProgram(benchmark::State& state) {
  char program[] = KV_BARE_DIALOG;
  char* arguments[] = {program, nullptr};
  runProcess(state, arguments);
}

void dialoghostEval(benchmark::State& state) {
  char program[] = KV_DIALOGHOST;
  char verb[] = "eval";
  char text[] = "host.onDialog(d => d.reject()); ValueDialog([1,2,3,4],['a','b','c','d']).length";
  char* arguments[] = {program, verb, text, nullptr};
  runProcess(state, arguments);
}

BENCHMARK(bareProgram)->Unit(benchmark::kMillisecond)->MinTime(3)->UseRealTime();
BENCHMARK(dialoghostEval)->Unit(benchmark::kMillisecond)->MinTime(3)->UseRealTime();

} // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
