#!/usr/bin/env python3
"""check_program.py PROGRAM window|console

Proves that a finished 32-bit program starts on every supported Windows, without a DLL beside it. Runs
after every link, on the file as it is shipped. Every line it prints is a reason why that file must not
be shipped.
"""

import re
import struct
import sys

WINDOW, CONSOLE = 2, 3  # subsystems
MANIFEST = (24, 1)  # type and number of the resource
COMMON_CONTROLS = (
    rb'<assemblyIdentity type="win32" name="Microsoft\.Windows\.Common-Controls"'
    rb' version="6\.0\.0\.0" processorArchitecture="(x86|\*)"'
)

# Every function here exists on Windows XP, the oldest system that the programs start on. The DLLs come from
# the system's own folders whatever lies beside the program.
IMPORTS = {
    "advapi32.dll": """
        AddAccessAllowedAce GetFileSecurityW GetLengthSid GetSecurityDescriptorControl
        GetTokenInformation InitializeAcl InitializeSecurityDescriptor OpenProcessToken
        RegCloseKey RegCreateKeyExW RegDeleteValueW RegEnumValueA RegOpenKeyA RegOpenKeyExA
        RegOpenKeyExW RegQueryValueExA RegQueryValueExW RegSetValueExW SetFileSecurityW
        SetNamedSecurityInfoW SetSecurityDescriptorControl SetSecurityDescriptorDacl
        """,
    "gdi32.dll": """
        BitBlt CreateCompatibleBitmap CreateCompatibleDC CreateDIBSection CreateFontIndirectA
        CreateFontIndirectW CreateFontW CreateSolidBrush DeleteDC DeleteObject GetDeviceCaps
        GetObjectW GetStockObject GetTextExtentExPointW GetTextExtentPoint32A
        GetTextExtentPoint32W GetTextMetricsW PatBlt SelectObject SetBkColor SetBkMode
        SetStretchBltMode SetTextColor StretchBlt TextOutW
        """,
    "kernel32.dll": """
        CloseHandle CopyFileW CreateEventW CreateFileW CreateProcessW CreateSemaphoreW
        CreateThread DeleteCriticalSection DeleteFileW EnterCriticalSection ExitProcess
        FindClose FindFirstFileW FindNextFileW FindResourceW FlushFileBuffers FoldStringW
        FormatMessageW FreeLibrary GetACP GetCPInfo GetCommandLineW GetConsoleMode
        GetCurrentDirectoryW GetCurrentProcess GetCurrentProcessId GetCurrentThread
        GetCurrentThreadId GetDateFormatW GetEnvironmentVariableW GetFileAttributesA
        GetFileAttributesW GetFileInformationByHandle GetFileSize GetFileSizeEx GetFullPathNameA
        GetFullPathNameW GetLastError GetLocalTime GetLocaleInfoW GetLongPathNameW
        GetModuleFileNameW GetModuleHandleA GetModuleHandleExW GetModuleHandleW GetProcAddress
        GetProcessHeap GetShortPathNameW GetStartupInfoA GetStdHandle GetSystemDefaultLangID
        GetSystemDirectoryW GetSystemTimeAsFileTime GetTempFileNameW GetThreadPriority
        GetTickCount GetTimeFormatW GetUserDefaultLCID GetUserDefaultLangID GetVersionExW
        GlobalAlloc GlobalFree GlobalLock GlobalSize GlobalUnlock HeapAlloc HeapFree
        InitializeCriticalSection InterlockedCompareExchange InterlockedExchange
        IsDBCSLeadByteEx LeaveCriticalSection LoadLibraryA LoadLibraryExW LoadLibraryW
        LoadResource LocalFree LockFile LockResource MoveFileExW MulDiv MultiByteToWideChar
        OutputDebugStringA QueryPerformanceCounter RaiseException ReadConsoleW ReadFile
        ReleaseSemaphore ReplaceFileW SetConsoleCtrlHandler SetConsoleMode SetCurrentDirectoryW
        SetEndOfFile SetErrorMode SetEvent SetFileAttributesW SetFilePointer SetFilePointerEx
        SetLastError SetUnhandledExceptionFilter SizeofResource Sleep SwitchToThread
        TerminateProcess TlsAlloc TlsFree TlsGetValue TlsSetValue TryEnterCriticalSection
        UnhandledExceptionFilter UnlockFile VerSetConditionMask VirtualProtect VirtualQuery
        WaitForInputIdle WaitForSingleObject WideCharToMultiByte WriteConsoleW WriteFile
        lstrcpynW lstrlenA lstrlenW
        """,
    "msvcrt.dll": """
        _XcptFilter __dllonexit __getmainargs __initenv __mb_cur_max __p___argv __p__acmdln
        __p__commode __p__fmode __set_app_type __setusermatherr _amsg_exit _cexit _close
        _controlfp _errno _exit _fileno _initterm _iob _isctype _lock _onexit _pctype _read
        _setmode _snprintf _strdup _unlock _vsnprintf abort abs atexit atoi bsearch calloc div
        exit fflush fprintf fputc fputs free fwrite getenv isdigit localeconv localtime malloc
        memccpy memchr memcmp memcpy memmove memset qsort rand realloc setlocale signal sprintf
        strcat strchr strcmp strcpy strerror strlen strncmp strncpy strtol strtoul time tolower
        toupper vfprintf wcschr wcscmp wcscpy wcslen
        """,
    "shell32.dll": """
        CommandLineToArgvW
        """,
    "user32.dll": """
        AdjustWindowRect AdjustWindowRectEx AllowSetForegroundWindow AppendMenuW BeginPaint
        BringWindowToTop CallWindowProcW CharLowerBuffW CharUpperBuffW CheckMenuItem
        ClientToScreen CloseClipboard CreateAcceleratorTableW CreateMenu CreatePopupMenu
        CreateWindowExW DefWindowProcW DeleteMenu DestroyAcceleratorTable DestroyIcon
        DestroyMenu DestroyWindow DialogBoxParamW DispatchMessageW DrawFocusRect DrawIcon
        DrawIconEx DrawTextA DrawTextW EmptyClipboard EnableMenuItem EnableWindow EndDialog
        EndPaint EnumChildWindows EnumDisplayMonitors EnumThreadWindows FillRect FindWindowExW
        GetActiveWindow GetAncestor GetClassInfoExW GetClassNameW GetClientRect GetClipboardData
        GetCursorPos GetDC GetDesktopWindow GetDlgCtrlID GetDlgItem GetDlgItemTextA
        GetDlgItemTextW GetFocus GetForegroundWindow GetKeyState GetMenu GetMenuItemID
        GetMessageW GetMonitorInfoW GetNextDlgTabItem GetParent GetScrollInfo GetSubMenu
        GetSysColor GetSysColorBrush GetSystemMenu GetSystemMetrics GetWindow GetWindowLongA
        GetWindowLongW GetWindowPlacement GetWindowRect GetWindowTextA GetWindowTextLengthW
        GetWindowTextW GetWindowThreadProcessId InsertMenuW InvalidateRect IsChild
        IsDialogMessageW IsIconic IsWindow IsWindowEnabled IsWindowVisible KillTimer
        LoadAcceleratorsW LoadBitmapW LoadCursorW LoadIconW LoadImageW LoadMenuW LoadStringA
        LoadStringW MapWindowPoints MessageBeep MessageBoxA MessageBoxIndirectA MessageBoxW
        MonitorFromPoint MonitorFromWindow MoveWindow MsgWaitForMultipleObjects OffsetRect
        OpenClipboard PeekMessageW PostMessageW PostThreadMessageW PtInRect RedrawWindow
        RegisterClassExW RegisterClassW ReleaseCapture ReleaseDC ScreenToClient ScrollWindowEx
        SendDlgItemMessageA SendDlgItemMessageW SendMessageA SendMessageW SetActiveWindow
        SetCapture SetClipboardData SetCursor SetDlgItemTextA SetDlgItemTextW SetFocus
        SetForegroundWindow SetMenu SetRect SetScrollInfo SetScrollPos SetTimer
        SetWindowContextHelpId SetWindowLongA SetWindowLongW SetWindowPos SetWindowRgn
        SetWindowTextA SetWindowTextW ShowCursor ShowWindow SystemParametersInfoA
        SystemParametersInfoW TranslateAcceleratorW TranslateMessage UnregisterClassW
        UpdateWindow WinHelpA WindowFromPoint
        """,
}


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

    def resources(self):
        """{(type, number): (place in the file, size)}"""
        if not self.resource_address:
            return {}
        root = self.offset(self.resource_address)

        def children(directory):
            named, numbered = struct.unpack_from("<HH", self.data, directory + 12)
            for index in range(named + numbered):
                number, place = struct.unpack_from("<II", self.data, directory + 16 + 8 * index)
                yield number, root + (place & 0x7FFFFFFF)

        found = {}
        for kind, kinds in children(root):
            for number, numbers in children(kinds):
                for _, entry in children(numbers):
                    address, size = struct.unpack_from("<II", self.data, entry)
                    found[kind, number] = self.offset(address), size
        return found


def checksum(data, place):
    """Of a whole file, as Windows adds it up: the field of the sum itself does not count."""
    counted = data[:place] + bytes(4) + data[place + 4:]
    total = sum(struct.unpack(f"<{len(counted) // 2}H", counted[:len(counted) // 2 * 2]))
    while total >> 16:
        total = (total & 0xFFFF) + (total >> 16)
    return total + len(data)


def check_imports(image, dlls):
    """`dlls` are those that the program may be linked with."""
    for dll, function in image.imports():
        if dll.lower() not in dlls:
            yield f"it imports {function} from {dll}, which is not a known system DLL"
        elif function not in IMPORTS[dll.lower()].split():
            yield f"it imports {function} from {dll}, which Windows XP is not known to have"


def check_start(image, subsystem, dlls):
    """What keeps the program from starting somewhere."""
    if image.machine != 0x14C:
        yield "it is not for i386"
    if image.subsystem != subsystem:
        yield f"its subsystem is {image.subsystem}, not {subsystem}"
    if image.system_version > (5, 1):
        yield f"it needs Windows {image.system_version[0]}.{image.system_version[1]}"
    if image.delayed_imports:
        yield "it has delayed imports, which are looked for in its own folder"
    if image.checksum not in (0, checksum(image.data, image.checksum_place)):
        yield "its checksum is neither right nor zero"
    yield from check_imports(image, dlls)
    if subsystem == WINDOW:
        place, size = image.resources().get(MANIFEST, (0, 0))
        if not re.search(COMMON_CONTROLS, image.data[place:place + size]):
            yield "its manifest does not ask for common controls 6"


def main(arguments):
    kinds = {"window": WINDOW, "console": CONSOLE}
    if len(arguments) != 2 or arguments[1] not in kinds:
        print("usage: " + __doc__.splitlines()[0], file=sys.stderr)
        return 2
    with open(arguments[0], "rb") as file:
        data = file.read()
    try:
        problems = [*check_start(Image(data), kinds[arguments[1]], IMPORTS)]
    except (ValueError, struct.error) as error:
        problems = [str(error)]
    for problem in problems:
        print(f"{arguments[0]}: {problem}", file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
