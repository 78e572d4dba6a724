#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

#include "platform/win32/WindowsApi.h"
#include "tests/e2e/driver/Driver.h"
#include "tests/e2e/driver/Script.h"

namespace {

/// 0 when every action succeeded, 1 when one failed, 2 when the script could not even begin.
int RunScript(tarvex::Driver& driver, const std::string& scriptFile,
              const std::string& reportFile) {
    std::ifstream script(scriptFile, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(script), {}};
    std::ofstream report(reportFile, std::ios::binary);
    if (!script || !report) {
        std::fputs("uidriver: cannot open the script or the report\n", stderr);
        return 2;
    }
    const bool ok = driver.Run(tarvex::ParseScript(text));
    report << driver.Report() << '\n';
    return report.flush() && ok ? 0 : 1;
}

/// Carries out script after script: each line of the input is "SCRIPT<tab>REPORT", each line of the
/// output what RunScript returned. Starting a program takes longer than most scripts. After
/// "<tab>keep" the next script goes on with the program of this one.
int RunScriptsOfInput() {
    constexpr std::string_view kKeep = "\tkeep";
    auto driver = std::make_unique<tarvex::Driver>();
    for (std::string line; std::getline(std::cin, line);) {
        const bool keep = line.ends_with(kKeep);
        if (keep) {
            line.resize(line.size() - kKeep.size());
        }
        const std::size_t tab = line.find('\t');
        if (tab == std::string::npos) {
            return 2;
        }
        const int result = RunScript(*driver, line.substr(0, tab), line.substr(tab + 1));
        if (!keep) {
            driver = std::make_unique<tarvex::Driver>();
        }
        std::cout << result << std::endl;
    }
    return 0;
}

}  // namespace

/// uidriver SCRIPT REPORT: carries out a script on a program that it starts itself and writes a
/// report in JSON; returns what RunScript does. uidriver -: the same for every line of the input.
/// File names may hold ASCII characters only; the script is free.
int main(int count, char** arguments) {
    // Without this a program that cannot be loaded would show a box that nobody closes.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    if (count == 2 && std::strcmp(arguments[1], "-") == 0) {
        return RunScriptsOfInput();
    }
    if (count != 3) {
        std::fputs("usage: uidriver SCRIPT REPORT | uidriver -\n", stderr);
        return 2;
    }
    tarvex::Driver driver;
    return RunScript(driver, arguments[1], arguments[2]);
}
