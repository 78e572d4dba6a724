#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "configurator/BrandWriter.h"
#include "window/files/FileServices.h"

namespace tarvex {

/// Writes the document of a window into its launcher, and asks before anything is lost by it. When
/// it fails the user is told, and the file and the document are as they were.
class LauncherSaving {
public:
    /// The services outlive this object.
    explicit LauncherSaving(const FileServices& services) : services_(services) {}

    /// The document is about a launcher with this content.
    void SetOpened(std::string bytes);

    /// The content of the launcher as the user knows it; empty when there is none.
    const std::string& OpenedBytes() const { return opened_; }

    /// The document is about a launcher that is not there yet, or, where the user has agreed to it,
    /// one that is to be replaced.
    void SetNew(bool mayReplace);

    FileResult Save(Document& document);

    /// Saves it under another name, which the user has chosen and, when there is such a file,
    /// agreed to; the document is about that one then.
    FileResult SaveAs(Document& document, std::u16string_view output);

private:
    enum class Outcome { Done, Failed, Again };

    bool MaySave(Document& document);
    bool MayReplace(std::u16string_view output, bool agreed);
    FileResult WriteAndTake(Document& document, const std::u16string& output, bool replace);
    Outcome Write(const Document& document, const std::u16string& output, bool replace,
                  BrandWriter& writer);
    Outcome AskAbout(const Problems& problems, const std::u16string& output);
    Problems WriteExisting(const Document& document, BrandWriter& writer,
                           std::optional<std::string>& elsewhere);
    Problems WriteCopy(const Document& document, const std::u16string& output,
                       const OutputRules& rules, BrandWriter& writer);
    void Take(Document& document, const std::u16string& output, Problems& notes);

    const FileServices& services_;
    std::string opened_;  // content of the file as the user knows it
    bool mayReplace_ = false;
};

}  // namespace tarvex
