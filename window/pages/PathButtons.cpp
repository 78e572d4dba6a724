#include "window/pages/PathButtons.h"

#include "configurator/program/ProgramFields.h"
#include "launch/PathHelpers.h"
#include "window/document/IconField.h"
#include "window/document/RelativePath.h"
#include "window/pages/Pages.h"
#include "window/pages/Questions.h"

namespace tarvex {
namespace {

/// The folder of a file, with "\" at its end.
std::u16string_view FolderOf(std::u16string_view file) {
    return file.substr(0, file.size() - FileNamePart(file).size());
}

/// As a person writes it: "\" ends only the root of a drive.
std::u16string_view WithoutSep(std::u16string_view folder) {
    if (folder.size() > 3 && folder.ends_with(u'\\')) {
        folder.remove_suffix(1);
    }
    return folder;
}

}  // namespace

/// A file that folder and file name say the place of.
struct PathButtons::Target {
    std::int32_t name;
    std::int32_t path;
    std::int32_t placeOption;  ///< the answer that it is at a fixed place
    std::u16string_view fileTitle;
    std::u16string_view folderTitle;
    std::u16string_view filter;
};

const PathButtons::Target* PathButtons::FindTarget(std::int32_t row) {
    static constexpr Target kTargets[] = {
        {kFieldDBFilename, kFieldDBPath, kDatabasePlace, u"Datenbank auswählen",
         u"Ordner der Datenbank auswählen",
         u"Access-Datenbanken|*.mdb;*.mde;*.mda;*.accdb;*.accde;*.accdr|Alle Dateien|*.*"},
        {kFieldSysDBFilename, kFieldSysDBPath, kWorkgroupPlace, u"Arbeitsgruppendatei auswählen",
         u"Ordner der Arbeitsgruppendatei auswählen",
         u"Arbeitsgruppendateien|*.mdw;*.mda|Alle Dateien|*.*"},
        {kFieldPicFilename, kFieldPicPath, kPicturePlace, u"Startbild auswählen",
         u"Ordner des Startbilds auswählen", u"Bilder|*.bmp;*.jpg|Alle Dateien|*.*"},
    };
    const std::int32_t field = FieldOfRow(row);
    for (const Target& target : kTargets) {
        if (target.name == field || target.path == field) {
            return &target;
        }
    }
    return nullptr;
}

void PathButtons::Press(std::int32_t row) {
    if (row == kFieldAccPath) {
        ChooseAccess();
    } else if (row == kFieldIconFile) {
        ChooseIcon();
    } else if (const Target* target = FindTarget(row)) {
        if (row == target->path) {
            ChooseFolder(*target);
        } else if (row == target->name) {
            ChooseFileBeside(*target);
        } else {
            ChooseFileAtPlace(*target);
        }
    }
}

void PathButtons::ChooseAccess() {
    const std::u16string file =
        dialogs_.ChooseFile({.title = u"Access auswählen",
                             .folder = StartFolder(FolderOf(document_.Text(kFieldAccPath))),
                             .filter = u"Access|msaccess.exe|Alle Dateien|*.*"});
    if (file.empty()) {
        return;
    }
    if (const auto folder = FolderText(FolderOf(file))) {
        // In the launcher's own folder ".\" has to stand before the name.
        Enter(kFieldAccPath, JoinPath(*folder, FileNamePart(file)));
    }
}

void PathButtons::ChooseIcon() {
    const std::u16string file = dialogs_.ChooseFile({.title = u"Symboldatei auswählen",
                                                     .folder = StartFolder({}),
                                                     .filter = u"Symboldateien|*.ico|Alle "
                                                               u"Dateien|*.*"});
    if (file.empty()) {
        return;
    }
    if (const std::u16string problem = EnterIcon(document_, files_, file); !problem.empty()) {
        dialogs_.Ask({BoxIcon::Error, problem, {u"OK"}, 0});
    }
}

void PathButtons::ChooseFolder(const Target& target) {
    const std::u16string folder =
        dialogs_.ChooseFolder(target.folderTitle, StartFolder(document_.Text(target.path)));
    if (folder.empty()) {
        return;
    }
    if (const auto text = FolderText(folder)) {
        Enter(target.path, *text);
    }
}

void PathButtons::ChooseFileBeside(const Target& target) {
    const std::u16string file = dialogs_.ChooseFile({.title = std::u16string(target.fileTitle),
                                                     .folder = StartFolder({}),
                                                     .filter = std::u16string(target.filter)});
    if (file.empty()) {
        return;
    }
    if (RelativeFolder(FolderOf(file), document_.Folder()) == u".") {
        Enter(target.name, FileNamePart(file));
        return;
    }
    const BoxQuestion question{BoxIcon::Question,
                               file +
                                   u"\nliegt nicht neben dem Startprogramm. Soll die Datei an "
                                   u"diesem festen Ort gesucht werden?",
                               {u"An &festem Ort suchen", u"Abbrechen"},
                               1};
    if (dialogs_.Ask(question) == 0) {
        EnterPlace(target, file);
    }
}

void PathButtons::ChooseFileAtPlace(const Target& target) {
    const std::u16string file =
        dialogs_.ChooseFile({.title = std::u16string(target.fileTitle),
                             .folder = StartFolder(document_.Text(target.path)),
                             .filter = std::u16string(target.filter)});
    if (!file.empty()) {
        EnterPlace(target, file);
    }
}

void PathButtons::EnterPlace(const Target& target, std::u16string_view file) {
    if (const auto folder = FolderText(FolderOf(file))) {
        ChooseOption(document_, target.placeOption);
        Enter(target.path, *folder);
        Enter(target.name, FileNamePart(file));
    }
}

void PathButtons::Enter(std::int32_t number, std::u16string_view text) {
    HoldOption(document_, number);
    document_.SetText(number, text);
}

/// The folder as it is to be entered; nothing when the user cancels.
std::optional<std::u16string> PathButtons::FolderText(std::u16string_view folder) {
    const std::u16string full(WithoutSep(folder));
    const std::optional<std::u16string> relative = RelativeFolder(folder, document_.Folder());
    if (!relative) {
        return full;
    }
    enum Answer { Relative, Full, Cancel };
    const std::int32_t answer = dialogs_.Ask(
        {BoxIcon::Question,
         full + u"\nliegt beim Startprogramm. Ein relativer Pfad gilt auch dann noch, wenn beide "
                u"zusammen an einen anderen Ort kommen.",
         {u"&Relativ zum Startprogramm", u"&Voller Pfad", u"Abbrechen"},
         Cancel});
    if (answer == Cancel) {
        return std::nullopt;
    }
    return answer == Relative ? *relative : full;
}

/// Where a dialog starts: in the folder that was entered, or in the launcher's.
std::u16string PathButtons::StartFolder(std::u16string_view entered) const {
    const std::u16string_view folder = document_.Folder();
    return std::u16string(
        WithoutSep(entered.empty() ? std::u16string(folder) : RelToAbs(entered, folder)));
}

}  // namespace tarvex
