#pragma once

#include <string_view>

#include "configurator/SettingsSource.h"
#include "window/files/FileServices.h"

namespace tarvex {

/// Brings settings of other files into a document, and a document's settings into other files. What
/// would change or be lost is shown before.
class SettingsExchange {
public:
    /// The services outlive this object.
    explicit SettingsExchange(const FileServices& services) : services_(services) {}

    /// Enters what has been read from a settings file. Of a new document the user is only asked
    /// when something of it must stay out.
    FileResult EnterFile(Document& document, std::u16string_view path, LoadedSettings loaded);

    /// Asks for a settings file and enters it.
    FileResult Import(Document& document);

    /// Asks where to and with what, and writes a settings file.
    FileResult Export(const Document& document);

    /// Exports it for a script, and shows the command that makes the launcher from it. `source` is
    /// the template that the command names when the document has none.
    FileResult AsCommand(const Document& document, std::u16string_view source);

    /// Takes the settings out of another launcher, which is asked for.
    FileResult TakeOver(Document& document);

    /// The same from this one, whose content is known.
    FileResult TakeOverFrom(Document& document, std::u16string_view path, std::string_view bytes);

    /// Shows where another launcher or settings file, which is asked for, has other values.
    FileResult Compare(const Document& document);

private:
    FileResult Receive(Document& document, std::u16string_view path, Settings settings,
                       const Problems& leftOut, bool clear);
    bool MayExport(const Document& document, Settings& values);

    const FileServices& services_;
};

}  // namespace tarvex
