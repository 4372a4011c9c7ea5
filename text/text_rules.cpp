#include "text/text_rules.h"

#include <algorithm>

#include "text/letters.h"

namespace pointalk {

TextView Trimmed(TextView text) {
  const auto first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

bool IsBlank(TextView text) { return text.find_first_not_of(u' ') == TextView::npos; }

bool Contains(TextView text, TextView part) { return text.find(part) != TextView::npos; }

bool ContainsInLowerCase(TextView text, TextView lowerPart) {
  return std::search(text.begin(), text.end(), lowerPart.begin(), lowerPart.end(),
                     [](char16_t left, char16_t right) { return ToLower(left) == right; }) != text.end() ||
         lowerPart.empty();
}

Text Replaced(TextView text, TextView find, TextView replacement) {
  Text result;
  result.reserve(text.size());
  std::size_t from = 0;
  while (!find.empty()) {
    const auto at = text.find(find, from);
    if (at == TextView::npos) break;
    result.append(text, from, at - from).append(replacement);
    from = at + find.size();
  }
  return result.append(text, from, TextView::npos);
}

TextView UpToNul(TextView text) { return text.substr(0, text.find(u'\0')); }

std::vector<TextView> Lines(TextView content) {
  std::vector<TextView> lines;
  while (!content.empty()) {
    const auto end = content.find(u"\r\n");
    lines.push_back(content.substr(0, end));
    if (end == TextView::npos) break;
    content.remove_prefix(end + 2);
  }
  return lines;
}

}  // namespace pointalk
