// The files behind options and settings: other processes, damage, failing disks.

#include "SettingsFixture.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

class SettingsFiles : public SettingsFixture {};

pid_t startChild(const std::function<bool()>& work) {
  const pid_t child = fork();
  if (child == 0)
    _exit(work() ? 0 : 1);
  return child;
}

bool childSucceeded(pid_t child) {
  int status = -1;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(SettingsFiles, SeeTheWritesOfOtherProcesses) {
  sp_WriteOption("Mine", "1");
  for (int round = 0; round < 20; ++round) {
    const YString value(round);
    EXPECT_STRNE(sp_GetStringOption("Theirs"), value);
    EXPECT_TRUE(childSucceeded(startChild([&] { return sp_WriteOption("Theirs", value); })));
    EXPECT_STREQ(sp_GetStringOption("Theirs"), value);
    EXPECT_TRUE(sp_WriteOption("Mine", value));
  }
}

// Same file, same size, same tick of the file system's clock: such a file tells nothing by its
// outside. The time lies ahead, so that a slow machine cannot outrun it.
TEST_F(SettingsFiles, SeeChangesInQuickSuccession) {
  const auto tick = fs::file_time_type::clock::now() + std::chrono::hours(1);
  for (const char* value : {"even", "odd ", "even"}) {
    put("options.json", std::string("{\"Key\": \"") + value + "\"}");
    fs::last_write_time(m_folder / "options.json", tick);
    EXPECT_STREQ(sp_GetStringOption("Key"), value);
  }
}

TEST_F(SettingsFiles, LoseNoKeyOfSeveralWriters) {
  constexpr int writers = 4;
  constexpr int keys = 50;
  const auto keyOf = [](int writer, int key) {
    return YString(YString("Key").concat(YString(writer * keys + key)));
  };
  sp_WriteOption("Long", YString(std::string(20'000, 'x')));
  std::vector<pid_t> children;
  for (int writer = 0; writer < writers; ++writer)
    children.push_back(startChild([&, writer] {
      bool stored = true;
      for (int key = 0; key < keys; ++key)
        stored = sp_WriteOption(keyOf(writer, key), "set") &&
                 cfgman_WriteConfigSetting("Section", keyOf(writer, key), "set") && stored;
      return stored;
    }));
  // A reader never sees a file that is half there.
  for (int round = 0; round < 200; ++round)
    EXPECT_EQ(sp_GetStringOption("Long").length(), 20'000u);
  for (const pid_t child : children)
    EXPECT_TRUE(childSucceeded(child));
  for (int writer = 0; writer < writers; ++writer)
    for (int key = 0; key < keys; ++key) {
      YString setting;
      EXPECT_STREQ(sp_GetStringOption(keyOf(writer, key)), "set");
      EXPECT_TRUE(cfgman_GetConfigSetting("Section", keyOf(writer, key), &setting));
    }
  EXPECT_TRUE(messages().empty());
}

// Each write sets a key of its own, and two that all writers set alike: no file ever has them
// differ.
TEST_F(SettingsFiles, TakeTheChangesOfSeveralWritersWhole) {
  constexpr int writers = 3;
  constexpr int rounds = 60;
  const auto wordOf = [](int writer, int round) {
    return std::to_string(1000 + writer * rounds + round);
  };
  std::vector<pid_t> children;
  for (int writer = 0; writer < writers; ++writer)
    children.push_back(startChild([&, writer] {
      bool stored = true;
      for (int round = 0; round < rounds; ++round) {
        const YString word(wordOf(writer, round));
        stored = sp_WriteOptions({{"First", word}, {word, "set"}, {"Later", word}}) && stored;
      }
      return stored;
    }));
  const auto valueOf = [](const std::string& bytes, const std::string& key) {
    const std::size_t start = bytes.find("\"" + key + "\": ");
    return start == std::string::npos ? "" : bytes.substr(start + key.size() + 4, 6);
  };
  for (int round = 0; round < 500; ++round) {
    const std::string bytes = get("options.json");
    EXPECT_EQ(valueOf(bytes, "First"), valueOf(bytes, "Later"));
  }
  for (const pid_t child : children)
    EXPECT_TRUE(childSucceeded(child));
  for (int writer = 0; writer < writers; ++writer)
    for (int round = 0; round < rounds; ++round)
      EXPECT_STREQ(sp_GetStringOption(wordOf(writer, round).c_str()), "set");
  EXPECT_EQ(valueOf(get("options.json"), "First").size(), 6u);
}

TEST_F(SettingsFiles, AreNotTouchedByAnUnchangedValue) {
  sp_WriteOption("Key", "same");
  struct stat before;
  struct stat after;
  const std::string path = m_folder / "options.json";
  ASSERT_EQ(stat(path.c_str(), &before), 0);
  EXPECT_TRUE(sp_WriteOption("Key", "same"));
  EXPECT_TRUE(sp_RemoveOption("Missing"));
  ASSERT_EQ(stat(path.c_str(), &after), 0);
  EXPECT_EQ(before.st_ino, after.st_ino);
  EXPECT_EQ(before.st_mtim.tv_nsec, after.st_mtim.tv_nsec);
}

TEST_F(SettingsFiles, ThatAreDamagedAreSetAside) {
  const std::string cases[] = {"",
                               "{",
                               "not JSON",
                               "[]",
                               "\"text\"",
                               "{\"Key\": [5]}",
                               "{\"Key\": {\"a\": \"b\"}}",
                               "{\"Key\": \"cut",
                               "{\"Key\": \"\xff\"}",
                               std::string("{\"Key\": \"a\0b\"}", 14),
                               std::string(100, '\0'),
                               std::string(100'000, '['),
                               std::string(65 * 1024 * 1024, ' ')};
  std::size_t aside = 0;
  for (const std::string& bytes : cases) {
    put("options.json", bytes);
    messages().clear();
    EXPECT_STREQ(sp_GetStringOption("Key"), "");
    EXPECT_STREQ(sp_GetStringOption("Key"), "");
    EXPECT_EQ(messages().size(), 1u) << bytes.substr(0, 30);
    EXPECT_EQ(names(".damaged-").size(), ++aside);
    EXPECT_TRUE(sp_WriteOption("Key", "new"));
    EXPECT_STREQ(sp_GetStringOption("Key"), "new");
  }
  put("settings.json", "{\"Key\": \"of the other file's shape\"}");
  EXPECT_TRUE(cfgman_WriteConfigSetting("Section", "Key", "new")); // found at a write
  const auto kept = names("settings.json.damaged-");
  ASSERT_EQ(kept.size(), 1u);
  EXPECT_EQ(get(kept[0]), "{\"Key\": \"of the other file's shape\"}");
}

// What cannot be read may hold keys, so nothing is written over it.
TEST_F(SettingsFiles, ThatCannotBeReadAreLeftAlone) {
  const fs::path file = m_folder / "options.json";
  const std::function<void()> obstacles[] = {[&] { fs::create_directories(file); },
                                             [&] { fs::create_symlink("nowhere/file", file); },
                                             [&] { fs::create_symlink("options.json", file); },
                                             [&] { ASSERT_EQ(mkfifo(file.c_str(), 0600), 0); },
                                             [&] {
                                               put("options.json", "{}");
                                               fs::permissions(file, fs::perms::none);
                                             }};
  fs::create_directories(m_folder);
  for (const auto& obstruct : obstacles) {
    obstruct();
    if (&obstruct == &obstacles[4] && geteuid() == 0)
      break; // root reads everything
    forget();
    messages().clear();
    EXPECT_STREQ(sp_GetStringOption("Key"), "");
    EXPECT_STREQ(sp_GetStringOption("Key"), "");
    EXPECT_EQ(messages().size(), 1u);
    EXPECT_FALSE(sp_WriteOption("Key", "new"));
    EXPECT_FALSE(sp_RemoveOption("Key"));
    EXPECT_EQ(messages().size(), 2u);
    EXPECT_TRUE(fs::exists(fs::symlink_status(file)));
    EXPECT_TRUE(names(".damaged-").empty());
    fs::remove(file);
    EXPECT_TRUE(sp_WriteOption("Key", "new"));
    fs::remove(file);
  }
}

TEST_F(SettingsFiles, BehindALinkAreWrittenThroughIt) {
  fs::create_directories(m_folder / "target");
  put("target/real.json", "{\"Old\": \"1\"}");
  fs::permissions(m_folder / "target/real.json", fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("target/real.json", m_folder / "options.json");
  EXPECT_TRUE(sp_WriteOption("New", "2"));
  EXPECT_TRUE(fs::is_symlink(m_folder / "options.json"));
  EXPECT_NE(get("target/real.json").find("\"New\""), std::string::npos);
  EXPECT_STREQ(sp_GetStringOption("Old"), "1");
  EXPECT_EQ(fs::status(m_folder / "target/real.json").permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(SettingsFiles, AreMadeWhereALinkLeads) {
  fs::create_directories(m_folder / "target");
  fs::create_symlink("target/link.json", m_folder / "options.json");
  fs::create_symlink("real.json", m_folder / "target/link.json");
  for (const char* value : {"1", "2"}) {
    EXPECT_TRUE(sp_WriteOption("Key", value));
    forget();
    EXPECT_STREQ(sp_GetStringOption("Key"), value);
  }
  EXPECT_NE(get("target/real.json").find("\"Key\""), std::string::npos);
  EXPECT_TRUE(fs::is_symlink(m_folder / "options.json"));
  EXPECT_TRUE(messages().empty());
}

TEST_F(SettingsFiles, AreReadAsSomebodyWroteThemByHand) {
  put("options.json", "{\"A\": 5, \"B\": 0.1, \"C\": 1e6, \"D\": -2.5E-9, \"E\": true, "
                      "\"F\": false, \"G\": null, \"H\": \"text\"}");
  const struct {
    const char* key;
    const char* text;
  } cases[] = {{"A", "5"},    {"B", "0.1"},           {"C", "1000000"},
               {"E", "true"}, {"D", "-0.0000000025"}, {"F", "false"},
               {"G", ""},     {"H", "text"}};
  for (const bool isAfterAWrite : {false, true}) {
    for (const auto& example : cases)
      EXPECT_STREQ(sp_GetStringOption(example.key), example.text) << isAfterAWrite;
    EXPECT_TRUE(sp_WriteOption("New", "1"));
    forget();
  }
  put("settings.json", "{\"Section\": {\"Key\": 7}}");
  YString setting;
  EXPECT_TRUE(cfgman_GetConfigSetting("Section", "Key", &setting));
  EXPECT_STREQ(setting, "7");
  EXPECT_TRUE(messages().empty());
}

// The successor has a name that anybody can foresee.
TEST_F(SettingsFiles, AreNotWrittenThroughWhatBearsTheSuccessorsName) {
  ASSERT_TRUE(sp_WriteOption("Old", "kept"));
  put("victim", "mine");
  const fs::path next = m_folder / "options.json.new";
  const struct {
    std::function<void()> plant;
    bool isStored;
  } cases[] = {{[&] { put("options.json.new", "left behind"); }, true},
               {[&] { ASSERT_EQ(mkfifo(next.c_str(), 0600), 0); }, true},
               {[&] { fs::create_symlink("victim", next); }, true},
               {[&] { fs::create_symlink("nowhere", next); }, true},
               {[&] { fs::create_directory(next); }, false}};
  for (const auto& example : cases) {
    example.plant();
    const std::string value = std::to_string(&example - cases);
    const pid_t child = startChild([&] {
      alarm(20); // to open a pipe would wait for its reader
      return sp_WriteOption("New", value.c_str());
    });
    EXPECT_EQ(childSucceeded(child), example.isStored) << value;
    EXPECT_EQ(sp_GetStringOption("New") == value.c_str(), example.isStored);
    EXPECT_STREQ(sp_GetStringOption("Old"), "kept");
  }
  EXPECT_EQ(get("victim"), "mine");
  EXPECT_FALSE(fs::exists(m_folder / "nowhere"));
}

TEST_F(SettingsFiles, CannotBeMadeBelowAFile) {
  put("file", "");
  sp_SetSettingsDir(YString((m_folder / "file/below").u8string()));
  EXPECT_FALSE(sp_WriteOption("Key", "x"));
  EXPECT_FALSE(sp_WriteOption("Key", "x"));
  EXPECT_EQ(messages().size(), 1u);
  EXPECT_STREQ(sp_GetStringOption("Key"), "");
}

// A dialog that closes stores where it was and how wide its columns are: it waits for nobody.
TEST_F(SettingsFiles, ThatAnotherProgramUsesAreNotWaitedForLong) {
  ASSERT_TRUE(cfgman_WriteConfigSetting("Section", "Key", "before"));
  const int lock = open((m_folder / "settings.json.lock").c_str(), O_RDWR);
  ASSERT_EQ(flock(lock, LOCK_EX), 0);
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 100; ++i)
    EXPECT_FALSE(sp_RememberSetting("Section", "Key", YString(i)));
  const auto taken = std::chrono::steady_clock::now() - start;
  EXPECT_GE(taken, std::chrono::milliseconds(100));
  EXPECT_LT(taken, std::chrono::seconds(3));
  ASSERT_EQ(messages().size(), 1u);
  EXPECT_NE(messages()[0].find("another program is using it"), std::string::npos);
  YString value;
  EXPECT_TRUE(cfgman_GetConfigSetting("Section", "Key", &value));
  EXPECT_STREQ(value, "before");
  // What the user has set is worth more.
  const pid_t child = startChild([lock] { // whose descriptor is the same lock's
    usleep(500'000);
    return flock(lock, LOCK_UN) == 0;
  });
  EXPECT_TRUE(cfgman_WriteConfigSetting("Section", "Key", "set"));
  EXPECT_TRUE(childSucceeded(child));
  close(lock);
  EXPECT_TRUE(sp_RememberSetting("Section", "Key", "after"));
}

// Lets the n-th operation fail, and then all from the n-th on, until `work` runs without a failure.
void forEachFailure(const std::function<void()>& prepare, const std::function<void()>& work,
                    const std::function<void(const std::string&)>& verify) {
  for (const bool allAfter : {false, true}) {
    int n = 0;
    int operations = 0;
    do {
      ++n;
      prepare();
      sp_FailFileOperation(n, allAfter);
      work();
      operations = sp_FailFileOperation(0);
      verify("operation " + std::to_string(n) + (allAfter ? " and all after" : ""));
      ASSERT_LT(n, 1000);
    } while (operations >= n);
    EXPECT_GT(n, 5);
  }
}

TEST_F(SettingsFiles, KeepTheirKeysWhateverOperationFails) {
  bool optionStored = false;
  bool settingStored = false;
  forEachFailure(
      [&] {
        fs::remove_all(m_folder);
        ASSERT_TRUE(sp_WriteOption("Old", "kept"));
        ASSERT_TRUE(cfgman_WriteConfigSetting("Section", "Old", "kept"));
      },
      [&] {
        optionStored = sp_WriteOption("New", YString(std::string(50'000, 'x')));
        settingStored = cfgman_WriteConfigSetting("Section", "New", "x");
      },
      [&](const std::string& failure) {
        YString setting;
        EXPECT_STREQ(sp_GetStringOption("Old"), "kept") << failure;
        EXPECT_EQ(sp_GetStringOption("New").length(), optionStored ? 50'000u : 0u) << failure;
        EXPECT_TRUE(cfgman_GetConfigSetting("Section", "Old", &setting)) << failure;
        EXPECT_EQ(cfgman_GetConfigSetting("Section", "New", &setting) != 0, settingStored)
            << failure;
        EXPECT_TRUE(names(".damaged-").empty()) << failure;
      });
}

TEST_F(SettingsFiles, TakeAllChangesOrNoneWhateverOperationFails) {
  bool stored = false;
  const auto expectAllOrNone = [&](const std::string& failure) {
    EXPECT_STREQ(sp_GetStringOption("Changed"), stored ? "after" : "before") << failure;
    EXPECT_STREQ(sp_GetStringOption("Gone"), stored ? "" : "there") << failure;
    EXPECT_STREQ(sp_GetStringOption("New"), stored ? "5" : "") << failure;
    EXPECT_STREQ(sp_GetStringOption("Other"), "kept") << failure;
  };
  forEachFailure(
      [&] {
        fs::remove_all(m_folder);
        ASSERT_TRUE(sp_WriteOptions({{"Changed", "before"}, {"Gone", "there"}, {"Other", "kept"}}));
      },
      [&] {
        stored = sp_WriteOptions({{"Changed", "after"}, {"Gone", OptionValue()}, {"New", 5}});
      },
      [&](const std::string& failure) {
        expectAllOrNone(failure);
        forget();
        expectAllOrNone(failure + ", on disk");
      });
  EXPECT_TRUE(stored);
}

TEST_F(SettingsFiles, TakeNoneOfTheChangesWhereOneCannotBeStored) {
  ASSERT_TRUE(sp_WriteOption("Changed", "before"));
  const YString huge(std::string(70'000'000, 'x'));
  const YString half(huge, 35'000'000);
  const std::vector<OptionSetting> refused[] = {{{"Changed", "after"}, {"", "no key"}},
                                                {{"Changed", "after"}, {"Huge", huge}},
                                                {{"Changed", half}, {"Half", half}}};
  for (const auto& settings : refused) {
    EXPECT_FALSE(sp_WriteOptions(settings));
    EXPECT_STREQ(sp_GetStringOption("Changed"), "before");
    EXPECT_STREQ(sp_GetStringOption("Half"), "");
  }
}

TEST_F(SettingsFiles, KeepWhatIsDamagedWhateverOperationFails) {
  const std::string damaged = "{\"Key\": \"cut";
  forEachFailure(
      [&] {
        fs::remove_all(m_folder);
        put("options.json", damaged);
      },
      [&] {
        sp_GetStringOption("Key");
        sp_WriteOption("New", "x");
      },
      [&](const std::string& failure) {
        const auto aside = names(".damaged-");
        EXPECT_EQ(get(aside.empty() ? "options.json" : aside[0]), damaged) << failure;
      });
}

// A real full disk: the system cuts each file at a limit that grows until the write succeeds.
TEST_F(SettingsFiles, KeepTheirKeysOnAFullDisk) {
  ASSERT_TRUE(sp_WriteOption("Old", YString(std::string(3000, 'o'))));
  bool stored = false;
  int failures = 0;
  for (rlim_t limit = 1; !stored; limit = limit * 5 / 4 + 1) {
    ASSERT_LT(limit, 100'000u);
    stored = childSucceeded(startChild([limit] {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit bounds{limit, limit};
      return setrlimit(RLIMIT_FSIZE, &bounds) == 0 &&
             sp_WriteOption("New", YString(std::string(9000, 'n')));
    }));
    failures += !stored;
    forget();
    EXPECT_EQ(sp_GetStringOption("Old").length(), 3000u) << limit;
    EXPECT_EQ(sp_GetStringOption("New").length(), stored ? 9000u : 0u) << limit;
    EXPECT_TRUE(names(".new").empty()) << limit;
  }
  EXPECT_GT(failures, 10);
  EXPECT_TRUE(messages().empty());
}

} // namespace
