// Lines in and out of a program that another program drives.
#pragma once

#include <cstdio>
#include <string>

namespace pointalk::target {

// One line of standard input without its end; false at the end of the input.
bool ReadLine(std::string& line);

// Written and flushed.
void WriteLine(std::FILE* out, const std::string& line);

}  // namespace pointalk::target
