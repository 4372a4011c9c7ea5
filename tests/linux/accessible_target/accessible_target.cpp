// A program to point at whose windows and accessible objects are what a test says, be that true or not.
//
// It is told on its standard input, a line of JSON for each thing, and answers each with a line once it is
// there:
//
//   {"window": "frame", "title": "Title", "rectangle": [left, top, right, bottom]}
//   {"id": "ok", "parent": "frame", "rectangle": [...], "role": 43, "name": "OK", ...}
//   {"focus": "ok"}
//
// Each toolkit that is named when it is started is a program of its own on the bus, in one process; words go
// to the first of them where no other "program" is numbered.
//
// objects.h says what an object may have; the frame of a window is an object that has "root" for its parent.
// A window may have the number of another "process". Of some "kind" it is none like others: a "pop-up", a
// "tool tip", an "overlay" as compositing managers have, which no pointer is ever in, one for "input only",
// or "unmanaged", as all are where no window manager runs.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/shape.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "tests/linux/accessible_target/answers.h"

namespace pointalk::target {
namespace {

// Placed as it says, whatever window manager there is, and yet a window like others unless it is of a kind.
void ShowWindow(Display* display, const nlohmann::json& words) {
  const auto box = words.at("rectangle").get<std::array<int, 4>>();
  const auto title = words.value("title", "");
  const auto kind = words.value("kind", "");
  const bool isInputOnly = kind == "input only";
  XSetWindowAttributes attributes{};
  attributes.override_redirect = kind == "unmanaged" ? False : True;
  attributes.background_pixel = WhitePixel(display, DefaultScreen(display));
  const Window window = XCreateWindow(
      display, DefaultRootWindow(display), box[0], box[1], static_cast<unsigned>(box[2] - box[0]),
      static_cast<unsigned>(box[3] - box[1]), 0, isInputOnly ? 0 : CopyFromParent,
      isInputOnly ? InputOnly : InputOutput, static_cast<Visual*>(CopyFromParent),
      isInputOnly ? CWOverrideRedirect : CWOverrideRedirect | CWBackPixel, &attributes);
  const auto put = [&](const char* property, Atom type, int format, const void* data, std::size_t count) {
    XChangeProperty(display, window, XInternAtom(display, property, False), type, format, PropModeReplace,
                    static_cast<const unsigned char*>(data), static_cast<int>(count));
  };
  const long process = words.value("process", long{getpid()});
  const std::array<long, 2> normal{NormalState, None};
  const Atom toolTip = XInternAtom(display, "_NET_WM_WINDOW_TYPE_TOOLTIP", False);
  if (kind != "overlay") put("_NET_WM_PID", XA_CARDINAL, 32, &process, 1);
  put("_NET_WM_NAME", XInternAtom(display, "UTF8_STRING", False), 8, title.data(), title.size());
  if (kind.empty())
    put("WM_STATE", XInternAtom(display, "WM_STATE", False), 32, normal.data(), normal.size());
  if (kind == "tool tip") put("_NET_WM_WINDOW_TYPE", XA_ATOM, 32, &toolTip, 1);
  if (kind == "overlay")
    XShapeCombineRectangles(display, window, ShapeInput, 0, 0, nullptr, 0, ShapeSet, Unsorted);
  XMapRaised(display, window);
  XSync(display, False);
}

// What is told of on one connection to the bus.
struct Connection {
  Objects objects;
  sd_bus* bus = nullptr;
};

void Obey(const std::string& line, Display* display, std::deque<Connection>& programs) {
  const auto words = nlohmann::json::parse(line);
  Connection& program = programs.at(words.value("program", std::size_t{0}));
  if (words.contains("window")) {
    ShowWindow(display, words);
  } else if (words.contains("focus")) {
    TellFocus(program.bus, words.at("focus").get<std::string>());
  } else {
    program.objects.Put(words);
  }
  std::cout << "ok" << std::endl;
}

// Reads what has come in; false at its end.
bool TakeLines(std::string& read, Display* display, std::deque<Connection>& programs) {
  std::array<char, 65536> bytes{};
  const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
  if (count <= 0) return false;
  read.append(bytes.data(), static_cast<std::size_t>(count));
  for (auto end = read.find('\n'); end != std::string::npos; end = read.find('\n')) {
    Obey(read.substr(0, end), display, programs);
    read.erase(0, end + 1);
  }
  return true;
}

int Main(const std::vector<std::string>& toolkits) {
  Display* const display = XOpenDisplay(nullptr);
  std::deque<Connection> programs;
  std::vector<pollfd> files{{STDIN_FILENO, POLLIN, 0}};
  for (const std::string& toolkit : toolkits) {
    Connection& program = programs.emplace_back();
    program.bus = TellOf(program.objects, toolkit);
    if (display == nullptr || program.bus == nullptr) return EXIT_FAILURE;
    files.push_back({sd_bus_get_fd(program.bus), POLLIN, 0});
  }
  std::cout << "ready" << std::endl;
  std::string read;
  for (;;) {
    for (const Connection& program : programs) {
      while (sd_bus_process(program.bus, nullptr) > 0) {
      }
      sd_bus_flush(program.bus);
    }
    poll(files.data(), files.size(), -1);
    if (files[0].revents != 0 && !TakeLines(read, display, programs)) return EXIT_SUCCESS;
    for (const pollfd& file : files) {
      if (file.fd != STDIN_FILENO && (file.revents & (POLLERR | POLLHUP)) != 0) return EXIT_SUCCESS;
    }
  }
}

}  // namespace
}  // namespace pointalk::target

int main(int count, char** arguments) {
  try {
    std::vector<std::string> toolkits(arguments + 1, arguments + count);
    if (toolkits.empty()) toolkits.emplace_back("test 1.0");
    return pointalk::target::Main(toolkits);
  } catch (const std::exception& error) {
    std::fputs(error.what(), stderr);
    return EXIT_FAILURE;
  }
}
