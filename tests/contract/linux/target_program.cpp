#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <stdexcept>

#include "tests/contract/linux/linux_world.h"

namespace pointalk::contract {

// Lies beside this program.
TargetProgram::TargetProgram() {
  const auto path =
      std::filesystem::read_symlink("/proc/self/exe").parent_path() / "pointalk_accessible_target";
  std::array<int, 2> in{};
  std::array<int, 2> out{};
  if (pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0)
    throw std::runtime_error("no pipe");
  process_ = fork();
  if (process_ == 0) {
    dup2(in[0], STDIN_FILENO);
    dup2(out[1], STDOUT_FILENO);
    execl(path.c_str(), path.c_str(), nullptr);
    _exit(1);
  }
  ::close(in[0]);
  ::close(out[1]);
  in_ = fdopen(in[1], "w");
  out_ = fdopen(out[0], "r");
  AwaitLine();
}

TargetProgram::~TargetProgram() {
  std::fclose(in_);
  std::fclose(out_);
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
}

void TargetProgram::AwaitLine() {
  std::array<char, 64> line{};
  if (std::fgets(line.data(), static_cast<int>(line.size()), out_) == nullptr)
    throw std::runtime_error("the target has ended");
}

void TargetProgram::Tell(const nlohmann::json& words) {
  std::fputs((words.dump() + '\n').c_str(), in_);
  std::fflush(in_);
  AwaitLine();
}

void TargetProgram::Stop() { kill(process_, SIGSTOP); }

}  // namespace pointalk::contract
