#include "window/files/LauncherSaving.h"

#include <memory>
#include <utility>

#include "configurator/FileTexts.h"
#include "configurator/OutputFile.h"
#include "configurator/SettingsSource.h"
#include "configurator/program/ProgramFields.h"
#include "text/Text.h"
#include "window/document/FileNames.h"
#include "window/document/IconField.h"
#include "window/form/BoxTexts.h"

namespace tarvex {
namespace {

bool IsInUse(const Problems& problems) {
    return problems.size() == 1 && (problems[0].text == FileProblemText(FileProblem::InUse) ||
                                    problems[0].text == FileProblemText(FileProblem::Locked));
}

}  // namespace

void LauncherSaving::SetOpened(std::string bytes) {
    opened_ = std::move(bytes);
    mayReplace_ = false;
}

void LauncherSaving::SetNew(bool mayReplace) {
    opened_.clear();
    mayReplace_ = mayReplace;
}

FileResult LauncherSaving::Save(Document& document) {
    const std::u16string output = document.File().path;
    if (!document.IsDirty()) {
        return {true, NameOf(output) + u" ist unverändert."};
    }
    if (!MaySave(document)) {
        return {};
    }
    const bool replace = document.IsNew() && services_.store.FileExists(output);
    if (replace && !MayReplace(output, mayReplace_)) {
        return {};
    }
    return WriteAndTake(document, output, replace);
}

FileResult LauncherSaving::SaveAs(Document& document, std::u16string_view output) {
    const std::u16string& path = document.File().path;
    if (text::EqualsIgnoreCase(output, path)) {
        mayReplace_ = true;
        return Save(document);
    }
    if (!MaySave(document)) {
        return {};
    }
    return WriteAndTake(document, std::u16string(output), services_.store.FileExists(output));
}

bool LauncherSaving::MaySave(Document& document) {
    const std::u16string& path = document.File().path;
    if (document.File().readOnly) {
        TellUser(services_.dialogs, BoxIcon::Information, document.File().whyReadOnly);
        return false;
    }
    Problems problems;
    document.Values(&problems);
    if (std::u16string problem = LoadIcon(document, services_.store); !problem.empty()) {
        problems.push_back(
            {path, 0, std::u16string(FindField(kFieldIconFile)->name), std::move(problem)});
    }
    if (!problems.empty()) {
        TellUser(
            services_.dialogs, BoxIcon::Error,
            u"Diese Angaben können nicht gespeichert werden:\n\n" + ProblemList(problems, path));
        return false;
    }
    const std::vector<std::int32_t> parked = document.ParkedTexts();
    return parked.empty() ||
           UserAgrees(services_.dialogs, BoxIcon::Warning,
                      u"Diese Angaben gehören zu einer nicht gewählten Möglichkeit und werden "
                      u"nicht gespeichert: " +
                          FieldNames(parked) + u".",
                      u"&Speichern ohne sie");
}

bool LauncherSaving::MayReplace(std::u16string_view output, bool agreed) {
    return agreed ||
           UserAgrees(services_.dialogs, BoxIcon::Warning,
                      NameOf(output) + u" ist inzwischen vorhanden. Soll die Datei ersetzt werden?",
                      u"&Ersetzen");
}

FileResult LauncherSaving::WriteAndTake(Document& document, const std::u16string& output,
                                        bool replace) {
    BrandWriter writer(services_.store, services_.codec);
    Outcome outcome = Outcome::Again;
    while (outcome == Outcome::Again) {
        outcome = Write(document, output, replace, writer);
    }
    if (outcome == Outcome::Failed) {
        return {};
    }
    Problems notes = writer.Notes();
    Take(document, output, notes);
    if (!notes.empty()) {
        TellUser(services_.dialogs, BoxIcon::Information,
                 NameOf(output) + u" ist gespeichert. Dazu ist zu sagen:\n\n" +
                     ProblemList(notes, output));
    }
    return {true, NameOf(output) + u" ist gespeichert."};
}

LauncherSaving::Outcome LauncherSaving::Write(const Document& document,
                                              const std::u16string& output, bool replace,
                                              BrandWriter& writer) {
    const DocumentFile& file = document.File();
    const OutputRules rules{.force = replace};
    std::optional<std::string> elsewhere;
    const Problems problems = document.IsNew()
                                  ? writer.Brand(file.source, output, document.Values(), rules)
                              : output == file.path ? WriteExisting(document, writer, elsewhere)
                                                    : WriteCopy(document, output, rules, writer);
    if (elsewhere) {
        if (!UserAgrees(services_.dialogs, BoxIcon::Warning,
                        NameOf(output) +
                            u" wurde seit dem Öffnen von einem anderen Programm geändert. Beim "
                            u"Speichern gehen diese Änderungen verloren.",
                        u"&Trotzdem speichern")) {
            return Outcome::Failed;
        }
        opened_ = std::move(*elsewhere);
        return Outcome::Again;
    }
    return problems.empty() ? Outcome::Done : AskAbout(problems, output);
}

LauncherSaving::Outcome LauncherSaving::AskAbout(const Problems& problems,
                                                 const std::u16string& output) {
    if (IsInUse(problems)) {
        return UserAgrees(services_.dialogs, BoxIcon::Warning,
                          NameOf(output) + u" kann nicht gespeichert werden: " + problems[0].text +
                              u" Es muss beendet sein, bevor seine Datei ersetzt werden kann.",
                          u"&Erneut versuchen")
                   ? Outcome::Again
                   : Outcome::Failed;
    }
    TellUser(
        services_.dialogs, BoxIcon::Error,
        NameOf(output) + u" kann nicht gespeichert werden:\n\n" + ProblemList(problems, output));
    return Outcome::Failed;
}

Problems LauncherSaving::WriteExisting(const Document& document, BrandWriter& writer,
                                       std::optional<std::string>& elsewhere) {
    const std::u16string& path = document.File().path;
    try {
        Problems problems;
        const std::unique_ptr<FileLock> lock = LockForChange(services_.store, path, problems);
        if (lock == nullptr) {
            return problems;
        }
        std::string bytes = services_.store.ReadAll(path);
        if (bytes != opened_) {
            elsewhere = std::move(bytes);
            return {};
        }
        const Settings stored = LoadSettings(opened_, path, services_.codec).settings;
        return writer.Change(path, document.ChangesFrom(stored), *lock);
    } catch (...) {
        return {{path, 0, {}, CaughtText()}};
    }
}

Problems LauncherSaving::WriteCopy(const Document& document, const std::u16string& output,
                                   const OutputRules& rules, BrandWriter& writer) {
    const std::u16string& path = document.File().path;
    try {
        const Settings stored =
            LoadSettings(services_.store.ReadAll(path), path, services_.codec).settings;
        return writer.Copy(path, output, document.ChangesFrom(stored), rules);
    } catch (...) {
        return {{path, 0, {}, CaughtText()}};
    }
}

void LauncherSaving::Take(Document& document, const std::u16string& output, Problems& notes) {
    Settings saved = document.Values();
    std::string bytes;
    try {
        bytes = services_.store.ReadAll(output);
        saved = LoadSettings(bytes, output, services_.codec).settings;
    } catch (...) {
        notes.push_back({output, 0, {}, u"Die Datei ist danach nicht lesbar: " + CaughtText()});
    }
    SetOpened(std::move(bytes));
    document.SetSaved({.path = output}, std::move(saved));
    // Texts that mean the same now stand as they are stored: an icon's file gives its sizes.
    const Settings rest = document.Changes();
    for (const auto& [number, entry] : rest.Entries()) {
        document.Revert(number);
    }
}

}  // namespace tarvex
