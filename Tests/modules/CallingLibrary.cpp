#include "HostSupport/System.h"

#include <QtGlobal>

namespace {

int callsOfTheHost = 0;

/// What a library's initialisers and destructors may do: ask the host for whatever it has, other
/// libraries included.
struct Caller {
  Caller() { askTheHost(); }
  ~Caller() { askTheHost(); }
  static void askTheHost() {
    bool found = false;
    sp_GetSystemValue("cores", &found);
    void* function = sp_GetLibraryFunction("libm.so.6", "sin", false, "", false);
    if (found && function && !sp_GetLibraryFunction("/nonexistent.so", "f", false, "", false))
      ++callsOfTheHost;
  }
};

const Caller caller;

} // namespace

extern "C" Q_DECL_EXPORT int callsWhileLoading() {
  return callsOfTheHost;
}
