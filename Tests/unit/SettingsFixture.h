#pragma once

#include "HostSupport/Files.h"
#include "HostSupport/Options.h"
#include "HostSupport/System.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

/// Settings in a fresh folder, and what was said about them.
class SettingsFixture : public testing::Test {
protected:
  void SetUp() override {
    const YString name = sp_GetTempFile();
    unlink_utf8(name);
    m_folder = name.c_str();
    sp_SetSettingsDir(name);
    messages().clear();
    sp_SetMessageSink([](const char* text) { messages().emplace_back(text); });
  }
  void TearDown() override {
    sp_FailFileOperation(0);
    sp_SetMessageSink(nullptr);
    sp_SetSettingsDir("");
    std::filesystem::remove_all(m_folder);
  }

  static std::vector<std::string>& messages() {
    static std::vector<std::string> texts;
    return texts;
  }
  /// Makes the library forget what it has read, as a new process would not know it.
  void forget() const {
    sp_SetSettingsDir(YString((m_folder / "elsewhere").u8string()));
    YString value;
    sp_GetStringOption("Any");
    cfgman_GetConfigSetting("Any", "Any", &value);
    sp_SetSettingsDir(YString(m_folder.u8string()));
  }
  void put(const char* name, const std::string& bytes) const {
    std::filesystem::create_directories(m_folder);
    std::ofstream(m_folder / name, std::ios::binary) << bytes;
  }
  std::string get(const std::filesystem::path& name) const {
    std::ifstream file(m_folder / name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }
  /// Names in the folder that contain `part`.
  std::vector<std::string> names(const std::string& part) const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(m_folder))
      if (entry.path().filename().string().find(part) != std::string::npos)
        found.push_back(entry.path().filename().string());
    return found;
  }
  std::filesystem::path m_folder;
};
