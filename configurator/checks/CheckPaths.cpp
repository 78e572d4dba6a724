#include "configurator/checks/CheckRun.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::size_t kNone = std::u16string_view::npos;
constexpr std::u16string_view kLongPathPrefix = u"\\\\?\\";

std::u16string WithBackslashes(std::u16string_view path) {
    return text::Replace(path, u"/", u"\\");
}

bool IsLetter(char16_t unit) {
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

/// About a character that no name on a Windows disk has; true when there was one.
bool ReportCharacter(CheckRun& run, std::int32_t number, std::u16string_view path) {
    const std::size_t found = path.find_first_of(u"?*<>|\"");
    if (found == kNone) {
        return false;
    }
    run.Report(u"path-character", number,
               Quoted(path) + u" enthält das Zeichen " + Quoted(path.substr(found, 1)) +
                   u", das in keinem Datei- oder Ordnernamen vorkommt.");
    return true;
}

void CheckForm(CheckRun& run, std::int32_t number, std::u16string_view path, PathUse use) {
    const std::u16string native = WithBackslashes(path);
    const bool isFile = use == PathUse::FileName || use == PathUse::EntryFile;
    if (isFile && IsAbsoluteFolder(native)) {
        run.Report(
            u"file-name-absolute", number,
            Quoted(path) +
                u" ist ein voller Pfad; er wird an einen Ordner angehängt und führt so nicht "
                u"zur Datei. Hier nur den Dateinamen angeben, den Ordner in seinem Feld.");
        return;
    }
    if (use == PathUse::LauncherFolder && IsAbsoluteFolder(native) && !IsAbsoluteFolder(path)) {
        run.Report(u"path-slash-absolute", number,
                   Quoted(path) +
                       u" gilt als Ordner unter dem Startprogramm, weil '/' ihn trennt. "
                       u"Mit '\\' schreiben: " +
                       Quoted(native) + u".");
        return;
    }
    if (path.find(u'/') != kNone) {
        run.Report(u"path-slash", number,
                   Quoted(path) + u" enthält '/'; Ordner trennt unter Windows '\\'. Besser: " +
                       Quoted(native) + u".");
    }
    const bool hasDrive = use == PathUse::LauncherFolder && IsAbsoluteFolder(path);
    if (path.find(u':', hasDrive ? 2 : 0) != kNone) {
        run.Report(u"path-drive", number,
                   Quoted(path) +
                       u" enthält ':' an falscher Stelle; voll ist ein Pfad nur in der Form "
                       u"'C:\\Ordner'.");
    }
    if (use == PathUse::LauncherFolder && path.starts_with(u'\\') && !path.starts_with(u"\\\\")) {
        run.Report(u"path-rooted", number,
                   Quoted(path) +
                       u" gilt vom Ordner des Startprogramms aus, nicht von der Wurzel des "
                       u"Laufwerks. Entweder ohne '\\' am Anfang schreiben oder mit Laufwerk "
                       u"('C:\\Ordner').");
    }
}

}  // namespace

std::u16string_view FindVariable(std::u16string_view text) {
    for (std::size_t start = text.find(u'%'); start != kNone; start = text.find(u'%', start + 1)) {
        const std::size_t end = text.find_first_of(u"%\\/|", start + 1);
        if (end != kNone && text[end] == u'%' && IsLetter(text[start + 1])) {
            return text.substr(start, end - start + 1);
        }
    }
    return {};
}

void CheckPath(CheckRun& run, std::int32_t number, std::u16string_view path, PathUse use) {
    if (path.starts_with(u'"') || path.ends_with(u'"')) {
        run.Report(u"path-quoted", number,
                   Quoted(path) +
                       u" steht in Anführungszeichen, die als Teil des Namens gelten. Ohne sie "
                       u"schreiben; Leerzeichen stören nicht.");
        return;
    }
    if (use == PathUse::LauncherFolder && path.starts_with(kLongPathPrefix)) {
        path.remove_prefix(kLongPathPrefix.size());
    }
    if (ReportCharacter(run, number, path)) {
        return;
    }
    if (const std::u16string_view variable = FindVariable(path); !variable.empty()) {
        run.Report(u"path-variable", number,
                   Quoted(variable) +
                       u" wird nicht ersetzt; gesucht wird ein Name, in dem es wörtlich so steht. "
                       u"Den Pfad ausschreiben oder mit einer Schlüsselliste aus der Registrierung "
                       u"lesen.");
        return;
    }
    CheckForm(run, number, path, use);
}

void CheckPathFields(CheckRun& run) {
    for (const std::int32_t number :
         {kFieldAccPath, kFieldDBPath, kFieldSysDBPath, kFieldPicPath}) {
        CheckPath(run, number, run.Value(number), PathUse::LauncherFolder);
    }
    for (const std::int32_t number : {kFieldDBFilename, kFieldSysDBFilename, kFieldPicFilename}) {
        CheckPath(run, number, run.Value(number), PathUse::FileName);
    }
}

}  // namespace tarvex
