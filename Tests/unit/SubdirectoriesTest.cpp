#include "Core/Application/Subdirectories.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

TEST(Subdirectories, PathsAreCutAtTheirRoot) {
  const struct {
    const char* path;
    const char* below;
  } cases[] = {
      {"", ""},
      {"/", ""},
      {"///", ""},
      {"/usr/share//", "usr/share"},
      {"usr/share", "usr/share"},
      {"\\usr\\share\\", "usr/share"},
      {"/lab/run.2/.cache", "lab/run.2/.cache"}, // what looks like an extension belongs to it
      {"//lab", "lab"},
      {"~", "~"},
  };
  for (const auto& c : cases) {
    const TreePath cut = cutTreePath(c.path);
    EXPECT_STREQ(cut.root.c_str(), "/") << c.path;
    EXPECT_STREQ(cut.below.c_str(), c.below) << c.path;
  }
}

class SubdirectoryList : public testing::Test {
protected:
  fs::path path() const { return root.path().toStdString(); }
  std::string list(const QString& below = QString()) {
    std::string all;
    for (const Subdirectory& found :
         subdirectoriesOf(root.path() + QLatin1Char('/') + below, &readable))
      all += found.name.toStdString() + (found.isLink ? "@ " : " ");
    return all;
  }

  QTemporaryDir root;
  bool readable = false;
};

TEST_F(SubdirectoryList, HoldsWhatCanBeOpenedAndNamed) {
  for (const char* name : {"b", "A", "C", ".hidden", "two\nlines"})
    fs::create_directory(path() / name);
  std::error_code error; // some file systems refuse such a name
  fs::create_directory(path() / "not\xff utf8", error);
  QFile(root.filePath(QStringLiteral("file"))).open(QIODevice::WriteOnly);
  fs::create_symlink("b", path() / "link");
  fs::create_symlink(".", path() / "loop");
  fs::create_symlink("file", path() / "link-to-file");
  fs::create_symlink("nowhere", path() / "broken");
  EXPECT_EQ(list(), ".hidden A b C link@ loop@ two\nlines ");
  EXPECT_TRUE(readable);
  fs::remove(path() / "not\xff utf8"); // the temporary directory does not find it, either
}

TEST_F(SubdirectoryList, IsEmptyWhereNothingCanBeRead) {
  fs::create_directories(path() / "locked/inner");
  fs::create_symlink(".", path() / "loop");
  EXPECT_EQ(list(QStringLiteral("loop/loop/")), "locked loop@ ");
  for (const QString& below : {QStringLiteral("missing/"), QStringLiteral("loop/").repeated(100),
                               QStringLiteral("x/").repeated(100000)}) {
    EXPECT_EQ(list(below), "");
    EXPECT_FALSE(readable) << below.left(20).toStdString();
  }
  if (geteuid() == 0)
    return; // who may read everything
  fs::permissions(path() / "locked", fs::perms::none);
  EXPECT_EQ(list(QStringLiteral("locked/")), "");
  EXPECT_FALSE(readable);
  fs::permissions(path() / "locked", fs::perms::all);
}
