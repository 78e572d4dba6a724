#pragma once

#include <string>

#include "branding/BrandFields.h"
#include "window/views/PreviewWorker_win32.h"

namespace tarvex {

/// Answers what an entry of a key list leads to while it is edited. The window waits for a moment
/// only: after that the answer is that a path does not answer.
class EntryAsker {
public:
    explicit EntryAsker(PreviewWorker::Run run = RunSystemPreview)
        : worker_(nullptr, 0, std::move(run)) {}

    /// `about` names launcher and PC; what else is set there does not count.
    EntryAnswer Answer(const PreviewRequest& about, const KeyListFields& list,
                       const std::u16string& entry);

private:
    PreviewWorker worker_;
};

}  // namespace tarvex
