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
        return {false, u"Ein Pfad antwortet nicht …"};
    }
    const auto answer = result->entries.find(list.Field(1));
    return answer != result->entries.end() ? answer->second
                                           : EntryAnswer{false, result->commandLine};
}

}  // namespace tarvex
