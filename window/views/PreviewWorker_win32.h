#pragma once

#include <functional>
#include <optional>

#include "platform/win32/WindowsApi.h"
#include "window/preview/Preview.h"

namespace tarvex {

/// Works out previews in the background, by the rules of PreviewQueue. The window's thread is never
/// held up, neither by a run nor by the end of this object: a run that waits for a path that does
/// not answer is left behind, ends when the path answers or with the program, and its result is
/// dropped. All members are for the window's thread.
class PreviewWorker {
public:
    /// Is called in other threads, in more than one at a time when a run is left behind. What it
    /// refers to must live as long as the program.
    using Run = std::function<PreviewResult(const PreviewRequest& request)>;

    /// `message` is posted to the window, without parameters, when there is a result to take; null:
    /// to none.
    PreviewWorker(HWND window, UINT message, Run run);
    PreviewWorker(const PreviewWorker&) = delete;
    PreviewWorker& operator=(const PreviewWorker&) = delete;
    ~PreviewWorker();

    /// To be worked on when no other request has come for half a second.
    void Request(PreviewRequest request);

    /// To be worked on now.
    void RequestAtOnce(PreviewRequest request);

    /// The result of the latest request, once; a run that failed gives one that says so.
    std::optional<PreviewResult> TakeResult();

    /// The same, waited for at most so many milliseconds.
    std::optional<PreviewResult> ResultWithin(DWORD limit);

    /// True until the latest request has its result: what is shown is of an older one.
    bool IsOld() const;

    /// True when the result is waited for longer than usual, because a path does not answer. No
    /// message tells it: ask from time to time while IsOld.
    bool IsStuck() const;

private:
    struct Shared;

    template <class Enter>
    void Put(Enter enter);

    Shared* shared_;
};

/// The preview on the system's own registry and files.
PreviewResult RunSystemPreview(const PreviewRequest& request);

}  // namespace tarvex
