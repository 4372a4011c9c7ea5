#include "wine/automation/answers.h"

#include <filesystem>
#include <fstream>
#include <string>

#include "wine/heard/heard.h"

namespace pointalk::wine {
namespace {

constexpr DWORD kHoldInterval = 20;  // milliseconds between two looks at the file

std::optional<std::wstring> Path() { return PathFromEnvironment(L"POINTALK_AUTOMATION"); }

bool IsHeld(const target::CommandLine& answer) { return answer.NumberOr(L"hold", 0) != 0; }

std::optional<target::CommandLine> ReadAnswer(const std::filesystem::path& path, POINT place) {
  std::ifstream lines{path, std::ios::binary};
  std::optional<target::CommandLine> found;
  for (std::string text; std::getline(lines, text);) {
    const target::CommandLine line(text);
    const RECT rect = target::ParseRect(line.Option(L"rect"));
    if (PtInRect(&rect, place)) found = line;
  }
  return found;
}

}  // namespace

bool HaveAnswers() { return Path().has_value(); }

std::optional<target::CommandLine> AnswerAt(POINT place) {
  const auto path = Path();
  if (!path) return std::nullopt;
  auto answer = ReadAnswer(*path, place);
  for (; answer && IsHeld(*answer); answer = ReadAnswer(*path, place)) Sleep(kHoldInterval);
  return answer;
}

bool Fails(const target::CommandLine& answer, std::wstring_view what) {
  const std::wstring names = L',' + answer.OptionOr(L"fails", L"") + L',';
  return names.find(L',' + std::wstring(what) + L',') != std::wstring::npos;
}

}  // namespace pointalk::wine
