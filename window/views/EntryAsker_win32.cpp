#include "window/views/EntryAsker_win32.h"

namespace tarvex {

namespace {

constexpr DWORD kMoment = 250;  // milliseconds

}  // namespace

EntryAnswer EntryAsker::Answer(const PreviewRequest& about, const KeyListFields& list,
                               const std::u16string& entry) {
    PreviewRequest request{{}, about.program, about.pc};
    request.settings.Set(list.Field(1), entry);
    worker_.RequestAtOnce(std::move(request));
    const std::optional<PreviewResult> result = worker_.ResultWithin(kMoment);
    if (!result) {
        return {false, u"Ein Pfad antwortet nicht…"};
    }
    // One that is divided is answered for by its first part.
    return result->entries.empty() ? EntryAnswer{false, result->commandLine}
                                   : result->entries.begin()->second;
}

}  // namespace tarvex
