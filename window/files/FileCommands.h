#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "configurator/SettingsSource.h"
#include "window/files/FileServices.h"
#include "window/files/LauncherSaving.h"
#include "window/files/NewLauncherForm.h"
#include "window/files/RecentFiles.h"
#include "window/files/SettingsExchange.h"

namespace tarvex {

/// Argument that makes this program begin with FileCommands::New.
inline constexpr std::u16string_view kNewArgument = u"/Neu";

/// What the menu "Datei" and the start page do, for one window with one document at most. They ask
/// and tell through the dialogs. Paths are full ones with "\" between their parts. Whatever fails,
/// the files and the document are as they were.
class FileCommands {
public:
    explicit FileCommands(FileServices services) : services_(std::move(services)) {}
    FileCommands(const FileCommands&) = delete;
    FileCommands& operator=(const FileCommands&) = delete;

    // `open` is the document that the window shows, null on the start page. With one, another
    // launcher gets a window of its own, in a new process.

    FileResult New(const Document* open);

    /// A launcher, or a settings file, which is entered into a new launcher.
    FileResult Open(std::u16string_view path, const Document* open);

    /// The same for a file that is asked for: of either kind, or a settings file.
    FileResult ChooseAndOpen(const Document* open);
    FileResult ChooseSettingsAndOpen(const Document* open);

    FileResult Save(Document& document);

    /// Under another name, which is asked for. Of a read-only document the settings are offered to
    /// a new launcher, which the result then has.
    FileResult SaveAs(Document& document);

    // Each of these asks for the other file.

    FileResult Import(Document& document) { return exchange_.Import(document); }
    FileResult Export(const Document& document) { return exchange_.Export(document); }
    FileResult AsCommand(const Document& document) {
        return exchange_.AsCommand(document, Template());
    }
    FileResult TakeOver(Document& document) { return exchange_.TakeOver(document); }
    FileResult Compare(const Document& document) { return exchange_.Compare(document); }

    /// Starts the launcher itself, saved before: a copy under another name would look for other
    /// files. `pc` is that of the preview: on a described PC nothing can be started.
    FileResult Start(Document& document, std::u16string_view pc);

    /// Asks for unsaved changes; null: there is no document. False: the user stays.
    bool MayClose(Document* document);

    /// Full path of the template beside this program; empty when there is none.
    std::u16string Template() const;

    RecentFiles& Recent() { return recent_; }

private:
    FileResult InNewWindow(std::u16string_view argument, std::u16string line);

    struct NewLauncher {
        std::unique_ptr<Document> document;  ///< with nothing in it; null: the user has cancelled
        bool mayReplace = false;
    };

    NewLauncher AskForNew(std::u16string_view title, NewLauncherForm::Start start);

    /// Makes the new launcher the one of this window, when what was done with it has succeeded.
    FileResult Begin(NewLauncher launcher, FileResult result);

    /// A new launcher from this template, or when it is empty the one beside this program.
    FileResult NewFrom(std::u16string_view source);

    FileResult OpenLauncher(std::u16string_view path, std::string bytes, LoadedSettings loaded);
    FileResult OpenTemplate(std::u16string_view path);
    FileResult OpenUnchangeable(std::u16string_view path, std::string bytes, LoadedSettings loaded,
                                std::u16string_view reason);
    FileResult CarryIntoNew(std::u16string_view path, const std::string& bytes);
    FileResult OpenSettings(std::u16string_view path, LoadedSettings loaded);
    FileResult Saved(const Document& document, FileResult result);

    FileServices services_;
    RecentFiles recent_{services_.settings};
    LauncherSaving saving_{services_};
    SettingsExchange exchange_{services_};
};

}  // namespace tarvex
