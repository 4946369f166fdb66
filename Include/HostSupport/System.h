#pragma once

#include "HostSupport/Containers.h"
#include "HostSupport/Export.h"
#include "HostSupport/SystemTypes.h"
#include "HostSupport/YString.h"

#include <cstddef>
#include <cstdint>
#include <string>

HOSTSUPPORT_EXPORT OperatingSystem sp_GetOs();
HOSTSUPPORT_EXPORT int sp_GetNumCores();              ///< no more than this process may use
HOSTSUPPORT_EXPORT int sp_GetNumPhysicalProcessors(); ///< packages
HOSTSUPPORT_EXPORT int sp_GetNumLogicalProcessors();  ///< threads that this process may use
HOSTSUPPORT_EXPORT bool sp_GetSystemMemoryInfo(SystemMemoryInfo* info);

/// What this process alone holds in memory, in bytes; 0 where the system does not tell.
HOSTSUPPORT_EXPORT std::uint64_t sp_GetProcessMemory();

/// A named fact of the machine or of the host as text: "memory" (bytes), "cores", "version"
/// ("major.minor"), "caseSensitiveFiles", "hasHelp" ("1" or "0"; known only while it is set).
/// `*found`, which may be null, tells whether there is such a name.
HOSTSUPPORT_EXPORT YString sp_GetSystemValue(const YString& key, bool* found = nullptr);
/// What the host tells instead from now on; null brings the machine's own back. The functions
/// above, `sp_CaseSensitiveFiles`, `sp_GetFileVersion` and `sp_HasHelp` follow.
HOSTSUPPORT_EXPORT void sp_SetSystemValue(const YString& key, const char* value);

/// The address of `function` in a library that is loaded at first use; null where either is
/// missing. `message`, which may be null, is shown to the user through the message sink then.
HOSTSUPPORT_EXPORT void* sp_GetLibraryFunction(const char* library, const char* function, bool,
                                               const char* message, bool);
HOSTSUPPORT_EXPORT bool sp_UnloadLibrary(const char* library);
/// Paths of the libraries in `folder` whose file names, with or without "lib" before them, are of
/// the form `pattern` ("*" any text, "?" a character) and not of one of `exclusions`; sorted. A
/// relative folder, as "devices", is one of the host's own. Returns the count.
HOSTSUPPORT_EXPORT int sp_SearchDLLs(YArray<YString>* found, const char* folder,
                                     const char* pattern, const YArray<YString>& exclusions);

/// Where a fault goes that has no caller to return to: a damaged settings file, say. The default
/// prints to the standard error output. `text` is one line, UTF-8.
using MessageSink = void (*)(const char* text);
HOSTSUPPORT_EXPORT void sp_SetMessageSink(MessageSink sink); ///< null: the default
HOSTSUPPORT_EXPORT void sp_ReportMessage(const char* text);

/// Standard Base64.
class HOSTSUPPORT_EXPORT YBase64Converter {
public:
  virtual ~YBase64Converter() = default;
  virtual YString encode(const void* data, std::size_t size) const = 0;
  /// False, with `out` empty, where the text is not Base64; white space is skipped.
  virtual bool decode(const char* text, std::string* out) const = 0;
};
/// The caller owns it.
HOSTSUPPORT_EXPORT YBase64Converter* kv_CreateYBase64ConverterCore();

/// Failure injection for tests: the n-th file operation of this library from now on fails as a full
/// disk would, and all after it when `andAllAfter`. 0 switches it off. Returns the operations since
/// the last call.
HOSTSUPPORT_EXPORT int sp_FailFileOperation(int n, bool andAllAfter = false);
