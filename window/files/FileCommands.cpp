#include "window/files/FileCommands.h"

#include <utility>

#include "configurator/FileTexts.h"
#include "configurator/LauncherImage.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"
#include "window/document/FileNames.h"
#include "window/form/BoxTexts.h"
#include "window/keylist/PresetsForm.h"

namespace tarvex {

FileResult FileCommands::New(const Document* open) {
    if (open != nullptr) {
        return InNewWindow(kNewArgument, {});
    }
    return NewFrom({});
}

FileResult FileCommands::Open(std::u16string_view path, const Document* open) {
    if (open != nullptr && text::EqualsIgnoreCase(open->File().path, path)) {
        return {true, NameOf(path) + u" ist schon geöffnet."};
    }
    if (open != nullptr) {
        return InNewWindow(path, NameOf(path) + u" öffnet sich in einem eigenen Fenster.");
    }
    try {
        std::string bytes = services_.store.ReadAll(path);
        LoadedSettings loaded = LoadSettings(bytes, path, services_.codec);
        return loaded.isProgram ? OpenLauncher(path, std::move(bytes), std::move(loaded))
                                : OpenSettings(path, std::move(loaded));
    } catch (...) {
        TellUser(services_.dialogs, BoxIcon::Error,
                 NameOf(path) + u" kann nicht geöffnet werden: " + CaughtText());
        return {};
    }
}

FileResult FileCommands::ChooseAndOpen(const Document* open) {
    const std::u16string path =
        services_.dialogs.ChooseFile({.title = u"Öffnen", .filter = std::u16string(kBothFilter)});
    return path.empty() ? FileResult() : Open(path, open);
}

FileResult FileCommands::ChooseSettingsAndOpen(const Document* open) {
    const std::u16string path = services_.dialogs.ChooseFile(
        {.title = u"Einstellungsdatei importieren", .filter = std::u16string(kSettingsFilter)});
    return path.empty() ? FileResult() : Open(path, open);
}

FileResult FileCommands::Save(Document& document) {
    return Saved(document, saving_.Save(document));
}

FileResult FileCommands::SaveAs(Document& document) {
    if (document.File().readOnly) {
        if (!UserAgrees(services_.dialogs, BoxIcon::Information, document.File().whyReadOnly,
                        u"In eine unsignierte Vorlage ü&bernehmen")) {
            return {};
        }
        return CarryIntoNew(document.File().path, saving_.OpenedBytes());
    }
    const std::u16string output =
        services_.dialogs.ChooseNewFile({.title = u"Speichern unter",
                                         .folder = std::u16string(document.Folder()),
                                         .filter = std::u16string(kLauncherFilter),
                                         .name = std::u16string(document.Name()),
                                         .extension = u"exe"});
    return output.empty() ? FileResult() : Saved(document, saving_.SaveAs(document, output));
}

bool FileCommands::MayClose(Document* document) {
    if (document == nullptr || !document->IsDirty()) {
        return true;
    }
    const std::int32_t answer = services_.dialogs.Ask(
        {BoxIcon::Question,
         u"Änderungen an " + std::u16string(document->Name()) + u" speichern?",
         {u"&Speichern", u"&Nicht speichern", u"Abbrechen"},
         2});
    return answer == 1 || (answer == 0 && Save(*document).done);
}

std::u16string FileCommands::Template() const {
    std::u16string path = JoinPath(FolderPart(services_.program), u"tarvex.exe");
    return services_.store.FileExists(path) ? path : std::u16string();
}

FileResult FileCommands::InNewWindow(std::u16string_view argument, std::u16string line) {
    const std::u16string problem = services_.starter.Start(services_.program, argument);
    if (!problem.empty()) {
        TellUser(services_.dialogs, BoxIcon::Error,
                 u"Ein weiteres Fenster kann nicht geöffnet werden: " + problem);
        return {};
    }
    return {true, std::move(line)};
}

FileCommands::NewLauncher FileCommands::AskForNew(std::u16string_view title,
                                                  NewLauncherForm::Start start) {
    if (start.source.empty()) {
        start.source = Template();
    }
    NewLauncherForm form(services_.store, services_.dialogs, start);
    if (!services_.dialogs.ShowForm(form, {std::u16string(title), u"&Weiter", u"Abbrechen"})) {
        return {};
    }
    return {std::make_unique<Document>(DocumentFile{.path = form.Output(), .source = form.Source()},
                                       Settings(), services_.codec),
            form.MayReplace()};
}

FileResult FileCommands::Begin(NewLauncher launcher, FileResult result) {
    if (result.done) {
        saving_.SetNew(launcher.mayReplace);
        result.document = std::move(launcher.document);
    }
    return result;
}

FileResult FileCommands::NewFrom(std::u16string_view source) {
    NewLauncher launcher = AskForNew(u"Neues Startprogramm", {.source = std::u16string(source)});
    if (launcher.document == nullptr) {
        return {};
    }
    EnterKnownAccessPlaces(*launcher.document);
    std::u16string line =
        u"Neues Startprogramm " + std::u16string(launcher.document->Name()) + u".";
    return Begin(std::move(launcher), {true, std::move(line)});
}

FileResult FileCommands::OpenLauncher(std::u16string_view path, std::string bytes,
                                      LoadedSettings loaded) {
    const LauncherImage image = LauncherImage::Read(bytes, path);
    if (!image.ReadProblems().empty()) {
        TellUser(services_.dialogs, BoxIcon::Error,
                 NameOf(path) + u" kann nicht geöffnet werden:\n\n" +
                     ProblemList(image.ReadProblems(), path));
        return {};
    }
    if (!image.IsBranded()) {
        return OpenTemplate(path);
    }
    Problems remarks = ProblemsOf(loaded.warnings);
    for (Problem& problem : loaded.problems) {
        problem.text += u" Er bleibt, wie er ist, bis ein neuer eingegeben wird.";
        remarks.push_back(problem);
    }
    if (!remarks.empty()) {
        TellUser(services_.dialogs, BoxIcon::Information,
                 u"Zu " + NameOf(path) + u" ist zu sagen:\n\n" + ProblemList(remarks, path));
    }
    if (!image.ChangeProblems().empty()) {
        return OpenUnchangeable(path, std::move(bytes), std::move(loaded),
                                image.ChangeProblems()[0].text);
    }
    saving_.SetOpened(std::move(bytes));
    recent_.Add(path);
    return {true, NameOf(path) + u" ist geöffnet.",
            std::make_unique<Document>(DocumentFile{.path = std::u16string(path)},
                                       std::move(loaded.settings), services_.codec)};
}

FileResult FileCommands::OpenTemplate(std::u16string_view path) {
    if (!UserAgrees(services_.dialogs, BoxIcon::Question,
                    NameOf(path) +
                        u" ist noch nicht konfiguriert. Soll daraus ein neues Startprogramm "
                        u"entstehen?",
                    u"&Neues Startprogramm")) {
        return {};
    }
    return NewFrom(path);
}

FileResult FileCommands::OpenUnchangeable(std::u16string_view path, std::string bytes,
                                          LoadedSettings loaded, std::u16string_view reason) {
    std::u16string why = NameOf(path) + u" kann nicht geändert werden: " + std::u16string(reason);
    const std::int32_t answer = services_.dialogs.Ask(
        {BoxIcon::Information,
         why,
         {u"In eine unsignierte Vorlage ü&bernehmen", u"Nur &ansehen", u"Abbrechen"},
         2});
    if (answer == 2) {
        return {};
    }
    if (answer == 0) {
        return CarryIntoNew(path, bytes);
    }
    saving_.SetOpened(std::move(bytes));
    recent_.Add(path);
    return {true, NameOf(path) + u" ist nur zum Ansehen geöffnet.",
            std::make_unique<Document>(
                DocumentFile{
                    .path = std::u16string(path), .readOnly = true, .whyReadOnly = std::move(why)},
                std::move(loaded.settings), services_.codec)};
}

FileResult FileCommands::CarryIntoNew(std::u16string_view path, const std::string& bytes) {
    NewLauncher launcher =
        AskForNew(u"Neues Startprogramm aus " + NameOf(path),
                  {.name = StemOf(path), .folder = std::u16string(FolderPart(path))});
    if (launcher.document == nullptr) {
        return {};
    }
    FileResult result = exchange_.TakeOverFrom(*launcher.document, path, bytes);
    return Begin(std::move(launcher), std::move(result));
}

FileResult FileCommands::OpenSettings(std::u16string_view path, LoadedSettings loaded) {
    if (loaded.settings.Entries().empty() && !loaded.problems.empty()) {
        TellUser(services_.dialogs, BoxIcon::Error,
                 NameOf(path) + u" kann nicht geöffnet werden:\n\n" +
                     ProblemList(loaded.problems, path));
        return {};
    }
    NewLauncher launcher =
        AskForNew(u"Neues Startprogramm aus " + NameOf(path),
                  {.name = StemOf(path), .folder = std::u16string(FolderPart(path))});
    if (launcher.document == nullptr) {
        return {};
    }
    FileResult result = exchange_.EnterFile(*launcher.document, path, std::move(loaded));
    return Begin(std::move(launcher), std::move(result));
}

FileResult FileCommands::Start(Document& document, std::u16string_view pc) {
    const std::u16string name(document.Name());
    if (!pc.empty()) {
        TellUser(
            services_.dialogs, BoxIcon::Information,
            name + u" kann nur auf diesem PC gestartet werden, nicht auf einem beschriebenen.");
        return {};
    }
    if (document.IsDirty() && (!UserAgrees(services_.dialogs, BoxIcon::Question,
                                           name + u" muss vor dem Starten gespeichert werden.",
                                           u"&Speichern und starten") ||
                               !Save(document).done)) {
        return {};
    }
    const std::u16string problem = services_.starter.Start(document.File().path, {});
    if (!problem.empty()) {
        TellUser(services_.dialogs, BoxIcon::Error,
                 name + u" kann nicht gestartet werden: " + problem);
        return {};
    }
    return {true, name + u" ist gestartet."};
}

FileResult FileCommands::Saved(const Document& document, FileResult result) {
    if (result.done) {
        recent_.Add(document.File().path);
    }
    return result;
}

}  // namespace tarvex
