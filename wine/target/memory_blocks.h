// Which small blocks of memory stand in this process: what another program allocates here and forgets shows
// up.
#pragma once

#include <string>

namespace pointalk::target {

// A JSON list of the process's private, committed, writable allocations of at most one page, each with its
// "base", its "size" and its first 40 "bytes" in hexadecimal.
std::string SmallPrivateBlocksJson();

}  // namespace pointalk::target
