#!/usr/bin/env python3
"""Checks that the rooms stay apart: who includes whom, what the seam may contain, and that includes form no cycle."""

import re

from checking import ROOMS, TABLE, arguments, report, sources, without_comments

STANDARD_HEADERS = set("""
algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes climits
cmath compare complex concepts condition_variable coroutine csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar
cwchar cwctype deque exception execution filesystem forward_list functional future initializer_list ios iosfwd
iterator latch limits list map memory memory_resource mutex new numbers numeric optional queue random ranges ratio
scoped_allocator semaphore set shared_mutex source_location span stack stdexcept stop_token string string_view
syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant
vector version
""".split())

# Names that <windows.h> redefines: a method of the seam called so would silently become another on Windows.
WINDOWS_MACROS = set("""
AppendMenu BuildCommDcb CallWindowProc CharLower CharNext CharPrev CharUpper CopyFile CopyMemory CreateDesktop
CreateDialog CreateDirectory CreateEvent CreateFile CreateFont CreateMutex CreateProcess CreateSemaphore CreateService
CreateWindow CreateWindowEx DefWindowProc DeleteFile DialogBox DispatchMessage DrawText EncryptFile EnumProps
ExtractIcon FillMemory FindFirstFile FindNextFile FindResource FindText FindWindow FindWindowEx FormatMessage
FreeModule GetClassInfo GetClassLong GetClassName GetClipboardFormatName GetCommandLine GetComputerName
GetCurrentDirectory GetCurrentTime GetDateFormat GetDiskFreeSpace GetDlgItemText GetDriveType GetEnvironmentStrings
GetEnvironmentVariable GetExpandedName GetFileAttributes GetFreeSpace GetFullPathName GetGlyphOutline GetKeyNameText
GetLocaleInfo GetLongPathName GetMenuItemInfo GetMenuString GetMessage GetModuleFileName GetModuleHandle
GetMonitorInfo GetNextWindow GetObject GetOpenFileName GetPrinter GetPrivateProfileString GetProfileString GetProp
GetSaveFileName GetShortPathName GetStartupInfo GetStringType GetSystemDirectory GetTempFileName GetTempPath
GetTextExtentPoint GetTextMetrics GetTimeFormat GetUserName GetVersionEx GetVolumeInformation GetWindowLong
GetWindowModuleFileName GetWindowText GetWindowTextLength GetWindowsDirectory InsertMenu InsertMenuItem IsCharAlpha
IsDialogMessage LoadBitmap LoadCursor LoadIcon LoadImage LoadLibrary LoadMenu LoadString LogonUser LookupAccountName
MapVirtualKey MessageBox ModifyMenu MoveFile MoveMemory OpenEvent OpenMutex OutputDebugString PeekMessage PlaySound
PostMessage PostThreadMessage RegCreateKey RegDeleteKey RegDeleteValue RegEnumKey RegEnumValue RegOpenKey
RegQueryValue RegSetValue RegisterClass RegisterHotKeyEx RegisterWindowMessage RemoveDirectory RemoveProp ReplaceFile
ReplaceText SearchPath SecureZeroMemory SendDlgItemMessage SendMessage SendMessageTimeout SendNotifyMessage
SetClassLong SetComputerName SetCurrentDirectory SetDlgItemText SetEnvironmentVariable SetFileAttributes
SetMenuItemInfo SetPort SetProp SetWindowLong SetWindowText SetWindowsHook SetWindowsHookEx ShellAbout ShellExecute
ShellMessageBox Shell_NotifyIcon StartService SystemParametersInfo TextOut TranslateAccelerator UnregisterClass
UpdateResource VkKeyScan WaitNamedPipe WinHelp WriteConsole Yield ZeroMemory far interface max min near small
mciSendCommand mciSendString midiOutGetDevCaps sndPlaySound waveOutGetDevCaps
""".split())

# Types and words of the platform that the seam speaks without.
WINDOWS_WORDS = re.compile(
    r"\b(?:HRESULT|HANDLE|HWND|HMENU|HMODULE|HINSTANCE|HICON|HDC|HKEY|HMIDIOUT|HBITMAP|LPARAM|WPARAM|LRESULT|DWORD|"
    r"LONG|BOOL|BSTR|VARIANT|IUnknown|IDispatch|IAccessible|LP[A-Z]*STR|TCHAR|WCHAR|S_OK|S_FALSE|CALLBACK|WINAPI)\b")

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"\n]+)[>"]', re.M)
WORD = re.compile(r"\b[A-Za-z_]\w*\b")

# The folders that implement the seam; none of them sees another.
HOSTS = ("win32", "linux", "sim")


class File:
    def __init__(self, root, path):
        self.name = path.relative_to(root).as_posix()
        self.folder = self.name.split("/")[0]
        text = path.read_text(encoding="utf-8")
        kept = without_comments(text, keep_literals=True)
        self.code = without_comments(text)
        # (line, "<" or '"', what is included)
        self.includes = [(kept.count("\n", 0, m.start(1)) + 1, m.group(1), m.group(2)) for m in INCLUDE.finditer(kept)]

    def own_includes(self):
        return [(line, target) for line, kind, target in self.includes if kind == '"']

    def words(self):
        return [(self.code.count("\n", 0, m.start()) + 1, m.group()) for m in WORD.finditer(self.code)]


def foreign_headers(files):
    """Rooms and the seam see the standard library only."""
    return [f"{f.name}:{line}: <{target}> is no standard header" for f in files if f.folder in ROOMS + ("platform",)
            for line, kind, target in f.includes if kind == "<" and target not in STANDARD_HEADERS]


def wrong_rooms(files):
    """Includes in quotes name a file from the root, in a folder that the including one may see."""
    names = {f.name for f in files}
    visible = {room: (room, "platform", *seen) for room, seen in TABLE.items()}
    visible["text"] = ("text",)
    visible.update(platform=("platform", "text"))
    visible.update({host: ROOMS + ("platform", host) for host in HOSTS})
    breaches = []
    for f in files:
        for line, target in f.own_includes():
            if target not in names:
                breaches.append(f'{f.name}:{line}: "{target}" is no file of ours, seen from the root')
            elif target.split("/")[0] not in visible[f.folder]:
                breaches.append(f'{f.name}:{line}: {f.folder}/ may not include "{target}"')
    return breaches


def other_links(root):
    """CMakeLists.txt links the rooms along the table."""
    lists = root / "CMakeLists.txt"
    text = lists.read_text(encoding="utf-8")
    linked, breaches = {}, []
    for match in re.finditer(r"^pointalk_room\(([^)]*)\)", text, re.M):
        room, *seen = match.group(1).split()
        linked[room] = set(seen)
        if linked[room] != set(TABLE.get(room, ())):
            breaches.append(f"CMakeLists.txt:{text.count(chr(10), 0, match.start()) + 1}: {room} is linked to {seen}")
    return breaches + [f"CMakeLists.txt:1: {room} is no library of its own" for room in ROOMS if room not in linked]


def impure_seam(files):
    """The seam is headers without a word of the platform."""
    seam = [f for f in files if f.folder == "platform"]
    breaches = [f"{f.name}:1: the seam has no code" for f in seam if f.name.endswith(".cpp")]
    breaches += [f"{f.name}:{line}: {word} is a word of the platform" for f in seam for line, word in f.words()
                 if WINDOWS_WORDS.fullmatch(word)]
    return breaches


def macro_names(files):
    """Nothing in the seam is called like a macro of <windows.h>."""
    return [f"{f.name}:{line}: <windows.h> has a macro {word}" for f in files if f.folder == "platform"
            for line, word in f.words() if word in WINDOWS_MACROS or word.removesuffix("A") in WINDOWS_MACROS]


def cycles(files):
    """Includes form no cycle."""
    graph = {f.name: [target for _, target in f.own_includes()] for f in files}
    breaches, done = [], set()

    def visit(name, path):
        if name in path:
            breaches.append(f"{name}:1: include cycle {' > '.join(path[path.index(name):] + [name])}")
            return
        if name in done:
            return
        for target in graph.get(name, ()):
            visit(target, path + [name])
        done.add(name)

    for name in graph:
        visit(name, [])
    return breaches


def main():
    root = arguments(__doc__).root
    files = [File(root, path) for path in sources(root, ROOMS + ("platform",) + HOSTS)]
    rules = (foreign_headers, wrong_rooms, impure_seam, macro_names, cycles)
    report({**{rule.__doc__: rule(files) for rule in rules}, other_links.__doc__: other_links(root)})


if __name__ == "__main__":
    main()
