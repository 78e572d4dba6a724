#include "window/files/NewLauncherForm.h"

#include "configurator/FileTexts.h"
#include "configurator/LauncherImage.h"
#include "configurator/OutputFile.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"
#include "window/files/FileServices.h"
#include "window/form/BoxTexts.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kExe = u".exe";

std::vector<FormRow> MakeRows() {
    return {
        {.kind = RowKind::Line,
         .id = NewLauncherForm::kTemplate,
         .label = u"&Vorlage",
         .hint = u"Ein Startprogramm, das noch nicht konfiguriert ist.",
         .buttons = {{NewLauncherForm::kChooseTemplate, u"...", u"Vorlage wählen"}}},
        {.kind = RowKind::Line,
         .id = NewLauncherForm::kName,
         .label = u"&Name",
         .hint = u"Eine Datenbank gleichen Namens im selben Ordner wird gefunden.",
         .chars = 40},
        {.kind = RowKind::Line,
         .id = NewLauncherForm::kFolder,
         .label = u"&Ordner",
         .hint = u"Hier beginnen alle relativen Pfade.",
         .buttons = {{NewLauncherForm::kChooseFolder, u"...", u"Ordner wählen"}}},
    };
}

}  // namespace

NewLauncherForm::NewLauncherForm(FileStore& store, UserDialogs& dialogs, const Start& start)
    : store_(store), dialogs_(dialogs), rows_(MakeRows()) {
    template_ = {start.source, {}, !start.source.empty()};
    name_ = {start.name, {}, !start.name.empty()};
    folder_ = {start.folder, {}, !start.folder.empty()};
    CheckAll();
}

std::u16string NewLauncherForm::Source() const {
    return std::u16string(text::Trim(template_.text));
}

std::u16string NewLauncherForm::Output() const {
    const std::u16string_view name = text::Trim(name_.text);
    return JoinPath(text::Trim(folder_.text), name) +
           std::u16string(text::EndsWithIgnoreCase(name, kExe) ? u"" : kExe);
}

RowState NewLauncherForm::State(std::int32_t id) const {
    const Entry& entry = Of(id);
    RowState state;
    state.text = entry.text;
    if (entry.touched) {
        state.message = entry.problem;
    }
    return state;
}

std::int32_t NewLauncherForm::FirstRow() const {
    for (const std::int32_t row : {kTemplate, kName, kFolder}) {
        if (Of(row).text.empty()) {
            return row;
        }
    }
    return kName;
}

void NewLauncherForm::SetText(std::int32_t id, std::u16string_view text) {
    Entry& entry = Of(id);
    entry.text = text;
    entry.touched = true;
    mayReplace_ = false;
    CheckAll();
}

void NewLauncherForm::Press(std::int32_t buttonId) {
    if (buttonId == kChooseTemplate) {
        const std::u16string path =
            dialogs_.ChooseFile({.title = u"Vorlage wählen",
                                 .folder = std::u16string(FolderPart(Source())),
                                 .filter = std::u16string(kLauncherFilter)});
        if (!path.empty()) {
            SetText(kTemplate, path);
        }
    } else {
        const std::u16string path =
            dialogs_.ChooseFolder(u"Ordner des neuen Startprogramms", text::Trim(folder_.text));
        if (!path.empty()) {
            SetText(kFolder, path);
        }
    }
}

bool NewLauncherForm::Accept() {
    for (Entry* entry : {&template_, &name_, &folder_}) {
        entry->touched = true;
    }
    CheckAll();
    for (const Entry* entry : {&template_, &name_, &folder_}) {
        if (!entry->problem.empty()) {
            return false;
        }
    }
    const std::u16string output = Output();
    if (!mayReplace_ && store_.FileExists(output)) {
        mayReplace_ = UserAgrees(dialogs_, BoxIcon::Warning,
                                 std::u16string(FileNamePart(output)) +
                                     u" ist schon vorhanden. Soll die Datei beim Speichern ersetzt "
                                     u"werden?",
                                 u"&Ersetzen");
        return mayReplace_;
    }
    return true;
}

void NewLauncherForm::CheckAll() {
    template_.problem = WhyNoTemplate(store_, Source());
    folder_.problem = FolderProblem();
    name_.problem = NameProblem();
}

std::u16string NewLauncherForm::NameProblem() const {
    const std::u16string_view name = text::Trim(name_.text);
    if (name.empty() || text::EqualsIgnoreCase(name, kExe)) {
        return u"Bitte einen Namen angeben.";
    }
    if (name.find_first_of(u"\\/:*?\"<>|") != std::u16string_view::npos) {
        return u"Ein Dateiname darf diese Zeichen nicht enthalten: \\ / : * ? \" < > |";
    }
    if (!folder_.problem.empty()) {
        return {};
    }
    // Whether it may be replaced is asked at the end.
    const Problems problems = CheckOutput(store_, Output(), {.force = true, .inputs = {Source()}});
    return problems.empty() ? std::u16string() : problems[0].text;
}

std::u16string NewLauncherForm::FolderProblem() const {
    const std::u16string_view folder = text::Trim(folder_.text);
    if (folder.empty()) {
        return u"Bitte den Ordner angeben.";
    }
    if (!IsAbsoluteFolder(folder)) {
        return u"Bitte den ganzen Pfad angeben, zum Beispiel C:\\Programme\\Kunden.";
    }
    try {
        // A drive's root needs its "\", other folders are the same with and without.
        const bool cut = folder.size() > 3 && folder.ends_with(u'\\');
        const FileKind kind = store_.Describe(folder.substr(0, folder.size() - (cut ? 1 : 0))).kind;
        return kind == FileKind::Folder ? u"" : u"Den Ordner gibt es nicht.";
    } catch (...) {
        return CaughtText();
    }
}

NewLauncherForm::Entry& NewLauncherForm::Of(std::int32_t id) {
    return id == kTemplate ? template_ : id == kName ? name_ : folder_;
}

const NewLauncherForm::Entry& NewLauncherForm::Of(std::int32_t id) const {
    return id == kTemplate ? template_ : id == kName ? name_ : folder_;
}

std::u16string WhyNoTemplate(FileStore& store, std::u16string_view path) {
    if (path.empty()) {
        return u"Bitte die Vorlage angeben.";
    }
    if (!IsAbsoluteFolder(path)) {
        return u"Bitte den ganzen Pfad angeben, zum Beispiel C:\\Tarvex\\tarvex.exe.";
    }
    if (!text::EndsWithIgnoreCase(path, kExe)) {
        // While a path is typed nobody asks a server for each of its beginnings.
        return u"Eine Vorlage ist eine Datei mit der Endung .exe.";
    }
    try {
        const LauncherImage image = LauncherImage::Read(store.ReadAll(path), path);
        if (!image.ReadProblems().empty()) {
            return image.ReadProblems()[0].text;
        }
        if (image.IsBranded()) {
            return u"Die Datei ist schon konfiguriert. Zum Ändern „Öffnen“ wählen; „Übernehmen aus "
                   u"älterem Startprogramm“ holt ihre Angaben in ein neues.";
        }
        return image.ChangeProblems().empty() ? std::u16string() : image.ChangeProblems()[0].text;
    } catch (...) {
        return CaughtText();
    }
}

}  // namespace tarvex
