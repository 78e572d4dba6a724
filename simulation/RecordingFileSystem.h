#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "text/Text.h"

namespace tarvex {

/// Hands the question for a file on and keeps the answers, each question once. Nothing is written.
class RecordingFileSystem : public FileSystem {
public:
    struct Answer {
        std::u16string path;  ///< as it was asked for
        bool exists = false;
    };

    /// `files` must outlive this object.
    explicit RecordingFileSystem(const FileSystem& files) : files_(files) {}

    const std::vector<Answer>& Answers() const { return answers_; }

    bool FileExists(std::u16string_view path) const override {
        const bool exists = files_.FileExists(path);
        const bool known = std::any_of(
            answers_.begin(), answers_.end(),
            [path](const Answer& other) { return text::EqualsIgnoreCase(other.path, path); });
        if (!known) {
            answers_.push_back({std::u16string(path), exists});
        }
        return exists;
    }
    bool Append(std::u16string_view, std::string_view) override { return true; }
    bool Write(std::u16string_view, std::string_view, bool) override { return true; }

private:
    const FileSystem& files_;
    mutable std::vector<Answer> answers_;
};

}  // namespace tarvex
