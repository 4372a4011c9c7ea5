// Data as they lie in the registry, written as numbers.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <vector>

namespace pointalk::testing {

using Bytes = std::vector<std::byte>;

inline Bytes BytesOf(std::initializer_list<int> numbers) {
  Bytes bytes;
  for (const int number : numbers) bytes.push_back(static_cast<std::byte>(number));
  return bytes;
}

}  // namespace pointalk::testing
