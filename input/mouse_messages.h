// Numbers of the messages that tell of the mouse's buttons.
#pragma once

#include <cstdint>

namespace pointalk {

inline constexpr std::int32_t kLeftPress = 513;
inline constexpr std::int32_t kLeftRelease = 514;
inline constexpr std::int32_t kLeftDoubleClick = 515;
inline constexpr std::int32_t kRightPress = 516;
inline constexpr std::int32_t kRightDoubleClick = 518;
inline constexpr std::int32_t kMiddlePress = 519;
inline constexpr std::int32_t kMiddleDoubleClick = 521;

}  // namespace pointalk
