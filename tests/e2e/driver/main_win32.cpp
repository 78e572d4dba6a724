#include <cstdio>
#include <fstream>
#include <iterator>

#include "platform/win32/WindowsApi.h"
#include "tests/e2e/driver/Driver.h"
#include "tests/e2e/driver/Script.h"

/// uidriver SCRIPT REPORT: carries out a script on a program that it starts itself and writes a
/// report in JSON. Returns 0 when every action succeeded, 1 when one failed, 2 when it could not
/// even begin. Both names may hold ASCII characters only; the script is free.
int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: uidriver SCRIPT REPORT\n", stderr);
        return 2;
    }
    std::ifstream script(arguments[1], std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(script), {}};
    std::ofstream report(arguments[2], std::ios::binary);
    if (!script || !report) {
        std::fputs("uidriver: cannot open the script or the report\n", stderr);
        return 2;
    }
    // Without this a program that cannot be loaded would show a box that nobody closes.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    tarvex::Driver driver;
    const bool ok = driver.Run(tarvex::ParseScript(text));
    report << driver.Report() << '\n';
    return report.flush() && ok ? 0 : 1;
}
