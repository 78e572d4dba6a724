#include "window/preview/PreviewQueue.h"

#include <algorithm>
#include <utility>

namespace tarvex {
namespace {

/// Milliseconds until a time that is near; 0 when it has come.
std::uint32_t Until(std::uint32_t time, std::uint32_t now) {
    const std::uint32_t left = time - now;
    return left > PreviewQueue::kForever / 2 ? 0 : left;
}

}  // namespace

void PreviewQueue::Put(PreviewRequest request, std::uint32_t now) {
    Enter(std::move(request), now + kRest);
}

void PreviewQueue::PutAtOnce(PreviewRequest request, std::uint32_t now) {
    Enter(std::move(request), now);
}

std::optional<PreviewJob> PreviewQueue::Take(std::uint32_t now) {
    if (WaitTime(now) > 0) {
        return std::nullopt;
    }
    running_ = true;
    taken_ = waiting_->number;
    since_ = now;
    return std::exchange(waiting_, std::nullopt);
}

std::uint32_t PreviewQueue::WaitTime(std::uint32_t now) const {
    if (!waiting_) {
        return kForever;
    }
    const std::uint32_t rest = Until(due_, now);
    return running_ ? std::max(rest, Until(since_ + kStuck, now)) : rest;
}

bool PreviewQueue::Finish(std::int32_t number, PreviewResult result) {
    running_ = running_ && number != taken_;
    if (number != latest_) {
        return false;
    }
    finished_ = number;
    result_ = std::move(result);
    return true;
}

std::optional<PreviewResult> PreviewQueue::TakeResult() {
    return std::exchange(result_, std::nullopt);
}

void PreviewQueue::Enter(PreviewRequest request, std::uint32_t due) {
    waiting_ = {++latest_, std::move(request)};
    due_ = due;
}

}  // namespace tarvex
