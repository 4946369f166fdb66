#pragma once

#include "HostSupport/Containers.h"
#include "HostSupport/Export.h"
#include "HostSupport/YString.h"

#include <cstdint>
#include <cstdio>
#include <string>

// Files and paths. All texts are UTF-8. Where a text is a folder it comes without a trailing
// separator unless it is a root.

/// The parts of a path; joined in order they give it back.
struct PathName {
  YString drive;     ///< "C:" or "//server/share", empty elsewhere
  YString directory; ///< with the separators around it
  YString name;      ///< without the extension
  YString extension; ///< with its point
};

/// Version of an executable file or of this host.
struct FileVersion {
  int major = 0;
  int minor = 0;
  int patch = 0;
};

HOSTSUPPORT_EXPORT bool sp_ExistFile(const char* path);
HOSTSUPPORT_EXPORT bool sp_ExistDir(YString path);
HOSTSUPPORT_EXPORT bool sp_MakeDir(const YString& path); ///< one level; true if it is there
HOSTSUPPORT_EXPORT bool sp_MakeTree(YString path);       ///< all levels; true if it is there
/// Makes a folder of this user that is closed to all others, or closes one that stands there; all
/// levels. False, with `errno` set, where it is another user's, or a link of one.
HOSTSUPPORT_EXPORT bool sp_MakePrivateDir(const YString& path);
/// Found out by writing, since permissions do not tell the whole truth.
HOSTSUPPORT_EXPORT bool sp_DirectoryIsWriteable(const YString& path);
HOSTSUPPORT_EXPORT YString sp_GetFullPath(const YString& path);
HOSTSUPPORT_EXPORT YString sp_GetDirFromPath(const char* path);
HOSTSUPPORT_EXPORT void sp_SplitPath(YString path, PathName* parts);
HOSTSUPPORT_EXPORT YString sp_GetCwd();
/// The folder of the option "TempDataDir", made where it is missing; the platform's where none is
/// chosen, or none with a whole path that can be made and written to.
HOSTSUPPORT_EXPORT YString sp_GetTempPath();
HOSTSUPPORT_EXPORT YString
sp_GetTempFile(); ///< a fresh name in the temporary folder; the file exists
HOSTSUPPORT_EXPORT YString sp_GetExeDir();
HOSTSUPPORT_EXPORT YString sp_GetExeFileName();
/// Of this program where `path` is empty or its own file; false where the file tells none.
HOSTSUPPORT_EXPORT bool sp_GetFileVersion(const YString& path, FileVersion* version);
/// This program's version in numbers, any of which may be null; false, and zeros, where it has
/// none.
HOSTSUPPORT_EXPORT bool sp_GetVersionValues(int* major, int* minor, int* patch = nullptr);
/// "Documents", "Desktop", "Home", "AppData" (the host's settings), "Temp"; empty for another word.
HOSTSUPPORT_EXPORT YString sp_GetKnownFolderPath(const YString& folder);
HOSTSUPPORT_EXPORT YString sp_ConvertLocalToUnix(const YString& path); ///< separators to "/"
HOSTSUPPORT_EXPORT YString sp_ConvertUnixToLocal(const YString& path); ///< "/" to the platform's
/// Expands a leading symbolic prefix in any case: "%EXEPATH%", or a folder that
/// `sp_GetKnownFolderPath` knows, such as "%DOCUMENTS%". A text without a prefix stays as it is.
/// False where the prefix is unknown; `*out` is then the text as given.
HOSTSUPPORT_EXPORT bool sp_TranslateSystemPath(const char* path, YString* out);
HOSTSUPPORT_EXPORT bool sp_CaseSensitiveFiles();
/// Whether a file lies in the folder of the symbols that come with the host: that of the option
/// "SymbolsDir", or where it is not set the one beside the program. The file need not exist.
HOSTSUPPORT_EXPORT bool sp_IsSystemSymbolLib(const YString& path);
HOSTSUPPORT_EXPORT std::FILE* fopen_utf8(const char* path, const char* mode);
HOSTSUPPORT_EXPORT int unlink_utf8(const char* path);

/// No file that a user or a script names is read where it is longer, unless the reader says so.
constexpr std::uint64_t largestPlainFile = 250'000'000; // bytes
/// Opens for reading what somebody has named. It must be a plain file: a pipe or a device may never
/// come to its end. Null, with the reason in `*fault`, which may be null, where it is none, is
/// longer than `limit` bytes or cannot be opened; the reason follows the words "NAME: ".
HOSTSUPPORT_EXPORT std::FILE* sp_OpenPlainFile(const char* path, YString* fault,
                                               std::uint64_t limit = largestPlainFile);
/// The whole of such a file. False, with `bytes` empty, as `sp_OpenPlainFile` is null.
HOSTSUPPORT_EXPORT bool sp_ReadPlainFile(const char* path, std::string* bytes, YString* fault,
                                         std::uint64_t limit = largestPlainFile);
/// Makes a new file for writing, which its owner alone may read. What bears the name is removed,
/// never written through: it may be a pipe, or a link to a file that is none of ours. Null with
/// `errno` set.
HOSTSUPPORT_EXPORT std::FILE* sp_CreateFile(const char* path);

/// One line without its line break (LF, CRLF or CR); any length, NUL bytes dropped. False at the
/// end of the file.
HOSTSUPPORT_EXPORT bool sp_ReadNextLine(std::FILE* file, YString* line);
/// Without a point; empty for an unknown kind. Kinds: "Schematic", "Symbol", "Component", "Graph",
/// "Script", "Model", "Data", "Text", "LogicDef", "Netlist", "VerilogA", "VerilogHDL". The option
/// of the kind's name and "Extension" says otherwise; it may hold several, as "sym;lib".
HOSTSUPPORT_EXPORT YString sp_GetKelvarinDefaultExtension(const char* fileKind);
/// All extensions of a kind, the default first; false for an unknown kind.
HOSTSUPPORT_EXPORT bool sp_GetKelvarinFileExtension(const char* kind, YList<YString>* extensions);
/// A file dialog's filters from the host's form, titles and extensions in turn:
/// "Title|ext;ext|Title2|ext" gives "Title (*.ext *.ext)" and "Title2 (*.ext)". An extension may
/// have its point or be a pattern ("*", "data?.txt"); `separator` joins the patterns of one entry,
/// usually " ". A text without a bar holds filters in that form already, joined by ";;", and is cut
/// there. False, with `out` empty, where `spec` holds no pattern.
HOSTSUPPORT_EXPORT bool sp_CompileFilter(const char* spec, YArray<YString>* out,
                                         const char* separator);

/// Where options, settings and geometry live; made when first written.
HOSTSUPPORT_EXPORT YString sp_GetSettingsDir();
/// Moves them (an empty text: back to the platform's usual place). Before anything is read.
HOSTSUPPORT_EXPORT void sp_SetSettingsDir(const YString& path);
