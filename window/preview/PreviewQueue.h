#pragma once

#include <cstdint>
#include <optional>

#include "window/preview/Preview.h"

namespace tarvex {

/// A request on its way to a worker.
struct PreviewJob {
    std::int32_t number = 0;  ///< rises with every request
    PreviewRequest request;
};

/// Decides when which request is worked on, and which result is shown: always that of the latest
/// request. Times are milliseconds of a clock that may begin again at 0 (Clock::Milliseconds).
/// Knows no threads; whoever has several lets only one in at a time.
class PreviewQueue {
public:
    /// The user is left alone until he has rested for so long.
    static constexpr std::uint32_t kRest = 500;

    /// A run that has not ended by then waits for something that does not answer.
    static constexpr std::uint32_t kStuck = 3000;

    static constexpr std::uint32_t kForever = 0xFFFFFFFF;

    /// A request to be worked on after a rest, in place of one that still waits.
    void Put(PreviewRequest request, std::uint32_t now);

    /// The same without a rest.
    void PutAtOnce(PreviewRequest request, std::uint32_t now);

    /// The request that is due. Nothing while there is none, and while another one is worked on,
    /// unless that one is stuck: nobody waits for it any longer.
    std::optional<PreviewJob> Take(std::uint32_t now);

    /// How long Take certainly gives nothing; kForever: until the next request.
    std::uint32_t WaitTime(std::uint32_t now) const;

    /// The result of a job. False when it is dropped, because there is a newer request.
    bool Finish(std::int32_t number, PreviewResult result);

    /// The latest result, once.
    std::optional<PreviewResult> TakeResult();

    /// True while the latest request has no result yet: what is shown is old.
    bool IsOld() const { return latest_ != finished_; }

    /// True when a run has been waited for too long.
    bool IsStuck(std::uint32_t now) const { return running_ && now - since_ >= kStuck; }

private:
    void Enter(PreviewRequest request, std::uint32_t due);

    std::optional<PreviewJob> waiting_;
    std::uint32_t due_ = 0;
    bool running_ = false;       // the job that was taken last has not ended
    std::int32_t taken_ = 0;     // its number
    std::uint32_t since_ = 0;    // when it was taken
    std::int32_t latest_ = 0;    // number of the latest request
    std::int32_t finished_ = 0;  // number of the latest result
    std::optional<PreviewResult> result_;
};

}  // namespace tarvex
