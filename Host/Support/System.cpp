#include "HostSupport/System.h"

#include "HostSupport/Numbers.h"

#include "Locked.h"
#include "Platform.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <map>
#include <string>

namespace {

struct SystemState {
  std::mutex mutex;
  std::map<std::string, std::string, std::less<>> values; // what the host tells instead
};

std::string keyOf(const YString& key) {
  YString lower = key;
  lower.tolower();
  return lower.c_str();
}

/// What the host tells instead of the machine, if it does.
bool findOverride(const YString& key, YString* value) {
  const Locked<SystemState> system;
  const auto found = system->values.find(keyOf(key));
  if (found == system->values.end())
    return false;
  *value = YString(found->second);
  return true;
}

bool findOverride(const char* key, double* number) {
  YString text;
  return findOverride(key, &text) && sp_IsEngNumber(text, number);
}

int processorCount(int ProcessorCounts::*kind) {
  double told = 0;
  if (findOverride("cores", &told) && told >= 1 && told <= 1e6)
    return static_cast<int>(told);
  static const ProcessorCounts counts = platformProcessors();
  return counts.*kind;
}

} // namespace

OperatingSystem sp_GetOs() {
  return platformOperatingSystem();
}

int sp_GetNumCores() {
  return processorCount(&ProcessorCounts::cores);
}

int sp_GetNumPhysicalProcessors() {
  return processorCount(&ProcessorCounts::packages);
}

int sp_GetNumLogicalProcessors() {
  return processorCount(&ProcessorCounts::threads);
}

bool sp_GetSystemMemoryInfo(SystemMemoryInfo* info) {
  const bool known = platformMemory(info);
  double told = 0;
  if (!findOverride("memory", &told) || !(told >= 0 && told < 1.8e19))
    return known;
  info->total = static_cast<std::uint64_t>(told);
  info->available = std::min(info->available, info->total);
  return true;
}

std::uint64_t sp_GetProcessMemory() {
  return platformProcessMemory();
}

YString sp_GetSystemValue(const YString& key, bool* found) {
  YString value;
  bool known = findOverride(key, &value);
  if (!known) {
    known = true;
    if (sp_CompareNoCase(key, "memory") == 0) {
      SystemMemoryInfo info;
      known = platformMemory(&info);
      value = YString(info.total);
    } else if (sp_CompareNoCase(key, "cores") == 0) {
      value = YString(sp_GetNumCores());
    } else if (sp_CompareNoCase(key, "version") == 0) {
      value = KELVARIN_VERSION;
    } else if (sp_CompareNoCase(key, "caseSensitiveFiles") == 0) {
      value = platformFilesAreCaseSensitive() ? "1" : "0";
    } else {
      known = false;
    }
  }
  if (found)
    *found = known;
  return value;
}

void sp_SetSystemValue(const YString& key, const char* value) {
  const Locked<SystemState> system;
  if (value)
    system->values[keyOf(key)] = value;
  else
    system->values.erase(keyOf(key));
}

namespace {

void printMessage(const char* text) {
  std::fprintf(stderr, "%s\n", text);
}

std::atomic<MessageSink> messageSink{printMessage};

} // namespace

void sp_SetMessageSink(MessageSink sink) {
  messageSink = sink ? sink : printMessage;
}

void sp_ReportMessage(const char* text) {
  messageSink.load()(text ? text : "");
}
