// A program to point at whose windows and accessible objects are what a test says, be that true or not.
//
// It is told on its standard input, a line of JSON for each thing, and answers each with a line once it is
// there:
//
//   {"window": "frame", "title": "Title", "rectangle": [left, top, right, bottom]}
//   {"id": "ok", "parent": "frame", "rectangle": [...], "role": 43, "name": "OK", ...}
//   {"focus": "ok"}
//
// objects.h says what an object may have; the frame of a window is an object that has "root" for its parent.
// A window with "pop-up" is one that belongs to another, as a menu does.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include "tests/linux/accessible_target/answers.h"

namespace pointalk::target {
namespace {

// Placed as it says, whatever window manager there is, and yet a window like others.
void ShowWindow(Display* display, const nlohmann::json& words) {
  const auto box = words.at("rectangle").get<std::array<int, 4>>();
  const auto title = words.value("title", "");
  XSetWindowAttributes attributes{};
  attributes.override_redirect = True;
  attributes.background_pixel = WhitePixel(display, DefaultScreen(display));
  const Window window = XCreateWindow(
      display, DefaultRootWindow(display), box[0], box[1], static_cast<unsigned>(box[2] - box[0]),
      static_cast<unsigned>(box[3] - box[1]), 0, CopyFromParent, InputOutput,
      static_cast<Visual*>(CopyFromParent), CWOverrideRedirect | CWBackPixel, &attributes);
  const auto put = [&](const char* property, Atom type, int format, const void* data, std::size_t count) {
    XChangeProperty(display, window, XInternAtom(display, property, False), type, format, PropModeReplace,
                    static_cast<const unsigned char*>(data), static_cast<int>(count));
  };
  const long process = getpid();
  const std::array<long, 2> normal{NormalState, None};
  const bool isPopUp = words.value("pop-up", false);
  put("_NET_WM_PID", XA_CARDINAL, 32, &process, 1);
  put("_NET_WM_NAME", XInternAtom(display, "UTF8_STRING", False), 8, title.data(), title.size());
  if (!isPopUp) put("WM_STATE", XInternAtom(display, "WM_STATE", False), 32, normal.data(), normal.size());
  XMapRaised(display, window);
  XSync(display, False);
}

void Obey(const std::string& line, Display* display, sd_bus* bus, Objects& objects) {
  const auto words = nlohmann::json::parse(line);
  if (words.contains("window")) {
    ShowWindow(display, words);
  } else if (words.contains("focus")) {
    TellFocus(bus, words.at("focus").get<std::string>());
  } else {
    objects.Put(words);
  }
  std::cout << "ok" << std::endl;
}

// Reads what has come in; false at its end.
bool TakeLines(std::string& read, Display* display, sd_bus* bus, Objects& objects) {
  std::array<char, 65536> bytes{};
  const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
  if (count <= 0) return false;
  read.append(bytes.data(), static_cast<std::size_t>(count));
  for (auto end = read.find('\n'); end != std::string::npos; end = read.find('\n')) {
    Obey(read.substr(0, end), display, bus, objects);
    read.erase(0, end + 1);
  }
  return true;
}

int Main(const std::string& toolkit) {
  Display* const display = XOpenDisplay(nullptr);
  Objects objects;
  sd_bus* const bus = TellOf(objects, toolkit);
  if (display == nullptr || bus == nullptr) return EXIT_FAILURE;
  std::cout << "ready" << std::endl;
  std::string read;
  for (;;) {
    while (sd_bus_process(bus, nullptr) > 0) {
    }
    sd_bus_flush(bus);
    std::array<pollfd, 2> files{{{STDIN_FILENO, POLLIN, 0}, {sd_bus_get_fd(bus), POLLIN, 0}}};
    poll(files.data(), files.size(), -1);
    if (files[0].revents != 0 && !TakeLines(read, display, bus, objects)) return EXIT_SUCCESS;
    if ((files[1].revents & (POLLERR | POLLHUP)) != 0) return EXIT_SUCCESS;
  }
}

}  // namespace
}  // namespace pointalk::target

int main(int count, char** arguments) {
  try {
    return pointalk::target::Main(count > 1 ? arguments[1] : "test 1.0");
  } catch (const std::exception& error) {
    std::fputs(error.what(), stderr);
    return EXIT_FAILURE;
  }
}
