#include "HostSupport/Files.h"

#include "HostSupport/Options.h"
#include "HostSupport/System.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

class Files : public testing::Test {
protected:
  void SetUp() override {
    m_folder = sp_GetTempFile(); // a name of its own, then a folder of that name
    ASSERT_EQ(unlink_utf8(m_folder), 0);
    ASSERT_TRUE(sp_MakeDir(m_folder));
  }
  void TearDown() override {
    sp_SetSettingsDir("");
    sp_FailFileOperation(0);
    fs::remove_all(m_folder.c_str());
  }
  YString below(const char* name) const { return m_folder.concat("/").concat(name); }
  YString write(const char* name, const std::string& bytes) const {
    YString path = below(name);
    std::FILE* file = fopen_utf8(path, "wb");
    EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file), bytes.size());
    std::fclose(file);
    return path;
  }
  YString m_folder;
};

TEST_F(Files, LinesOfEveryLengthAndEnding) {
  const std::string longLine(3'000'000, 'x');
  const struct {
    std::string bytes;
    std::vector<std::string> lines;
  } cases[] = {{"", {}},
               {"\n", {""}},
               {"a\nb", {"a", "b"}},
               {"a\r\nb\r\n", {"a", "b"}},
               {"a\rb\r", {"a", "b"}},
               {"a\n\r\n\rb", {"a", "", "", "b"}},
               {"\r\r\n\n", {"", "", ""}},
               {std::string("a\0b\0\nc", 6), {"ab", "c"}},
               {std::string("\0", 1), {""}},
               {longLine + "\n" + std::string(512, 'y') + "\n" + std::string(511, 'z'),
                {longLine, std::string(512, 'y'), std::string(511, 'z')}},
               {"\xff\xfe\n", {"\xff\xfe"}}};
  for (const auto& example : cases) {
    std::FILE* file = fopen_utf8(write("lines.txt", example.bytes), "rb");
    std::vector<std::string> lines;
    YString line;
    while (sp_ReadNextLine(file, &line))
      lines.emplace_back(line.c_str(), line.length());
    EXPECT_TRUE(line.isEmpty());
    std::fclose(file);
    EXPECT_TRUE(lines == example.lines) << example.bytes.substr(0, 20);
  }
  YString line("left over");
  EXPECT_FALSE(sp_ReadNextLine(nullptr, &line));
  EXPECT_TRUE(line.isEmpty());
}

TEST_F(Files, OnlyPlainFilesAreRead) {
  const std::string bytes("a\0\r\n\xff", 5);
  write("plain", bytes);
  std::ofstream(below("huge")).seekp(3'000'000'000 - 1).put('x'); // a hole, which takes no room
  ASSERT_EQ(mkfifo(below("pipe"), 0600), 0);
  fs::create_symlink("plain", below("link").c_str());
  fs::create_symlink("pipe", below("linked pipe").c_str());
  fs::create_symlink("none", below("astray").c_str());
  fs::create_symlink("circle", below("circle").c_str());
  const struct {
    YString path;
    const char* fault;
  } cases[] = {{below("plain"), ""},
               {below("link"), ""},
               {"/proc/self/status", ""}, // says that it is empty
               {below("none"), "No such file or directory"},
               {below("astray"), "No such file or directory"},
               {YString(), "No such file or directory"},
               {m_folder, "it is a folder"},
               {below("pipe"), "it is not a plain file"},
               {below("linked pipe"), "it is not a plain file"},
               {"/dev/zero", "it is not a plain file"},
               {below("plain/below"), "No such file or directory"},
               {below("circle"), "Too many levels of symbolic links"},
               {below("huge"), "it has 3 GB, and no more than 250 MB are read"}};
  for (const auto& example : cases) {
    std::string read("left over");
    YString fault;
    EXPECT_EQ(sp_ReadPlainFile(example.path, &read, &fault), !*example.fault) << example.path;
    EXPECT_STREQ(fault, example.fault) << example.path;
    EXPECT_EQ(read.empty(), *example.fault != '\0') << example.path;
  }
  std::string read;
  YString fault;
  EXPECT_TRUE(sp_ReadPlainFile(below("plain"), &read, nullptr, bytes.size()));
  EXPECT_EQ(read, bytes);
  EXPECT_FALSE(sp_ReadPlainFile("/proc/self/status", &read, &fault, 20));
  EXPECT_STREQ(fault, "it has 20 bytes, and no more than 20 bytes are read");
}

TEST_F(Files, PrivateFoldersAreClosedToOthers) {
  const auto isClosed = [&] {
    return fs::status(below("a/new").c_str()).permissions() == fs::perms::owner_all;
  };
  EXPECT_TRUE(sp_MakePrivateDir(below("a/new")));
  EXPECT_TRUE(isClosed());
  fs::permissions(below("a/new").c_str(), fs::perms::all);
  fs::create_directory_symlink("a/new", below("link").c_str());
  EXPECT_TRUE(sp_MakePrivateDir(below("link//")));
  EXPECT_TRUE(isClosed());
  fs::create_directory_symlink("none", below("astray").c_str());
  for (const YString& path : {below("astray"), write("file", "x"), below("file/below"), YString()})
    EXPECT_FALSE(sp_MakePrivateDir(path)) << path;
}

TEST_F(Files, PartsOfAPathJoinToThePath) {
  const struct {
    const char* path;
    const char* directory;
    const char* name;
    const char* extension;
    const char* folder;
  } cases[] = {{"/a/b/c.txt", "/a/b/", "c", ".txt", "/a/b"},
               {"c.txt", "", "c", ".txt", ""},
               {"/c", "/", "c", "", "/"},
               {"/a/b/", "/a/b/", "", "", "/a/b"},
               {"/a.d/b", "/a.d/", "b", "", "/a.d"},
               {"a\\b.tar.gz", "a\\", "b.tar", ".gz", "a"},
               {"/.profile", "/", ".profile", "", "/"},
               {"/..", "/", "..", "", "/"},
               {"..a.b", "", "..a", ".b", ""},
               {"a.", "", "a", ".", ""},
               {"/", "/", "", "", "/"},
               {"", "", "", "", ""}};
  for (const auto& example : cases) {
    PathName parts;
    sp_SplitPath(example.path, &parts);
    EXPECT_STREQ(parts.directory, example.directory) << example.path;
    EXPECT_STREQ(parts.name, example.name) << example.path;
    EXPECT_STREQ(parts.extension, example.extension) << example.path;
    const YString joined =
        parts.drive.concat(parts.directory).concat(parts.name).concat(parts.extension);
    EXPECT_STREQ(joined, example.path);
    EXPECT_STREQ(sp_GetDirFromPath(example.path), example.folder) << example.path;
  }
  EXPECT_STREQ(sp_GetDirFromPath(nullptr), "");
}

TEST_F(Files, FoldersAndFiles) {
  const YString deep = below("\u00e4 b/c/d");
  EXPECT_FALSE(sp_MakeDir(deep));
  EXPECT_TRUE(sp_MakeTree(YString(deep.concat("//"))));
  EXPECT_TRUE(sp_MakeTree(deep));
  EXPECT_TRUE(sp_MakeDir(deep));
  EXPECT_TRUE(sp_ExistDir(YString(deep.concat("/"))));
  EXPECT_FALSE(sp_ExistFile(deep));
  const YString file = write("\u00e4 b/\xff.txt", "x"); // not UTF-8, but a name all the same
  EXPECT_TRUE(sp_ExistFile(file));
  EXPECT_FALSE(sp_ExistDir(file));
  EXPECT_FALSE(sp_MakeTree(YString(file.concat("/below"))));
  EXPECT_FALSE(sp_MakeTree(""));
  EXPECT_NE(unlink_utf8(deep), 0);
  EXPECT_EQ(unlink_utf8(file), 0);
  EXPECT_NE(unlink_utf8(file), 0);
  EXPECT_NE(unlink_utf8(nullptr), 0);
  EXPECT_EQ(fopen_utf8(nullptr, "r"), nullptr);
  EXPECT_FALSE(sp_ExistFile(nullptr));

  EXPECT_TRUE(sp_DirectoryIsWriteable(deep));
  EXPECT_TRUE(fs::is_empty(deep.c_str()));
  EXPECT_FALSE(sp_DirectoryIsWriteable(below("nowhere")));
  sp_FailFileOperation(1, true);
  EXPECT_FALSE(sp_DirectoryIsWriteable(deep));
  EXPECT_TRUE(sp_GetTempFile().isEmpty());
}

TEST_F(Files, FullPathsAreNormal) {
  const YString here = sp_GetCwd();
  EXPECT_STREQ(sp_GetFullPath("a/../b/./c/"), here.concat("/b/c").c_str());
  EXPECT_STREQ(sp_GetFullPath("/"), "/");
  EXPECT_STREQ(sp_GetFullPath("/a//b/.."), "/a");
  EXPECT_STREQ(sp_GetFullPath(""), "");
  EXPECT_STREQ(sp_ConvertLocalToUnix("C:\\a\\b/c"), "C:/a/b/c");
  EXPECT_TRUE(sp_ExistFile(sp_GetExeFileName()));
  EXPECT_STREQ(sp_GetDirFromPath(sp_GetExeFileName()), sp_GetExeDir());
}

TEST_F(Files, SymbolicPrefixes) {
  sp_SetSettingsDir(m_folder);
  YString out;
  EXPECT_TRUE(sp_TranslateSystemPath("%AppData%/x/y", &out));
  EXPECT_STREQ(out, below("x/y"));
  EXPECT_TRUE(sp_TranslateSystemPath("%exepath%", &out));
  EXPECT_STREQ(out, sp_GetExeDir());
  EXPECT_TRUE(sp_TranslateSystemPath("%TEMP%\\x", &out));
  EXPECT_STREQ(out, sp_GetTempPath().concat("/x").c_str());
  for (const char* plain : {"/a/%TEMP%", "50%", "%", "", "%TEMP"}) {
    EXPECT_TRUE(sp_TranslateSystemPath(plain, &out)) << plain;
    EXPECT_STREQ(out, plain);
  }
  for (const char* unknown : {"%NOWHERE%/x", "%%"}) {
    EXPECT_FALSE(sp_TranslateSystemPath(unknown, &out)) << unknown;
    EXPECT_STREQ(out, unknown);
  }
  EXPECT_TRUE(sp_TranslateSystemPath(out, &out) || out == "%%"); // may be its own result
  EXPECT_TRUE(sp_GetKnownFolderPath("Nowhere").isEmpty());
  EXPECT_FALSE(sp_GetKnownFolderPath("documents").isEmpty());
}

TEST_F(Files, FiltersOfFileDialogs) {
  using Entries = std::vector<std::string>;
  const struct {
    const char* spec;
    const char* separator;
    Entries entries;
  } cases[] = {
      {"Data|txt;.csv;*.dat|All files|*.*", " ", {"Data (*.txt *.csv *.dat)", "All files (*)"}},
      {"Data|a?.txt", " ", {"Data (a?.txt)"}},
      {"Data|txt;csv", ";", {"Data (*.txt;*.csv)"}},
      {"Data| ; |More|x|Odd", " ", {"More (*.x)"}},
      {"Text (*.txt);;All (*)", " ", {"Text (*.txt)", "All (*)"}},
      {";;*.txt;;", nullptr, {"*.txt"}},
      {"no pattern", " ", {}},
      {"|", " ", {}},
      {"", " ", {}},
      {nullptr, " ", {}}};
  for (const auto& example : cases) {
    YArray<YString> out;
    out.append("left over");
    EXPECT_EQ(sp_CompileFilter(example.spec, &out, example.separator), !example.entries.empty());
    EXPECT_EQ(Entries(out.begin(), out.end()), example.entries);
  }
}

TEST_F(Files, ExtensionsOfAKind) {
  YList<YString> extensions;
  for (const char* kind :
       {"Schematic", "symbol", "COMPONENT", "Graph", "Script", "Model", "Data", "Text"}) {
    ASSERT_TRUE(sp_GetKelvarinFileExtension(kind, &extensions)) << kind;
    EXPECT_EQ(*extensions.begin(), sp_GetKelvarinDefaultExtension(kind));
    EXPECT_NE((*extensions.begin())[0], '.');
  }
  for (const char* kind : {"LogicDef", "netlist", "VerilogA", "VerilogHDL"})
    EXPECT_TRUE(sp_GetKelvarinFileExtension(kind, &extensions)) << kind;
  EXPECT_FALSE(sp_GetKelvarinFileExtension("Unknown", &extensions));
  EXPECT_TRUE(extensions.isEmpty());
  EXPECT_TRUE(sp_GetKelvarinDefaultExtension(nullptr).isEmpty());
}

TEST_F(Files, ExtensionsFollowTheirOptions) {
  sp_SetSettingsDir(m_folder);
  const std::string usual = sp_GetKelvarinDefaultExtension("Symbol").c_str();
  const struct {
    const char* option;
    std::vector<std::string> extensions;
  } cases[] = {{"xyz", {"xyz"}},
               {" .abc; *.def,ghi | abc\tABC", {"abc", "def", "ghi"}},
               {"tar.gz", {"tar.gz"}},
               {" ; . *. * ", {usual}},
               {"a/b;c:d;e?;\"f\"", {usual}},
               {"", {usual}}};
  for (const auto& example : cases) {
    ASSERT_TRUE(sp_WriteOption("SymbolExtension", example.option));
    YList<YString> found;
    EXPECT_TRUE(sp_GetKelvarinFileExtension("symbol", &found));
    EXPECT_EQ(std::vector<std::string>(found.begin(), found.end()), example.extensions);
    EXPECT_STREQ(sp_GetKelvarinDefaultExtension("SYMBOL"), example.extensions[0].c_str());
  }
  EXPECT_STREQ(sp_GetKelvarinDefaultExtension("Component"), "kvcmp");
}

TEST_F(Files, TemporaryFilesGoWhereTheUserWants) {
  sp_SetSettingsDir(m_folder);
  const YString usual = sp_GetTempPath();
  const YString chosen = below("of the user");
  ASSERT_TRUE(sp_WriteOption("TempDataDir", chosen.concat("//")));
  EXPECT_STREQ(sp_GetTempPath(), chosen);
  EXPECT_TRUE(sp_ExistDir(chosen)) << "and is made";
  EXPECT_STREQ(sp_GetDirFromPath(sp_GetTempFile()), chosen);
  EXPECT_STREQ(sp_GetKnownFolderPath("Temp"), chosen);
  // The user's folder may stand in the usual one.
  const YString inUsual = m_folder.concat("/mine");
  ASSERT_TRUE(
      sp_WriteOption("TempDataDir", YString("%temp%").concat(inUsual.c_str() + usual.length())));
  EXPECT_STREQ(sp_GetTempPath(), inUsual);
  for (const YString& unusable : {YString(write("file", "x").concat("/x")), YString("%NOWHERE%/x"),
                                  YString(" "), YString("relative"), YString("/proc"), YString()}) {
    ASSERT_TRUE(sp_WriteOption("TempDataDir", unusable));
    EXPECT_STREQ(sp_GetTempPath(), usual) << unusable;
  }
}

TEST_F(Files, LibrariesOfAFolder) {
  for (const char* name : {"Laplace_2.so", "Laplace_2.dll", "libLaplace_2.so.1", "Laplace_2.txt",
                           "Laplace_20.so", "laplace_2.so", "Old_Laplace_2.so", "Laplace_2.1.so"})
    write(name, "x");
  ASSERT_TRUE(sp_MakeDir(below("Laplace_2.3.so")));
  using Names = std::vector<std::string>;
  const struct {
    const char* pattern;
    std::vector<const char*> exclusions;
    Names names;
  } cases[] = {
      {"Laplace_2.*", {}, {"Laplace_2.1.so", "Laplace_2.so", "libLaplace_2.so.1"}},
      {"Laplace_2.*", {"LAPLACE_2.1.so", "Laplace_2.so"}, {"Laplace_2.1.so", "libLaplace_2.so.1"}},
      {"Laplace_2.*", {"libLap*", "Laplace_2.?.so"}, {"Laplace_2.so"}},
      {"?aplace_2.so", {}, {"Laplace_2.so", "laplace_2.so"}},
      {"[L]*", {}, {}},
      {"", {}, {}},
      {nullptr, {}, {}}};
  for (const auto& example : cases) {
    YArray<YString> found;
    found.append("left over");
    YArray<YString> exclusions;
    for (const char* name : example.exclusions)
      exclusions.append(name);
    const int count = sp_SearchDLLs(&found, m_folder, example.pattern, exclusions);
    EXPECT_EQ(count, found.count());
    Names names;
    for (const YString& path : found) {
      EXPECT_STREQ(sp_GetDirFromPath(path), m_folder);
      names.push_back(fs::path(path.c_str()).filename());
    }
    EXPECT_EQ(names, example.names) << (example.pattern ? example.pattern : "null");
  }
  YArray<YString> found;
  sp_SetSystemValue("caseSensitiveFiles", "0");
  EXPECT_EQ(sp_SearchDLLs(&found, m_folder, "LAPLACE_2.so", {}), 2);
  sp_SetSystemValue("caseSensitiveFiles", nullptr);
  for (const char* nowhere :
       {"no such folder", "", "/nonexistent", static_cast<const char*>(nullptr)})
    EXPECT_EQ(sp_SearchDLLs(&found, nowhere, "*", {}), 0);
}

TEST_F(Files, SymbolLibrariesOfTheSystem) {
  sp_SetSettingsDir(below("settings"));
  ASSERT_TRUE(sp_MakeTree(below("system/deep")));
  ASSERT_TRUE(sp_MakeTree(below("system of mine")));
  ASSERT_TRUE(sp_WriteOption("SymbolsDir", below("system/")));
  write("system/deep/a.kvsym", "x");
  fs::create_directory_symlink(below("system").c_str(), below("link").c_str());
  const struct {
    const char* path;
    bool isSystem;
  } cases[] = {{"system/a.kvsym", true},
               {"system/deep/a.kvsym", true},
               {"system/../system/x/b", true},
               {"link/deep/a.kvsym", true},
               {"system/../a.kvsym", false},
               {"system of mine/a.kvsym", false},
               {"system", false},
               {"a.kvsym", false},
               {"system/deep/../../a", false}};
  for (const auto& example : cases)
    EXPECT_EQ(sp_IsSystemSymbolLib(below(example.path)), example.isSystem) << example.path;
  EXPECT_FALSE(sp_IsSystemSymbolLib(""));
  sp_SetSystemValue("caseSensitiveFiles", "0");
  EXPECT_TRUE(sp_IsSystemSymbolLib(below("SYSTEM/a.kvsym")));
  sp_SetSystemValue("caseSensitiveFiles", nullptr);
  EXPECT_FALSE(sp_IsSystemSymbolLib(below("SYSTEM/a.kvsym")));
  ASSERT_TRUE(sp_WriteOption("SymbolsDir", "/"));
  EXPECT_TRUE(sp_IsSystemSymbolLib(below("a.kvsym"))) << "below a root";
  ASSERT_TRUE(sp_RemoveOption("SymbolsDir"));
  EXPECT_FALSE(sp_IsSystemSymbolLib(below("system/a.kvsym")));
  EXPECT_TRUE(sp_IsSystemSymbolLib(
      YString(sp_GetExeDir().concat("/../share/kelvarin-dialogs/symbols/a.kvsym"))));
}

} // namespace
