// Programs that are started by this one.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pointalk::linux {

// The whole path of a program that is looked for in PATH; empty where there is none.
std::string FindProgram(std::string_view name);

// Starts a program by its path, with the signals that every program begins with and not with ours, which are
// blocked: it could not be ended by them. No value where it cannot be started. Whoever starts it sees to its
// end.
std::optional<pid_t> StartProgram(const std::string& path, const std::vector<std::string>& arguments);

}  // namespace pointalk::linux
