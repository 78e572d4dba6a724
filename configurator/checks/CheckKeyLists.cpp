#include <algorithm>

#include "configurator/checks/CheckRun.h"
#include "launch/PathHelpers.h"
#include "launch/RegistryKeyList.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::size_t kNone = std::u16string_view::npos;

/// Values that Windows itself keeps as expandable text.
struct ExpandableValue {
    std::int32_t root;
    std::u16string_view key;
    std::u16string_view value;  ///< empty: every value of the key
    std::u16string_view advice;
};

constexpr ExpandableValue kExpandableValues[] = {
    {kHKeyCurrentUser,
     u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders",
     {},
     u" Der Schlüssel 'Shell Folders' daneben enthält dieselben Ordner als einfachen Text."},
    {kHKeyLocalMachine,
     u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders",
     {},
     u" Der Schlüssel 'Shell Folders' daneben enthält dieselben Ordner als einfachen Text."},
    {kHKeyLocalMachine, u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion", u"ProgramFilesPath",
     u" Der Wert 'ProgramFilesDir' daneben enthält den Ordner als einfachen Text."},
    {kHKeyLocalMachine,
     u"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList",
     u"ProfilesDirectory",
     {}},
    {kHKeyCurrentUser, u"Environment", u"TEMP", {}},
    {kHKeyCurrentUser, u"Environment", u"TMP", {}},
    {kHKeyLocalMachine,
     u"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment",
     u"Path",
     {}},
    {kHKeyLocalMachine,
     u"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment",
     u"TEMP",
     {}},
    {kHKeyLocalMachine,
     u"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment",
     u"TMP",
     {}},
    {kHKeyLocalMachine,
     u"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment",
     u"windir",
     {}},
};

class EntryChecker {
public:
    EntryChecker(CheckRun& run, const CheckTarget& target, std::int32_t number,
                 std::u16string_view text)
        : run_(run), target_(target), number_(number), text_(text) {}

    void Check() {
        const KeyListParse parse = ParseKeyListEntry(text_, markers_);
        if (!CheckMarkers(run_, number_, text_, parse.entry)) {
            return;
        }
        if (parse.error == LaunchError::EntryWithoutHKey) {
            run_.Report(u"key-list-entry", number_,
                        EntryText(text_) + u"beginnt nicht mit HKLM, HKCU, HKCR oder HKU.");
            return;
        }
        if (parse.error) {
            run_.Report(u"key-list-entry", number_,
                        EntryText(text_) +
                            u"ist kein Registrierungsschlüssel der Form "
                            u"HKLM\\Schlüssel\\Wertname.");
            return;
        }
        CheckKey(parse.entry);
        if (target_.fileName == 0) {
            CheckAccessEntry(parse.entry);
        } else {
            CheckFileEntry(parse.entry);
        }
    }

private:
    void CheckKey(const KeyListEntry& entry) {
        KeyListEntry better = entry;
        const std::u16string_view node = u"SOFTWARE\\WOW6432Node";
        if (entry.root == kHKeyLocalMachine &&
            text::StartsWithIgnoreCase(entry.keyPath + u"\\", std::u16string(node) + u"\\")) {
            better.keyPath = u"SOFTWARE" + entry.keyPath.substr(node.size());
            run_.Report(u"key-wow6432node", number_,
                        EntryText(text_) +
                            u"nennt WOW6432Node. Ein 32-Bit-Programm wird von selbst dorthin "
                            u"geführt, und ein 32-Bit-Windows hat den Schlüssel nicht. Besser: " +
                            Quoted(BuildKeyListEntry(better, markers_)) + u".");
        }
        if (entry.keyPath.starts_with(u'\\') || entry.keyPath.ends_with(u'\\') ||
            entry.keyPath.find(u"\\\\") != kNone) {
            better = entry;
            better.keyPath.clear();
            for (const std::u16string_view part : text::Split(entry.keyPath, u'\\')) {
                text::AppendWithSeparator(better.keyPath, part, u"\\", true);
            }
            run_.Report(u"key-separator", number_,
                        EntryText(text_) +
                            u"enthält '\\' doppelt; nicht jedes Windows findet ihn so. Besser: " +
                            Quoted(BuildKeyListEntry(better, markers_)) + u".");
        }
        for (const ExpandableValue& known : kExpandableValues) {
            if (known.root == entry.root && text::EqualsIgnoreCase(known.key, entry.keyPath) &&
                (known.value.empty() || text::EqualsIgnoreCase(known.value, entry.valueName))) {
                run_.Report(
                    u"key-expandable", number_,
                    EntryText(text_) +
                        u"nennt einen Wert, den Windows als erweiterbaren Text (REG_EXPAND_SZ) "
                        u"ablegt; gelesen wird nur einfacher Text (REG_SZ), er gilt als fehlend." +
                        std::u16string(known.advice));
            }
        }
    }

    void CheckAccessEntry(const KeyListEntry& entry) {
        CheckPath(run_, number_, entry.subFolder, PathUse::EntryFolder);
        if (!entry.fileName.empty() && !text::EqualsIgnoreCase(entry.fileName, u"msaccess.exe")) {
            run_.Report(u"access-entry-file", number_,
                        EntryText(text_) +
                            u"nennt einen Dateinamen, der hier nicht beachtet wird; gesucht wird "
                            u"immer msaccess.exe.");
        }
    }

    void CheckFileEntry(const KeyListEntry& entry) {
        CheckPath(run_, number_, entry.subFolder, PathUse::EntryFolder);
        CheckPath(run_, number_, entry.fileName, PathUse::EntryFile);
        const bool isPicture = target_.path == kFieldPicPath;
        if (!entry.fileName.empty()) {
            if (isPicture && !IsPictureName(entry.fileName)) {
                run_.Report(u"picture-type", number_,
                            u"Der Bildtyp von " + Quoted(entry.fileName) +
                                u" ist unbekannt; möglich sind .bmp und .jpg.");
            }
        } else if (!entry.subFolder.empty()) {
            run_.Report(u"sub-folder-without-file", number_,
                        EntryText(text_) +
                            u"nennt einen Unterordner, aber keinen Dateinamen; er führt nie zu "
                            u"einer Datei.");
        } else if (isPicture) {
            run_.Report(u"picture-entry-without-file", number_,
                        EntryText(text_) +
                            u"nennt keine Datei; er führt nur zu einem Bild, wenn der Wert in der "
                            u"Registrierung dessen voller Pfad ist. Sonst '%|Filename%|' mit dem "
                            u"Dateinamen anhängen.");
        }
    }

    CheckRun& run_;
    const CheckTarget& target_;
    std::int32_t number_;
    std::u16string_view text_;
    KeyListMarkers markers_;
};

void CheckKeyListField(CheckRun& run, const CheckTarget& target, std::int32_t number) {
    const std::u16string_view value = run.Value(number);
    const KeyListMarkers markers;
    const bool hasListMarker = text::FindIgnoreCase(value, markers.list) != kNone;
    if (!target.entriesAreLists) {
        if (hasListMarker) {
            run.Report(u"key-list-not-divided", number,
                       u"Der Wert enthält die Listenmarke '%|%'; hier steht nur ein Eintrag je "
                       u"Feld.");
        }
        EntryChecker(run, target, number, value).Check();
        return;
    }
    const std::vector<std::u16string> entries = text::SplitList(value, markers.list);
    // Several whole entries in one field are meant so: the known places of Access are given that
    // way. A file name that begins with "%" divides an entry by mistake.
    const bool byMistake = std::any_of(
        entries.begin(), entries.end(),
        [](const std::u16string& entry) { return ParseKeyListEntry(entry).error.has_value(); });
    if (hasListMarker && byMistake) {
        run.Report(u"key-list-divided", number,
                   u"Der Wert enthält die Listenmarke '%|%'; er wird dort in mehrere Einträge "
                   u"geteilt.");
    }
    for (const std::u16string& entry : entries) {
        EntryChecker(run, target, number, entry).Check();
    }
}

void CheckPrecedence(CheckRun& run, const CheckTarget& target) {
    for (const std::int32_t number : {target.path, target.fileName}) {
        if (number != 0 && run.IsSet(number)) {
            run.Report(u"key-list-before-path", number,
                       u"Der Wert wird nicht beachtet, weil die Schlüsselliste " +
                           FieldName(target.list.Field(1)) + u" bis " +
                           FieldName(target.list.Field(KeyListFields::kCount)) + u" Einträge hat.");
        }
    }
}

}  // namespace

void CheckKeyLists(CheckRun& run) {
    for (const CheckTarget& target : kCheckTargets) {
        for (const std::int32_t number : target.list.Numbers()) {
            if (run.IsSet(number)) {
                CheckKeyListField(run, target, number);
            }
        }
        if (run.HasKeyList(target.list)) {
            CheckPrecedence(run, target);
        }
    }
}

}  // namespace tarvex
