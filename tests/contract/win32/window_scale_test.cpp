// Places in windows whose programs count in pixels of their own, on every kind of system. Wine is one kind,
// so stand-ins take the place of the system's calls.
#include "win32/window_scale.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>

namespace pointalk::contract {
namespace {

using win32::ScaleCalls;
using win32::WindowScale;

const HWND kUnawareWindow = reinterpret_cast<HWND>(INT_PTR{16});
const HWND kAwareWindow = reinterpret_cast<HWND>(INT_PTR{32});
const HWND kLostWindow = reinterpret_cast<HWND>(INT_PTR{48});  // gone since

const auto kUnaware = reinterpret_cast<DPI_AWARENESS_CONTEXT>(INT_PTR{0x6010});
const auto kAware = reinterpret_cast<DPI_AWARENESS_CONTEXT>(INT_PTR{0x12});

// At 200 % a program that is not aware of it has its window's inside begin at 300, 150 and the screen at 600,
// 300.
constexpr POINT kOwnTopLeft = {300, 150};
constexpr POINT kTopLeft = {600, 300};
constexpr POINT kPlace = {640, 324};
constexpr POINT kOwnPlace = {320, 162};

// What the system keeps of the thread, and what it was asked.
struct FakeSystem {
  DPI_AWARENESS_CONTEXT thread = kAware;
  int changes = 0;
  bool converts = true;
  bool mayChange = true;
  bool keepsOwnPlaces = false;  // up to Windows 8 the places of such windows are their own to everybody
};

FakeSystem fake;  // procedures of the system have no object

DPI_AWARENESS_CONTEXT WINAPI OfWindow(HWND window) {
  if (window == kLostWindow) return nullptr;
  return window == kUnawareWindow ? kUnaware : kAware;
}

DPI_AWARENESS_CONTEXT WINAPI OfThread() { return fake.thread; }

BOOL WINAPI AreEqual(DPI_AWARENESS_CONTEXT one, DPI_AWARENESS_CONTEXT other) { return one == other; }

DPI_AWARENESS_CONTEXT WINAPI SetThread(DPI_AWARENESS_CONTEXT to) {
  if (!fake.mayChange) return nullptr;
  ++fake.changes;
  return std::exchange(fake.thread, to);
}

BOOL WINAPI ToOwn(HWND window, POINT* place) {
  if (!fake.converts) return FALSE;
  if (window == kUnawareWindow) *place = {place->x / 2, place->y / 2};
  return TRUE;
}

BOOL WINAPI OldToOwn(HWND /*window*/, POINT* /*place*/) {
  ADD_FAILURE() << "the older call was made";
  return FALSE;
}

POINT TopLeftOf(HWND window) {
  const bool own = fake.keepsOwnPlaces || fake.thread == kUnaware;
  return window == kUnawareWindow && own ? kOwnTopLeft : kTopLeft;
}

BOOL WINAPI ToClient(HWND window, POINT* place) {
  if (window == kLostWindow) return FALSE;
  *place = {place->x - TopLeftOf(window).x, place->y - TopLeftOf(window).y};
  return TRUE;
}

BOOL WINAPI ToScreen(HWND window, POINT* place) {
  if (window == kLostWindow) return FALSE;
  *place = {place->x + TopLeftOf(window).x, place->y + TopLeftOf(window).y};
  return TRUE;
}

ScaleCalls Windows10() {
  ScaleCalls calls;
  calls.ofWindow = &OfWindow;
  calls.ofThread = &OfThread;
  calls.areEqual = &AreEqual;
  calls.set = &SetThread;
  calls.toOwnPerMonitor = &ToOwn;
  calls.toClient = &ToClient;
  calls.toScreen = &ToScreen;
  return calls;
}

ScaleCalls Windows81() {
  ScaleCalls calls;
  calls.toOwnPerMonitor = &ToOwn;
  calls.toClient = &ToClient;
  calls.toScreen = &ToScreen;
  return calls;
}

ScaleCalls Windows7() {
  ScaleCalls calls;
  calls.toOwn = &ToOwn;
  calls.toClient = &ToClient;
  calls.toScreen = &ToScreen;
  return calls;
}

std::string Shown(std::optional<POINT> place) {
  return place ? std::to_string(place->x) + ", " + std::to_string(place->y) : "none";
}

class WindowScaleTest : public ::testing::Test {
 protected:
  WindowScaleTest() { fake = {}; }
};

TEST_F(WindowScaleTest, APlaceInAnUnawareWindowIsAsItsProgramCounts) {
  EXPECT_EQ(Shown(WindowScale(Windows10()).ToClient(kUnawareWindow, kPlace)), "20, 12");
  EXPECT_EQ(fake.changes, 2);
  EXPECT_EQ(fake.thread, kAware);
}

TEST_F(WindowScaleTest, AnAwareWindowIsAskedAsTheThreadCounts) {
  EXPECT_EQ(Shown(WindowScale(Windows10()).ToClient(kAwareWindow, kPlace)), "40, 24");
  EXPECT_EQ(fake.changes, 0);
}

TEST_F(WindowScaleTest, AQuestionIsAskedInTheWindowsAwareness) {
  const int answer = WindowScale(Windows10()).AskAt(kUnawareWindow, kPlace, [](POINT place) {
    EXPECT_EQ(Shown(place), Shown(kOwnPlace));
    EXPECT_EQ(fake.thread, kUnaware);
    return 3;
  });
  EXPECT_EQ(answer, 3);
  EXPECT_EQ(fake.thread, kAware);
}

TEST_F(WindowScaleTest, WhatTheSystemDoesNotConvertIsAskedAsTheThreadCounts) {
  fake.converts = false;
  EXPECT_EQ(Shown(WindowScale(Windows10()).ToClient(kUnawareWindow, kPlace)), "40, 24");
  EXPECT_EQ(fake.changes, 0);
  EXPECT_EQ(Shown(WindowScale(Windows81()).ToClient(kUnawareWindow, kPlace)), "40, 24");
}

TEST_F(WindowScaleTest, NorIsAPlaceConvertedThatTheThreadCannotFollow) {
  fake.mayChange = false;
  EXPECT_EQ(Shown(WindowScale(Windows10()).ToClient(kUnawareWindow, kPlace)), "40, 24");
}

TEST_F(WindowScaleTest, Windows81ConvertsBothEndsOfTheWay) {
  EXPECT_EQ(Shown(WindowScale(Windows81()).ToClient(kUnawareWindow, kPlace)), "20, 12");
  EXPECT_EQ(Shown(WindowScale(Windows81()).ToClient(kAwareWindow, kPlace)), "40, 24");
}

TEST_F(WindowScaleTest, Windows81ConvertsWhatItIsAskedItself) {
  WindowScale(Windows81()).AskAt(kUnawareWindow, kPlace, [](POINT place) {
    EXPECT_EQ(Shown(place), Shown(kPlace));
    return 0;
  });
}

TEST_F(WindowScaleTest, OlderSystemsHaveTheOlderCall) {
  fake.keepsOwnPlaces = true;
  EXPECT_EQ(Shown(WindowScale(Windows7()).ToClient(kUnawareWindow, kPlace)), "20, 12");
  EXPECT_EQ(Shown(WindowScale(Windows7()).ToClient(kAwareWindow, kPlace)), "40, 24");
  WindowScale(Windows7()).AskAt(kUnawareWindow, kPlace, [](POINT place) {
    EXPECT_EQ(Shown(place), Shown(kOwnPlace));
    return 0;
  });
}

// It is still there, but does nothing of use.
TEST_F(WindowScaleTest, TheOlderCallIsNotMadeWhereThereIsTheNewOne) {
  ScaleCalls calls = Windows81();
  calls.toOwn = &OldToOwn;
  EXPECT_EQ(Shown(WindowScale(calls).ToClient(kUnawareWindow, kPlace)), "20, 12");
}

TEST_F(WindowScaleTest, ThereIsNoPlaceInNoWindow) {
  for (const ScaleCalls& calls : {Windows10(), Windows81(), Windows7()})
    EXPECT_EQ(Shown(WindowScale(calls).ToClient(kLostWindow, kPlace)), "none");
}

TEST_F(WindowScaleTest, ThisSystemHasWhatSystemsHave) {
  const ScaleCalls calls = ScaleCalls::OfSystem();
  EXPECT_TRUE(calls.HaveAwareness());
  EXPECT_NE(calls.toOwn, nullptr);
}

}  // namespace
}  // namespace pointalk::contract
