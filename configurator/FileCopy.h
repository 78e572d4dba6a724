#pragma once

#include <string>
#include <string_view>

#include "configurator/OutputFile.h"
#include "platform/FileStore.h"

namespace tarvex {

/// A new file beside the one that it is to become; it goes with this object unless it has taken
/// that one's place. Constructor and Place throw what the store throws; the target is then as it
/// was.
class FileCopy {
public:
    FileCopy(FileStore& store, std::u16string_view target, std::string_view bytes)
        : store_(store), path_(store.WriteNewBeside(target, bytes)) {}
    FileCopy(const FileCopy&) = delete;
    FileCopy& operator=(const FileCopy&) = delete;
    ~FileCopy() {
        if (path_.empty()) {
            return;
        }
        try {
            store_.Remove(path_);
        } catch (...) {
            // What went wrong before is what the user must hear of.
        }
    }

    const std::u16string& Path() const { return path_; }

    /// As PlaceOutput.
    Problems Place(std::u16string_view target, const OutputRules& rules, Problems& notes) {
        Problems problems = PlaceOutput(store_, path_, target, rules, notes);
        if (problems.empty()) {
            path_.clear();
        }
        return problems;
    }

private:
    FileStore& store_;
    std::u16string path_;
};

}  // namespace tarvex
