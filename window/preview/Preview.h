#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "configurator/Model.h"
#include "configurator/checks/Finding.h"

namespace tarvex {

/// What is to be found out about a document, complete in itself: it is worked on while the user
/// goes on editing.
struct PreviewRequest {
    Settings settings;
    std::u16string program;  ///< full path of the launcher, which need not exist yet
    std::u16string pc;       ///< path of a described PC (.pc); empty: this PC
};

/// What an entry of a key list leads to on that PC.
struct EntryAnswer {
    bool exists = false;  ///< the file is there
    std::u16string text;  ///< German, one line: the path, or why there is none
};

/// By the number of the list's first field and the text of the entry without blanks around it: an
/// entry that was changed or moved since never has the answer of another one.
using EntryAnswers = std::map<std::pair<std::int32_t, std::u16string>, EntryAnswer>;

/// What a launcher with these settings would do on that PC, and what there is to say of them.
struct PreviewResult {
    bool starts = false;         ///< Access would be started
    std::u16string commandLine;  ///< credentials masked; of a failed start the German reason
    std::u16string text;         ///< whole text of the dry run's log window, lines CR LF
    std::vector<std::u16string>
        remarks;        ///< German: what the description does not say, and the like
    Findings findings;  ///< of the settings themselves
    EntryAnswers entries;
};

}  // namespace tarvex
