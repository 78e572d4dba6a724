#include "simulation/DescribedFiles.h"

namespace tarvex {

DescribedFiles::DescribedFiles(const PcDescription& description) : program_(description.program) {}

bool DescribedFiles::FileExists(std::u16string_view path) const {
    return path == program_;
}

bool DescribedFiles::Append(std::u16string_view path, std::string_view bytes) {
    static_cast<void>(path);
    static_cast<void>(bytes);
    return true;
}

bool DescribedFiles::Write(std::u16string_view path, std::string_view bytes, bool overwrite) {
    static_cast<void>(path);
    static_cast<void>(bytes);
    static_cast<void>(overwrite);
    return true;
}

}  // namespace tarvex
