#include "HostSupportQt/Help.h"

#include "HostSupport/Files.h"
#include "HostSupport/Parsing.h"
#include "HostSupport/System.h"

#include <cstdlib>
#include <string>
#include <vector>

namespace {

struct HelpTopic {
  int number;
  YString key;
  YString page;
};

struct HelpState {
  HelpViewer viewer = nullptr;
  YString folder;
  std::vector<HelpTopic> topics;
};

HelpState& state() {
  static HelpState help;
  return help;
}

const HelpTopic* findTopic(const char* key) {
  for (const HelpTopic& topic : state().topics)
    if (sp_CompareNoCase(topic.key, key) == 0)
      return &topic;
  return nullptr;
}

const HelpTopic* findNumber(int number) {
  for (const HelpTopic& topic : state().topics)
    if (topic.number == number)
      return &topic;
  return nullptr;
}

bool isDecimal(const char* text, int* number) {
  char* end = nullptr;
  const long value = std::strtol(text, &end, 10);
  *number = static_cast<int>(value);
  return end != text && *end == '\0';
}

void show(HelpRequest request, const HelpTopic* topic) {
  if (topic) {
    request.topic = topic->key;
    request.number = topic->number;
    request.page = state().folder.concat("/").concat(topic->page);
  }
  if (state().viewer)
    state().viewer(request);
}

} // namespace

bool sp_HasHelp() {
  bool known = false;
  const YString answer = sp_GetSystemValue("hasHelp", &known);
  return known ? answer == "1" : state().viewer != nullptr;
}

int sp_GetHelpContextId(const YString& topic) {
  const HelpTopic* found = findTopic(topic);
  return found ? found->number : -1;
}

void sp_RunHelp(const char* id, const char*) {
  if (!id || !*id)
    return;
  HelpRequest request;
  request.asked = id;
  int number = -1;
  if (isDecimal(id, &number)) {
    request.number = number;
    show(request, findNumber(number));
  } else {
    show(request, findTopic(id));
  }
}

void sp_RunHelpContext(int number) {
  HelpRequest request;
  request.asked = YString(number);
  request.number = number;
  show(request, findNumber(number));
}

void sp_SetHelpViewer(HelpViewer viewer) {
  state().viewer = viewer;
}

bool sp_SetHelpDir(const YString& path) {
  std::FILE* index = sp_OpenPlainFile(YString(path.concat("/topics.txt")), nullptr);
  if (!index)
    return false;
  HelpState& help = state();
  help.folder = path;
  help.topics.clear();
  YString line;
  while (sp_ReadNextLine(index, &line)) {
    YArray<YString> fields;
    int number = -1;
    if (line[0] == '#' || sp_ScanLine(line, " \t", &fields, allFields) != 3 ||
        !isDecimal(fields[0], &number))
      continue;
    help.topics.push_back({number, fields[1], fields[2]});
  }
  std::fclose(index);
  return true;
}
