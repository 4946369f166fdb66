#include "HostSupport/System.h"

#include "HostSupport/Files.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include <dlfcn.h>
#include <unistd.h>

namespace {

TEST(System, FactsOfTheMachineAreConsistent) {
  SystemMemoryInfo memory;
  ASSERT_TRUE(sp_GetSystemMemoryInfo(&memory));
  EXPECT_GT(memory.available, 0u);
  EXPECT_LE(memory.available, memory.total);
  EXPECT_GE(sp_GetNumPhysicalProcessors(), 1);
  EXPECT_GE(sp_GetNumCores(), 1);
  EXPECT_GE(sp_GetNumLogicalProcessors(), sp_GetNumCores());
}

TEST(System, TheHostMayTellOtherwise) {
  bool found = true;
  EXPECT_TRUE(sp_GetSystemValue("no such name", &found).isEmpty());
  EXPECT_FALSE(found);
  sp_GetSystemValue("hasHelp", &found);
  EXPECT_FALSE(found);

  const int cores = sp_GetNumCores();
  const YString version = sp_GetSystemValue("version");
  sp_SetSystemValue("Memory", "4G");
  sp_SetSystemValue("cores", "64");
  sp_SetSystemValue("version", "9.5");
  sp_SetSystemValue("caseSensitiveFiles", "0");
  SystemMemoryInfo memory;
  EXPECT_TRUE(sp_GetSystemMemoryInfo(&memory));
  EXPECT_EQ(memory.total, 4'000'000'000u);
  EXPECT_LE(memory.available, memory.total);
  EXPECT_EQ(sp_GetNumCores(), 64);
  EXPECT_FALSE(sp_CaseSensitiveFiles());
  FileVersion own;
  EXPECT_TRUE(sp_GetFileVersion("", &own));
  EXPECT_EQ(own.major, 9);
  EXPECT_EQ(own.minor, 5);
  EXPECT_TRUE(sp_GetFileVersion(sp_GetExeFileName(), &own));
  int major = 0;
  int minor = 0;
  int patch = 7;
  EXPECT_TRUE(sp_GetVersionValues(&major, &minor, &patch));
  EXPECT_EQ(std::make_tuple(major, minor, patch), std::make_tuple(9, 5, 0));
  sp_SetSystemValue("version", "of the day");
  EXPECT_FALSE(sp_GetVersionValues(&major, nullptr));
  EXPECT_EQ(major, 0);

  sp_SetSystemValue("cores", "nonsense");
  EXPECT_EQ(sp_GetNumCores(), cores);
  for (const char* name : {"memory", "cores", "version", "caseSensitiveFiles"})
    sp_SetSystemValue(name, nullptr);
  EXPECT_EQ(sp_GetSystemValue("version"), version);
  EXPECT_TRUE(sp_CaseSensitiveFiles());
}

TEST(System, FunctionsOfALibraryOnDemand) {
  static std::string shown;
  sp_SetMessageSink([](const char* text) { shown += text; });
  EXPECT_EQ(sp_GetLibraryFunction("/nonexistent/lib.so", "f", false, "no library", false), nullptr);
  EXPECT_EQ(sp_GetLibraryFunction(nullptr, nullptr, false, nullptr, false), nullptr);
  EXPECT_EQ(sp_GetLibraryFunction("libm.so.6", "no_such_function", false, "", false), nullptr);
  EXPECT_FALSE(sp_UnloadLibrary("libm.so.6"))
      << "nothing is kept of a library without the function";
  EXPECT_EQ(shown, "no library");
  sp_SetMessageSink(nullptr);
  auto* cosine = reinterpret_cast<double (*)(double)>(
      sp_GetLibraryFunction("libm.so.6", "cos", false, "", false));
  ASSERT_NE(cosine, nullptr);
  EXPECT_EQ(cosine(0), 1);
  EXPECT_TRUE(sp_UnloadLibrary("libm.so.6"));
  EXPECT_FALSE(sp_UnloadLibrary("libm.so.6"));
  EXPECT_FALSE(sp_UnloadLibrary(nullptr));
}

constexpr const char* callingLibrary = KV_TEST_MODULES "/libCallingLibrary.so";

using Count = int (*)();

Count callsWhileLoading() {
  return reinterpret_cast<Count>(
      sp_GetLibraryFunction(callingLibrary, "callsWhileLoading", false, "", false));
}

/// Whether the process still has the library: asked without loading it.
bool isLoaded(const char* library) {
  void* handle = dlopen(library, RTLD_LAZY | RTLD_NOLOAD);
  if (handle)
    dlclose(handle);
  return handle != nullptr;
}

/// Runs `body` in a process of its own, which may hang.
template <class Body> void expectEnds(Body body) {
  GTEST_FLAG_SET(death_test_style, "fast");
  EXPECT_EXIT(
      {
        alarm(20);
        body();
        _exit(testing::Test::HasFailure() ? 1 : 0);
      },
      testing::ExitedWithCode(0), "");
}

TEST(LibraryDeathTest, MayCallTheHostAsItComesAndGoes) {
  expectEnds([] {
    for (int round = 0; round < 3; ++round) {
      const Count count = callsWhileLoading();
      ASSERT_NE(count, nullptr);
      EXPECT_EQ(count(), 1);
      EXPECT_TRUE(sp_UnloadLibrary(callingLibrary));
      EXPECT_FALSE(isLoaded(callingLibrary));
    }
  });
}

TEST(LibraryDeathTest, IsLoadedOnceByManyThreads) {
  expectEnds([] {
    for (int round = 0; round < 50; ++round) {
      std::atomic<int> waiting{8};
      std::array<Count, 8> found{};
      std::vector<std::thread> threads;
      for (Count& mine : found)
        threads.emplace_back([&waiting, &mine] {
          for (--waiting; waiting > 0;)
            std::this_thread::yield();
          mine = callsWhileLoading();
        });
      for (std::thread& thread : threads)
        thread.join();
      for (const Count mine : found) {
        ASSERT_NE(mine, nullptr);
        EXPECT_EQ(mine, found[0]);
        EXPECT_EQ(mine(), 1);
      }
      EXPECT_TRUE(sp_UnloadLibrary(callingLibrary));
      EXPECT_FALSE(isLoaded(callingLibrary));
    }
  });
}

// One thread takes the library away while others look into it.
TEST(LibraryDeathTest, IsThereWhileSomebodyLooksIntoIt) {
  expectEnds([] {
    std::atomic<bool> done{false};
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i)
      threads.emplace_back([&done] {
        while (!done)
          EXPECT_NE(callsWhileLoading(), nullptr);
      });
    for (int unloads = 0; unloads < 500;)
      unloads += sp_UnloadLibrary(callingLibrary);
    done = true;
    for (std::thread& thread : threads)
      thread.join();
    sp_UnloadLibrary(callingLibrary);
    EXPECT_FALSE(isLoaded(callingLibrary));
  });
}

TEST(Library, IsFoundByItsBareName) {
  const YString bare = YString(callingLibrary).substituteAll("/libCalling", "/Calling");
  for (YString name : {YString(callingLibrary), bare}) {
    name.stripTrailing("so");
    name.stripTrailing(".");
    EXPECT_NE(sp_GetLibraryFunction(name, "callsWhileLoading", false, "", false), nullptr) << name;
    EXPECT_TRUE(sp_UnloadLibrary(name));
  }
  EXPECT_FALSE(isLoaded(callingLibrary));
}

TEST(Base64, ThereAndBack) {
  const std::unique_ptr<YBase64Converter> coder(kv_CreateYBase64ConverterCore());
  EXPECT_STREQ(coder->encode("fooba", 5), "Zm9vYmE=");
  EXPECT_STREQ(coder->encode(nullptr, 0), "");
  std::string decoded;
  EXPECT_TRUE(coder->decode(" Zm9v\r\nYg== ", &decoded));
  EXPECT_EQ(decoded, "foob");
  EXPECT_TRUE(coder->decode("", &decoded));
  for (const char* bad : {"Zm9", "Zm9v!", "Zm=v", "Z===", "====", "Zm9vYg==Zm9v",
                          "\xff\xff\xff\xff", static_cast<const char*>(nullptr)}) {
    decoded = "left over";
    EXPECT_FALSE(coder->decode(bad, &decoded)) << (bad ? bad : "null");
    EXPECT_EQ(decoded, "");
  }
  std::mt19937 random(std::random_device{}());
  for (std::size_t size = 0; size < 100; ++size) {
    std::string bytes(size, '\0');
    for (char& byte : bytes)
      byte = static_cast<char>(random());
    ASSERT_TRUE(coder->decode(coder->encode(bytes.data(), size), &decoded));
    EXPECT_EQ(decoded, bytes);
  }
}

} // namespace
