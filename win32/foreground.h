// The keyboard for a window that opens while another program has it.
#pragma once

namespace pointalk::win32 {

// Call right before a dialog that sets itself to the foreground, or before a window is set to it. The system
// lets only the program that the user last had to do with come to the front; a question of ours is spoken
// wherever the pointer is, and its keys have to reach it.
void ClaimForeground();

}  // namespace pointalk::win32
