#include "Core/Generic/RichText.h"

#include "HostSupport/YString.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

constexpr int deepestTables = 8;
constexpr int deepestElements = 1000;

bool isLetterOrDigit(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
         (letter >= '0' && letter <= '9');
}

/// Elements that have no end, or whose end may be left out.
bool endsByItself(const std::string& element) {
  static constexpr const char* names[] = {"area", "base",  "body", "br",    "col",  "dd",    "dt",
                                          "head", "hr",    "html", "img",   "link", "li",    "meta",
                                          "p",    "tbody", "td",   "tfoot", "th",   "thead", "tr"};
  return std::any_of(std::begin(names), std::end(names), [&element](const char* name) {
    return sp_CompareNoCase(name, element.c_str()) == 0;
  });
}

} // namespace

bool nestsTooDeep(const char* text) {
  const std::string_view all(text ? text : "");
  int tables = 0;
  int elements = 0;
  for (std::size_t tag = all.find('<'); tag != all.npos; tag = all.find('<', tag)) {
    ++tag;
    const bool isEnd = tag < all.size() && all[tag] == '/';
    const std::size_t name = tag + (isEnd ? 1 : 0);
    tag = name;
    while (tag < all.size() && isLetterOrDigit(all[tag]))
      ++tag;
    const std::string element(all.substr(std::min(name, all.size()), tag - name));
    if (element.empty() || endsByItself(element))
      continue;
    int& depth = sp_CompareNoCase("table", element.c_str()) == 0 ? tables : elements;
    depth = std::max(0, depth + (isEnd ? -1 : 1));
    if (tables > deepestTables || elements > deepestElements)
      return true;
  }
  return false;
}

std::size_t longestWord(const char* text) {
  static constexpr std::string_view blanks = " \t\n\r";
  const std::string_view all(text ? text : "");
  std::size_t longest = 0;
  for (std::size_t word = all.find_first_not_of(blanks); word != all.npos;
       word = all.find_first_not_of(blanks, word)) {
    const std::size_t end = std::min(all.find_first_of(blanks, word), all.size());
    longest = std::max(longest, end - word);
    word = end;
  }
  return longest;
}
