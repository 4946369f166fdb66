#include "HostWidgets/Spinner.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <dlfcn.h>

// Loading and unloading the module in a process that has Qt and the host libraries already, against
// a library with nothing in it.

namespace {

void loadModule(benchmark::State& state, const char* file) {
  for (auto _ : state) {
    void* module = dlopen(file, RTLD_NOW | RTLD_LOCAL);
    if (!module) {
      state.SkipWithError(dlerror());
      return;
    }
    dlclose(module);
  }
  if (dlopen(file, RTLD_NOW | RTLD_NOLOAD))
    state.SkipWithError("the library stayed loaded: every round but the first measured nothing");
}

BENCHMARK_CAPTURE(loadModule, empty, KV_EMPTY_MODULE_FILE)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(loadModule, dialogs1, KV_MODULE_FILE)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const Spinner spinner;
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
