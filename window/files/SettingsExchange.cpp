#include "window/files/SettingsExchange.h"

#include <utility>

#include "configurator/CarriedSettings.h"
#include "configurator/FileTexts.h"
#include "configurator/SettingsDifference.h"
#include "configurator/SettingsExport.h"
#include "configurator/program/ProgramFields.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"
#include "window/document/FileNames.h"
#include "window/files/AsCommandForm.h"
#include "window/files/ChangesForm.h"
#include "window/files/DifferenceForm.h"
#include "window/files/SettingsWriting.h"
#include "window/form/BoxTexts.h"

namespace tarvex {
namespace {

/// The settings but for one field.
Settings Without(const Settings& settings, std::int32_t number) {
    Settings rest;
    for (const auto& [each, entry] : settings.Entries()) {
        if (each != number) {
            rest.Set(each, entry.value, entry.line);
        }
    }
    return rest;
}

/// Reads the icon that a settings file names, and gives it the full path, which it keeps wherever
/// the launcher stands. One that cannot be used is left out.
void TakeIcon(FileStore& store, std::u16string_view path, Settings& settings, Problems& leftOut) {
    const std::u16string_view folder = FolderPart(path);
    Problems problems = LoadIconFile(store, folder, path, settings);
    if (!problems.empty()) {
        settings = Without(settings, kFieldIconFile);
        Append(leftOut, std::move(problems));
    } else if (!settings.Value(kFieldIconFile).empty()) {
        settings.Set(kFieldIconFile,
                     text::Replace(IconPath(folder, settings.Value(kFieldIconFile)), u"/", u"\\"));
    }
}

}  // namespace

FileResult SettingsExchange::EnterFile(Document& document, std::u16string_view path,
                                       LoadedSettings loaded) {
    Problems leftOut = std::move(loaded.problems);
    if (loaded.settings.Entries().empty() && !leftOut.empty()) {
        TellUser(services_.dialogs, BoxIcon::Error,
                 NameOf(path) + u" kann nicht übernommen werden:\n\n" + ProblemList(leftOut, path));
        return {};
    }
    TakeIcon(services_.store, path, loaded.settings, leftOut);
    if (!loaded.warnings.empty()) {
        TellUser(services_.dialogs, BoxIcon::Warning,
                 u"Zu " + NameOf(path) + u" ist zu sagen:\n\n" +
                     ProblemList(ProblemsOf(loaded.warnings), path));
    }
    if (document.IsNew() && leftOut.empty() && document.Values().Entries().empty()) {
        document.Enter(loaded.settings);
        return {true, CountOfValues(loaded.settings.Entries().size()) + u" aus " + NameOf(path) +
                          u" übernommen."};
    }
    return Receive(document, path, std::move(loaded.settings), leftOut, false);
}

FileResult SettingsExchange::Import(Document& document) {
    const std::u16string path =
        services_.dialogs.ChooseFile({.title = u"Einstellungen importieren",
                                      .folder = std::u16string(document.Folder()),
                                      .filter = std::u16string(kSettingsFilter)});
    if (path.empty()) {
        return {};
    }
    try {
        const std::string bytes = services_.store.ReadAll(path);
        LoadedSettings loaded = LoadSettings(bytes, path, services_.codec);
        return loaded.isProgram ? TakeOverFrom(document, path, bytes)
                                : EnterFile(document, path, std::move(loaded));
    } catch (...) {
        TellUser(services_.dialogs, BoxIcon::Error,
                 NameOf(path) + u" kann nicht gelesen werden: " + CaughtText());
        return {};
    }
}

FileResult SettingsExchange::Export(const Document& document) {
    Settings values;
    if (!MayExport(document, values)) {
        return {};
    }
    const std::u16string output =
        services_.dialogs.ChooseNewFile({.title = u"Einstellungen exportieren",
                                         .folder = std::u16string(document.Folder()),
                                         .filter = std::u16string(kSettingsFilter),
                                         .name = StemOf(document.File().path) + u".ini",
                                         .extension = u"ini"});
    if (output.empty()) {
        return {};
    }
    bool withSecrets = true;
    if (HasSecrets(values)) {
        const std::int32_t answer =
            services_.dialogs.Ask({BoxIcon::Question,
                                   u"Sollen Benutzernamen und Kennwörter in " + NameOf(output) +
                                       u" stehen? Wer die Datei lesen darf, kann sie dort lesen.",
                                   {u"&Mit Kennwörtern", u"&Ohne Kennwörter", u"Abbrechen"},
                                   2});
        if (answer == 2) {
            return {};
        }
        withSecrets = answer == 0;
    }
    return WriteSettingsFile(services_, document, values, output, withSecrets);
}

FileResult SettingsExchange::AsCommand(const Document& document, std::u16string_view source) {
    Settings values;
    if (!MayExport(document, values)) {
        return {};
    }
    AsCommandForm form(services_, document, std::move(values), source);
    if (!services_.dialogs.ShowForm(form, {u"Als Befehl", u"&Exportieren", u"Schließen", false})) {
        return {};
    }
    return form.TakeResult();
}

FileResult SettingsExchange::TakeOver(Document& document) {
    const std::u16string path =
        services_.dialogs.ChooseFile({.title = u"Übernehmen aus älterem Startprogramm",
                                      .folder = std::u16string(document.Folder()),
                                      .filter = std::u16string(kLauncherFilter)});
    if (path.empty()) {
        return {};
    }
    try {
        return TakeOverFrom(document, path, services_.store.ReadAll(path));
    } catch (...) {
        TellUser(services_.dialogs, BoxIcon::Error,
                 NameOf(path) + u" kann nicht gelesen werden: " + CaughtText());
        return {};
    }
}

FileResult SettingsExchange::TakeOverFrom(Document& document, std::u16string_view path,
                                          std::string_view bytes) {
    const std::u16string target = document.IsNew() ? document.File().source : document.File().path;
    std::string targetBytes;
    try {
        targetBytes = services_.store.ReadAll(target);
    } catch (...) {
        TellUser(services_.dialogs, BoxIcon::Error,
                 NameOf(target) + u" kann nicht gelesen werden: " + CaughtText());
        return {};
    }
    const auto carry = [&](const std::vector<std::u16string>& drop) {
        return CarrySettings(bytes, path, targetBytes, target, drop, services_.codec);
    };
    const CarriedSettings all = carry({});
    if (!all.problems.empty()) {
        TellUser(services_.dialogs, BoxIcon::Error,
                 u"Aus " + NameOf(path) + u" kann nichts übernommen werden:\n\n" +
                     ProblemList(all.problems, path));
        return {};
    }
    std::vector<std::u16string> drop;
    for (const Problem& misfit : all.misfits) {
        drop.push_back(misfit.field);
    }
    const bool mayClear = !document.Values().Entries().empty();
    return Receive(document, path, drop.empty() ? all.settings : carry(drop).settings, all.misfits,
                   mayClear);
}

FileResult SettingsExchange::Compare(const Document& document) {
    const std::u16string path =
        services_.dialogs.ChooseFile({.title = u"Vergleichen mit",
                                      .folder = std::u16string(document.Folder()),
                                      .filter = std::u16string(kBothFilter)});
    if (path.empty()) {
        return {};
    }
    LoadedSettings there;
    try {
        there = LoadSettings(services_.store.ReadAll(path), path, services_.codec);
        Append(there.problems,
               LoadIconFile(services_.store, FolderPart(path), path, there.settings));
    } catch (...) {
        there.problems.push_back({path, 0, {}, CaughtText()});
    }
    if (!there.problems.empty()) {
        TellUser(services_.dialogs, BoxIcon::Error,
                 NameOf(path) + u" kann nicht verglichen werden:\n\n" +
                     ProblemList(there.problems, path));
        return {};
    }
    const std::vector<Difference> differences = CompareSettings(document.Values(), there.settings);
    DifferenceForm form(document.Name(), NameOf(path), differences);
    services_.dialogs.ShowForm(form, {u"Vergleich mit " + NameOf(path), {}, u"Schließen", true});
    return {true, {}};
}

FileResult SettingsExchange::Receive(Document& document, std::u16string_view path,
                                     Settings settings, const Problems& leftOut, bool clear) {
    ChangesForm form(document, std::move(settings), leftOut, clear);
    if (!services_.dialogs.ShowForm(
            form,
            {u"Übernehmen aus " + NameOf(path),
             leftOut.empty() ? u"Ü&bernehmen" : u"Ü&bernehmen ohne diese", u"Abbrechen", true})) {
        return {};
    }
    return {true, CountOfValues(form.Apply()) + u" aus " + NameOf(path) + u" übernommen."};
}

bool SettingsExchange::MayExport(const Document& document, Settings& values) {
    Problems problems;
    values = document.Values(&problems);
    Append(problems, LoadIconFile(services_.store, FolderPart(document.File().path),
                                  document.File().path, values));
    if (!problems.empty()) {
        TellUser(services_.dialogs, BoxIcon::Error,
                 u"Diese Angaben können nicht exportiert werden:\n\n" +
                     ProblemList(problems, document.File().path));
        return false;
    }
    const std::vector<std::int32_t> parked = document.ParkedTexts();
    return parked.empty() ||
           UserAgrees(services_.dialogs, BoxIcon::Warning,
                      u"Diese Angaben gehören zu einer nicht gewählten Möglichkeit und werden "
                      u"nicht exportiert: " +
                          FieldNames(parked) + u".",
                      u"&Exportieren ohne sie");
}

}  // namespace tarvex
