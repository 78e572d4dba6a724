#!/usr/bin/env python3
"""check_image.py PROGRAM [SIZE_LIMIT]

Proves that a finished, unbranded launcher can be branded and started on every supported Windows.
Runs after every link, on the file as it is shipped. Every line it prints is a reason why that file
must not be shipped. It shares no code and no table with the program, so that a mistake there does
not hide itself.
"""

import struct
import sys

from check_room import check_room

BLOCK = 32768
BOUNDARY = 16
SIZE_LIMIT = 288 * 1024  # bytes, unless the caller gives another one

PREFIX = "@#BRD#@|".encode("utf-16-le")
NOT_BRANDED = "@#BRANDED0#@"
BRANDED = "@#BRANDED1#@"

# Number: (width, name)
FIELDS = {
    1: (50, "AppName"),
    2: (255, "AccPath"),
    13: (255, "DBPath"),
    14: (100, "DBFilename"),
    25: (255, "PicPath"),
    26: (100, "PicFilename"),
    27: (4, "PicDelay"),
    38: (100, "Profile"),
    39: (100, "User"),
    40: (100, "Pwd"),
    41: (1, "Runtime"),
    42: (1, "Exclusive"),
    43: (1, "Log"),
    44: (1, "ReadOnly"),
    45: (1, "Compact"),
    46: (1, "Repair"),
    47: (1, "NoStartup"),
    48: (100, "Cmd"),
    49: (100, "Macro"),
    52: (100, "SysDBFilename"),
    53: (255, "SysDBPath"),
    64: (10, "FileID"),
    65: (50, "EditPwd"),
    66: (5, "HCID"),
    67: (1, "Decompile"),
    68: (500, "ErrBoxText"),
    69: (500, "ErrDebugText"),
}
for first, list_name in ((3, "Acc"), (15, "DB"), (28, "Pic"), (54, "SysDB")):
    for index in range(10):
        FIELDS[first + index] = (500, f"{list_name}RegList{index + 1:02}")

# Every function here exists on Windows XP, the oldest system that the launcher starts on. Other DLLs are
# loaded from the system folder when they are first needed: an import would be looked for in the
# launcher's own folder first.
IMPORTS = {
    "advapi32.dll": """
        RegCloseKey RegEnumValueA RegOpenKeyA RegOpenKeyExA RegQueryValueExA
        """,
    "gdi32.dll": """
        BitBlt CreateCompatibleBitmap CreateCompatibleDC CreateDIBSection CreateFontIndirectA
        CreateFontIndirectW CreateFontW CreateSolidBrush DeleteDC DeleteObject GetDeviceCaps
        GetObjectW GetStockObject GetTextExtentPoint32A GetTextExtentPoint32W GetTextMetricsW
        PatBlt SelectObject SetBkColor SetBkMode SetStretchBltMode SetTextColor StretchBlt
        TextOutW
        """,
    "kernel32.dll": """
        CloseHandle CopyFileW CreateEventW CreateFileW CreateProcessW CreateSemaphoreW
        DeleteCriticalSection DeleteFileW EnterCriticalSection ExitProcess FindResourceW
        FlushFileBuffers FoldStringW FormatMessageW FreeLibrary GetACP GetCPInfo GetCommandLineW
        GetCurrentDirectoryW GetCurrentProcess GetCurrentProcessId GetCurrentThread
        GetCurrentThreadId GetDateFormatW GetFileAttributesA GetFileAttributesW GetFileSize
        GetFileSizeEx GetFullPathNameA GetFullPathNameW GetLastError GetLocalTime GetLocaleInfoW
        GetLongPathNameW GetModuleFileNameW GetModuleHandleA GetModuleHandleExW GetModuleHandleW
        GetProcAddress GetProcessHeap GetShortPathNameW GetStartupInfoA GetStdHandle
        GetSystemDefaultLangID GetSystemDirectoryW GetSystemTimeAsFileTime GetTempFileNameW
        GetThreadPriority GetTickCount GetTimeFormatW GetUserDefaultLCID GetUserDefaultLangID
        GetVersionExW GlobalAlloc GlobalFree GlobalLock GlobalUnlock HeapAlloc HeapFree
        InitializeCriticalSection InterlockedCompareExchange InterlockedExchange
        IsDBCSLeadByteEx LeaveCriticalSection LoadLibraryA LoadLibraryExW LoadLibraryW
        LoadResource LocalFree LockFile LockResource MoveFileExW MulDiv MultiByteToWideChar
        OutputDebugStringA QueryPerformanceCounter RaiseException ReadFile ReleaseSemaphore
        ReplaceFileW SetCurrentDirectoryW SetEndOfFile SetErrorMode SetEvent SetFileAttributesW
        SetFilePointer SetFilePointerEx SetLastError SetUnhandledExceptionFilter SizeofResource
        Sleep SwitchToThread TerminateProcess TlsAlloc TlsFree TlsGetValue TlsSetValue
        TryEnterCriticalSection UnhandledExceptionFilter UnlockFile VerSetConditionMask
        VirtualProtect VirtualQuery WaitForInputIdle WaitForSingleObject WideCharToMultiByte
        WriteFile lstrlenA lstrlenW
        """,
    "msvcrt.dll": """
        _XcptFilter __dllonexit __getmainargs __initenv __p__acmdln __p__commode __p__fmode
        __set_app_type __setusermatherr _amsg_exit _cexit _controlfp _errno _exit _fileno
        _initterm _iob _isctype _lock _onexit _pctype _setmode _snprintf _strdup _unlock
        _vsnprintf abort abs atexit atoi bsearch calloc div exit fflush fprintf fputc fputs free
        fwrite getenv isdigit localeconv localtime malloc memccpy memchr memcmp memcpy memmove
        memset qsort rand realloc setlocale signal sprintf strcat strchr strcmp strcpy strerror
        strlen strncmp strncpy strtol strtoul time tolower toupper vfprintf wcschr wcscmp wcscpy
        wcslen
        """,
    "user32.dll": """
        AdjustWindowRect AdjustWindowRectEx AllowSetForegroundWindow BeginPaint BringWindowToTop
        CallWindowProcW CharLowerBuffW CharUpperBuffW CheckMenuItem ClientToScreen
        CreateAcceleratorTableW CreateWindowExW DefWindowProcW DestroyIcon DestroyMenu
        DestroyWindow DialogBoxParamW DispatchMessageW DrawIconEx DrawTextA DrawTextW
        EnableMenuItem EnableWindow EndDialog EndPaint EnumChildWindows EnumThreadWindows
        FillRect FindWindowExW GetActiveWindow GetClassInfoExW GetClassNameW GetClientRect
        GetCursorPos GetDC GetDesktopWindow GetDlgCtrlID GetDlgItem GetDlgItemTextA
        GetDlgItemTextW GetForegroundWindow GetKeyState GetMenu GetMessageW GetMonitorInfoW
        GetParent GetSysColor GetSysColorBrush GetSystemMenu GetSystemMetrics GetWindow
        GetWindowLongA GetWindowLongW GetWindowRect GetWindowTextA GetWindowTextLengthW
        GetWindowTextW GetWindowThreadProcessId InvalidateRect IsDialogMessageW IsIconic
        IsWindow IsWindowVisible KillTimer LoadAcceleratorsW LoadBitmapW LoadCursorW LoadIconW
        LoadImageW LoadMenuW LoadStringA LoadStringW MapWindowPoints MessageBeep MessageBoxA
        MessageBoxIndirectA MessageBoxW MonitorFromPoint MonitorFromWindow MoveWindow
        MsgWaitForMultipleObjects OffsetRect PeekMessageW PostMessageW PostThreadMessageW
        RedrawWindow RegisterClassExW RegisterClassW ReleaseDC ScreenToClient
        SendDlgItemMessageA SendDlgItemMessageW SendMessageA SendMessageW SetActiveWindow
        SetCursor SetDlgItemTextA SetDlgItemTextW SetFocus SetForegroundWindow SetMenu SetRect
        SetTimer SetWindowContextHelpId SetWindowLongA SetWindowLongW SetWindowPos SetWindowRgn
        SetWindowTextA SetWindowTextW ShowCursor ShowWindow SystemParametersInfoA
        SystemParametersInfoW TranslateAcceleratorW TranslateMessage UnregisterClassW
        UpdateWindow WinHelpA WindowFromPoint
        """,
}


def positions(data, pattern):
    found = data.find(pattern)
    while found >= 0:
        yield found
        found = data.find(pattern, found + 1)


def check_record(data, start, text):
    """The byte count before a text and the zero character after it."""
    size = 2 * len(text)
    if start % BOUNDARY:
        yield f"{text[:30]!r} at {start:#x} is not on a {BOUNDARY}-byte boundary"
    if data[start - 4:start] != struct.pack("<I", size):
        yield f"{text[:30]!r} at {start:#x} has a wrong byte count, {size} is right"
    if data[start:start + size] != text.encode("utf-16-le"):
        yield f"{text[:30]!r} at {start:#x} is not stored as this text"
    if data[start + size:start + size + 2] != b"\0\0":
        yield f"{text[:30]!r} at {start:#x} is not closed by a zero character"


def check_marks(data):
    numbers = []
    for start in positions(data, PREFIX):
        if start % BLOCK > BLOCK - len(PREFIX):
            yield f"the mark at {start:#x} begins across two blocks"
        number = data[start + 16:start + 22].decode("utf-16-le", "replace")
        field = FIELDS.get(int(number)) if number.isdecimal() else None
        if field is None:
            yield f"the text at {start:#x} is the beginning of a mark, but no mark"
            continue
        width, name = field
        text = f"@#BRD#@|{number}|{width:04}|{name}|" + " " * width
        yield from check_record(data, start, text)
        numbers.append(int(number))
    for number in FIELDS:
        if numbers.count(number) != 1:
            yield f"field {number:03} has {numbers.count(number)} marks instead of one"
    if numbers == sorted(numbers):
        yield "the marks stand in the order of their numbers"


def check_markers(data):
    folded = data.lower()
    for marker in (NOT_BRANDED, BRANDED):
        found = list(positions(folded, marker.lower().encode("utf-16-le")))
        if len(found) != 1:
            yield f"the program holds {len(found)} texts {marker} instead of one"
        for start in found:
            yield from check_record(data, start, marker)


def check_size(data, limit):
    if len(data) % BLOCK:
        yield f"its {len(data)} bytes are not a multiple of {BLOCK}"
    if len(data) > limit:
        yield f"its {len(data)} bytes are more than {limit}"


class Image:
    """What the checks need of a 32-bit program file."""

    def __init__(self, data):
        self.data = data
        header, = struct.unpack_from("<I", data, 0x3C)
        if data[:2] != b"MZ" or data[header:header + 4] != b"PE\0\0":
            raise ValueError("it is not a Windows program")
        self.machine, section_count = struct.unpack_from("<HH", data, header + 4)
        optional_size, = struct.unpack_from("<H", data, header + 20)
        optional = header + 24
        self.magic, = struct.unpack_from("<H", data, optional)
        if self.magic != 0x10B:
            raise ValueError("it is not a 32-bit program")
        self.checksum_place = optional + 64
        self.checksum, = struct.unpack_from("<I", data, self.checksum_place)
        self.system_version = struct.unpack_from("<HH", data, optional + 48)
        self.subsystem, = struct.unpack_from("<H", data, optional + 68)
        self.import_address, = struct.unpack_from("<I", data, optional + 104)
        self.resource_address, = struct.unpack_from("<I", data, optional + 112)
        self.signature_size, = struct.unpack_from("<I", data, optional + 132)
        self.delayed_imports, = struct.unpack_from("<I", data, optional + 200)
        sections = optional + optional_size
        self.sections = [
            struct.unpack_from("<IIII", data, sections + 40 * index + 8)
            for index in range(section_count)
        ]

    def offset(self, address):
        for _, start, size, raw in self.sections:
            if start <= address < start + size:
                return address - start + raw
        raise ValueError(f"address {address:#x} lies in no section")

    def text(self, address):
        start = self.offset(address)
        return self.data[start:self.data.index(b"\0", start)].decode("ascii")

    def imports(self):
        """(DLL, function) of every import; the function is a number when it has no name."""
        entry = self.offset(self.import_address)
        while True:
            names, _, _, dll, addresses = struct.unpack_from("<5I", self.data, entry)
            if not dll:
                return
            name = self.offset(names or addresses)
            while value := struct.unpack_from("<I", self.data, name)[0]:
                by_number = value & 0x80000000
                yield self.text(dll), value & 0xFFFF if by_number else self.text(value + 2)
                name += 4
            entry += 20


def checksum(data, place):
    """Of a whole file, as Windows adds it up: the field of the sum itself does not count."""
    counted = data[:place] + bytes(4) + data[place + 4:]
    total = sum(struct.unpack(f"<{len(counted) // 2}H", counted[:len(counted) // 2 * 2]))
    while total >> 16:
        total = (total & 0xFFFF) + (total >> 16)
    return total + len(data)


def check_program(data):
    try:
        image = Image(data)
        if image.machine != 0x14C:
            yield "it is not for i386"
        if image.subsystem != 2:
            yield "it is not a program with windows only"
        if image.system_version > (5, 1):
            yield f"it needs Windows {image.system_version[0]}.{image.system_version[1]}"
        if image.signature_size:
            yield "it is signed; branding would break the signature"
        if image.delayed_imports:
            yield "it has delayed imports, which are looked for in its own folder"
        if image.checksum not in (0, checksum(data, image.checksum_place)):
            yield "its checksum is neither right nor zero"
        yield from check_room(image)
        for dll, function in image.imports():
            known = IMPORTS.get(dll.lower())
            if known is None:
                yield f"it imports {function} from {dll}, which is not a known system DLL"
            elif function not in known.split():
                yield f"it imports {function} from {dll}, which Windows XP is not known to have"
    except (ValueError, struct.error) as error:
        yield str(error)


def main(arguments):
    if len(arguments) not in (1, 2):
        print("usage: " + __doc__.splitlines()[0], file=sys.stderr)
        return 2
    with open(arguments[0], "rb") as file:
        data = file.read()
    limit = int(arguments[1]) if len(arguments) == 2 else SIZE_LIMIT
    problems = [
        *check_program(data),
        *check_size(data, limit),
        *check_marks(data),
        *check_markers(data),
    ]
    for problem in problems:
        print(f"{arguments[0]}: {problem}", file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
