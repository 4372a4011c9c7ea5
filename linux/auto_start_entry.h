// The desktop entry by which the user's session starts the program.
#pragma once

namespace pointalk::linux {

bool StartsWithSession();

// Both are false where the folder cannot be written.
[[nodiscard]] bool StartWithSession();
[[nodiscard]] bool StartWithSessionNoMore();

}  // namespace pointalk::linux
