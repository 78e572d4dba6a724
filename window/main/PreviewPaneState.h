#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvex {

/// What the lower part of the main window shows.
struct PreviewPaneState {
    std::vector<std::u16string> pcs;  ///< to choose from
    std::int32_t pc = 0;              ///< 0-based, the chosen one

    std::u16string commandLine;  ///< or why nothing would be started
    std::u16string text;         ///< of the dry run, lines CR LF
    bool isOld = false;          ///< of settings that have changed since

    bool showsFindings = false;            ///< in place of the text
    std::vector<std::u16string> findings;  ///< a line each
    std::u16string findingsTitle;          ///< "2 Hinweise", on the button that shows them
};

}  // namespace tarvex
