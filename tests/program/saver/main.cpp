// saver.exe saves settings beside itself over and over, until it is killed or a save fails. It prints a line
// once the first ones are saved.
#include <cstdio>

#include "settings/settings_text.h"
#include "win32/files.h"

int main() {
  pointalk::win32::WinFiles files;
  pointalk::SettingsValues values;
  for (long saved = 0;; ++saved) {
    values.verticalVolume = static_cast<int>(saved % 101);
    const pointalk::Text text = pointalk::SettingsText(values);
    if (!files.Write({pointalk::Folder::kProgram, pointalk::kSettingsFile}, text)) return 1;
    if (saved > 0) continue;
    std::puts("ready");
    std::fflush(stdout);
  }
}
