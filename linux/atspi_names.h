// Names and numbers of AT-SPI 2 that are used here.
#pragma once

#include <cstdint>

namespace pointalk::linux {

inline constexpr char kAccessible[] = "org.a11y.atspi.Accessible";
inline constexpr char kApplication[] = "org.a11y.atspi.Application";
inline constexpr char kComponent[] = "org.a11y.atspi.Component";
inline constexpr char kCollection[] = "org.a11y.atspi.Collection";
inline constexpr char kSelection[] = "org.a11y.atspi.Selection";
inline constexpr char kTextInterface[] = "org.a11y.atspi.Text";
inline constexpr char kValueInterface[] = "org.a11y.atspi.Value";
inline constexpr char kRegistry[] = "org.a11y.atspi.Registry";
inline constexpr char kRootPath[] = "/org/a11y/atspi/accessible/root";
inline constexpr char kProperties[] = "org.freedesktop.DBus.Properties";

// Kinds of coordinates.
inline constexpr std::uint32_t kOnScreen = 0;
inline constexpr std::uint32_t kInWindow = 1;

// Bits of an object's state.
inline constexpr int kStateMultiLine = 17;
inline constexpr int kStateShowing = 25;
inline constexpr int kStateSingleLine = 26;

// A line as a part of a text, by the newer and by the older question.
inline constexpr std::uint32_t kLineGranularity = 3;
inline constexpr std::uint32_t kLineBoundary = 5;

}  // namespace pointalk::linux
