// How long a wave file sounds.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pointalk::wine {

// Microseconds of the PCM wave whose first bytes are `head`, in a file of `fileBytes` bytes; 0 for anything
// that is not such a wave. A length in the header that runs past the end of the file counts to the end.
std::int64_t WaveLength(std::string_view head, std::int64_t fileBytes);

// The same for a file; 0 also when it cannot be read.
std::int64_t WaveFileLength(const std::wstring& path);

}  // namespace pointalk::wine
