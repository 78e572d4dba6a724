#include "configurator/Checks.h"

#include <algorithm>
#include <string>
#include <utility>

#include "launch/RegistryKeyList.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kAccessFile = u"msaccess.exe";

/// A file that the launcher looks for: by a key list, or by a path and a file name.
struct Target {
    KeyListFields list;
    std::int32_t path;
    std::int32_t fileName;  ///< 0: the file has a fixed name
    bool entriesAreLists;   ///< entries are joined to one list and divided at its marker
};

constexpr Target kAccess{kAccRegList, kFieldAccPath, 0, true};
constexpr Target kDatabase{kDBRegList, kFieldDBPath, kFieldDBFilename, true};
constexpr Target kWorkgroup{kSysDBRegList, kFieldSysDBPath, kFieldSysDBFilename, true};
constexpr Target kPicture{kPicRegList, kFieldPicPath, kFieldPicFilename, false};

std::u16string Name(std::int32_t number) {
    return std::u16string(FindBrandField(number)->name);
}

bool IsPictureFile(std::u16string_view name) {
    return text::EndsWithIgnoreCase(name, u".bmp") || text::EndsWithIgnoreCase(name, u".jpg");
}

class Checker {
public:
    Checker(const Settings& settings, std::u16string_view place)
        : settings_(settings), place_(place) {}

    Problems Check() {
        for (const Target& target : {kAccess, kDatabase, kPicture, kWorkgroup}) {
            CheckKeyList(target);
            CheckPrecedence(target);
        }
        CheckAccessPath();
        CheckDatabase();
        CheckWorkgroup();
        CheckPicture();
        CheckCredentials();
        CheckForms();
        CheckLineBreaks();
        std::stable_sort(problems_.begin(), problems_.end(),
                         [](const Problem& a, const Problem& b) { return a.line < b.line; });
        return std::move(problems_);
    }

private:
    std::u16string_view Value(std::int32_t number) const { return settings_.Value(number); }
    bool IsSet(std::int32_t number) const { return !Value(number).empty(); }
    bool IsOn(std::int32_t number) const { return Value(number) == u"1"; }

    void Report(std::int32_t number, std::u16string text) {
        problems_.push_back({place_, settings_.Line(number), Name(number), std::move(text)});
    }

    bool HasKeyList(const Target& target) const {
        const auto numbers = target.list.Numbers();
        return std::any_of(numbers.begin(), numbers.end(),
                           [this](std::int32_t number) { return IsSet(number); });
    }

    void CheckKeyList(const Target& target) {
        const KeyListMarkers markers;
        for (const std::int32_t number : target.list.Numbers()) {
            const std::u16string_view value = Value(number);
            if (value.empty()) {
                continue;
            }
            if (text::FindIgnoreCase(value, markers.list) != std::u16string_view::npos) {
                Report(number, target.entriesAreLists
                                   ? u"Der Wert enthält die Listenmarke '%|%'; er wird dort in "
                                     u"mehrere Einträge geteilt."
                                   : u"Der Wert enthält die Listenmarke '%|%'; hier steht nur ein "
                                     u"Eintrag je Feld.");
            }
            if (!target.entriesAreLists) {
                CheckEntry(target, number, value);
                continue;
            }
            for (const std::u16string& entry : text::SplitList(value, markers.list)) {
                CheckEntry(target, number, entry);
            }
        }
    }

    void CheckEntry(const Target& target, std::int32_t number, std::u16string_view text) {
        const KeyListParse parse = ParseKeyListEntry(text);
        const std::u16string quoted = u"Der Eintrag '" + std::u16string(text) + u"' ";
        if (parse.error == LaunchError::EntryWithoutHKey) {
            Report(number, quoted + u"beginnt nicht mit HKLM, HKCU, HKCR oder HKU.");
            return;
        }
        if (parse.error) {
            Report(number, quoted +
                               u"ist kein Registrierungsschlüssel der Form "
                               u"HKLM\\Schlüssel\\Wertname.");
            return;
        }
        const KeyListEntry& entry = parse.entry;
        if (target.fileName == 0) {
            if (!entry.fileName.empty()) {
                Report(number, quoted +
                                   u"nennt einen Dateinamen, der hier nicht beachtet wird; "
                                   u"gesucht wird immer msaccess.exe.");
            }
            return;
        }
        if (!entry.subFolder.empty() && entry.fileName.empty()) {
            Report(number, quoted +
                               u"nennt einen Unterordner, aber keinen Dateinamen; er führt nie "
                               u"zu einer Datei.");
        }
        if (target.path == kFieldPicPath && !entry.fileName.empty() &&
            !IsPictureFile(entry.fileName)) {
            Report(number, u"Der Bildtyp von '" + entry.fileName +
                               u"' ist unbekannt; möglich sind .bmp und .jpg.");
        }
    }

    void CheckPrecedence(const Target& target) {
        if (!HasKeyList(target)) {
            return;
        }
        for (const std::int32_t number : {target.path, target.fileName}) {
            if (number != 0 && IsSet(number)) {
                Report(number, u"Der Wert wird nicht beachtet, weil die Schlüsselliste " +
                                   Name(target.list.Field(1)) + u" bis " +
                                   Name(target.list.Field(KeyListFields::kCount)) +
                                   u" Einträge hat.");
            }
        }
    }

    void CheckAccessPath() {
        const std::u16string_view path = Value(kFieldAccPath);
        if (text::EndsWithIgnoreCase(path, u".exe") &&
            !text::EndsWithIgnoreCase(path, kAccessFile)) {
            Report(kFieldAccPath,
                   u"Der Wert muss der Ordner oder der Pfad von msaccess.exe sein; eine andere "
                   u"Programmdatei gilt als Ordner.");
        }
    }

    void CheckDatabase() {
        if (HasKeyList(kDatabase)) {
            return;
        }
        const bool pathAlone = IsSet(kFieldDBPath) && !IsSet(kFieldDBFilename);
        if (pathAlone) {
            Report(kFieldDBPath,
                   u"Der Pfad wird nicht verwendet, solange DBFilename leer ist; es wird ohne "
                   u"Datenbank gestartet.");
        }
        if (IsSet(kFieldDBFilename)) {
            return;
        }
        for (const std::int32_t number : {kFieldMacro, kFieldRuntime, kFieldReadOnly, kFieldCompact,
                                          kFieldRepair, kFieldDecompile, kFieldCmd}) {
            const bool isFlag = FindBrandField(number)->kind == FieldKind::Flag;
            if (isFlag ? IsOn(number) : IsSet(number)) {
                Report(number, pathAlone
                                   ? u"Die Einstellung braucht eine Datenbank, es ist aber keine "
                                     u"auffindbar."
                                   : u"Die Einstellung braucht eine Datenbank, es ist aber keine "
                                     u"angegeben; gefunden wird nur eine, die wie das "
                                     u"Startprogramm heißt und neben ihm liegt.");
            }
        }
    }

    void CheckWorkgroup() {
        if (!HasKeyList(kWorkgroup) && IsSet(kFieldSysDBPath) && !IsSet(kFieldSysDBFilename)) {
            Report(kFieldSysDBPath,
                   u"Der Pfad wird nicht verwendet, solange SysDBFilename leer ist.");
        }
    }

    void CheckPicture() {
        const bool hasList = HasKeyList(kPicture);
        const std::u16string_view file = Value(kFieldPicFilename);
        if (!hasList && IsSet(kFieldPicPath) && file.empty()) {
            Report(kFieldPicPath, u"Der Pfad wird nicht verwendet, solange PicFilename leer ist.");
        }
        if (!file.empty() && !IsPictureFile(file)) {
            Report(kFieldPicFilename, u"Der Bildtyp von '" + std::u16string(file) +
                                          u"' ist unbekannt; möglich sind .bmp und .jpg.");
        }
        const std::u16string_view delay = Value(kFieldPicDelay);
        const bool noDelay = delay.empty() || text::ParseInt32(delay) == 0;
        const bool hasPicture = hasList || !file.empty();
        if (!noDelay && !hasPicture) {
            Report(kFieldPicDelay, u"Eine Anzeigedauer ist angegeben, aber kein Startbild.");
        }
        if (noDelay && hasPicture) {
            Report(kFieldPicDelay,
                   u"Ein Startbild ist angegeben, aber keine Anzeigedauer; es wird "
                   u"nicht angezeigt.");
        }
    }

    void CheckCredentials() {
        if (IsSet(kFieldPwd) && !IsSet(kFieldUser)) {
            Report(kFieldPwd, u"Das Kennwort wird nicht verwendet, solange User leer ist.");
        }
    }

    void CheckForms() {
        for (const std::int32_t number : {kFieldPicDelay, kFieldHCID}) {
            if (IsSet(number) && !text::IsDigits(Value(number))) {
                Report(number, u"'" + std::u16string(Value(number)) + u"' ist keine Zahl.");
            }
        }
        for (const BrandField& field : kBrandFields) {
            const std::u16string_view value = Value(field.number);
            if (field.kind == FieldKind::Flag && !value.empty() && value != u"1" && value != u"0") {
                Report(field.number,
                       u"'" + std::u16string(value) + u"' ist kein Schalterwert und gilt als aus.");
            }
        }
    }

    /// A line that is indented by mistake continues the value above it.
    void CheckLineBreaks() {
        for (const auto& [number, entry] : settings_.Entries()) {
            if (number != kFieldErrBoxText && number != kFieldErrDebugText &&
                entry.value.find(u'\n') != std::u16string::npos) {
                Report(number,
                       u"Der Wert enthält einen Zeilenwechsel (eine eingerückte Zeile setzt "
                       u"den Wert darüber fort).");
            }
        }
    }

    const Settings& settings_;
    std::u16string place_;
    Problems problems_;
};

}  // namespace

Problems CheckSettings(const Settings& settings, std::u16string_view place) {
    return Checker(settings, place).Check();
}

}  // namespace tarvex
