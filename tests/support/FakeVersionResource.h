#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/VersionResource.h"

namespace tarvex {

/// The version resource of one file in memory.
struct FakeVersionFile {
    /// The thirteen 32-bit fields of the fixed record; nothing: the block has none.
    std::optional<std::array<std::uint32_t, 13>> record = std::array<std::uint32_t, 13>{};
    /// How many bytes of the record there are.
    std::size_t recordSize = 52;
    /// Bytes of the translation table, German and Unicode at first; nothing: there is none.
    std::optional<std::string> translation = std::string("\x07\x04\xB0\x04", 4);
    /// Texts by full name, such as u"\\StringFileInfo\\040704B0\\ProductName".
    std::map<std::u16string, std::u16string> texts;
};

/// Version resources in memory, by full path.
class FakeVersionResource : public VersionResource {
public:
    std::map<std::u16string, FakeVersionFile> files;
    /// What FullPathName puts in front of a path without a drive.
    std::u16string currentFolder = u"C:\\Aktuell\\";
    mutable std::vector<std::u16string> log;  ///< every value asked for, in order

    /// Adds a text to the German table of a file.
    void SetText(const std::u16string& path, const std::u16string& name, std::u16string text) {
        files[path].texts[u"\\StringFileInfo\\040704B0\\" + name] = std::move(text);
    }

    std::u16string FullPathName(std::u16string_view path) const override {
        if (path.empty() || path.find(u':') != std::u16string_view::npos) {
            return std::u16string(path);
        }
        return currentFolder + std::u16string(path);
    }

    std::string ReadBlock(std::u16string_view path) const override {
        const auto file = files.find(std::u16string(path));
        if (file == files.end()) {
            return {};
        }
        read_ = &file->second;
        return "block";
    }

    std::optional<std::string> QueryBytes(std::string&, std::u16string_view value) const override {
        log.emplace_back(value);
        if (value == u"\\VarFileInfo\\Translation") {
            return read_->translation;
        }
        if (value != u"\\" || !read_->record) {
            return std::nullopt;
        }
        std::string bytes;
        for (const std::uint32_t field : *read_->record) {
            for (unsigned shift = 0; shift < 32; shift += 8) {
                bytes += static_cast<char>(field >> shift & 0xFFU);
            }
        }
        bytes.resize(read_->recordSize);
        return bytes;
    }

    std::optional<std::u16string> QueryText(std::string&,
                                            std::u16string_view value) const override {
        log.emplace_back(value);
        const auto text = read_->texts.find(std::u16string(value));
        return text == read_->texts.end() ? std::nullopt : std::optional(text->second);
    }

    std::u16string LanguageName(std::uint16_t language) const override {
        return language == 0x0407 ? u"Deutsch (Deutschland)" : u"";
    }

private:
    mutable const FakeVersionFile* read_ = nullptr;
};

}  // namespace tarvex
