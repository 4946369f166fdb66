#include "HostSupport/Files.h"

#include "HostSupport/System.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
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
  EXPECT_FALSE(sp_GetKelvarinFileExtension("Unknown", &extensions));
  EXPECT_TRUE(extensions.isEmpty());
  EXPECT_TRUE(sp_GetKelvarinDefaultExtension(nullptr).isEmpty());
}

} // namespace
