#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/VersionResource.h"

namespace tarvex {

/// The version resource of a file: its fixed data, turned into English labels where they are codes,
/// and its texts in the language that it names first. Everything is empty, and Available() false,
/// until a file with a version resource has been read; in one without the fixed data only what
/// comes from them stays empty. No method raises.
class FileVersionInfo {
public:
    /// `resource` must outlive the object.
    explicit FileVersionInfo(const VersionResource& resource) : resource_(resource) {}

    const std::u16string& FullPathName() const { return fullPathName_; }

    /// Makes the path absolute and reads the file at once. A path that the system refuses changes
    /// nothing.
    void SetFullPathName(std::u16string_view path);

    /// Reads the file named by FullPathName() again.
    void Refresh();

    /// True when the file has a version resource that can be read.
    bool Available() const { return data_.available; }

    /// Names of the flags that are set. Kept: each is followed by a blank, the last one too, as
    /// reports show it: "Debug Special ".
    const std::u16string& FileFlags() const { return data_.fileFlags; }
    const std::u16string& FileOS() const { return data_.fileOS; }
    const std::u16string& FileType() const { return data_.fileType; }
    /// For drivers and fonts only.
    const std::u16string& FileSubType() const { return data_.fileSubType; }

    const std::u16string& Comments() const { return data_.comments; }
    const std::u16string& CompanyName() const { return data_.companyName; }
    const std::u16string& FileDescription() const { return data_.fileDescription; }
    /// The text of the resource, or, when it is blank, the "major.minor.build.revision" of the
    /// fixed data as "3.00.00.0012".
    const std::u16string& FileVersion() const { return data_.fileVersion; }
    std::int32_t FileVersionMajor() const { return data_.fileVersionMajor; }
    std::int32_t FileVersionMinor() const { return data_.fileVersionMinor; }
    const std::u16string& InternalName() const { return data_.internalName; }
    /// Name of the language of the texts, in the system's language.
    const std::u16string& Language() const { return data_.language; }
    const std::u16string& LegalCopyright() const { return data_.legalCopyright; }
    const std::u16string& LegalTrademarks() const { return data_.legalTrademarks; }
    const std::u16string& OriginalFilename() const { return data_.originalFilename; }
    const std::u16string& ProductName() const { return data_.productName; }
    /// As FileVersion().
    const std::u16string& ProductVersion() const { return data_.productVersion; }

private:
    struct Data {
        bool available = false;
        std::u16string fileFlags;
        std::u16string fileOS;
        std::u16string fileType;
        std::u16string fileSubType;
        std::u16string comments;
        std::u16string companyName;
        std::u16string fileDescription;
        std::u16string fileVersion;
        std::int32_t fileVersionMajor = 0;
        std::int32_t fileVersionMinor = 0;
        std::u16string internalName;
        std::u16string language;
        std::u16string legalCopyright;
        std::u16string legalTrademarks;
        std::u16string originalFilename;
        std::u16string productName;
        std::u16string productVersion;
    };

    void ReadFixedData(std::string& block);
    void ReadTexts(std::string& block);

    const VersionResource& resource_;
    std::u16string fullPathName_;
    Data data_;
};

}  // namespace tarvex
