#include "Frame/ScriptFunction.h"
#include "HostSupport/Registration.h"

// The host unloads the module at exit only where this option says so.
static const MakeOption unloadOption("Dialogs1/Source/main", 31, "UnloadDialogs1Dll", false,
                                     OptionCacheStatus::Cached, false);

extern "C" Q_DECL_EXPORT std::uintptr_t udf_GetFunctionDecls(void** firstDecl, std::uint8_t* flags,
                                                             std::uint32_t* sizes) {
  *flags = 0;
  sizes[0] = userFunctionInterfaceSize;
  sizes[1] = userFunctionDeclSize;
  sizes[2] = userFunctionInterfaceVersion;
  *firstDecl = const_cast<UserFunctionDecl*>(ScriptFunction::head());
  return reinterpret_cast<std::uintptr_t>(*firstDecl);
}
