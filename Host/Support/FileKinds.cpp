#include "HostSupport/Files.h"
#include "HostSupport/Options.h"
#include "HostSupport/Parsing.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

/// A kind's name before "Extension" is the option that says otherwise.
struct FileKind {
  const char* name;
  const char* extensions;
};

constexpr FileKind fileKinds[] = {
    {"Schematic", "kvsch"}, {"Symbol", "kvsym"},      {"Component", "kvcmp"}, {"Graph", "kvgraph"},
    {"Script", "js"},       {"Model", "lib;mod;mdl"}, {"Data", "kvdat;csv"},  {"Text", "txt;log"},
    {"LogicDef", "ldf"},    {"Netlist", "net;cir"},   {"VerilogA", "va"},     {"VerilogHDL", "v"},
};

const FileKind* findKind(const char* name) {
  const auto* const found =
      std::find_if(std::begin(fileKinds), std::end(fileKinds),
                   [name](const FileKind& kind) { return sp_CompareNoCase(kind.name, name) == 0; });
  return found != std::end(fileKinds) ? found : nullptr;
}

/// Takes "ext", ".ext" and "*.ext"; what cannot end a file's name is left out, and what is there.
void readExtensions(const char* text, YList<YString>* extensions) {
  YArray<YString> fields;
  sp_ScanLine(text, " \t;,|", &fields, allFields);
  for (YString field : fields) {
    field.stripLeading("*.");
    const bool isThere =
        std::any_of(extensions->begin(), extensions->end(),
                    [&field](const YString& known) { return sp_CompareNoCase(known, field) == 0; });
    if (!field.isEmpty() && !isThere && !std::strpbrk(field, "*?/\\:<>\""))
      extensions->append(field);
  }
}

} // namespace

bool sp_GetKelvarinFileExtension(const char* kind, YList<YString>* extensions) {
  extensions->clear();
  const FileKind* const known = findKind(kind);
  if (!known)
    return false;
  const YString option = YString(known->name).concat("Extension");
  readExtensions(sp_GetStringOption(option), extensions);
  if (extensions->isEmpty())
    readExtensions(known->extensions, extensions);
  return true;
}

YString sp_GetKelvarinDefaultExtension(const char* fileKind) {
  YList<YString> extensions;
  return sp_GetKelvarinFileExtension(fileKind, &extensions) ? *extensions.begin() : YString();
}

namespace {

/// "txt", ".txt" and "*.txt" are "*.txt"; "*" and "*.*" are all files.
YString filterPattern(YString extension) {
  if (extension == "*.*")
    return "*";
  if (std::strpbrk(extension, "*?"))
    return extension;
  extension.stripLeading(".");
  return YString("*.").concat(extension);
}

YString filterEntry(const YString& title, const YString& extensions, const char* separator) {
  YArray<YString> fields;
  sp_ScanLine(extensions, "; \t", &fields, allFields);
  YString patterns;
  for (const YString& field : fields)
    patterns = patterns.concat(patterns.isEmpty() ? "" : separator).concat(filterPattern(field));
  if (patterns.isEmpty())
    return patterns;
  return title.concat(" (").concat(patterns).concat(")");
}

} // namespace

bool sp_CompileFilter(const char* spec, YArray<YString>* out, const char* separator) {
  out->clear();
  if (!spec)
    return false;
  if (std::strchr(spec, '|')) {
    YArray<YString> fields;
    sp_SplitLine(spec, '|', &fields, allFields);
    for (int i = 0; i + 1 < fields.count(); i += 2) {
      const YString entry = filterEntry(fields[i], fields[i + 1], separator ? separator : " ");
      if (!entry.isEmpty())
        out->append(entry);
    }
    return !out->isEmpty();
  }
  for (std::string_view rest = spec; !rest.empty();) {
    const std::size_t end = std::min(rest.find(";;"), rest.size());
    const std::string_view entry = rest.substr(0, end);
    if (entry.find_first_of("*?(") != std::string_view::npos)
      out->append(YString(entry.data(), entry.size()));
    rest.remove_prefix(std::min(end + 2, rest.size()));
  }
  return !out->isEmpty();
}
