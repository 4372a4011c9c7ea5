#include "linux/system.h"

#include <sys/utsname.h>
#include <sys/wait.h>

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <thread>

#include "linux/ansi.h"
#include "linux/folders.h"
#include "linux/qt_text.h"
#include "linux/started_program.h"
#include "linux/utf8.h"

namespace pointalk::linux {
namespace {

constexpr std::uint32_t kNewFamily = 2;
constexpr TextView kMailLink = u"mailto:";

// The program may stay for as long as the message is written.
bool OpenWith(const std::string& program, TextView link) {
  const auto child = StartProgram(program, {ToUtf8(link)});
  if (child) std::thread([child] { waitpid(*child, nullptr, 0); }).detach();
  return child.has_value();
}

}  // namespace

std::optional<SystemVersion> LinuxSystem::Version() {
  utsname names{};
  if (uname(&names) != 0) return std::nullopt;
  SystemVersion version{kNewFamily, 0, 0};
  char point = '.';
  std::istringstream(names.release) >> version.major >> point >> version.minor;
  return version;
}

Text LinuxSystem::ProgramFolder() { return FromUtf8(ProgramFolderPath().string()); }

// Paths have one form only.
Text LinuxSystem::ShortPath(TextView path, int capacity) {
  return Text(path.substr(0, static_cast<std::size_t>(std::max(capacity, 0))));
}

bool LinuxSystem::SetClipboard(TextView text) {
  QGuiApplication::clipboard()->setText(ToQt(Widen(Narrow(text))));
  return true;
}

bool LinuxSystem::ShellOpen(TextView /*operation*/, TextView /*file*/, TextView parameters,
                            TextView /*directory*/, int /*show*/) {
  if (!parameters.starts_with(kMailLink)) return false;
  for (const char* const program : {"xdg-email", "xdg-open"}) {
    if (const std::string path = FindProgram(program); !path.empty()) return OpenWith(path, parameters);
  }
  notices_.Show(u"Pointalk cannot open your mail program. Please install the package xdg-utils.");
  return false;
}

// Destructors are left out: what other programs are to find is put back, and everything else is the system's
// to take.
void LinuxSystem::EndProgram() {
  things_.End();
  std::_Exit(EXIT_SUCCESS);
}

}  // namespace pointalk::linux
