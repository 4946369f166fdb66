#include "HostSupport/System.h"

#include "HostSupport/Files.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

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
