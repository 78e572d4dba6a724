#include "configurator/checks/CheckRun.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kAccessFile = u"msaccess.exe";

}  // namespace

void CheckAccess(CheckRun& run) {
    const std::u16string_view path = run.Value(kFieldAccPath);
    if (path.empty() && !run.HasKeyList(kAccRegList)) {
        run.Report(u"access-default", kFieldAccPath,
                   u"Weder AccPath noch ein Eintrag von AccRegList01 bis AccRegList10 ist "
                   u"angegeben; gesucht wird dann nur Access 97 (Office 8.0). Einträge für neuere "
                   u"Versionen nennt 'tarvexcf presets'.");
    }
    const std::u16string_view file = path.substr(path.find_last_of(u"\\/") + 1);
    if (text::EqualsIgnoreCase(path, kAccessFile)) {
        run.Report(u"access-bare-name", kFieldAccPath,
                   u"'" + std::u16string(path) +
                       u"' ohne Ordner wird im aktuellen Ordner gesucht, und Windows startet "
                       u"dann das Access seiner eigenen Suchreihenfolge. Für Access neben dem "
                       u"Startprogramm '.\\msaccess.exe' schreiben.");
    } else if (text::EndsWithIgnoreCase(file, u".exe") &&
               !text::EqualsIgnoreCase(file, kAccessFile)) {
        run.Report(u"access-other-program", kFieldAccPath,
                   u"Der Wert muss der Ordner oder der Pfad von msaccess.exe sein; eine andere "
                   u"Programmdatei gilt als Ordner.");
    }
}

}  // namespace tarvex
