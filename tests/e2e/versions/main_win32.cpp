#include <cstdio>
#include <fstream>

#include "platform/win32/WideText.h"
#include "platform/win32/Win32System.h"
#include "platform/win32/Win32TextCodec.h"
#include "platform/win32/WindowsApi.h"
#include "tests/e2e/driver/Json.h"
#include "util/FileVersionInfo.h"

namespace tarvex {

namespace {

void Write(Json& json, const FileVersionInfo& info) {
    json.Begin('{')
        .Member("FullPathName", info.FullPathName())
        .Member("Available", info.Available())
        .Member("FileFlags", info.FileFlags())
        .Member("FileOS", info.FileOS())
        .Member("FileType", info.FileType())
        .Member("FileSubType", info.FileSubType())
        .Member("Comments", info.Comments())
        .Member("CompanyName", info.CompanyName())
        .Member("FileDescription", info.FileDescription())
        .Member("FileVersion", info.FileVersion())
        .Member("FileVersionMajor", std::int64_t{info.FileVersionMajor()})
        .Member("FileVersionMinor", std::int64_t{info.FileVersionMinor()})
        .Member("InternalName", info.InternalName())
        .Member("Language", info.Language())
        .Member("LegalCopyright", info.LegalCopyright())
        .Member("LegalTrademarks", info.LegalTrademarks())
        .Member("OriginalFilename", info.OriginalFilename())
        .Member("ProductName", info.ProductName())
        .Member("ProductVersion", info.ProductVersion())
        .End();
}

}  // namespace

}  // namespace tarvex

/// versions REPORT FILE...: writes the version properties of the files in this order, as a JSON
/// list in UTF-8. One object reads them all, as a user of the class may do. The report's name may
/// hold ASCII characters only. Returns 2 when it cannot be written.
int main(int, char** arguments) {
    int count = 0;
    wchar_t** const list = CommandLineToArgvW(GetCommandLineW(), &count);
    if (list == nullptr || count < 2) {
        std::fputs("usage: versions REPORT FILE...\n", stderr);
        return 2;
    }
    const tarvex::SystemTextCodec ansi;
    const tarvex::Win32VersionResource resource(ansi);
    tarvex::FileVersionInfo info(resource);
    tarvex::Json json;
    json.Begin('[');
    for (int i = 2; i < count; ++i) {
        info.SetFullPathName(tarvex::FromWide(list[i]));
        tarvex::Write(json, info);
    }
    json.End();
    LocalFree(list);
    std::ofstream report(arguments[1], std::ios::binary);
    report << json.Text() << '\n';
    return report.flush() ? 0 : 2;
}
